#include "control/console.h"

#include <utility>

#include "control/card_config.h"
#include "control/console_line.h"
#include "control/driver_commands.h"

Console::Console(ConsoleHost& host, std::string inpSeparator, std::string outSeparator)
    : inpSeparator_(std::move(inpSeparator)), context_(host, std::move(outSeparator)) {}

void Console::interpret(const std::string& text) {
    const ConsoleLine line(text, inpSeparator_);
    bool handled = false;
    // The loop has no early end: a line that matches two rows runs both.
    for (const DriverCommand& command : driverCommands()) {
        if (command.match == Match::kTable) {
            handled |= runCardConfigCommands(context_, line);
        } else if (matches(line, command.keyword, command.match)) {
            command.run(context_, line);
            handled = true;
        }
    }
    context_.reply(handled ? ">" : "CIE: UNKNOWN COMMAND " + context_.outSeparator() + ">");
}
