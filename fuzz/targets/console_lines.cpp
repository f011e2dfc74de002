// Fuzzes what a console client sends, on a bus with a card of every kind. Pauses take no
// time. The cards are silent in one run and answer with the last byte of the input in
// another.

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "control/console.h"
#include "fuzz/support/cards.h"
#include "fuzz/support/target.h"
#include "ports/framing.h"
#include "tests/support/doubles/recording_host.h"
#include "tests/support/text/bytes.h"

namespace {

constexpr std::size_t kMostBytes = 510;

struct Separators {
    const char* input;
    const char* output;
};

constexpr std::array kSeparators{
    Separators{"\r\n", "\r\n"},
    Separators{"\n", ""},
    Separators{"", "<end>"},
    Separators{";=", "\r\n"},
};

/// The number after `word` in an event such as "delay 2525"; -1 for any other event.
long numberAfter(const std::string& event, const std::string& word) {
    return event.starts_with(word) ? std::stol(event.substr(word.size())) : -1;
}

bool isAllowedRequest(const std::string& event) {
    return !event.starts_with("request ") || event == "request 30" ||
           event.starts_with("request 50 0");
}

/// Holds for the events of one line, whatever the line says.
void requireEvents(const std::vector<std::string>& events, const std::string& separator) {
    // One second for each card configuration command and for each of the other commands
    // that pause: all of them can be in one line.
    constexpr long kLongestPause = 13 + 2 + 1;
    fuzz::require(!events.empty(), "every line is answered");
    fuzz::require(events.back() == "reply >" + separator ||
                      events.back() == "reply CIE: UNKNOWN COMMAND " + separator + ">" + separator,
                  "every answer ends with the prompt");
    long paused = 0;
    for (const std::string& event : events) {
        paused += std::max(0L, numberAfter(event, "pause "));
        const long delay = numberAfter(event, "delay ");
        fuzz::require(delay == -1 || (delay >= 1 && delay <= 5000), "a speed from 1 to 100 %");
        fuzz::require(!event.starts_with("reply ") || event.ends_with(separator),
                      "a reply ends with the separator");
        fuzz::require(isAllowedRequest(event), "a request for a card of the bus");
        fuzz::require(!event.starts_with("report ") || event.size() == 14, "a whole report");
    }
    fuzz::require(paused <= kLongestPause, "no line pauses longer than its commands");
}

/// The length of the next piece: 255 bytes at most, or one line.
std::size_t pieceLength(std::string_view sent, bool byLine) {
    const std::size_t line = byLine ? sent.find('\n') : std::string_view::npos;
    const std::size_t end = line == std::string_view::npos ? sent.size() : line + 1;
    return std::min(end, framing::kReadSize);
}

void interpret(std::string_view sent, const Separators& separators, support::RecordingHost& host,
               bool byLine) {
    for (std::size_t address = 0; address < fuzz::kKinds.size(); ++address) {
        host.addCard(address, fuzz::kKinds[address]);
    }
    Console console(host, separators.input, separators.output);
    while (!sent.empty()) {
        std::array<char, framing::kReadSize + 1> buffer{};
        const std::string_view piece = sent.substr(0, pieceLength(sent, byLine));
        std::copy(piece.begin(), piece.end(), buffer.begin());
        console.interpret(
            Convert_QList2String(framing::received(FramingMode::kText, buffer.data())));
        requireEvents(host.takeEvents(), separators.output);
        sent.remove_prefix(piece.size());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view sent = fuzz::textOf(data, size, kMostBytes);
    for (const Separators& separators : kSeparators) {
        support::RecordingHost silent;
        interpret(sent, separators, silent, false);
        support::RecordingHost answering;
        answering.answerWith("51 03 01 " +
                             hexText(sent.substr(sent.empty() ? 0 : sent.size() - 1)));
        interpret(sent, separators, answering, true);
    }
    return 0;
}
