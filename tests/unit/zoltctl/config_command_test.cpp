#include "apps/zoltctl/commands/config_command.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <set>

#include "apps/zoltctl/arguments/phrase.h"
#include "apps/zoltctl/commands/command.h"

using namespace zoltctl;
using zolt_ports::CardConfig;

namespace {

using Words = std::vector<std::string>;

struct ConfigCase {
    Words words;
    CardConfig command;
    const char* text;
    const char* json;
};

const std::vector<ConfigCase>& cases() {
    static const std::vector<ConfigCase> list{
        {{"lcd", "E", "self-test", "on"},
         CardConfig::kSetLcdSelfTest,
         "card E: self-test at start is on",
         R"({"address":"E","command":"lcd self-test","on":true})"},
        {{"lcd", "e", "light", "off"},
         CardConfig::kSetLcdLight,
         "card E: light at start is off",
         R"({"address":"E","command":"lcd light","on":false})"},
        {{"analogue", "F", "mask", "f"},
         CardConfig::kSetMask,
         "card F: mask is 0F",
         R"({"address":"F","command":"analogue mask","value":15,"hex":"0F"})"},
        {{"analogue", "F", "mask"},
         CardConfig::kGetMask,
         "card F: mask is 10",
         R"({"address":"F","command":"analogue mask","value":16,"hex":"10"})"},
        {{"analogue", "F", "store"},
         CardConfig::kStoreMask,
         "card F: mask is stored",
         R"({"address":"F","command":"analogue store"})"},
        {{"servo", "3", "end", "b", "channel", "2", "80"},
         CardConfig::kSetServoEnd,
         "card 3: servo end B, channel 2 is 80",
         R"({"address":"3","command":"servo end","end":"B","channel":2,"value":128,"hex":"80"})"},
        {{"servo", "3", "end", "A", "channel", "5"},
         CardConfig::kGetServoEnd,
         "card 3: servo end A, channel 5 is 10",
         R"({"address":"3","command":"servo end","end":"A","channel":5,"value":16,"hex":"10"})"},
        {{"servo", "3", "store"},
         CardConfig::kStorePositions,
         "card 3: positions are stored",
         R"({"address":"3","command":"servo store"})"},
        {{"servo", "3", "restore"},
         CardConfig::kRestorePositions,
         "card 3: servos are moved to the stored positions",
         R"({"address":"3","command":"servo restore"})"},
        {{"motor", "a", "silent-range", "2", "1F"},
         CardConfig::kSetSilentRange,
         "card A: silent range of channel 2 is 1F",
         R"({"address":"A","command":"motor silent-range","channel":2,"value":31,"hex":"1F"})"},
        {{"motor", "A", "silent-range", "2"},
         CardConfig::kGetSilentRange,
         "card A: silent range of channel 2 is 10",
         R"({"address":"A","command":"motor silent-range","channel":2,"value":16,"hex":"10"})"},
        {{"motor", "A", "store"},
         CardConfig::kStoreSilentRanges,
         "card A: silent ranges are stored",
         R"({"address":"A","command":"motor store"})"},
        {{"reboot", "7"},
         CardConfig::kReboot,
         "card 7: rebooted",
         R"({"address":"7","command":"reboot"})"},
    };
    return list;
}

/// A value that a card reports.
constexpr std::uint8_t kReported = 0x10;

bool reportsAValue(CardConfig command) {
    return command == CardConfig::kGetMask || command == CardConfig::kGetServoEnd ||
           command == CardConfig::kGetSilentRange;
}

}  // namespace

TEST(ConfigCommand, EveryFormFromItsWordsToItsResult) {
    ASSERT_EQ(cases().size(), configForms().size());
    for (const ConfigCase& entry : cases()) {
        Words words{"config"};
        words.insert(words.end(), entry.words.begin(), entry.words.end());
        const Phrase phrase = matchPhrase(words, patternsOf(configForms()));
        const ConfigForm& form = configForms()[phrase.index];
        SCOPED_TRACE(form.pattern);
        EXPECT_EQ(form.command, entry.command);
        zolt_ports::CardFields fields = phrase.fields.card;
        if (reportsAValue(form.command)) {
            fields.value = kReported;
        }
        EXPECT_EQ(zolt_ports::filledIn(form.text, fields), entry.text);
        EXPECT_EQ(oneLine(configJson(form, fields)), entry.json);
    }
}

TEST(ConfigCommand, EveryCommandOfTheConsoleHasAForm) {
    std::set<CardConfig> commands;
    for (const ConfigForm& form : configForms()) {
        commands.insert(form.command);
    }
    EXPECT_EQ(commands.size(), zolt_ports::cardConfigRows().size());
}
