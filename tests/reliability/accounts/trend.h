#pragma once

#include <cstddef>
#include <vector>

namespace reliability {

struct TrendPoint {
    double minutes = 0;
    double value = 0;
};

/// The straight line through the points after the warm-up, which is their first
/// third.
struct Trend {
    std::size_t points = 0;
    /// Per minute, and its standard error.
    double slope = 0;
    double error = 0;
    /// Minutes from the first point to the last.
    double span = 0;

    /// The rise over the span is more than `noise`, and the slope more than three
    /// times its standard error: neither chance nor a single step explains it.
    bool risesAbove(double noise) const;
};

Trend trendOf(const std::vector<TrendPoint>& points);

}  // namespace reliability
