// The commands that concern the daemon itself, and raw lines.
#include <nlohmann/json.hpp>

#include "apps/zoltctl/commands/commands.h"
#include "apps/zoltctl/output/output.h"
#include "apps/zoltctl/output/text.h"
#include "apps/zoltctl/ports/console_session.h"
#include "apps/zoltctl/ports/io_delivery.h"
#include "apps/zoltctl/ports/replies.h"

namespace ctl {
namespace {

void rawConsole(const Settings& settings, const std::string& line) {
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    const Reply reply = console.ask(line);
    if (settings.json) {
        writeOut(oneLine({{"reply", reply.lines}}) + '\n', settings.timeout);
    } else {
        std::string text;
        for (const std::string& entry : reply.lines) {
            text += printable(entry) + '\n';
        }
        writeOut(text, settings.timeout);
    }
    expectAccepted(reply, line);
}

void rawIo(const Settings& settings, const std::string& line) {
    const Endpoint& endpoint = settings.at(Port::kIo);
    deliverToIo(endpoint, line, endpoint.lineEnd.value_or(kSafeLineEnd), settings.timeout);
    if (settings.json) {
        writeOut(oneLine({{"delivered", line}}) + '\n', settings.timeout);
    }
}

}  // namespace

void setSpeed(const Settings& settings, const Request& request) {
    const std::string& percent = request.fields.text;
    const std::string command = "SPEED=" + percent;
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    const Reply reply = console.ask(command);
    if (onlyLine(reply, command, "CIA: SPEED IS SET to ") != percent + "%") {
        throw foreignReply(reply, command);
    }
    writeResult(settings, "speed is " + percent + "%", {{"percent", std::stoi(percent)}});
}

void showVersion(const Settings& settings, const Request& /*request*/) {
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    const std::string version = onlyLine(console.ask("DRVVER"), "DRVVER", "CIA: DRIVER VERSION ");
    writeResult(settings, "driver version " + printable(version), {{"driver", version}});
}

void raw(const Settings& settings, const Request& request) {
    constexpr std::size_t kConsoleForm = 0;
    (request.form == kConsoleForm ? rawConsole : rawIo)(settings, request.fields.text);
}

}  // namespace ctl
