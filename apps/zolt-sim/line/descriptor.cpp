#include "apps/zolt-sim/line/descriptor.h"

#include <sys/eventfd.h>

#include <cerrno>
#include <system_error>

namespace sim {

Descriptor checked(int number, const char* what) {
    if (number < 0) {
        throw std::system_error(errno, std::generic_category(), what);
    }
    return Descriptor(number);
}

StopEvent::StopEvent() : event_(checked(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK), "eventfd")) {}

void StopEvent::wake() {
    // Fails only when the count is at its top, and then the event is readable anyway.
    static_cast<void>(::eventfd_write(event_.get(), 1));
}

}  // namespace sim
