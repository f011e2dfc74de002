#include "control/console_discovery.h"

#include "bus/card_kinds.h"
#include "tests/support/text/bytes.h"
#include "tests/unit/control/console_fixture.h"

namespace {

/// Three input cards and one output card are known.
class ConsoleDiscovery : public ConsoleFixture {
  protected:
    ConsoleDiscovery() {
        host_.addCard(3, card_kind::kDigitalInput);
        host_.addCard(5, card_kind::kDigitalOutput);
        host_.addCard(10, card_kind::kKeyMatrix);
        host_.addCard(15, card_kind::kAnalogueInput);
    }

    /// The replies of a list in which the given addresses are not empty.
    static std::vector<std::string> list(const std::string& heading,
                                         const std::vector<std::pair<int, std::string>>& cards) {
        std::vector<std::string> lines{heading};
        for (int address = 0; address < 16; ++address) {
            std::string name = "EMPTY";
            for (const auto& [cardAddress, cardName] : cards) {
                if (cardAddress == address) name = cardName;
            }
            lines.push_back(std::string("DTI:0x") + "0123456789ABCDEF"[address] + ":" + name);
        }
        return lines;
    }

    static Events forced(const std::vector<std::pair<int, std::string>>& cards,
                         const std::string& polling) {
        Events events{"polling off", "pause 1", "request 30", "pause 1"};
        for (const std::string& line : list("FORCED DISCOVER LIST:", cards)) {
            events.push_back(replyEvent(line));
        }
        events.push_back(polling);
        events.push_back(kPrompt);
        return events;
    }

    const std::vector<std::pair<int, std::string>> known_{{3, "16 channel DIGITAL INPUT"},
                                                          {5, "16 channel DIGITAL OUTPUT"},
                                                          {10, "KEYMX and ROTE CONTROLLER"},
                                                          {15, "6 channel ANALOGUE INPUT"}};
};

TEST_F(ConsoleDiscovery, ListsAllAddressesAndAsksNoCard) {
    const Events events = eventsOf("DISCOVER");
    EXPECT_EQ(events.size(), 18U);
    EXPECT_EQ(events, repliesAndPrompt(list("DISCOVER LIST:", known_)));
}

TEST_F(ConsoleDiscovery, NamesEveryKind) {
    const std::vector<std::string> names{"EMPTY",
                                         "UNIDENTIFIED",
                                         "UNIDENTIFIED",
                                         "16 channel DIGITAL OUTPUT",
                                         "16 channel DIGITAL INPUT",
                                         "6 channel RC SERVO CONTROLLER",
                                         "3 channel DC MOTOR CONTROLLER",
                                         "6 channel ANALOGUE INPUT",
                                         "KEYMX and ROTE CONTROLLER",
                                         "ALPHANUMERIC LCD CONTROLLER",
                                         "IR REMOTE CONTROLLER",
                                         "UNIDENTIFIED"};
    std::vector<std::pair<int, std::string>> cards;
    for (std::size_t kind = 0; kind < 16; ++kind) {
        host_.addCard(kind, static_cast<char>(kind));
        cards.emplace_back(kind, names[std::min(kind, names.size() - 1)]);
    }
    EXPECT_EQ(eventsOf("DISCOVER"), repliesAndPrompt(list("DISCOVER LIST:", cards)));
}

TEST_F(ConsoleDiscovery, ShowsWhatWasIdentifiedLast) {
    host_.plugIn(0, card_kind::kLcd);
    EXPECT_EQ(eventsOf("DISCOVER"), repliesAndPrompt(list("DISCOVER LIST:", known_)));
}

TEST_F(ConsoleDiscovery, ForcedFindsACardThatWasPutIn) {
    host_.plugIn(0, card_kind::kLcd);
    std::vector<std::pair<int, std::string>> cards = known_;
    cards.emplace_back(0, "ALPHANUMERIC LCD CONTROLLER");
    EXPECT_EQ(eventsOf("FORCEDISCOVER"), forced(cards, "polling off"));
    EXPECT_EQ(eventsOf("DISCOVER"), repliesAndPrompt(list("DISCOVER LIST:", cards)));
}

TEST_F(ConsoleDiscovery, ForcedForgetsACardThatWasTakenOut) {
    host_.plugIn(5, card_kind::kEmpty);
    std::vector<std::pair<int, std::string>> cards = known_;
    cards.erase(cards.begin() + 1);
    EXPECT_EQ(eventsOf("FORCEDISCOVER"), forced(cards, "polling off"));
}

TEST_F(ConsoleDiscovery, ForcedListsNothingWhenNoCardIsLeft) {
    for (std::size_t address = 0; address < 16; ++address) {
        host_.plugIn(address, card_kind::kEmpty);
    }
    EXPECT_EQ(eventsOf("FORCEDISCOVER"), forced({}, "polling off"));
    EXPECT_EQ(eventsOf("POLLSTATE"), repliesAndPrompt({"CIA: GLOBAL POLLING IS DISABLED"}));
}

TEST_F(ConsoleDiscovery, ForcedDoesNotListWhatAnswersLater) {
    host_.answerLate();
    EXPECT_EQ(eventsOf("FORCEDISCOVER"), forced({}, "polling off"));
    host_.answerRequest();
    EXPECT_EQ(eventsOf("DISCOVER"), repliesAndPrompt(list("DISCOVER LIST:", known_)));
}

TEST_F(ConsoleDiscovery, ForcedRestoresPollingAfterTheList) {
    eventsOf("ENABLEPOLL");
    EXPECT_EQ(eventsOf("FORCEDISCOVER"), forced(known_, "polling on"));
    EXPECT_TRUE(host_.polling());
    eventsOf("DISABLEPOLL");
    EXPECT_EQ(eventsOf("FORCEDISCOVER"), forced(known_, "polling off"));
    EXPECT_FALSE(host_.polling());
}

TEST_F(ConsoleDiscovery, ForcedClearsBetweenTheFirstPauseAndTheRequest) {
    std::vector<std::string> kinds;
    host_.watch = [&](const std::string& event) {
        if (event.rfind("reply", 0) == 0) return;
        std::string known;
        for (std::size_t address = 0; address < 16; ++address) {
            if (host_.card(address).kindCode != card_kind::kEmpty) {
                known += "0123456789ABCDEF"[address];
            }
        }
        kinds.push_back(event + ": " + known);
    };
    eventsOf("FORCEDISCOVER");
    EXPECT_EQ(kinds, (std::vector<std::string>{"polling off: 35AF", "pause 1: 35AF",
                                               "request 30: ", "pause 1: ", "polling off: 35AF"}));
}

TEST_F(ConsoleDiscovery, ForcedStartsAllRecordsAnew) {
    host_.card(3).values[1] = 0x40;
    host_.card(3).changed[1] = 1;
    host_.card(3).pollingOn = false;
    host_.card(15).values[5] = 0x11;
    leaveAnswer(host_.card(5), wire::kPioAnswer);
    eventsOf("FORCEDISCOVER");
    EXPECT_EQ(host_.card(3).values[1], 0);
    EXPECT_EQ(host_.card(3).changed[1], 0);
    EXPECT_TRUE(host_.card(3).pollingOn);
    EXPECT_EQ(host_.card(15).values[5], 0);
    EXPECT_EQ(host_.card(5).pioAnswer(0), 0);
    EXPECT_EQ(hexText(host_.card(3).pollFrame()), "20 03 02") << "not doubled";
    EXPECT_EQ(hexText(host_.card(15).pollFrame()), "20 0F 06");
}

TEST_F(ConsoleDiscovery, NothingElseMayStandOnTheLine) {
    for (const char* line : {"DISCOVER ", " DISCOVER", "discover", "FORCEDISCOVER:", "DISCOVER:3",
                             "FORCEDISCOVER ", "forcediscover", "FORCE DISCOVER"}) {
        EXPECT_EQ(eventsOf(line), Events{kUnknownCommand}) << line;
    }
}

}  // namespace
