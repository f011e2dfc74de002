#include "bench/report/statistics.h"

#include <algorithm>
#include <cmath>

namespace bench {
namespace {

// The position of the percentile among `count` values, counted from 1.
std::size_t rankOf(double percent, std::size_t count) {
    const double rank = std::ceil(percent / 100.0 * static_cast<double>(count));
    return std::clamp<std::size_t>(static_cast<std::size_t>(rank), 1, count);
}

}  // namespace

double median(std::vector<double> values) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    if (values.size() % 2 == 1) return values[middle];
    return (values[middle - 1] + values[middle]) / 2;
}

double percentile(std::vector<double> values, double percent) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    return values[rankOf(percent, values.size()) - 1];
}

void Histogram::add(double microseconds) {
    const double bucket = std::clamp(microseconds, 0.0, static_cast<double>(kRange - 1));
    ++buckets_[static_cast<std::size_t>(bucket)];
    ++count_;
}

void Histogram::add(const Histogram& other) {
    for (std::size_t i = 0; i < kRange; ++i) buckets_[i] += other.buckets_[i];
    count_ += other.count_;
}

double Histogram::percentile(double percent) const {
    if (count_ == 0) return 0;
    std::size_t left = rankOf(percent, count_);
    for (std::size_t i = 0; i < kRange; ++i) {
        if (buckets_[i] >= left) return static_cast<double>(i);
        left -= buckets_[i];
    }
    return static_cast<double>(kRange - 1);
}

}  // namespace bench
