#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/unit/control/io_forms_fixture.h"

namespace {

// Short and wrong commands: which positions a form reads decides

struct ShortCommand {
    const char* command;
    const char* outcome;
};

void PrintTo(const ShortCommand& row, std::ostream* out) {
    *out << '"' << row.command << '"';
}

class ShortCommands : public IoForms, public testing::WithParamInterface<ShortCommand> {};

TEST_P(ShortCommands, EndAsTheirFormSays) {
    EXPECT_EQ(outcome(GetParam().command), GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(
    IoForms, ShortCommands,
    testing::Values(
        // The first character is looked at first.
        ShortCommand{"b", kIllegal}, ShortCommand{"x5b1dFB", kIllegal}, ShortCommand{" ", kIllegal},
        ShortCommand{"HS", kIllegal}, ShortCommand{"PAp", kIllegal}, ShortCommand{"EXIT", kIllegal},
        ShortCommand{"a", kException}, ShortCommand{"a5", kException},
        ShortCommand{"aE", kException},
        // Blocks.
        ShortCommand{"a5b", kException}, ShortCommand{"a5b1", kException},
        ShortCommand{"a5b1x", kIllegal}, ShortCommand{"a5b1x00", kIllegal},
        ShortCommand{"a5b1d", kException}, ShortCommand{"a5b1d0", kException},
        ShortCommand{"a5b1d00", "5: 10 05 02 FF 00"}, ShortCommand{"a7b1d", kException},
        ShortCommand{"a7b1d00", "7: "},
        // A stream never ends in an exception.
        ShortCommand{"a9s", kIllegal}, ShortCommand{"a9sH", kIllegal},
        ShortCommand{"a9sxHS", kIllegal}, ShortCommand{"a9sHS", "9: 10 09 01 00"},
        ShortCommand{"a9sHS4", "9: 10 09 01 00"}, ShortCommand{"a9sHS41", "9: 10 09 02 01 41"},
        // LCD controls.
        ShortCommand{"aEl", kException}, ShortCommand{"aElC", kException},
        ShortCommand{"a5l", kException}, ShortCommand{"a5lC", kException},
        ShortCommand{"aElCL", "14: 10 0E 01 00"}, ShortCommand{"aElCx", kIllegal},
        // LCD texts.
        ShortCommand{"aElPAp", kException}, ShortCommand{"aElPAp0", kException},
        ShortCommand{"aElPAp03", kException}, ShortCommand{"aElPAp030", kException},
        ShortCommand{"aElPAp0301", kException}, ShortCommand{"a5lPAp0301", kException},
        ShortCommand{"aElPAp0301t", "14: 10 0E 04 09 03 01 00"},
        ShortCommand{"a5lPAp0301t", kIllegal},
        // No form has this letter.
        ShortCommand{"a5x", kIllegal}, ShortCommand{"a5B1d00", kIllegal},
        ShortCommand{"a5c1d00", kIllegal}, ShortCommand{"a9xHS43", kIllegal},
        ShortCommand{"aExPAp0301tA", kIllegal}));

TEST_F(IoForms, NoCommandReadsBeyondItsEnd) {
    for (const std::string example :
         {"a5b1dFB", "a9sHS434F434B", "aElCL", "aElPAp0301tTail of the cat"}) {
        for (std::size_t size = 1; size <= example.size(); ++size) {
            // Each text is a new one, so that a memory checker sees its end.
            outcome(std::string(example.begin(), example.begin() + static_cast<long>(size)));
        }
        for (std::size_t missing = 0; missing < example.size(); ++missing) {
            outcome(std::string(example).erase(missing, 1));
        }
    }
}

TEST_F(IoForms, NoFrameExceedsACardsRoom) {
    for (std::size_t length = 1; length <= 255; ++length) {
        for (const char* start : {"a9sHS", "aElPAp0000t"}) {
            std::string command = start;
            command.resize(std::max(length, command.size()), '4');
            const auto frame = translateOutput(command, cards_);
            if (frame) {
                EXPECT_LE(frame->bytes.size(), 38U) << command;
            }
        }
    }
}

}  // namespace
