#include "apps/zoltctl/commands/card_config.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "apps/zoltctl/commands/commands.h"
#include "tests/unit/zoltctl/failure_of.h"

using namespace ctl;

namespace {

using Words = std::vector<std::string>;
using Lines = std::vector<std::string>;

struct Case {
    Words words;
    const char* command;
    Lines reply;
    const char* text;
    const char* json;
};

const std::vector<Case>& cases() {
    static const std::vector<Case> list{
        {{"lcd", "E", "self-test", "on"},
         "LCDSELFTEST:E=ON",
         {"CIA: SELFTEST STATE IS SET TO ON at address E"},
         "card E: self-test at start is on",
         R"({"address":"E","command":"lcd self-test","on":true})"},
        {{"lcd", "e", "light", "off"},
         "LCDINITLIGHT:E=OFF",
         {"CIA: INITLIGHT STATE IS SET TO OFF at address E"},
         "card E: light at start is off",
         R"({"address":"E","command":"lcd light","on":false})"},
        {{"analogue", "F", "mask", "f"},
         "SETANMASK:F=0F",
         {"CIA: Channel MASK of the card is SET", "AMS:0xF:0x0F"},
         "card F: mask is 0F",
         R"({"address":"F","command":"analogue mask","value":15,"hex":"0F"})"},
        {{"analogue", "F", "mask"},
         "GETANMASK:F",
         {"CIA: MASK is GOT from card", "AMV:0xF:0xFFFFFF80"},
         "card F: mask is 80",
         R"({"address":"F","command":"analogue mask","value":128,"hex":"80"})"},
        {{"analogue", "F", "store"},
         "STOREANMASK:F",
         {"CIA: MASK IS STORED at address F"},
         "card F: mask is stored",
         R"({"address":"F","command":"analogue store"})"},
        {{"servo", "3", "end", "b", "channel", "2", "80"},
         "SETSCB2:3=80",
         {"CIA: SERVO PARAM of the card is SET", "SPS:0x3:SCB2:0x80"},
         "card 3: servo end B, channel 2 is 80",
         R"({"address":"3","command":"servo end","end":"B","channel":2,"value":128,"hex":"80"})"},
        {{"servo", "3", "end", "A", "channel", "5"},
         "GETSCA5:3",
         {"CIA: SERVO PARAM is GOT from card", "SPG:0x3:SCA5:0xFB"},
         "card 3: servo end A, channel 5 is FB",
         R"({"address":"3","command":"servo end","end":"A","channel":5,"value":251,"hex":"FB"})"},
        {{"servo", "3", "store"},
         "STORESRVPOS:3",
         {"CIA: POSITIONS ARE STORED at address 3"},
         "card 3: positions are stored",
         R"({"address":"3","command":"servo store"})"},
        {{"servo", "3", "restore"},
         "MOVESTRPOS:3",
         {"CIA: SERVOS ARE MOVED TO STORED POSITIONS at address 3"},
         "card 3: servos are moved to the stored positions",
         R"({"address":"3","command":"servo restore"})"},
        {{"motor", "a", "silent-range", "2", "10"},
         "SETMSR2:A=10",
         {"CIA: MSR value of the card is SET", "MPS:0xA:MSR2:0x10"},
         "card A: silent range of channel 2 is 10",
         R"({"address":"A","command":"motor silent-range","channel":2,"value":16,"hex":"10"})"},
        {{"motor", "A", "silent-range", "2"},
         "GETMSR2:A",
         {"CIA: MSR value is GOT from card", "MSR2:0xA:0x10"},
         "card A: silent range of channel 2 is 10",
         R"({"address":"A","command":"motor silent-range","channel":2,"value":16,"hex":"10"})"},
        {{"motor", "A", "store"},
         "STOREMSRS:A",
         {"CIA: MSR values are STORED at address A"},
         "card A: silent ranges are stored",
         R"({"address":"A","command":"motor store"})"},
        {{"reboot", "7"},
         "REBOOT:7",
         {"CIA: Card is REBOOTED", "RBT:0x7:OK"},
         "card 7: rebooted",
         R"({"address":"7","command":"reboot"})"},
    };
    return list;
}

const CardConfigRow& rowOf(const Words& words, Fields& fields) {
    std::vector<std::string> patterns;
    for (const CardConfigRow& row : cardConfigRows()) {
        patterns.emplace_back(row.pattern);
    }
    const Phrase phrase = matchPhrase(words, patterns);
    fields = phrase.fields;
    return cardConfigRows()[phrase.index];
}

std::string complaint(const Words& words, const Reply& reply) {
    return failureOf([&] {
        Fields fields;
        const CardConfigRow& row = rowOf(words, fields);
        parseConfigReply(row, fields, reply);
    });
}

}  // namespace

TEST(CtlCardConfig, EveryCommandFromItsWordsToItsResult) {
    ASSERT_EQ(cases().size(), cardConfigRows().size());
    for (const Case& entry : cases()) {
        Fields fields;
        const CardConfigRow& row = rowOf(entry.words, fields);
        EXPECT_EQ(filledIn(row.command, fields), entry.command);
        const Fields told = parseConfigReply(row, fields, {entry.reply, false, false});
        EXPECT_EQ(filledIn(row.text, told), entry.text);
        EXPECT_EQ(oneLine(configJson(row, told)), entry.json);
    }
}

TEST(CtlCardConfig, RefusalIsToldInTheDaemonsWords) {
    for (const Case& entry : cases()) {
        EXPECT_EQ(complaint(entry.words, {{"CIE: PARAM READ ERROR"}, false, false}),
                  "1 CIE: PARAM READ ERROR");
    }
}

TEST(CtlCardConfig, EveryOtherReplyIsNoneOfTheDaemons) {
    for (const Case& entry : cases()) {
        const std::string start =
            "7 the answer to " + std::string(entry.command) + " is none of zolt's: ";
        EXPECT_EQ(complaint(entry.words, {}), start + "\"\"");
        EXPECT_EQ(complaint(entry.words, {{"hello"}, false, false}), start + "\"hello\"");
        Lines longer = entry.reply;
        longer.emplace_back("more");
        EXPECT_EQ(complaint(entry.words, {longer, false, false}).substr(0, start.size()), start);
        Lines other = entry.reply;
        // Another address, or something behind.
        other.back() += "?";
        EXPECT_EQ(complaint(entry.words, {other, false, false}).substr(0, start.size()), start);
    }
}

TEST(CtlCardConfig, ValueThatWasNotSetIsNoneOfTheDaemons) {
    EXPECT_EQ(complaint({"analogue", "F", "mask", "0F"},
                        {{"CIA: Channel MASK of the card is SET", "AMS:0xF:0x1F"}, false, false}),
              "7 the answer to SETANMASK:F=0F is none of zolt's: "
              "\"CIA: Channel MASK of the card is SET\\nAMS:0xF:0x1F\"");
    EXPECT_EQ(complaint({"analogue", "F", "mask"},
                        {{"CIA: MASK is GOT from card", "AMV:0xF:0xFFFFFF8"}, false, false})
                  .substr(0, 2),
              "7 ");
}
