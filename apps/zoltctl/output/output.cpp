#include "apps/zoltctl/output/output.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <nlohmann/json.hpp>
#include <system_error>

#include "lib/os/deadline.h"
#include "lib/text/printable.h"

namespace zoltctl {

using zolt_os::Clock;
using zolt_os::Deadline;
using zolt_os::Seconds;

std::string oneLine(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string printableLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += zolt_text::printable(line) + '\n';
    }
    return text;
}

void writeOut(std::string_view text, std::optional<Seconds> patience) {
    const bool limited = patience && ::isatty(STDOUT_FILENO) == 0;
    while (!text.empty()) {
        const Deadline until =
            limited ? Deadline::in(*patience) : Deadline(Clock::time_point::max());
        if (!zolt_os::waitFor(STDOUT_FILENO, POLLOUT, until)) {
            throw outputStuck();
        }
        // A pipe that is ready takes at least this much; a longer write might wait.
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

Failure outputStuck() {
    return {Status::kLocalFile,
            "cannot write the output: its reader takes nothing; the last lines are lost"};
}

void writeResult(const Settings& settings, const std::string& text, const Json& json) {
    writeOut((settings.json ? oneLine(json) : text) + '\n', settings.timeout);
}

}  // namespace zoltctl
