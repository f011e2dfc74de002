#include "lib/os/event.h"

#include <sys/eventfd.h>

namespace zolt_os {

Event::Event() : descriptor_(checked(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK), "eventfd")) {}

void Event::raise() {
    // The write can fail only when the counter is full, and then the event is readable.
    static_cast<void>(::eventfd_write(descriptor_.get(), 1));
}

}  // namespace zolt_os
