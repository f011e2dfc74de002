#include "control/help_text.h"

#include <fstream>
#include <iterator>

#include "tests/unit/control/console_fixture.h"

namespace {

/// The whole file, byte for byte.
std::string fileContent(const std::string& name) {
    std::ifstream file(ZOLT_CONTROL_TEST_DATA "/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> linesOf(const std::string& name) {
    const std::string content = fileContent(name);
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < content.size();) {
        const std::size_t end = content.find('\n', start);
        lines.push_back(content.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

/// The numbers, from 1, of the lines for which `holds`.
template <typename Condition>
std::vector<std::size_t> linesWhere(const std::string& name, Condition holds) {
    const std::vector<std::string> lines = linesOf(name);
    std::vector<std::size_t> numbers;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (holds(lines[i])) numbers.push_back(i + 1);
    }
    return numbers;
}

using Numbers = std::vector<std::size_t>;

template <typename Lines>
std::string joined(const Lines& lines) {
    std::string text;
    for (const char* line : lines) text += std::string(line) + '\n';
    return text;
}

using HelpText = ConsoleFixture;

TEST_F(HelpText, IsTheTextThatClientsKnow) {
    EXPECT_EQ(joined(help_text::help()), fileContent("help.txt"));
    EXPECT_EQ(joined(help_text::ioExamples()), fileContent("ioexamples.txt"));
}

TEST_F(HelpText, HelpIsOneReplyPerLine) {
    const Events events = eventsOf("HELP");
    EXPECT_EQ(events.size(), 70U);
    EXPECT_EQ(events, repliesAndPrompt(linesOf("help.txt")));
}

TEST_F(HelpText, IoExamplesAreOneReplyPerLine) {
    const Events events = eventsOf("IOEXAMPLES");
    EXPECT_EQ(events.size(), 23U);
    EXPECT_EQ(events, repliesAndPrompt(linesOf("ioexamples.txt")));
}

// An editor that tidies blanks would change text and expectation alike; these
// tell where the blanks are.

TEST_F(HelpText, LinesThatLookEmptyAreOneBlank) {
    const auto isBlank = [](const std::string& line) { return line == " "; };
    EXPECT_EQ(linesWhere("help.txt", isBlank), (Numbers{2, 17, 20, 26, 30, 36, 43, 47, 53, 57}));
    EXPECT_EQ(linesWhere("ioexamples.txt", isBlank), Numbers{});
    EXPECT_EQ(linesWhere("help.txt", [](const std::string& line) { return line.empty(); }),
              Numbers{});
}

TEST_F(HelpText, SomeLinesEndWithABlank) {
    const auto endsWithBlank = [](const std::string& line) {
        return line.size() > 1 && line.back() == ' ';
    };
    EXPECT_EQ(linesWhere("help.txt", endsWithBlank), Numbers{23});
    EXPECT_EQ(linesWhere("ioexamples.txt", endsWithBlank), (Numbers{7, 9}));
}

TEST_F(HelpText, BlanksAheadOfTheAddressRangeAreOneOrTwo) {
    const auto hasOne = [](const std::string& line) {
        const std::size_t range = line.find(" (x=0..F)");
        return range != std::string::npos && line[range - 1] != ' ';
    };
    EXPECT_EQ(linesWhere("help.txt", hasOne), (Numbers{19, 24, 25}));
    EXPECT_EQ(linesWhere("help.txt",
                         [](const std::string& line) {
                             return line.find("  (x=0..F)") != std::string::npos;
                         }),
              (Numbers{11, 12, 13, 22, 23, 28, 29, 32, 33, 34, 35, 38, 39, 40}));
    EXPECT_EQ(linesWhere("help.txt",
                         [](const std::string& line) {
                             return line.find("  address") != std::string::npos;
                         }),
              Numbers{40});
}

}  // namespace
