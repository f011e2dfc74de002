#include "apps/zolt-check/findings/finding.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace zolt_check {

void Findings::error(ConfigPlace place, std::string text) {
    list_.push_back({Severity::kError, place, std::move(text)});
}

void Findings::warning(ConfigPlace place, std::string text) {
    list_.push_back({Severity::kWarning, place, std::move(text)});
}

std::vector<Finding> Findings::sorted() const {
    std::vector<Finding> sorted = list_;
    std::stable_sort(sorted.begin(), sorted.end(), [](const Finding& a, const Finding& b) {
        return std::tie(a.place.line, a.place.column) < std::tie(b.place.line, b.place.column);
    });
    return sorted;
}

}  // namespace zolt_check
