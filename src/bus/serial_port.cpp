#include "bus/serial_port.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>

namespace {

/// A request that is sent before tcsetattr, as it always was. It has no known effect and
/// its result is ignored: tcsetattr alone configures the port.
constexpr unsigned long kDriverSettings = 0x403C7414;

}  // namespace

bool SerialPort::open(const std::string& path) {
    MutexGuard guard(lock_);
    closeLocked();
    descriptor_ = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_SYNC | O_CLOEXEC);
    return descriptor_ != -1;
}

int SerialPort::apply(const termios& settings) {
    MutexGuard guard(lock_);
    ioctl(descriptor_, kDriverSettings, &settings);
    return tcsetattr(descriptor_, TCSANOW, &settings) == 0 ? 0 : errno;
}

ssize_t SerialPort::read(char* buffer, std::size_t size) {
    MutexGuard guard(lock_);
    return ::read(descriptor_, buffer, size);
}

ssize_t SerialPort::write(const char* bytes, std::size_t size) {
    MutexGuard guard(lock_);
    return ::write(descriptor_, bytes, size);
}

void SerialPort::close() {
    MutexGuard guard(lock_);
    closeLocked();
}

void SerialPort::closeLocked() {
    if (descriptor_ != -1) {
        ::close(descriptor_);
        descriptor_ = -1;
    }
}
