#include "tests/support/doubles/quick_bus.h"

#include <algorithm>

namespace support {

ssize_t QuickBus::read(char* buffer, std::size_t size) {
    if (pendingSize_ == 0) return -1;
    const std::size_t count = std::min(size, pendingSize_);
    std::copy_n(pending_.begin(), count, buffer);
    pendingSize_ = 0;
    return static_cast<ssize_t>(count);
}

void QuickBus::written(std::string_view frame) {
    const char request = frame.at(1);
    if (request == wire::kPoll) {
        const auto address = static_cast<std::size_t>(frame.at(2));
        const std::array head{wire::kPollAnswer, frame.at(2)};
        answer({head.data(), head.size()},
               {inputs.at(address).data(), static_cast<std::size_t>(frame.at(3))});
        ++polls_;
        return;
    }
    ++requests_;
    if (request == wire::kHardwareCheck) {
        answer("\x06", "1.04");
    } else if (request == wire::kDiscovery) {
        answer({&wire::kDiscoveryAnswer, 1}, {kinds.data(), kinds.size()});
    } else {
        answer("\x06", "");
    }
}

void QuickBus::answer(std::string_view first, std::string_view rest) {
    pending_[0] = static_cast<char>(first.size() + rest.size());
    const auto second = std::copy(first.begin(), first.end(), pending_.begin() + 1);
    std::copy(rest.begin(), rest.end(), second);
    pendingSize_ = 1 + first.size() + rest.size();
}

}  // namespace support
