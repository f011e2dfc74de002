#include "apps/zolt-sim/words.h"

namespace zolt_sim {

Words splitWords(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    Words words;
    std::size_t begin = text.find_first_not_of(kBlanks);
    while (begin != std::string_view::npos) {
        const std::size_t end = text.find_first_of(kBlanks, begin);
        words.emplace_back(text.substr(begin, end - begin));
        begin = text.find_first_not_of(kBlanks, end);
    }
    return words;
}

}  // namespace zolt_sim
