#include "bench/report/results.h"

#include <algorithm>
#include <numeric>

#include "bench/report/statistics.h"

namespace bench {

void Results::add(const std::string& figure, const std::string& contestant, double value) {
    values_[figure][contestant].push_back(value);
}

void Results::add(const Results& other) {
    for (const auto& [figure, byContestant] : other.values_) {
        for (const auto& [contestant, rounds] : byContestant) {
            for (const double value : rounds) add(figure, contestant, value);
        }
    }
}

const Results::Rounds& Results::rounds(const std::string& figure,
                                       const std::string& contestant) const {
    static const Rounds kNone;
    const auto byContestant = values_.find(figure);
    if (byContestant == values_.end()) return kNone;
    const auto rounds = byContestant->second.find(contestant);
    return rounds == byContestant->second.end() ? kNone : rounds->second;
}

std::optional<double> Results::value(const std::string& figure,
                                     const std::string& contestant) const {
    const Rounds& values = rounds(figure, contestant);
    if (values.empty()) return std::nullopt;
    return median(values);
}

std::optional<double> Results::ratio(const std::string& figure, const std::string& contestant,
                                     const std::string& to) const {
    const Rounds& own = rounds(figure, contestant);
    const Rounds& others = rounds(figure, to);
    // A run that was broken off has measured some contestants once more than others.
    const std::size_t common = std::min(own.size(), others.size());
    if (common == 0) return std::nullopt;
    Rounds ratios;
    for (std::size_t i = 0; i < common; ++i) {
        if (others[i] == 0) return std::nullopt;
        ratios.push_back(own[i] / others[i]);
    }
    return median(ratios);
}

double Results::sum(const std::string& figure, const std::string& contestant) const {
    const Rounds& values = rounds(figure, contestant);
    return std::accumulate(values.begin(), values.end(), 0.0);
}

}  // namespace bench
