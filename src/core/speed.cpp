#include "core/speed.h"

#include <limits>

std::int32_t threadDelayOfPercent(long percent) {
    // A line through 5000 microseconds at 1 % and 1 microsecond at 100 %.
    const float delay = (500000.0F - static_cast<float>(percent) * 4999.0F) / 99.0F;
    using Limits = std::numeric_limits<std::int32_t>;
    // INT32_MAX is not a float; 2147483648 is the nearest float above it.
    if (delay >= 2147483648.0F) {
        return Limits::max();
    }
    if (delay <= -2147483648.0F) {
        return Limits::min();
    }
    return static_cast<std::int32_t>(delay);
}
