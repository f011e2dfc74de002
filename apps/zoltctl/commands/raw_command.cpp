#include "apps/zoltctl/commands/raw_command.h"

#include <array>
#include <nlohmann/json.hpp>

#include "apps/zoltctl/commands/command.h"
#include "apps/zoltctl/output/output.h"
#include "lib/ports/blocking/console_session.h"
#include "lib/ports/blocking/io_delivery.h"
#include "lib/ports/replies.h"

namespace zoltctl {

using zolt_ports::Port;

namespace {

void sendToConsole(const Settings& settings, const std::string& line) {
    zolt_ports::ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    const zolt_ports::Reply reply = console.ask(line);
    if (settings.json) {
        writeOut(oneLine({{"reply", reply.lines}}) + '\n', settings.timeout);
    } else {
        writeOut(printableLines(reply.lines), settings.timeout);
    }
    zolt_ports::expectAccepted(reply, line);
}

void sendToIo(const Settings& settings, const std::string& line) {
    const zolt_ports::Endpoint& endpoint = settings.at(Port::kIo);
    zolt_ports::deliverToIo(endpoint, line, endpoint.lineEnd.value_or(zolt_ports::kSafeLineEnd),
                            settings.timeout);
    if (settings.json) {
        writeOut(oneLine({{"delivered", line}}) + '\n', settings.timeout);
    }
}

constexpr std::array kRawForms{
    RawForm{"raw cae LINE", sendToConsole},
    RawForm{"raw io LINE", sendToIo},
};

}  // namespace

std::span<const RawForm> rawForms() {
    return kRawForms;
}

void raw(const Settings& settings, const Request& request) {
    rawForms()[request.form].send(settings, request.fields.text);
}

}  // namespace zoltctl
