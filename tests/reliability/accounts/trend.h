#pragma once

#include <cstddef>
#include <vector>

namespace reliability {

struct TrendPoint {
    double minutes = 0;
    double value = 0;
};

/// The straight line through all points except the first third, which is the warm-up.
struct Trend {
    std::size_t points = 0;
    /// The rise per minute, and its standard error.
    double slope = 0;
    double error = 0;
    /// The minutes from the first point to the last.
    double span = 0;

    /// True if the rise over the span is more than `noise` and the slope more than three
    /// times its standard error: neither chance nor a single step explains such a rise.
    bool risesAbove(double noise) const;
};

Trend trendOf(const std::vector<TrendPoint>& points);

}  // namespace reliability
