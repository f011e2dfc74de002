#include "tests/support/process/silent_adapter.h"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>

#include <cerrno>
#include <string>
#include <system_error>

namespace support {

SilentAdapter::SilentAdapter(std::filesystem::path link)
    : link_(std::move(link)), controller_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    const char* name = nullptr;
    if (!controller_.valid() || ::grantpt(controller_.get()) != 0 ||
        ::unlockpt(controller_.get()) != 0 || (name = ::ptsname(controller_.get())) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "pseudo-terminal");
    }
    // The terminal is kept open in raw mode: otherwise it would echo, which is an answer.
    terminal_.reset(::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC));
    termios settings{};
    ::cfmakeraw(&settings);
    if (!terminal_.valid() || ::tcsetattr(terminal_.get(), TCSANOW, &settings) != 0) {
        throw std::system_error(errno, std::generic_category(), name);
    }
    std::filesystem::create_symlink(name, link_);
}

SilentAdapter::~SilentAdapter() {
    std::error_code gone;
    std::filesystem::remove(link_, gone);
}

}  // namespace support
