#include "apps/zoltctl/output/output.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <nlohmann/json.hpp>
#include <system_error>

namespace ctl {

std::string oneLine(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void writeOut(std::string_view text, std::optional<Seconds> patience) {
    const bool limited = patience && ::isatty(STDOUT_FILENO) == 0;
    while (!text.empty()) {
        const Deadline until =
            limited ? Deadline::in(*patience) : Deadline(Clock::time_point::max());
        if (!waitFor(STDOUT_FILENO, POLLOUT, until)) {
            throw nobodyReads();
        }
        // More might not fit into a pipe that is ready, and the write would wait.
        const std::size_t piece = std::min<std::size_t>(text.size(), PIPE_BUF);
        const ssize_t count = ::write(STDOUT_FILENO, text.data(), piece);
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EPIPE) {
            throw Failure(Status::kOutputGone, "");
        } else if (errno != EINTR && errno != EAGAIN) {
            throw Failure(Status::kLocalFile,
                          "cannot write the output: " + std::generic_category().message(errno));
        }
    }
}

Failure nobodyReads() {
    return {Status::kLocalFile,
            "cannot write the output: nobody reads it; the last lines are lost"};
}

void writeResult(const Settings& settings, const std::string& text, const Json& json) {
    writeOut((settings.json ? oneLine(json) : text) + '\n', settings.timeout);
}

}  // namespace ctl
