#include "tests/reliability/accounts/trend.h"

#include <cmath>

namespace reliability {
namespace {

constexpr std::size_t kFewest = 3;
constexpr double kStandardErrors = 3;

}  // namespace

bool Trend::risesAbove(double noise) const {
    return points >= kFewest && slope * span > noise && slope > kStandardErrors * error;
}

Trend trendOf(const std::vector<TrendPoint>& points) {
    const std::vector<TrendPoint> judged(
        points.begin() + static_cast<std::ptrdiff_t>(points.size() / 3), points.end());
    Trend trend;
    trend.points = judged.size();
    if (judged.size() < kFewest) return trend;
    const auto count = static_cast<double>(judged.size());
    double meanMinutes = 0;
    double meanValue = 0;
    for (const auto& point : judged) {
        meanMinutes += point.minutes / count;
        meanValue += point.value / count;
    }
    double squares = 0;
    double products = 0;
    for (const auto& point : judged) {
        squares += (point.minutes - meanMinutes) * (point.minutes - meanMinutes);
        products += (point.minutes - meanMinutes) * (point.value - meanValue);
    }
    trend.span = judged.back().minutes - judged.front().minutes;
    if (squares <= 0) return trend;
    trend.slope = products / squares;
    double residuals = 0;
    for (const auto& point : judged) {
        const double off = point.value - meanValue - trend.slope * (point.minutes - meanMinutes);
        residuals += off * off;
    }
    trend.error = std::sqrt(residuals / (count - 2) / squares);
    return trend;
}

}  // namespace reliability
