#include "bus/card_kinds.h"
#include "tests/unit/control/card_config_fixture.h"

namespace {

/// An LCD controller at each address; the commands of these tests go to address 9.
class CardConfigStates : public CardConfig {
  protected:
    CardConfigStates() { fillWith(card_kind::kLcd); }

    void expectSelfTests(const std::vector<Exchange>& exchanges) {
        expectStates("CIA: SELFTEST STATE IS SET TO ", "50 09 01 01 ", exchanges);
    }
    void expectInitLights(const std::vector<Exchange>& exchanges) {
        expectStates("CIA: INITLIGHT STATE IS SET TO ", "50 09 01 02 ", exchanges);
    }

  private:
    /// The request of an exchange is its last byte here, the reply is the state's text.
    void expectStates(const std::string& success, const std::string& request,
                      std::vector<Exchange> exchanges) {
        for (Exchange& each : exchanges) {
            each.request = request + each.request;
            each.reply += " at address 9";
        }
        expectShort(success, exchanges);
    }
};

TEST_F(CardConfigStates, TwoCharactersSelectAState) {
    expectSelfTests({{"LCDSELFTEST:9=ON", "FF", "ON"},
                     {"LCDSELFTEST:9=OFF", "00", "OFF"},
                     {"LCDSELFTEST:9=ONLY", "FF", "ON"},
                     {"LCDSELFTEST:9=OF", "00", "OFF"}});
    expectInitLights({{"LCDINITLIGHT:9=ON", "FF", "ON"}, {"LCDINITLIGHT:9=OFFICE", "00", "OFF"}});
}

TEST_F(CardConfigStates, AnyOtherTextSendsTheLastStateAgainAndIsEchoed) {
    struct Other {
        std::string text;
        std::string echo;
    };
    const std::string command = "LCDSELFTEST:9";
    for (const auto& [text, echo] : {Other{"=on", "on"}, Other{"=of", "of"}, Other{"=On", "On"},
                                     Other{"=XYZ", "XY"}, Other{"=??", "??"}, Other{"=O", "O\r"},
                                     Other{"=", "\r\n"}, Other{"= ON", " O"}, Other{"", "LC"}}) {
        expectSelfTests({{command + "=ON", "FF", "ON"},
                         {command + text, "FF", echo},
                         {command + "=OFF", "00", "OFF"},
                         {command + text, "00", echo}});
    }
    expectSelfTests({{command + "=ON", "FF", "ON"},
                     {"\r\n" + command + "=", "FF", ""},
                     {"\r\n" + command + "=O", "FF", "O"}});
    expectInitLights({{"LCDINITLIGHT:9=ON", "FF", "ON"},
                      {"LCDINITLIGHT:9=on", "FF", "on"},
                      {"LCDINITLIGHT:9", "FF", "LC"},
                      {"LCDINITLIGHT:9=OFF", "00", "OFF"},
                      {"LCDINITLIGHT:9=N", "00", "N\r"}});
}

TEST_F(CardConfigStates, TheFirstStateIsOff) {
    expectSelfTests({{"LCDSELFTEST:9=XX", "00", "XX"}});
    expectInitLights({{"LCDINITLIGHT:9=XX", "00", "XX"}});
}

TEST_F(CardConfigStates, EachCommandHasALastStateOfItsOwn) {
    expectSelfTests({{"LCDSELFTEST:9=ON", "FF", "ON"}});
    expectInitLights({{"LCDINITLIGHT:9=XX", "00", "XX"}, {"LCDINITLIGHT:9=ON", "FF", "ON"}});
    expectSelfTests({{"LCDSELFTEST:9=OFF", "00", "OFF"}});
    expectInitLights({{"LCDINITLIGHT:9=XX", "FF", "XX"}});
    expectSelfTests({{"LCDSELFTEST:9=XX", "00", "XX"}});
}

TEST_F(CardConfigStates, TheLastStateIsOneForAllCardsAlsoWhenTheCommandFailed) {
    host_.addCard(3, card_kind::kDigitalInput);
    eventsOf("LCDSELFTEST:3=ON");
    eventsOf("LCDINITLIGHT:3=ON");
    expectSelfTests({{"LCDSELFTEST:9=XX", "FF", "XX"}});
    expectInitLights({{"LCDINITLIGHT:9=XX", "FF", "XX"}});
    // The card refuses the next command; the state that was typed counts nevertheless.
    host_.answerWith("00");
    eventsOf("LCDSELFTEST:9=OFF");
    host_.answerWith("51");
    expectSelfTests({{"LCDSELFTEST:9=XX", "00", "XX"}});
}

}  // namespace
