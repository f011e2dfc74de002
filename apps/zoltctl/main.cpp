#include <fcntl.h>
#include <unistd.h>

#include <clocale>
#include <csignal>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "apps/zoltctl/command_line/command_line.h"
#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/output/output.h"
#include "apps/zoltctl/port_failure.h"

namespace {

/// Replaces a standard stream that is closed by /dev/null opened the wrong way, so that
/// using the stream fails visibly. Otherwise a connection would get its number.
void openMissingStreams() {
    struct Stream {
        int number;
        int mode;
    };
    for (const Stream stream : {Stream{STDIN_FILENO, O_WRONLY}, Stream{STDOUT_FILENO, O_RDONLY},
                                Stream{STDERR_FILENO, O_RDONLY}}) {
        if (::fcntl(stream.number, F_GETFD) < 0) {
            ::open("/dev/null", stream.mode);
        }
    }
}

void run(const std::vector<std::string>& arguments) {
    const zoltctl::Invocation invocation = zoltctl::readCommandLine(arguments);
    if (invocation.row == nullptr) {
        zoltctl::writeOut(invocation.text, zoltctl::Settings().timeout);
        return;
    }
    zoltctl::Settings settings = zoltctl::makeSettings(invocation.given);
    settings.json = invocation.json;
    settings.check = invocation.check;
    if (!settings.note.empty()) {
        std::fprintf(stderr, "zoltctl: note: %s\n", settings.note.c_str());
    }
    invocation.row->run(settings, invocation.request);
}

int statusOf(const zoltctl::Failure& failure) {
    if (*failure.what() != '\0') {
        std::fprintf(stderr, "zoltctl: %s\n", failure.what());
    }
    return static_cast<int>(failure.status());
}

}  // namespace

int main(int argc, char** argv) {
    openMissingStreams();
    std::setlocale(LC_CTYPE, "");
    // A reader of the output that has gone shows as EPIPE.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        run({argv + 1, argv + argc});
        return 0;
    } catch (const zoltctl::Failure& failure) {
        return statusOf(failure);
    } catch (const zolt_ports::PortError& error) {
        return statusOf(zoltctl::failureOf(error));
    } catch (const std::exception& error) {
        // The system has refused memory, a descriptor or a thread.
        return statusOf({zoltctl::Status::kLocalFile, error.what()});
    }
}
