#include "control/driver_commands.h"

#include "bus/card_kinds.h"
#include "tests/unit/control/console_fixture.h"

namespace {

// The table

struct ExpectedRow {
    std::string keyword;
    Match match;
};

TEST(DriverCommandTable, IsInTestOrder) {
    const std::vector<ExpectedRow> expected{
        {"SPEED=", Match::kKeywordOnly}, {"DISABLEPOLL", Match::kExact},
        {"DRVVER", Match::kExact},       {"", Match::kTable},
        {"POLLON:", Match::kContains},   {"POLLOFF:", Match::kContains},
        {"ENABLEPOLL", Match::kExact},   {"POLLSTATE", Match::kExact},
        {"DISCOVER", Match::kExact},     {"FORCEDISCOVER", Match::kExact},
        {"EXIT", Match::kExact},         {"GETLASTINPST:", Match::kContains},
        {"HELP", Match::kExact},         {"IOEXAMPLES", Match::kExact},
    };
    ASSERT_EQ(driverCommands().size(), expected.size());
    for (std::size_t row = 0; row < expected.size(); ++row) {
        EXPECT_EQ(driverCommands()[row].keyword, expected[row].keyword) << row;
        EXPECT_EQ(driverCommands()[row].match, expected[row].match) << row;
    }
}

// The handlers

/// The bus has one card of each kind at the address of its kind code.
class DriverCommands : public ConsoleFixture {
  protected:
    DriverCommands() {
        for (const CardKind& kind : cardKinds()) {
            host_.addCard(static_cast<std::size_t>(kind.code), kind.code);
        }
        host_.addCard(11, 11);
    }

    const Events notAnInput_ = repliesAndPrompt({"CIE: THIS COMMAND IS VALID ON INPUT CARDS"});
};

TEST_F(DriverCommands, TheVersion) {
    EXPECT_EQ(eventsOf("DRVVER"), repliesAndPrompt({"CIA: DRIVER VERSION 1.20"}));
}

TEST_F(DriverCommands, GlobalPollingIsSwitched) {
    EXPECT_EQ(eventsOf("ENABLEPOLL"),
              (Events{"polling on", replyEvent("CIA: GLOBAL POLLING IS ENABLED"), kPrompt}));
    EXPECT_TRUE(host_.polling());
    EXPECT_EQ(eventsOf("DISABLEPOLL"),
              (Events{"polling off", replyEvent("CIA: GLOBAL POLLING IS DISABLED"), kPrompt}));
    EXPECT_FALSE(host_.polling());
    EXPECT_TRUE(host_.card(4).pollingOn) << "the cards' own switches stay";
}

TEST_F(DriverCommands, ACardsPollingIsSwitched) {
    for (const std::string address : {"4", "7", "8"}) {
        PERIFCARD& card = host_.card(static_cast<std::size_t>(std::stoi(address)));
        EXPECT_EQ(eventsOf("POLLOFF:" + address),
                  repliesAndPrompt({"CIA: POLLOFF is OK at address " + address}));
        EXPECT_FALSE(card.pollingOn);
        EXPECT_EQ(eventsOf("POLLOFF:" + address),
                  repliesAndPrompt({"CIA: POLLOFF is OK at address " + address}));
        EXPECT_FALSE(card.pollingOn);
        EXPECT_EQ(eventsOf("POLLON:" + address),
                  repliesAndPrompt({"CIA: POLLON is OK at address " + address}));
        EXPECT_TRUE(card.pollingOn);
    }
}

TEST_F(DriverCommands, ACardsPollingTouchesNoOtherCard) {
    eventsOf("POLLOFF:7");
    EXPECT_TRUE(host_.card(4).pollingOn);
    EXPECT_FALSE(host_.card(7).pollingOn);
    EXPECT_TRUE(host_.card(8).pollingOn);
}

TEST_F(DriverCommands, PollingIsForInputCardsAlone) {
    for (const std::string address :
         {"0", "1", "2", "3", "5", "6", "9", "A", "B", "C", "D", "E", "F"}) {
        EXPECT_EQ(eventsOf("POLLON:" + address), notAnInput_) << address;
        EXPECT_EQ(eventsOf("POLLOFF:" + address), notAnInput_) << address;
    }
    host_.card(5).pollingOn = true;
    eventsOf("POLLOFF:5");
    EXPECT_TRUE(host_.card(5).pollingOn) << "a refusing card keeps its switch";
    EXPECT_FALSE(host_.card(3).pollingOn);
}

TEST_F(DriverCommands, AnAddressIsEchoedAsTypedAndWhatIsNoDigitIsCardZero) {
    host_.addCard(0, card_kind::kDigitalInput);
    for (const std::string address : {"a", "f", "g", "Z", "-", " ", ":", "\xFF"}) {
        host_.card(0).pollingOn = false;
        EXPECT_EQ(eventsOf("POLLON:" + address),
                  repliesAndPrompt({"CIA: POLLON is OK at address " + address}));
        EXPECT_TRUE(host_.card(0).pollingOn);
        EXPECT_EQ(eventsOf("POLLOFF:" + address),
                  repliesAndPrompt({"CIA: POLLOFF is OK at address " + address}));
        EXPECT_FALSE(host_.card(0).pollingOn);
    }
}

TEST_F(DriverCommands, OnlyOneCharacterIsTheAddress) {
    EXPECT_EQ(eventsOf("POLLON:48"), repliesAndPrompt({"CIA: POLLON is OK at address 4"}));
    host_.addCard(0, card_kind::kDigitalInput);
    EXPECT_EQ(eventsOf("POLLON:"), repliesAndPrompt({"CIA: POLLON is OK at address \r"}))
        << "of the line end, when nothing else is there";
    EXPECT_EQ(eventsOfText("\r\nPOLLON:"), repliesAndPrompt({"CIA: POLLON is OK at address "}));
}

TEST_F(DriverCommands, PollStatesAreListedForInputCards) {
    eventsOf("POLLOFF:7");
    host_.addCard(15, card_kind::kDigitalInput);
    EXPECT_EQ(eventsOf("POLLSTATE"),
              repliesAndPrompt({"CIA: GLOBAL POLLING IS DISABLED", "PTI:0x4:ON", "PTI:0x7:OFF",
                                "PTI:0x8:ON", "PTI:0xF:ON"}));
    eventsOf("ENABLEPOLL");
    EXPECT_EQ(eventsOf("POLLSTATE"),
              repliesAndPrompt({"CIA: GLOBAL POLLING IS ENABLED", "PTI:0x4:ON", "PTI:0x7:OFF",
                                "PTI:0x8:ON", "PTI:0xF:ON"}));
}

TEST_F(DriverCommands, WithoutInputCardsOnlyGlobalPollingIsListed) {
    for (std::size_t address = 0; address < 16; ++address) {
        host_.card(address).clearPerifCard();
    }
    EXPECT_EQ(eventsOf("POLLSTATE"), repliesAndPrompt({"CIA: GLOBAL POLLING IS DISABLED"}));
}

TEST_F(DriverCommands, ExitClosesASecondAfterTheFarewellAndAheadOfThePrompt) {
    EXPECT_EQ(eventsOf("EXIT"),
              (Events{replyEvent("ZOLT: Bye Bye..."), "pause 1", "close", kPrompt}));
}

}  // namespace
