#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "apps/zoltctl/console/await_input.h"
#include "apps/zoltctl/console/line_input.h"

namespace zoltctl {
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
    /// What is left at the end of the input: it may end without a line feed.
    std::optional<std::string> lastLine() {
        if (buffer_.empty()) {
            return std::nullopt;
        }
        return std::exchange(buffer_, "");
    }

    std::string buffer_;
};

}  // namespace

std::unique_ptr<LineInput> makePlainInput() {
    return std::make_unique<PlainInput>();
}

}  // namespace zoltctl
