// The link counts read calls and not time, so a test on a busy machine could
// lose it where hardware would not. Here an empty read of a terminal waits a
// moment, which stretches the link's patience to many seconds. The test program
// is linked with --wrap=read.
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>

namespace {

constexpr timespec kMoment{0, 100'000};

bool isTerminal(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISCHR(status.st_mode);
}

}  // namespace

extern "C" {
ssize_t __real_read(int descriptor, void* buffer, size_t size);
ssize_t __wrap_read(int descriptor, void* buffer, size_t size);

ssize_t __wrap_read(int descriptor, void* buffer, size_t size) {
    const ssize_t count = __real_read(descriptor, buffer, size);
    if (count != -1 || errno != EAGAIN || !isTerminal(descriptor)) {
        return count;
    }
    pollfd entry{descriptor, POLLIN, 0};
    ::ppoll(&entry, 1, &kMoment, nullptr);
    errno = EAGAIN;
    return count;
}
}
