// Fuzzes what zoltctl reads from a port: banner, items, replies and reports. They arrive
// whole and in pieces, and the peer need not be the daemon.

#include <algorithm>
#include <array>
#include <exception>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/zoltctl/arguments/phrase.h"
#include "apps/zoltctl/commands/command.h"
#include "apps/zoltctl/commands/config_command.h"
#include "apps/zoltctl/output/output.h"
#include "fuzz/support/target.h"
#include "lib/ports/dialogue.h"
#include "lib/ports/items.h"
#include "lib/ports/replies.h"
#include "lib/ports/reports.h"
#include "lib/ports/separator_search.h"
#include "lib/text/hexadecimal.h"
#include "lib/text/printable.h"

namespace {

using zolt_ports::Reason;

constexpr std::size_t kMostBytes = 5000;
/// The size of one piece that arrives.
constexpr std::size_t kPiece = 13;
/// A short banner, as the seeds have it.
constexpr std::string_view kBanner = "ZOLT CAE interface is ready\r\n\r";

using Texts = std::vector<std::string>;

/// One configuration command of each form, as its user types it.
const std::array kCommands{
    Texts{"config", "lcd", "E", "self-test", "on"},
    Texts{"config", "lcd", "E", "light", "off"},
    Texts{"config", "analogue", "F", "mask", "3F"},
    Texts{"config", "analogue", "F", "mask"},
    Texts{"config", "analogue", "F", "store"},
    Texts{"config", "servo", "0", "end", "B", "channel", "5", "80"},
    Texts{"config", "servo", "0", "end", "A", "channel", "1"},
    Texts{"config", "servo", "0", "store"},
    Texts{"config", "servo", "0", "restore"},
    Texts{"config", "motor", "A", "silent-range", "2", "20"},
    Texts{"config", "motor", "A", "silent-range", "1"},
    Texts{"config", "motor", "A", "store"},
    Texts{"config", "reboot", "3"},
};

/// Runs `read` and returns false if it fails. It may only fail as the program does: with a
/// text of one line, because the peer refuses or does not look like zolt.
template <typename Read>
bool reads(Read read) {
    try {
        read();
        return true;
    } catch (const zolt_ports::PortError& error) {
        const std::string text = error.what();
        fuzz::require(!text.empty() && zolt_text::printable(text) == text,
                      "one line, without controls");
        fuzz::require(error.reason() == Reason::kNotZolt || error.reason() == Reason::kRefused ||
                          error.reason() == Reason::kNotKnown,
                      "a refusal, or a peer that does not look like zolt");
        return false;
    }
}

void requireJson(const zoltctl::Json& json) {
    const std::string line = zoltctl::oneLine(json);
    fuzz::require(line.find('\n') == std::string::npos && nlohmann::json::accept(line),
                  "JSON in one line");
}

std::vector<zoltctl::Phrase> matchedCommands() {
    std::vector<zoltctl::Phrase> phrases;
    for (const Texts& command : kCommands) {
        phrases.push_back(
            zoltctl::matchPhrase(command, zoltctl::patternsOf(zoltctl::configForms())));
    }
    return phrases;
}

void readConfigReply(const zolt_ports::Reply& reply) {
    static const std::vector<zoltctl::Phrase> phrases = matchedCommands();
    for (const zoltctl::Phrase& phrase : phrases) {
        const zoltctl::ConfigForm& form = zoltctl::configForms()[phrase.index];
        reads([&] {
            const zolt_ports::CardFields reported =
                zolt_ports::parseConfigReply(form.command, phrase.fields.card, reply);
            fuzz::require(!zolt_ports::filledIn(form.text, reported).empty(),
                          "a result has a text");
            requireJson(zoltctl::configJson(form, reported));
        });
    }
}

void readReply(const zolt_ports::Reply& reply) {
    for (const char* command : {"DISCOVER", "FORCEDISCOVER"}) {
        reads([&] {
            fuzz::require(zolt_ports::parseCards(reply, command).size() == 16, "sixteen addresses");
        });
    }
    reads([&] { zolt_ports::parsePollStates(reply, "POLLSTATE"); });
    reads([&] { zolt_ports::onlyLine(reply, "DRVVER", "CIA: DRIVER VERSION "); });
    readConfigReply(reply);
    requireJson({{"reply", reply.lines}});
}

/// All items, as many as come before a failure.
Texts itemsOf(std::string_view received, const std::string& separator, std::size_t piece) {
    Texts items;
    zolt_ports::ItemReader reader(separator);
    reads([&] {
        for (std::size_t at = 0; at < received.size(); at += piece) {
            reader.feed(received.substr(at, piece));
            while (auto item = reader.next()) {
                items.push_back(*item);
            }
        }
    });
    return items;
}

void readConsole(std::string_view received, const std::string& separator) {
    const Texts items = itemsOf(received, separator, kMostBytes);
    fuzz::require(itemsOf(received, separator, kPiece) == items, "pieces give the same items");
    zolt_ports::Dialogue dialogue(separator);
    reads([&] {
        for (const std::string& item : items) {
            const zolt_ports::Dialogue::Event event = dialogue.feed(item);
            fuzz::require(!event.reply || !event.unasked, "one event at a time");
            if (event.reply) {
                readReply(*event.reply);
            }
        }
    });
    // The lines after the last prompt.
    readReply({dialogue.lines(), false, true});
}

void readReports(std::string_view received, const std::string& separator) {
    zolt_ports::LineReader reader({separator, "\r\n"});
    reads([&] {
        for (std::size_t at = 0; at < received.size(); at += kPiece) {
            reader.feed(received.substr(at, kPiece));
            while (const auto line = reader.next()) {
                fuzz::require(!line->empty(), "no line is empty");
                const std::optional<zolt_ports::Report> report = zolt_ports::parseReport(*line);
                fuzz::require(
                    !report || (report->block < 16 && zolt_text::parseHexDigit(report->address)),
                    "a report of an address and a block");
            }
        }
    });
}

std::string_view afterBanner(std::string_view received) {
    zolt_ports::BannerFinder whole(kBanner);
    zolt_ports::BannerFinder pieces(kBanner);
    const bool found = whole.feed(received);
    bool foundInPieces = false;
    std::size_t at = 0;
    for (; at < received.size() && !foundInPieces; at += kPiece) {
        foundInPieces = pieces.feed(received.substr(at, kPiece));
    }
    fuzz::require(found == foundInPieces && whole.before() == pieces.before(),
                  "pieces give the same banner");
    return found ? received.substr(received.size() - whole.after().size()) : received;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view received = afterBanner(fuzz::textOf(data, size, kMostBytes));
    std::optional<zolt_ports::SeparatorFound> found;
    reads([&] { found = zolt_ports::findSeparator(received); });
    for (const std::string& separator :
         {std::string("\r\n"), std::string(), found ? found->outSeparator : std::string(";")}) {
        readConsole(received, separator);
        readReports(received, separator);
    }
    return 0;
}
