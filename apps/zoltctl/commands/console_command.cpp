// console: a conversation with the daemon's console.
#include <unistd.h>

#include <cstdio>
#include <nlohmann/json.hpp>

#include "apps/zoltctl/commands/commands.h"
#include "apps/zoltctl/console/line_input.h"
#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/output/output.h"
#include "apps/zoltctl/output/text.h"
#include "apps/zoltctl/ports/console_session.h"

namespace ctl {
namespace {

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
                // The daemon's own EXIT would stop all of it for a second.
                return;
            }
            if (!command.empty() && !say(command)) {
                return;
            }
        }
    }

  private:
    /// What comes while the user is typing.
    void hear() {
        console_.readUnasked();
        if (console_.unasked().empty()) {
            return;
        }
        input_.stepAside();
        writeUnasked();
        input_.comeBack();
    }

    /// False when the daemon has ended the conversation.
    bool say(const std::string& command) {
        Reply reply;
        try {
            reply = console_.ask(command);
        } catch (const Failure& failure) {
            // Whoever is there can type it again.
            if (!atTerminal_ || failure.status() != Status::kUsage) {
                throw;
            }
            std::fprintf(stderr, "zoltctl: %s\n", failure.what());
            return true;
        }
        writeUnasked();
        if (settings_.json) {
            write(oneLine({{"command", command}, {"reply", reply.lines}}) + '\n');
        } else {
            std::string text;
            for (const std::string& line : reply.lines) {
                text += printable(line) + '\n';
            }
            write(text);
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

}  // namespace ctl
