#include "apps/zoltctl/commands/checked_line.h"

#include "apps/zoltctl/failure.h"
#include "lib/ports/blocking/console_session.h"
#include "lib/ports/blocking/io_delivery.h"
#include "lib/ports/replies.h"
#include "lib/text/printable.h"

namespace zoltctl {

using zolt_ports::CardEntry;
using zolt_ports::CardKindRow;
using zolt_ports::ConsoleSession;
using zolt_ports::Endpoint;
using zolt_ports::OutputCommand;
using zolt_text::printable;
using zolt_text::quote;

namespace {

/// The command of zoltctl that sends such lines.
const char* nameOf(OutputCommand command) {
    switch (command) {
        case OutputCommand::kBlock:
            return "set";
        case OutputCommand::kLcd:
            return "lcd";
        case OutputCommand::kInfrared:
            return "ir";
    }
    return "";
}

/// Throws if the card is of another kind, or lacks the block: the daemon takes any block
/// and sends the card those that it has.
void checkCard(const OutputLine& output, const CardEntry& card) {
    const auto fits = [&](const CardKindRow& row) { return row.output == output.command; };
    const CardKindRow& kind = zolt_ports::rowOf(card.kind);
    const std::string subject = "card " + std::string(1, card.address);
    if (!fits(kind)) {
        throw Failure(Status::kRefused, subject + " is " + printable(card.name) + "; " +
                                            nameOf(output.command) + " needs " +
                                            zolt_ports::neededKinds(fits));
    }
    if (output.block && *output.block >= kind.outputBlocks) {
        throw Failure(Status::kRefused,
                      subject + " has blocks 0 to " + std::to_string(kind.outputBlocks - 1));
    }
}

void checkCard(ConsoleSession& console, const OutputLine& output) {
    for (const CardEntry& card : zolt_ports::parseCards(console.ask("DISCOVER"), "DISCOVER")) {
        if (card.address == output.address) {
            checkCard(output, card);
        }
    }
}

/// Throws if the line holds the line end: the daemon would take the rest for another
/// command.
void checkSeparator(const std::string& line, const std::optional<std::string>& lineEnd) {
    if (lineEnd && !lineEnd->empty() && line.find(*lineEnd) != std::string::npos) {
        throw Failure(Status::kUsage,
                      quote(line) + " holds the IO port's line end, " + quote(*lineEnd));
    }
}

/// Throws if the daemon has refused the line. The refusal comes on the console, before the
/// reply to a DRVVER that is sent now, unless the daemon still has lines of an earlier IO
/// client to work off: it takes one line of each port at a time. Such a late refusal is not
/// seen here.
void expectTaken(ConsoleSession& console, const std::string& line) {
    zolt_ports::expectAccepted(console.ask("DRVVER"), "DRVVER");
    for (const std::string& refusal : console.unasked()) {
        const std::size_t arrow = refusal.find("-> ");
        if (arrow != std::string::npos && refusal.substr(arrow + 3).starts_with(line)) {
            throw Failure(Status::kRefused, printable(refusal));
        }
    }
}

}  // namespace

void sendChecked(const Settings& settings, const OutputLine& output) {
    const Endpoint& endpoint = settings.at(zolt_ports::Port::kIo);
    const std::string& line = output.line;
    checkSeparator(line, endpoint.lineEnd);
    if (!settings.check) {
        zolt_ports::deliverToIo(endpoint, line, endpoint.lineEnd.value_or(zolt_ports::kSafeLineEnd),
                                settings.timeout);
        return;
    }
    ConsoleSession console(settings.at(zolt_ports::Port::kCae), settings.timeout);
    checkCard(console, output);
    const std::string lineEnd = endpoint.lineEnd.value_or(console.lineEnd());
    checkSeparator(line, lineEnd);
    console.unasked().clear();
    zolt_ports::deliverToIo(endpoint, line, lineEnd, settings.timeout);
    expectTaken(console, line);
}

const char* uncheckedNote(const Settings& settings) {
    return settings.check ? "" : " (unchecked)";
}

}  // namespace zoltctl
