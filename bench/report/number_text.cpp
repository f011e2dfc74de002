#include "bench/report/number_text.h"

#include <iomanip>
#include <sstream>

namespace bench {

std::string numberText(double value, int digits) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(digits) << value;
    // A value just below zero rounds to "-0".
    if (text.str().find_first_not_of("-0.") == std::string::npos && text.str().front() == '-') {
        return text.str().substr(1);
    }
    return text.str();
}

}  // namespace bench
