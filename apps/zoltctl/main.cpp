// zoltctl: the command-line client of zolt.
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

namespace {

// A connection must not become one of the standard streams. One that was closed
// at the start becomes one that cannot be used, so that this is told.
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
    const ctl::Invocation invocation = ctl::readCommandLine(arguments);
    if (invocation.row == nullptr) {
        ctl::writeOut(invocation.text, ctl::Settings().timeout);
        return;
    }
    ctl::Settings settings = ctl::makeSettings(invocation.given);
    settings.json = invocation.json;
    settings.check = invocation.check;
    if (!settings.note.empty()) {
        std::fprintf(stderr, "zoltctl: note: %s\n", settings.note.c_str());
    }
    invocation.row->run(settings, invocation.request);
}

}  // namespace

int main(int argc, char** argv) {
    openMissingStreams();
    std::setlocale(LC_CTYPE, "");
    // Who read the output and has left is told by the write.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        run({argv + 1, argv + argc});
        return 0;
    } catch (const ctl::Failure& failure) {
        if (*failure.what() != '\0') {
            std::fprintf(stderr, "zoltctl: %s\n", failure.what());
        }
        return static_cast<int>(failure.status());
    } catch (const std::exception& error) {
        // The system refuses something that it has for every program.
        std::fprintf(stderr, "zoltctl: %s\n", error.what());
        return static_cast<int>(ctl::Status::kLocalFile);
    }
}
