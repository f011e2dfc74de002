#include "bench/system/machine/crowd.h"

namespace bench {

std::string Crowd::describe() const {
    if (!any()) return "";
    std::string text = oneProcessor ? "one processor for everything" : "all processors";
    if (neighbours > 0) {
        text += ", " + std::to_string(neighbours) +
                (neighbours == 1 ? " busy process beside" : " busy processes beside");
    }
    return text;
}

}  // namespace bench
