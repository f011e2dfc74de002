// input: the daemon answers on the IO port what the console is asked.
#include <nlohmann/json.hpp>
#include <optional>

#include "apps/zoltctl/commands/commands.h"
#include "apps/zoltctl/output/output.h"
#include "apps/zoltctl/output/text.h"
#include "apps/zoltctl/ports/console_session.h"
#include "apps/zoltctl/ports/items.h"
#include "apps/zoltctl/ports/opening.h"
#include "apps/zoltctl/ports/replies.h"

namespace ctl {
namespace {

/// How many blocks a card can be asked for.
unsigned blocksOf(const CardEntry& card) {
    if (card.kind == "16 channel DIGITAL INPUT") {
        return 2;
    }
    if (card.kind == "6 channel ANALOGUE INPUT") {
        return 6;
    }
    throw Failure(Status::kRefused, "card " + std::string(1, card.address) + " is " +
                                        printable(card.kind) +
                                        "; input needs a digital or analogue input card");
}

std::string blocksToAsk(ConsoleSession& console, const Fields& fields) {
    if (fields.block) {
        return {*fields.block};
    }
    std::string blocks;
    for (const CardEntry& card : parseCards(console.ask("DISCOVER"), "DISCOVER")) {
        if (card.address == fields.address()) {
            blocks = std::string("012345").substr(0, blocksOf(card));
        }
    }
    return blocks;
}

/// Reads reports until one is of the block.
std::uint8_t awaitBlock(Connection& io, LineReader& lines, char address, unsigned block,
                        const Deadline& until) {
    for (;;) {
        while (const auto line = lines.next()) {
            const auto report = parseReport(*line);
            if (!report) {
                throw Failure(Status::kNotZolt,
                              "what came on the IO port is no input state: " + quote(*line));
            }
            if (report->address == address && report->block == block) {
                return report->value;
            }
        }
        std::string bytes;
        switch (io.receive(bytes, until)) {
            case Connection::Wait::kBytes:
                lines.feed(bytes);
                break;
            case Connection::Wait::kEnd:
                throw io.cut("before the input state came");
            case Connection::Wait::kTimeout:
                throw io.timedOut("does not send the input state");
        }
    }
}

}  // namespace

void showInput(const Settings& settings, const Request& request) {
    const Endpoint& endpoint = settings.at(Port::kIo);
    const char address = request.fields.address();
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    const std::string blocks = blocksToAsk(console, request.fields);
    OpenPort io = openPort(endpoint, settings.timeout);
    LineReader lines({endpoint.outSeparator});
    lines.feed(io.received);
    Json json = Json::array();
    std::string text;
    for (const char digit : blocks) {
        const std::string command = std::string("GETLASTINPST:") + address + "=" + digit;
        if (!onlyLine(console.ask(command), command, "CIA: LAST INPUT STATE SENT ON IO INTERFACE")
                 .empty()) {
            throw Failure(Status::kNotZolt, "the answer to " + command + " is none of zolt's");
        }
        const unsigned block = *hexDigit(digit);
        const std::uint8_t value =
            awaitBlock(io.connection, lines, address, block, Deadline::in(settings.timeout));
        json.push_back({{"address", std::string(1, address)},
                        {"block", block},
                        {"value", value},
                        {"hex", hexByte(value)}});
        text += (text.empty() ? "card " : "\ncard ") + std::string(1, address) + ": block " +
                std::to_string(block) + " is " + hexByte(value);
    }
    io.connection.leave();
    writeResult(settings, text, json);
}

}  // namespace ctl
