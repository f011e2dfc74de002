#include "apps/zolt-sim/adapter/pty_pair.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <termios.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "apps/zolt-sim/error.h"
#include "lib/os/descriptor.h"

namespace zolt_sim {
namespace {

void check(bool done, const char* what) {
    if (!done) {
        throw Error(std::string(what) + ": " + std::strerror(errno));
    }
}

std::string nameOfHostEnd(int wire) {
    std::array<char, 128> name{};
    check(::ptsname_r(wire, name.data(), name.size()) == 0, "ptsname");
    return name.data();
}

}  // namespace

PtyPair::PtyPair()
    : wire_(zolt_os::checked(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC),
                             "posix_openpt")) {
    check(::grantpt(wire_.get()) == 0, "grantpt");
    check(::unlockpt(wire_.get()) == 0, "unlockpt");
    hostPath_ = nameOfHostEnd(wire_.get());
    hostEnd_ = zolt_os::checked(
        ::open(hostPath_.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC), hostPath_.c_str());
    termios settings{};
    check(::tcgetattr(hostEnd_.get(), &settings) == 0, "tcgetattr");
    ::cfmakeraw(&settings);
    check(::tcsetattr(hostEnd_.get(), TCSANOW, &settings) == 0, "tcsetattr");
    watch_ = zolt_os::checked(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC), "inotify_init1");
    check(::inotify_add_watch(watch_.get(), hostPath_.c_str(), IN_OPEN | IN_CLOSE) >= 0,
          "inotify_add_watch");
}

std::size_t PtyPair::read(std::span<std::uint8_t> buffer) {
    const ssize_t count = ::read(wire_.get(), buffer.data(), buffer.size());
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

bool PtyPair::write(const Bytes& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::write(wire_.get(), bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return false;
        }
        done += static_cast<std::size_t>(count);
    }
    return true;
}

PtyPair::HostActions PtyPair::takeHostActions() {
    HostActions actions;
    alignas(inotify_event) std::array<char, 4096> buffer{};
    for (;;) {
        const ssize_t count = ::read(watch_.get(), buffer.data(), buffer.size());
        if (count <= 0) {
            return actions;
        }
        for (std::size_t offset = 0; offset < static_cast<std::size_t>(count);) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + offset, sizeof event);
            actions.opened = actions.opened || (event.mask & IN_OPEN) != 0;
            actions.closed = actions.closed || (event.mask & IN_CLOSE) != 0;
            offset += sizeof event + event.len;
        }
    }
}

void PtyPair::discardUnread() {
    ::tcflush(hostEnd_.get(), TCIFLUSH);
}

}  // namespace zolt_sim
