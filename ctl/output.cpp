#include "ctl/output.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <nlohmann/json.hpp>
#include <system_error>

#include "ctl/failure.h"

namespace ctl {

std::string oneLine(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void writeOut(std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(STDOUT_FILENO, text.data(), text.size());
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            // Whoever gave us this output made it non-blocking.
            pollfd output{STDOUT_FILENO, POLLOUT, 0};
            ::poll(&output, 1, -1);
        } else if (errno == EPIPE) {
            throw Failure(Status::kOutputGone, "");
        } else if (errno != EINTR) {
            throw Failure(Status::kLocalFile,
                          "cannot write the output: " + std::generic_category().message(errno));
        }
    }
}

void writeResult(bool wantJson, const std::string& text, const Json& json) {
    writeOut((wantJson ? oneLine(json) : text) + '\n');
}

}  // namespace ctl
