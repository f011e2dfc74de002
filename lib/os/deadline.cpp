#include "lib/os/deadline.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace zolt_os {

int pollMilliseconds(std::optional<Clock::time_point> end) {
    constexpr std::chrono::milliseconds kLongest{60'000};
    if (!end) {
        return -1;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*end - Clock::now());
    return static_cast<int>(std::clamp(left, std::chrono::milliseconds{0}, kLongest).count());
}

bool waitFor(int descriptor, short events, const Deadline& deadline) {
    for (;;) {
        std::array<pollfd, 2> waited{pollfd{descriptor, events, 0},
                                     pollfd{deadline.interrupt(), POLLIN, 0}};
        const int ready = ::poll(waited.data(), waited.size(), pollMilliseconds(deadline.end()));
        if (ready < 0 && errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "poll");
        }
        if (ready > 0) {
            return waited[1].revents == 0 && waited[0].revents != 0;
        }
        if (ready == 0 && Clock::now() >= deadline.end()) {
            return false;
        }
    }
}

bool pauseFor(Seconds time, const Deadline& deadline) {
    const Deadline pause = Deadline::in(time, deadline.interrupt());
    const bool whole = pause.end() <= deadline.end();
    // No event can come on descriptor -1, so only the time or the interrupt ends the wait.
    waitFor(-1, 0, whole ? pause : deadline);
    return whole && Clock::now() >= pause.end();
}

}  // namespace zolt_os
