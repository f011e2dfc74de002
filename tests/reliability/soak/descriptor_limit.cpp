#include "tests/reliability/soak/descriptor_limit.h"

#include <cerrno>
#include <system_error>

namespace reliability {

void DescriptorLimit::set(pid_t daemon, rlim_t limit, std::chrono::milliseconds duration) {
    if (inForce_) return;
    rlimit usual{};
    if (::prlimit(daemon, RLIMIT_NOFILE, nullptr, &usual) != 0) {
        throw std::system_error(errno, std::generic_category(), "prlimit");
    }
    const rlimit low{limit, usual.rlim_max};
    if (::prlimit(daemon, RLIMIT_NOFILE, &low, nullptr) != 0) {
        throw std::system_error(errno, std::generic_category(), "prlimit");
    }
    inForce_ = {daemon, usual, support::Clock::now() + duration};
}

bool DescriptorLimit::tick() {
    if (!inForce_ || support::Clock::now() < inForce_->end) return false;
    return lift();
}

bool DescriptorLimit::lift() {
    if (!inForce_) return false;
    // A daemon that has ended needs it no more.
    ::prlimit(inForce_->daemon, RLIMIT_NOFILE, &inForce_->usual, nullptr);
    inForce_.reset();
    return true;
}

}  // namespace reliability
