#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "apps/zoltctl/console/line_input.h"

namespace ctl {
namespace {

class PlainInput : public LineInput {
  public:
    std::optional<std::string> next(int descriptor,
                                    const std::function<void()>& onReadable) override {
        for (;;) {
            const std::size_t end = buffer_.find('\n');
            if (end != std::string::npos) {
                std::string line = buffer_.substr(0, end);
                buffer_.erase(0, end + 1);
                return line;
            }
            awaitInput(descriptor, onReadable);
            std::array<char, 4096> bytes;
            const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
            if (count > 0) {
                buffer_.append(bytes.data(), static_cast<std::size_t>(count));
            } else if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
                return lastLine();
            }
        }
    }
    void stepAside() override {}
    void comeBack() override {}

  private:
    /// The input may end without a line feed.
    std::optional<std::string> lastLine() {
        if (buffer_.empty()) {
            return std::nullopt;
        }
        return std::exchange(buffer_, "");
    }

    std::string buffer_;
};

}  // namespace

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

std::unique_ptr<LineInput> makePlainInput() {
    return std::make_unique<PlainInput>();
}

}  // namespace ctl
