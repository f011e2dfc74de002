#include "lib/ports/card_config.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "control/card_config_table.h"
#include "tests/unit/lib/ports/error_of.h"

using namespace zolt_ports;

namespace {

using Lines = std::vector<std::string>;

struct Case {
    CardConfig command;
    CardFields fields;
    const char* line;
    Lines reply;
    std::optional<std::uint8_t> value;  ///< that the reply reports
};

CardFields at(char address) {
    return {.address = address, .end = {}, .channel = {}, .on = {}, .value = {}};
}

CardFields state(char address, bool on) {
    CardFields fields = at(address);
    fields.on = on;
    return fields;
}

CardFields value(char address, std::uint8_t value) {
    CardFields fields = at(address);
    fields.value = value;
    return fields;
}

CardFields channel(char address, char channel, std::optional<std::uint8_t> value = {},
                   std::optional<char> end = {}) {
    return {.address = address, .end = end, .channel = channel, .on = {}, .value = value};
}

const std::vector<Case>& cases() {
    static const std::vector<Case> list{
        {CardConfig::kSetLcdSelfTest,
         state('E', true),
         "LCDSELFTEST:E=ON",
         {"CIA: SELFTEST STATE IS SET TO ON at address E"},
         {}},
        {CardConfig::kSetLcdLight,
         state('E', false),
         "LCDINITLIGHT:E=OFF",
         {"CIA: INITLIGHT STATE IS SET TO OFF at address E"},
         {}},
        {CardConfig::kSetMask,
         value('F', 0x0F),
         "SETANMASK:F=0F",
         {"CIA: Channel MASK of the card is SET", "AMS:0xF:0x0F"},
         0x0F},
        {CardConfig::kGetMask,
         at('F'),
         "GETANMASK:F",
         {"CIA: MASK is GOT from card", "AMV:0xF:0xFFFFFF80"},
         0x80},
        {CardConfig::kStoreMask,
         at('F'),
         "STOREANMASK:F",
         {"CIA: MASK IS STORED at address F"},
         {}},
        {CardConfig::kSetServoEnd,
         channel('3', '2', 0x80, 'B'),
         "SETSCB2:3=80",
         {"CIA: SERVO PARAM of the card is SET", "SPS:0x3:SCB2:0x80"},
         0x80},
        {CardConfig::kGetServoEnd,
         channel('3', '5', {}, 'A'),
         "GETSCA5:3",
         {"CIA: SERVO PARAM is GOT from card", "SPG:0x3:SCA5:0xFB"},
         0xFB},
        {CardConfig::kStorePositions,
         at('3'),
         "STORESRVPOS:3",
         {"CIA: POSITIONS ARE STORED at address 3"},
         {}},
        {CardConfig::kRestorePositions,
         at('3'),
         "MOVESTRPOS:3",
         {"CIA: SERVOS ARE MOVED TO STORED POSITIONS at address 3"},
         {}},
        {CardConfig::kSetSilentRange,
         channel('A', '2', 0x10),
         "SETMSR2:A=10",
         {"CIA: MSR value of the card is SET", "MPS:0xA:MSR2:0x10"},
         0x10},
        {CardConfig::kGetSilentRange,
         channel('A', '2'),
         "GETMSR2:A",
         {"CIA: MSR value is GOT from card", "MSR2:0xA:0x10"},
         0x10},
        {CardConfig::kStoreSilentRanges,
         at('A'),
         "STOREMSRS:A",
         {"CIA: MSR values are STORED at address A"},
         {}},
        {CardConfig::kReboot, at('7'), "REBOOT:7", {"CIA: Card is REBOOTED", "RBT:0x7:OK"}, {}},
    };
    return list;
}

Reply replyOf(const Lines& lines) {
    return {lines, false, false};
}

std::string complaint(Reason expected, const Case& entry, const Lines& lines) {
    return errorOf(expected,
                   [&] { parseConfigReply(entry.command, entry.fields, replyOf(lines)); });
}

/// The settings in the daemon's table that a card of the kind has.
CardSettings settingsOf(std::optional<zolt_ports::CardKind> kind) {
    if (!kind) return CardSettings::kNone;
    for (const ::CardKind& row : ::cardKinds()) {
        if (row.name == rowOf(*kind).name) return row.settings;
    }
    throw std::logic_error("the daemon has no such kind");
}

}  // namespace

TEST(CardConfig, EveryCommandFromItsLineToItsResult) {
    ASSERT_EQ(cases().size(), cardConfigRows().size());
    for (const Case& entry : cases()) {
        SCOPED_TRACE(entry.line);
        EXPECT_EQ(lineOf(entry.command, entry.fields), entry.line);
        const CardFields reported =
            parseConfigReply(entry.command, entry.fields, replyOf(entry.reply));
        EXPECT_EQ(reported.value, entry.value);
        EXPECT_EQ(reported.address, entry.fields.address);
    }
}

TEST(CardConfig, CommandsAndTheirKindsAreThoseOfTheDaemon) {
    for (const CardConfigCommand& command : cardConfigCommands()) {
        SCOPED_TRACE(command.keyword);
        const auto rows = cardConfigRows();
        const auto row = std::find_if(rows.begin(), rows.end(), [&](const CardConfigRow& entry) {
            return std::string_view(entry.line).starts_with(command.keyword);
        });
        ASSERT_NE(row, rows.end());
        EXPECT_EQ(settingsOf(row->kind), command.settings);
        EXPECT_TRUE(std::string_view(row->success)
                        .starts_with(std::string_view(command.success).substr(0, 40)));
        EXPECT_EQ(row->result != nullptr, command.resultLine != nullptr);
    }
    EXPECT_EQ(cardConfigRows().size(), cardConfigCommands().size());
}

TEST(CardConfig, RefusalIsReportedInTheDaemonsWords) {
    for (const Case& entry : cases()) {
        EXPECT_EQ(complaint(Reason::kRefused, entry, {"CIE: PARAM READ ERROR"}),
                  "CIE: PARAM READ ERROR");
    }
}

TEST(CardConfig, EveryOtherReplyDoesNotLookLikeZolt) {
    for (const Case& entry : cases()) {
        const std::string start =
            "the answer to " + std::string(entry.line) + " does not look like zolt: ";
        const auto foreign = [&](const Lines& lines) {
            return complaint(Reason::kNotZolt, entry, lines);
        };
        EXPECT_EQ(foreign({}), start + "\"\"");
        EXPECT_EQ(foreign({"hello"}), start + "\"hello\"");
        Lines longer = entry.reply;
        longer.emplace_back("more");
        EXPECT_TRUE(foreign(longer).starts_with(start));
        Lines other = entry.reply;
        other.back() += "?";
        EXPECT_TRUE(foreign(other).starts_with(start));
        Lines elsewhere = entry.reply;
        for (std::string& line : elsewhere) {
            std::replace(line.begin(), line.end(), entry.fields.address, '1');
        }
        EXPECT_TRUE(foreign(elsewhere).starts_with(start));
    }
}

TEST(CardConfig, ValueThatWasNotSetDoesNotLookLikeZolt) {
    const Case& setMask = cases()[2];
    EXPECT_EQ(complaint(Reason::kNotZolt, setMask,
                        {"CIA: Channel MASK of the card is SET", "AMS:0xF:0x1F"}),
              "the answer to SETANMASK:F=0F does not look like zolt: "
              "\"CIA: Channel MASK of the card is SET\\nAMS:0xF:0x1F\"");
    const Case& getMask = cases()[3];
    EXPECT_NE(
        complaint(Reason::kNotZolt, getMask, {"CIA: MASK is GOT from card", "AMV:0xF:0xFFFFFF8"}),
        "none");
}
