#include "tests/zoltctl/terminal.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "tests/support/wait.h"

namespace ctl_test {

Terminal::Terminal() : outer_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK)) {
    std::array<char, 64> name{};
    if (!outer_.valid() || ::grantpt(outer_.get()) != 0 || ::unlockpt(outer_.get()) != 0 ||
        ::ptsname_r(outer_.get(), name.data(), name.size()) != 0) {
        throw std::system_error(errno, std::generic_category(), "pseudo-terminal");
    }
    inner_.reset(::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (!inner_.valid()) throw std::system_error(errno, std::generic_category(), name.data());
}

void Terminal::type(const std::string& keys) const {
    if (::write(outer_.get(), keys.data(), keys.size()) != static_cast<ssize_t>(keys.size())) {
        throw std::system_error(errno, std::generic_category(), "pseudo-terminal");
    }
}

bool Terminal::shows(const std::string& text) {
    return support::waitUntil([&] {
        std::array<char, 4096> buffer{};
        ssize_t count = 0;
        while ((count = ::read(outer_.get(), buffer.data(), buffer.size())) > 0) {
            screen_.append(buffer.data(), static_cast<std::size_t>(count));
        }
        const auto found = screen_.find(text, seen_);
        if (found == std::string::npos) return false;
        seen_ = found + text.size();
        return true;
    });
}

}  // namespace ctl_test
