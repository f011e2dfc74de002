#include <algorithm>
#include <random>

#include "bus/card_kinds.h"
#include "tests/unit/control/console_fixture.h"

namespace {

const std::vector<std::string>& examples() {
    static const std::vector<std::string> lines{
        "SPEED=50",     "DISABLEPOLL",    "DRVVER",      "LCDSELFTEST:9=ON", "LCDINITLIGHT:9=OFF",
        "REBOOT:F",     "SETANMASK:7=3F", "GETANMASK:7", "STOREANMASK:7",    "STORESRVPOS:5",
        "MOVESTRPOS:5", "SETSCB2:5=80",   "GETSCA0:5",   "SETMSR2:6=10",     "GETMSR2:6",
        "STOREMSRS:6",  "POLLON:4",       "POLLOFF:4",   "ENABLEPOLL",       "POLLSTATE",
        "DISCOVER",     "FORCEDISCOVER",  "EXIT",        "GETLASTINPST:4=1", "HELP",
        "IOEXAMPLES"};
    return lines;
}

/// One card of each kind at the address of its kind code; the cards answer. The
/// parameter is the console's input separator.
class ConsoleRobustness : public testing::TestWithParam<std::string> {
  protected:
    ConsoleRobustness() {
        for (const CardKind& kind : cardKinds()) {
            host_.addCard(static_cast<std::size_t>(kind.code), kind.code);
        }
        host_.answerWith("51 00 00 80");
    }

    /// Checks that a chunk is answered in full: one prompt or one unknown-command
    /// answer, and that at the end. Returns whether the chunk was a command.
    bool isAnswered(const std::string& chunk) {
        // A line ends at the first 0 byte of what a client sends.
        console_.interpret(chunk.substr(0, chunk.find('\0')));
        const Events events = host_.takeEvents();
        const auto isEnd = [](const std::string& event) {
            return event == kPrompt || event == kUnknownCommand;
        };
        const bool endsOnce = !events.empty() && isEnd(events.back()) &&
                              std::count_if(events.begin(), events.end(), isEnd) == 1;
        EXPECT_TRUE(endsOnce) << testing::PrintToString(chunk) << " causes "
                              << testing::PrintToString(events);
        const bool isCommand = events.size() > 1;
        EXPECT_EQ(isCommand, !events.empty() && events.back() == kPrompt)
            << testing::PrintToString(chunk) << " causes " << testing::PrintToString(events);
        return isCommand;
    }

    support::RecordingHost host_;
    Console console_{host_, GetParam(), "\r\n"};
};

TEST_P(ConsoleRobustness, EveryBeginningOfEveryCommandIsAnswered) {
    for (const std::string& example : examples()) {
        const std::string line = example + GetParam();
        EXPECT_TRUE(isAnswered(line)) << example;
        for (std::size_t size = 0; size < line.size(); ++size) {
            isAnswered(line.substr(0, size));
            // The line end comes before the command, so that the command ends the text.
            isAnswered(GetParam() + line.substr(0, size));
            isAnswered(line.substr(0, size) + GetParam());
        }
    }
}

TEST_P(ConsoleRobustness, EveryCommandIsAnsweredWithoutAnyOneOfItsCharacters) {
    for (const std::string& example : examples()) {
        const std::string line = example + GetParam();
        for (std::size_t missing = 0; missing < line.size(); ++missing) {
            const std::string shorter = std::string(line).erase(missing, 1);
            isAnswered(shorter);
            isAnswered(GetParam() + shorter);
        }
    }
}

TEST_P(ConsoleRobustness, RandomLinesAreAnswered) {
    constexpr int kLines = 34'000;
    // A chunk has at most this many bytes.
    constexpr std::size_t kLongest = 255;
    std::mt19937 random(20'240'229);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    const auto piece = [&]() -> std::string {
        const std::string& example = examples()[below(examples().size())];
        switch (below(8)) {
            case 0:
                return example;
            case 1:
                return example.substr(0, example.find_first_of(":=") + 1);
            case 2:
                return example.substr(below(example.size()));
            case 3:
                return std::string(1, "0123456789ABCDEFabf"[below(19)]);
            case 4:
                return std::string(1, ":="[below(2)]);
            case 5:
                return GetParam();
            case 6:
                return std::string(1, "\r\n; "[below(4)]);
            default:
                return std::string(1, static_cast<char>(below(256)));
        }
    };
    int commands = 0;
    for (int line = 0; line < kLines; ++line) {
        std::string chunk;
        for (std::size_t pieces = below(1 + below(16)); pieces > 0; --pieces) chunk += piece();
        if (below(4) != 0) chunk += GetParam();
        chunk.resize(std::min(chunk.size(), kLongest));
        commands += isAnswered(chunk) ? 1 : 0;
        if (HasFailure()) return;
    }
    EXPECT_GT(commands, kLines / 10) << "too few to show anything";
    EXPECT_LT(commands, kLines - kLines / 10);
}

INSTANTIATE_TEST_SUITE_P(Separator, ConsoleRobustness, testing::Values("\r\n", ";", ""),
                         [](const auto& tested) {
                             return tested.param.size() == 2   ? "LineEnd"
                                    : tested.param.size() == 1 ? "OneCharacter"
                                                               : "Empty";
                         });

}  // namespace
