// set, lcd, ir: commands over the IO port, and whether the daemon took them.
#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <optional>
#include <span>

#include "apps/zoltctl/commands/commands.h"
#include "apps/zoltctl/output/output.h"
#include "apps/zoltctl/output/text.h"
#include "apps/zoltctl/ports/console_session.h"
#include "apps/zoltctl/ports/io_delivery.h"
#include "apps/zoltctl/ports/replies.h"

namespace ctl {
namespace {

struct Kind {
    std::string_view name;
    unsigned blocks;  ///< that reach the card; 0 where there are none
};

/// The cards that a command is for.
struct Target {
    const char* command;
    std::span<const Kind> kinds;
    const char* needs;
};

constexpr std::array kBlockKinds{Kind{"16 channel DIGITAL OUTPUT", 2},
                                 Kind{"6 channel RC SERVO CONTROLLER", 6},
                                 Kind{"3 channel DC MOTOR CONTROLLER", 4}};
constexpr std::array kLcdKinds{Kind{"ALPHANUMERIC LCD CONTROLLER", 0}};
constexpr std::array kInfraredKinds{Kind{"IR REMOTE CONTROLLER", 0}};

constexpr Target kBlockTarget{"set", kBlockKinds, "a digital output, RC servo or DC motor card"};
constexpr Target kLcdTarget{"lcd", kLcdKinds, "an LCD controller card"};
constexpr Target kInfraredTarget{"ir", kInfraredKinds, "an IR remote controller card"};

/// A line for the IO port, and where it goes.
struct Command {
    const Target& target;
    char address;
    std::string line;
    std::optional<unsigned> block = std::nullopt;  ///< of set
};

/// Throws when the card is of another kind, or lacks the block: the daemon takes
/// any block and sends the card those that it has.
void checkCard(const Command& command, const CardEntry& card) {
    const auto kinds = command.target.kinds;
    const auto kind = std::find_if(kinds.begin(), kinds.end(),
                                   [&](const Kind& entry) { return entry.name == card.kind; });
    const std::string subject = "card " + std::string(1, card.address);
    if (kind == kinds.end()) {
        throw Failure(Status::kRefused, subject + " is " + printable(card.kind) + "; " +
                                            command.target.command + " needs " +
                                            command.target.needs);
    }
    if (command.block && *command.block >= kind->blocks) {
        throw Failure(Status::kRefused,
                      subject + " has blocks 0 to " + std::to_string(kind->blocks - 1));
    }
}

void checkCard(ConsoleSession& console, const Command& command) {
    for (const CardEntry& card : parseCards(console.ask("DISCOVER"), "DISCOVER")) {
        if (card.address == command.address) {
            checkCard(command, card);
        }
    }
}

/// The daemon would take what stands behind it for another command.
void checkSeparator(const std::string& line, const std::optional<std::string>& lineEnd) {
    if (lineEnd && !lineEnd->empty() && line.find(*lineEnd) != std::string::npos) {
        throw Failure(Status::kUsage,
                      quote(line) + " holds the IO port's line end, " + quote(*lineEnd));
    }
}

/// Throws when the daemon has refused the line. It tells so on the console, and
/// before it answers DRVVER unless lines of an earlier IO client are still before
/// this one: it takes one line of each port at a time. The refusal then comes too
/// late to be seen here.
void expectTaken(ConsoleSession& console, const std::string& line) {
    expectAccepted(console.ask("DRVVER"), "DRVVER");
    for (const std::string& refusal : console.unasked()) {
        const std::size_t arrow = refusal.find("-> ");
        if (arrow != std::string::npos && startsWith(refusal.substr(arrow + 3), line)) {
            throw Failure(Status::kRefused, printable(refusal));
        }
    }
}

void sendLine(const Settings& settings, const Command& command) {
    const Endpoint& endpoint = settings.at(Port::kIo);
    const std::string& line = command.line;
    checkSeparator(line, endpoint.lineEnd);
    if (!settings.check) {
        deliverToIo(endpoint, line, endpoint.lineEnd.value_or(kSafeLineEnd), settings.timeout);
        return;
    }
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    checkCard(console, command);
    const std::string lineEnd = endpoint.lineEnd.value_or(console.lineEnd());
    checkSeparator(line, lineEnd);
    console.unasked().clear();
    deliverToIo(endpoint, line, lineEnd, settings.timeout);
    expectTaken(console, line);
}

/// Without the check nobody knows whether the daemon and the card took it.
std::string closing(const Settings& settings) {
    return settings.check ? "" : " (unchecked)";
}

std::string cardText(char address) {
    return "card " + std::string(1, address) + ": ";
}

struct LcdForm {
    const char* action;
    const char* on;   ///< also where there is nothing to switch
    const char* off;  ///< null where there is nothing to switch
};

/// By form of the command.
constexpr std::array kLcdForms{
    LcdForm{"clear", "CL", nullptr}, LcdForm{"light", "LO", "LF"},    LcdForm{"cursor", "CO", "CF"},
    LcdForm{"blink", "BO", "BF"},    LcdForm{"text", "PAp", nullptr},
};

void lcdText(const Settings& settings, const Fields& fields) {
    if (!settings.check && !settings.at(Port::kIo).lineEnd) {
        throw Failure(Status::kUsage,
                      "lcd text with --no-check needs --line-end: the end of the line would show "
                      "on the LCD if it were not the daemon's");
    }
    const std::string line = std::string("a") + fields.address() + "lPAp" +
                             hexByte(*fields.column) + hexByte(*fields.row) + "t" + fields.text;
    sendLine(settings, {kLcdTarget, fields.address(), line});
    writeResult(settings,
                cardText(fields.address()) + "text at column " + std::to_string(*fields.column) +
                    ", row " + std::to_string(*fields.row) + closing(settings),
                {{"address", std::string(1, fields.address())},
                 {"action", "text"},
                 {"column", *fields.column},
                 {"row", *fields.row},
                 {"text", fields.text},
                 {"checked", settings.check}});
}

}  // namespace

void setBlock(const Settings& settings, const Request& request) {
    const Fields& fields = request.fields;
    const std::string data = hexByte(*fields.value);
    const unsigned block = *hexDigit(*fields.block);
    sendLine(settings,
             {kBlockTarget, fields.address(),
              std::string("a") + fields.address() + "b" + *fields.block + "d" + data, block});
    writeResult(settings,
                cardText(fields.address()) + "block " + std::to_string(block) + " is " + data +
                    closing(settings),
                {{"address", std::string(1, fields.address())},
                 {"block", block},
                 {"value", *fields.value},
                 {"hex", data},
                 {"checked", settings.check}});
}

void lcd(const Settings& settings, const Request& request) {
    const Fields& fields = request.fields;
    const LcdForm& form = kLcdForms[request.form];
    if (fields.column) {
        lcdText(settings, fields);
        return;
    }
    const bool on = fields.on.value_or(true);
    sendLine(settings, {kLcdTarget, fields.address(),
                        std::string("a") + fields.address() + "l" + (on ? form.on : form.off)});
    Json json{{"address", std::string(1, fields.address())}, {"action", form.action}};
    std::string text = cardText(fields.address()) + form.action;
    if (fields.on) {
        json["on"] = on;
        text += on ? " is on" : " is off";
    } else {
        text += "ed";
    }
    json["checked"] = settings.check;
    writeResult(settings, text + closing(settings), json);
}

void infrared(const Settings& settings, const Request& request) {
    const Fields& fields = request.fields;
    sendLine(settings, {kInfraredTarget, fields.address(),
                        std::string("a") + fields.address() + "sHS" + fields.text});
    const std::size_t bytes = fields.text.size() / 2;
    writeResult(settings,
                cardText(fields.address()) + std::to_string(bytes) +
                    (bytes == 1 ? " byte is sent" : " bytes are sent") + closing(settings),
                {{"address", std::string(1, fields.address())},
                 {"bytes", bytes},
                 {"hex", fields.text},
                 {"checked", settings.check}});
}

}  // namespace ctl
