#include "apps/zoltctl/arguments/phrase.h"

#include <gtest/gtest.h>

#include "apps/zoltctl/commands/commands.h"
#include "tests/unit/zoltctl/failure_of.h"

using namespace zoltctl;

namespace {

using Words = std::vector<std::string>;

const std::vector<std::string>& formsOf(const std::string& command) {
    for (const CommandRow& row : commandRows()) {
        if (row.name == command) {
            return row.forms;
        }
    }
    throw std::logic_error("no command " + command);
}

Phrase match(const Words& words) {
    return matchPhrase(words, formsOf(words[0]));
}

std::string phraseComplaint(const Words& words) {
    return failureOf([&] { match(words); });
}

}  // namespace

TEST(Phrase, SetTakesLowerCaseDigits) {
    const Fields fields = match({"set", "e", "f", "b"}).fields;
    EXPECT_EQ(fields.address(), 'E');
    EXPECT_EQ(fields.block, 15U);
    EXPECT_EQ(fields.card.value, 0x0B);
}

TEST(Phrase, LastParameterInBracketsMayBeMissing) {
    EXPECT_EQ(match({"input", "3"}).fields.block, std::nullopt);
    EXPECT_EQ(match({"input", "3", "1"}).fields.block, 1U);
}

TEST(Phrase, ParameterWithDotsRepeats) {
    EXPECT_EQ(match({"poll"}).index, 0U);
    EXPECT_EQ(match({"poll", "on"}).fields.addresses, "");
    const Fields fields = match({"poll", "off", "3", "8", "f"}).fields;
    EXPECT_EQ(fields.addresses, "38F");
    EXPECT_EQ(fields.card.on, false);
}

TEST(Phrase, LcdTextHasDecimalPlaces) {
    const Phrase phrase = match({"lcd", "E", "text", "3", "10", "Tail of the cat"});
    EXPECT_EQ(phrase.index, 4U);
    EXPECT_EQ(phrase.fields.column, 3);
    EXPECT_EQ(phrase.fields.row, 10);
    EXPECT_EQ(phrase.fields.text, "Tail of the cat");
    EXPECT_EQ(match({"lcd", "E", "text", "0", "0", ""}).fields.text, "");
    EXPECT_EQ(match({"lcd", "E", "text", "0", "0", std::string(31, 'x')}).index, 4U);
}

TEST(Phrase, InfraredPairsBecomeUpperCase) {
    EXPECT_EQ(match({"ir", "9", "434f"}).fields.text, "434F");
    EXPECT_EQ(match({"ir", "9", std::string(68, '4')}).fields.text.size(), 68U);
}

TEST(Phrase, SpeedIsAPercentage) {
    EXPECT_EQ(match({"speed", "050"}).fields.text, "50");
    EXPECT_EQ(match({"speed", "100"}).fields.text, "100");
}

TEST(Phrase, WrongArgumentsAreNamed) {
    struct Case {
        Words words;
        const char* complaint;
    };
    const Case cases[] = {
        {{"set", "G", "1", "FB"}, "2 \"G\" is not an address (one digit, 0 to F)"},
        {{"set", "5", "10", "FB"}, "2 \"10\" is not a block (one digit, 0 to F)"},
        {{"set", "5", "1", "FBB"}, "2 \"FBB\" is not a value for a block (hexadecimal 00 to FF)"},
        {{"set", "5", "1"}, "2 DATA is missing after \"set 5 1\""},
        {{"set", "5", "1", "FB", "3"}, "2 \"3\" is one argument too many"},
        {{"cards", "x"}, "2 \"x\" is one argument too many"},
        {{"poll", "on", "G"}, "2 \"G\" is not an address (one digit, 0 to F)"},
        {{"poll", "maybe"}, "2 \"maybe\" is not a state (on or off)"},
        {{"lcd", "E", "blob"},
         "2 \"blob\" is not expected here; expected: clear, light, cursor, blink or text"},
        {{"lcd", "E"}, "2 clear, light, cursor, blink or text is missing after \"lcd E\""},
        {{"lcd", "E", "text", "256", "0", "x"}, "2 \"256\" is not a column (0 to 255)"},
        {{"lcd", "E", "text", "0", "-1", "x"}, "2 \"-1\" is not a row (0 to 255)"},
        {{"lcd", "E", "text", "0", "0", "12345678901234567890123456789012"},
         "2 \"12345678901234567890123456789012\" is not a text for an LCD (at most 31 bytes)"},
        {{"ir", "9", "434"}, "2 \"434\" is not an IR stream (1 to 34 pairs of hexadecimal digits)"},
        {{"ir", "9", ""}, "2 \"\" is not an IR stream (1 to 34 pairs of hexadecimal digits)"},
        {{"ir", "9", "4x"}, "2 \"4x\" is not an IR stream (1 to 34 pairs of hexadecimal digits)"},
        {{"speed", "fast"}, "2 \"fast\" is not a percentage (a number from 1 to 100)"},
        {{"config", "servo", "3", "end", "C", "channel", "2"}, "2 \"C\" is not an end (A or B)"},
        {{"config", "servo", "3", "end", "B", "channel", "6"},
         "2 \"6\" is not a servo channel (0 to 5)"},
        {{"config", "motor", "A", "silent-range", "3"}, "2 \"3\" is not a motor channel (0 to 2)"},
        {{"config", "motor", "A", "silent-range", "1", "21"},
         "2 \"21\" is not a silent range (hexadecimal 00 to 20)"},
        {{"config", "analogue", "F", "mask", "40"},
         "2 \"40\" is not a mask (hexadecimal 00 to 3F)"},
        {{"config", "foo"},
         "2 \"foo\" is not expected here; expected: lcd, analogue, servo, motor or reboot"},
        {{"raw", "mon", "x"}, "2 \"mon\" is not expected here; expected: cae or io"},
    };
    for (const Case& entry : cases) {
        EXPECT_EQ(phraseComplaint(entry.words), entry.complaint);
    }
}

TEST(Phrase, ParametersOfAPattern) {
    EXPECT_EQ(parameterNames("poll STATE [ADDRESS...]"), (Words{"STATE", "ADDRESS"}));
    EXPECT_EQ(parameterNames("cards"), Words{});
}

TEST(Phrase, EveryWordInCapitalsIsAParameter) {
    for (const CommandRow& row : commandRows()) {
        for (const std::string& form : row.forms) {
            std::size_t capitals = 0;
            for (std::size_t i = 0; i + 1 < form.size(); ++i) {
                const bool starts = i == 0 || form[i - 1] == ' ' || form[i - 1] == '[';
                capitals += starts && form[i] >= 'A' && form[i] <= 'Z' ? 1U : 0U;
            }
            EXPECT_EQ(parameterNames(form).size(), capitals) << form;
        }
    }
}
