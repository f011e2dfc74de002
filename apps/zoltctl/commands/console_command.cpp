#include <unistd.h>

#include <cstdio>
#include <nlohmann/json.hpp>

#include "apps/zoltctl/commands/command.h"
#include "apps/zoltctl/console/line_input.h"
#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/output/output.h"
#include "lib/ports/blocking/console_session.h"
#include "lib/text/printable.h"

namespace zoltctl {

using zolt_ports::ConsoleSession;
using zolt_ports::Port;
using zolt_ports::PortError;
using zolt_ports::Reason;
using zolt_ports::Reply;
using zolt_text::printable;

namespace {

/// A conversation with the daemon's console.
class Conversation {
  public:
    Conversation(ConsoleSession& console, LineInput& input, const Settings& settings,
                 bool atTerminal)
        : console_(console), input_(input), settings_(settings), atTerminal_(atTerminal) {}

    void run() {
        writeUnasked();
        while (const auto line = input_.next(console_.descriptor(), [this] { hear(); })) {
            std::string command = *line;
            if (!command.empty() && command.back() == '\r') {
                command.pop_back();
            }
            if (command == "EXIT") {
                // The daemon's own EXIT would stop the whole daemon for a second.
                return;
            }
            if (!command.empty() && !say(command)) {
                return;
            }
        }
    }

  private:
    /// Shows what comes while the user is typing.
    void hear() {
        console_.readUnasked();
        if (console_.unasked().empty()) {
            return;
        }
        input_.stepAside();
        writeUnasked();
        input_.comeBack();
    }

    /// False if the daemon has ended the conversation.
    bool say(const std::string& command) {
        Reply reply;
        try {
            reply = console_.ask(command);
        } catch (const PortError& error) {
            // At a terminal the user can type the line again.
            if (!atTerminal_ || error.reason() != Reason::kBadLine) {
                throw;
            }
            std::fprintf(stderr, "zoltctl: %s\n", error.what());
            return true;
        }
        writeUnasked();
        if (settings_.json) {
            write(oneLine({{"command", command}, {"reply", reply.lines}}) + '\n');
        } else {
            write(printableLines(reply.lines));
        }
        return !reply.ended;
    }

    void writeUnasked() {
        for (const std::string& line : console_.unasked()) {
            write((settings_.json ? oneLine({{"unasked", line}}) : printable(line)) + '\n');
        }
        console_.unasked().clear();
    }

    void write(const std::string& text) const { writeOut(text, settings_.timeout); }

    ConsoleSession& console_;
    LineInput& input_;
    const Settings& settings_;
    bool atTerminal_;
};

}  // namespace

void interactiveConsole(const Settings& settings, const Request& /*request*/) {
    const bool atTerminal =
        !settings.json && ::isatty(STDIN_FILENO) == 1 && ::isatty(STDOUT_FILENO) == 1;
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    if (atTerminal) {
        writeOut("connected to " + settings.at(Port::kCae).label() +
                     "; HELP lists its commands, EXIT or Ctrl-D leaves\n",
                 settings.timeout);
    }
    const auto input = atTerminal ? makeTerminalInput() : makePlainInput();
    Conversation(console, *input, settings, atTerminal).run();
}

}  // namespace zoltctl
