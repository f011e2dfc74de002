#include "control/io_forms.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "bus/card_kinds.h"
#include "bus/wire.h"
#include "control/help_text.h"
#include "tests/completeness/source_words.h"
#include "tests/support/text/bytes.h"

namespace completeness {
namespace {

/// The frame that a word leads to, empty for a word that is no command of the row
/// `form` or sends nothing. The bus has a card of `kind` at each address.
std::string frameOf(const std::string& word, std::size_t form, const CardKind& kind) {
    CardTable cards;
    for (std::size_t address = 0; address < wire::kAddresses; ++address) {
        setUpCard(cards.at(address), static_cast<std::uint8_t>(address), kind.code);
    }
    try {
        const auto forms = ioForms();
        const auto row = std::find_if(forms.begin(), forms.end(),
                                      [&](const IoForm& each) { return each.matches(word); });
        if (row - forms.begin() != static_cast<std::ptrdiff_t>(form)) return {};
        const auto frame = translateOutput(word, cards);
        return frame ? hexText(frame->bytes) : std::string();
    } catch (const CommandTooShort&) {
        return {};
    }
}

/// The frame that a word leads to for the first kind of card that takes it.
std::string frameOf(const std::string& word, std::size_t form) {
    for (const CardKind& kind : cardKinds()) {
        std::string frame = frameOf(word, form, kind);
        if (!frame.empty()) return frame;
    }
    return {};
}

/// The parameter is the number of a row in the table of forms.
class EveryIoForm : public testing::TestWithParam<std::size_t> {
  protected:
    /// Whether the text has a word that is a command of this form.
    static bool isIn(const std::string& text) {
        return hasWord(text,
                       [](const std::string& word) { return !frameOf(word, GetParam()).empty(); });
    }
};

TEST_P(EveryIoForm, IsInTheDocuments) {
    EXPECT_TRUE(isIn(sourceFile("docs/clients.md"))) << "docs/clients.md";
    EXPECT_TRUE(isIn(sourceFile("docs/card-bus.md"))) << "docs/card-bus.md";
}

TEST_P(EveryIoForm, IsInTheExamplesOfTheConsole) {
    const auto lines = help_text::ioExamples();
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), isIn))
        << "src/control/help_text.cpp, tests/unit/control/ioexamples.txt";
}

TEST_P(EveryIoForm, IsAWordOfTheFuzzer) {
    EXPECT_TRUE(isIn(sourceFile("fuzz/dictionaries/io_lines.dict")))
        << "fuzz/dictionaries/io_lines.dict";
}

TEST_P(EveryIoForm, IsMeasured) {
    EXPECT_TRUE(isIn(sourceFile("bench/micro/io_forms_bench.cpp")))
        << "bench/micro/io_forms_bench.cpp";
}

TEST_P(EveryIoForm, IsCutByTheUnitTest) {
    EXPECT_TRUE(isIn(sourceFile("tests/unit/control/io_forms_short_test.cpp")))
        << "tests/unit/control/io_forms_short_test.cpp";
}

TEST_P(EveryIoForm, IsUnderstoodByASimulatedCardInAGoldenDialogue) {
    const std::vector<std::string> sent = sentInDialogues("io");
    EXPECT_TRUE(std::any_of(sent.begin(), sent.end(), [](const std::string& dialogue) {
        const std::size_t line = dialogue.find('\n');
        return isIn(dialogue.substr(0, line)) && line != std::string::npos &&
               dialogue.find("\n    card ", line) != std::string::npos;
    })) << "tests/golden/dialogues, apps/zolt-sim/cards";
}

INSTANTIATE_TEST_SUITE_P(Table, EveryIoForm, testing::Range<std::size_t>(0, ioForms().size()));

TEST(OutputFrames, AreAsTheBusDocumentShowsThem) {
    const std::string document = sourceFile("docs/card-bus.md");
    const std::string mark = "\n| `a";
    int rows = 0;
    for (std::size_t at = document.find(mark); at != std::string::npos;
         at = document.find(mark, at + 1)) {
        const std::size_t command = at + mark.size() - 1;
        const std::string word = document.substr(command, document.find('`', command) - command);
        const std::size_t frame = document.find("| `", command) + 3;
        const std::string shown = document.substr(frame, document.find('`', frame) - frame);
        const auto forms = ioForms();
        bool sent = false;
        for (std::size_t form = 0; form < forms.size(); ++form) {
            for (const CardKind& kind : cardKinds()) {
                sent = sent || frameOf(word, form, kind) == shown;
            }
        }
        EXPECT_TRUE(sent) << word << " leads to no frame " << shown;
        ++rows;
    }
    EXPECT_GE(rows, 6);
}

/// The letters of an LCD control, "CL".
class EveryLcdControl : public testing::TestWithParam<std::string> {
  protected:
    /// Whether the text has a word that ends with the letters after an "l", or that
    /// is the letters.
    static bool isIn(const std::string& text) {
        return hasWord(text, [](const std::string& word) {
            return word == GetParam() || word.ends_with("l" + GetParam());
        });
    }
};

TEST_P(EveryLcdControl, IsInTheDocuments) {
    EXPECT_TRUE(isIn(sourceFile("docs/clients.md"))) << "docs/clients.md";
    EXPECT_TRUE(isIn(sourceFile("docs/card-bus.md"))) << "docs/card-bus.md";
}

TEST_P(EveryLcdControl, IsInTheHelpText) {
    const auto lines = help_text::help();
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), isIn))
        << "src/control/help_text.cpp, tests/unit/control/help.txt";
}

TEST_P(EveryLcdControl, IsAWordOfTheFuzzer) {
    EXPECT_TRUE(isIn(sourceFile("fuzz/dictionaries/io_lines.dict")))
        << "fuzz/dictionaries/io_lines.dict";
}

std::vector<std::string> lcdLetters() {
    std::vector<std::string> letters;
    for (const LcdControl& row : lcdControls()) letters.push_back({row.first, row.second});
    return letters;
}

INSTANTIATE_TEST_SUITE_P(Table, EveryLcdControl, testing::ValuesIn(lcdLetters()));

}  // namespace
}  // namespace completeness
