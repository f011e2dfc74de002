#include "control/help_text.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "tests/unit/control/console_fixture.h"

namespace {

/// Returns the whole file, byte for byte.
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

/// The first words of the lines for which `holds` is true. The first word of a
/// command's line is its syntax.
template <typename Condition>
std::vector<std::string> linesWhere(const std::string& name, Condition holds) {
    std::vector<std::string> words;
    for (const std::string& line : linesOf(name)) {
        if (!holds(line)) continue;
        const std::size_t start = std::min(line.find_first_not_of(" -"), line.size());
        words.push_back(line.substr(start, line.find(' ', start) - start));
    }
    return words;
}

using Words = std::vector<std::string>;

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
    EXPECT_EQ(eventsOf("HELP"), repliesAndPrompt(linesOf("help.txt")));
}

TEST_F(HelpText, IoExamplesAreOneReplyPerLine) {
    EXPECT_EQ(eventsOf("IOEXAMPLES"), repliesAndPrompt(linesOf("ioexamples.txt")));
}

// An editor that tidies blanks would change text and expectation alike; the following
// tests say where the blanks are.

TEST_F(HelpText, LinesThatLookEmptyAreOneBlank) {
    const auto isEmpty = [](const std::string& line) { return line.empty(); };
    const auto isBlank = [](const std::string& line) { return line == " "; };
    EXPECT_EQ(linesWhere("help.txt", isEmpty), Words{});
    EXPECT_EQ(linesWhere("help.txt", isBlank).size(), 10U);
    EXPECT_EQ(linesWhere("ioexamples.txt", isEmpty), Words{});
    EXPECT_EQ(linesWhere("ioexamples.txt", isBlank), Words{});
}

TEST_F(HelpText, SomeLinesEndWithABlank) {
    const auto endsWithBlank = [](const std::string& line) {
        return line.size() > 1 && line.back() == ' ';
    };
    EXPECT_EQ(linesWhere("help.txt", endsWithBlank), Words{"SETANMASK:x=mm"});
    const std::vector<std::string> examples = linesOf("ioexamples.txt");
    std::vector<std::string> ends;
    for (const std::string& line : examples) {
        if (endsWithBlank(line)) ends.push_back(line.substr(line.size() - 12));
    }
    EXPECT_EQ(ends, (Words{" interface: ", "and display "}));
}

TEST_F(HelpText, BlanksAheadOfTheAddressRangeAreOneOrTwo) {
    const std::string range = " (x=0..F)";
    const auto hasOne = [&range](const std::string& line) {
        const std::size_t at = line.find(range);
        return at != std::string::npos && line[at - 1] != ' ';
    };
    const auto hasThree = [&range](const std::string& line) {
        return line.find("  " + range) != std::string::npos;
    };
    EXPECT_EQ(linesWhere("help.txt", hasOne),
              (Words{"GETLASTINPST:x=b", "STOREANMASK:x", "GETLASTINPST:x=b"}));
    EXPECT_EQ(linesWhere("help.txt", hasThree), Words{});
}

TEST_F(HelpText, OneLineHasTwoBlanksAheadOfTheAddress) {
    EXPECT_EQ(linesWhere("help.txt",
                         [](const std::string& line) {
                             return line.find("  address") != std::string::npos;
                         }),
              Words{"STOREMSRS:x"});
}

}  // namespace
