#include "control/console.h"

#include <utility>

#include "control/driver_commands.h"

Console::Console(ConsoleHost& host, std::string inpSeparator, std::string outSeparator)
    : host_(host), inpSeparator_(std::move(inpSeparator)), outSeparator_(std::move(outSeparator)) {}

void Console::interpret(const std::string& text) {
    const ConsoleLine line(text, inpSeparator_);
    bool handled = false;
    // No early end: a line that satisfies two rows runs both.
    for (const DriverCommand& command : driverCommands()) {
        if (matches(line, command.keyword, command.match)) {
            handled |= command.run(*this, line);
        }
    }
    reply(handled ? ">" : "CIE: UNKNOWN COMMAND " + outSeparator_ + ">");
}

void Console::reply(const std::string& line) {
    host_.reply(Convert_String2QList(line + outSeparator_));
}
