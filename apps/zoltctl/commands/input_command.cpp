#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "apps/zoltctl/commands/command.h"
#include "apps/zoltctl/output/output.h"
#include "lib/ports/blocking/console_session.h"
#include "lib/ports/blocking/port_follower.h"
#include "lib/ports/replies.h"
#include "lib/ports/reports.h"
#include "lib/text/hexadecimal.h"
#include "lib/text/printable.h"

namespace zoltctl {

using zolt_os::Deadline;
using zolt_ports::CardEntry;
using zolt_ports::CardKindRow;
using zolt_ports::ConsoleSession;
using zolt_ports::PortFollower;

namespace {

unsigned askableBlocksOf(const CardEntry& card) {
    const unsigned blocks = zolt_ports::rowOf(card.kind).askableBlocks;
    if (blocks == 0) {
        throw Failure(Status::kRefused, "card " + std::string(1, card.address) + " is " +
                                            zolt_text::printable(card.name) + "; input needs " +
                                            zolt_ports::neededKinds([](const CardKindRow& row) {
                                                return row.askableBlocks > 0;
                                            }));
    }
    return blocks;
}

/// The block that was given, or all that the card can be asked for.
std::vector<unsigned> blocksToAsk(ConsoleSession& console, const Fields& fields) {
    if (fields.block) {
        return {*fields.block};
    }
    std::vector<unsigned> blocks;
    for (const CardEntry& card : zolt_ports::parseCards(console.ask("DISCOVER"), "DISCOVER")) {
        if (card.address == fields.address()) {
            for (unsigned block = 0; block < askableBlocksOf(card); ++block) {
                blocks.push_back(block);
            }
        }
    }
    return blocks;
}

/// Asks the console, which makes the daemon report the block on the IO port.
void askForBlock(ConsoleSession& console, char address, unsigned block) {
    const std::string command =
        std::string("GETLASTINPST:") + address + "=" + zolt_text::hexDigit(block);
    const zolt_ports::Reply reply = console.ask(command);
    if (!zolt_ports::onlyLine(reply, command, "CIA: LAST INPUT STATE SENT ON IO INTERFACE")
             .empty()) {
        throw zolt_ports::foreignReply(reply, command);
    }
}

/// Reads reports until one is of the block.
std::uint8_t awaitBlock(PortFollower& io, char address, unsigned block, const Deadline& until) {
    while (const auto line = io.next(until)) {
        const auto report = zolt_ports::parseReport(*line);
        if (!report) {
            throw zolt_ports::notZolt("what came on the IO port",
                                      zolt_text::quote(*line) + " is not an input state");
        }
        if (report->address == address && report->block == block) {
            return report->value;
        }
    }
    throw io.timedOut("does not send the input state");
}

}  // namespace

void showInput(const Settings& settings, const Request& request) {
    const zolt_ports::Endpoint& endpoint = settings.at(zolt_ports::Port::kIo);
    const char address = request.fields.address();
    ConsoleSession console(settings.at(zolt_ports::Port::kCae), settings.timeout);
    const std::vector<unsigned> blocks = blocksToAsk(console, request.fields);
    PortFollower io(zolt_ports::openPort(endpoint, settings.timeout), {endpoint.outSeparator});
    Json json = Json::array();
    std::string text;
    for (const unsigned block : blocks) {
        askForBlock(console, address, block);
        const std::uint8_t value = awaitBlock(io, address, block, Deadline::in(settings.timeout));
        const std::string hex = zolt_text::hexByte(value);
        json.push_back({{"address", std::string(1, address)},
                        {"block", block},
                        {"value", value},
                        {"hex", hex}});
        text += (text.empty() ? "card " : "\ncard ") + std::string(1, address) + ": block " +
                std::to_string(block) + " is " + hex;
    }
    io.leave();
    writeResult(settings, text, json);
}

}  // namespace zoltctl
