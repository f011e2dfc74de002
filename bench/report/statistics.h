#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace bench {

/// The middle value, or the mean of the two in the middle; 0 without values.
double median(std::vector<double> values);

/// The smallest value that `percent` of all values do not exceed; 0 without values.
double percentile(std::vector<double> values, double percent);

/// Counts whole microseconds without allocating, so that a thread that must not be late can
/// add values. A value above the range counts as the end of the range.
class Histogram {
  public:
    void add(double microseconds);
    void add(const Histogram& other);
    std::uint64_t count() const { return count_; }
    /// The result of percentile() above, rounded down to whole microseconds.
    double percentile(double percent) const;

  private:
    static constexpr std::size_t kRange = 5000;

    std::array<std::uint64_t, kRange> buckets_{};
    std::uint64_t count_ = 0;
};

}  // namespace bench
