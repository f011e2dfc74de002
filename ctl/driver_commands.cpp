// The commands that concern the daemon itself, and raw lines.
#include <nlohmann/json.hpp>

#include "ctl/arguments.h"
#include "ctl/commands.h"
#include "ctl/console_session.h"
#include "ctl/output.h"
#include "ctl/replies.h"
#include "ctl/text.h"

namespace ctl {

void setSpeed(const Settings& settings, const std::string& percent) {
    const std::string number = parsePercent(percent);
    const std::string command = "SPEED=" + number;
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    const Reply reply = console.ask(command);
    if (onlyLine(reply, command, "CIA: SPEED IS SET to ") != number + "%") {
        throw foreignReply(reply, command);
    }
    writeResult(settings.json, "speed is " + number + "%", {{"percent", std::stoi(number)}});
}

void showVersion(const Settings& settings) {
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    const std::string version = onlyLine(console.ask("DRVVER"), "DRVVER", "CIA: DRIVER VERSION ");
    writeResult(settings.json, "driver version " + printable(version), {{"driver", version}});
}

void rawConsole(const Settings& settings, const std::string& line) {
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    const Reply reply = console.ask(line);
    if (settings.json) {
        writeOut(oneLine({{"reply", reply.lines}}) + '\n');
    } else {
        std::string text;
        for (const std::string& entry : reply.lines) {
            text += printable(entry) + '\n';
        }
        writeOut(text);
    }
    expectAccepted(reply, line);
}

}  // namespace ctl
