#include "lib/text/alternatives.h"

#include <cstddef>

namespace zolt_text {

std::string alternatives(const std::vector<std::string>& texts) {
    std::string choice;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (i > 0) {
            choice += i + 1 == texts.size() ? " or " : ", ";
        }
        choice += texts[i];
    }
    return choice;
}

}  // namespace zolt_text
