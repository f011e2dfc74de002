#include "apps/zoltctl/console/await_input.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace zoltctl {

void awaitInput(int descriptor, const std::function<void()>& onReadable) {
    for (;;) {
        std::array<pollfd, 2> waited{pollfd{STDIN_FILENO, POLLIN, 0},
                                     pollfd{descriptor, POLLIN, 0}};
        if (::poll(waited.data(), waited.size(), -1) < 0 && errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "poll");
        }
        if (waited[1].revents != 0) {
            onReadable();
        }
        if (waited[0].revents != 0) {
            return;
        }
    }
}

}  // namespace zoltctl
