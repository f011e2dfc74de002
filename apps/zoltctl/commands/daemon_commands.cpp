#include <nlohmann/json.hpp>

#include "apps/zoltctl/commands/command.h"
#include "apps/zoltctl/output/output.h"
#include "lib/ports/blocking/console_session.h"
#include "lib/ports/replies.h"
#include "lib/text/printable.h"

namespace zoltctl {

using zolt_ports::ConsoleSession;
using zolt_ports::onlyLine;
using zolt_ports::Port;
using zolt_ports::Reply;

void setSpeed(const Settings& settings, const Request& request) {
    const std::string& percent = request.fields.text;
    const std::string command = "SPEED=" + percent;
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    const Reply reply = console.ask(command);
    if (onlyLine(reply, command, "CIA: SPEED IS SET to ") != percent + "%") {
        throw zolt_ports::foreignReply(reply, command);
    }
    writeResult(settings, "speed is " + percent + "%", {{"percent", std::stoi(percent)}});
}

void showVersion(const Settings& settings, const Request& /*request*/) {
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    const std::string version = onlyLine(console.ask("DRVVER"), "DRVVER", "CIA: DRIVER VERSION ");
    writeResult(settings, "driver version " + zolt_text::printable(version), {{"driver", version}});
}

}  // namespace zoltctl
