#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace bench {

/// The values of one run: for each figure (by its key, see figures.h) and each
/// contestant (by its label) one value per round, in the order of the rounds.
class Results {
  public:
    using Rounds = std::vector<double>;
    using ByContestant = std::map<std::string, Rounds>;

    void add(const std::string& figure, const std::string& contestant, double value);
    /// Appends the rounds of another run of measurements.
    void add(const Results& other);

    /// Empty when the figure was not measured.
    const Rounds& rounds(const std::string& figure, const std::string& contestant) const;
    /// The median of the rounds; nothing without a round.
    std::optional<double> value(const std::string& figure, const std::string& contestant) const;
    /// The median of the ratios of those rounds in which both were measured, so that
    /// what disturbs a whole round does not count; nothing without such a round.
    std::optional<double> ratio(const std::string& figure, const std::string& contestant,
                                const std::string& to) const;
    double sum(const std::string& figure, const std::string& contestant) const;

    const std::map<std::string, ByContestant>& all() const { return values_; }

  private:
    std::map<std::string, ByContestant> values_;
};

}  // namespace bench
