// Every command: what it asks and sends, what it prints, as text and as JSON. The
// daemon's answers are as docs/clients.md has them.
#include "tests/zoltctl/commands_test.h"

namespace {

using namespace ctl_test;

class Commands : public CommandTest {
  protected:
    const std::vector<std::string> cards_ = cardList("DISCOVER LIST:");
    const std::vector<std::string> forced_ = cardList("FORCED DISCOVER LIST:");
};

TEST_F(Commands, CardsAndPolling) {
    expectRows({
        {{"cards"}, {{"DISCOVER", cards_}}, cardText(false), cardJson(false)},
        {{"cards", "--all"}, {{"DISCOVER", cards_}}, cardText(true), cardJson(true)},
        {{"discover"}, {{"DISCOVER", cards_}}, cardText(true), cardJson(true)},
        {{"discover", "--force"}, {{"FORCEDISCOVER", forced_}}, cardText(true), cardJson(true)},
        {{"poll"},
         {{"POLLSTATE", {"CIA: GLOBAL POLLING IS ENABLED", "PTI:0x3:ON", "PTI:0xF:OFF"}}},
         "global polling is on\n3  on\nF  off\n",
         R"({"global":true,"cards":[{"address":"3","polling":true},{"address":"F","polling":false}]})"},
        {{"poll"},
         {{"POLLSTATE", {"CIA: GLOBAL POLLING IS DISABLED"}}},
         "global polling is off\n",
         R"({"global":false,"cards":[]})"},
        {{"poll", "on"},
         {{"ENABLEPOLL", {"CIA: GLOBAL POLLING IS ENABLED"}}},
         "global polling is on\n",
         R"({"global":true})"},
        {{"poll", "off"},
         {{"DISABLEPOLL", {"CIA: GLOBAL POLLING IS DISABLED"}}},
         "global polling is off\n",
         R"({"global":false})"},
        {{"poll", "on", "3", "f"},
         {{"POLLSTATE",
           {"CIA: GLOBAL POLLING IS ENABLED", "PTI:0x3:ON", "PTI:0x8:ON", "PTI:0xF:OFF"}},
          {"POLLON:3", {"CIA: POLLON is OK at address 3"}},
          {"POLLON:F", {"CIA: POLLON is OK at address F"}}},
         "card 3: polling is on\ncard F: polling is on\n",
         R"([{"address":"3","polling":true},{"address":"F","polling":true}])"},
        {{"poll", "off", "8"},
         {{"POLLOFF:8", {"CIA: POLLOFF is OK at address 8"}}},
         "card 8: polling is off\n",
         R"([{"address":"8","polling":false}])"},
    });
}

TEST_F(Commands, PollingOfSeveralCardsIsNotSwitchedByHalves) {
    const FakeTcpPort cae(
        kDefaultCae,
        playing({{"POLLSTATE", {"CIA: GLOBAL POLLING IS ENABLED", "PTI:0x3:ON", "PTI:0xF:ON"}}}));
    expectOutcome(run({"poll", "off", "3", "5", "F"}), 1, "",
                  "zoltctl: card 5 is not an input card; the polling of no card has been switched");
}

TEST_F(Commands, NoCards) {
    std::vector<std::string> empty{"DISCOVER LIST:"};
    for (std::size_t i = 0; i < 16; ++i) {
        empty.push_back("DTI:0x" + addressOf(i) + ":EMPTY");
    }
    expectRows({{{"cards"}, {{"DISCOVER", empty}}, "no cards\n", "[]"}});
}

TEST_F(Commands, Daemon) {
    expectRows({
        {{"version"},
         {{"DRVVER", {"CIA: DRIVER VERSION 1.20"}}},
         "driver version 1.20\n",
         R"({"driver":"1.20"})"},
        {{"speed", "50"},
         {{"SPEED=50", {"CIA: SPEED IS SET to 50%"}}},
         "speed is 50%\n",
         R"({"percent":50})"},
        {{"raw", "cae", "LCDSELFTEST:E=ON"},
         {{"LCDSELFTEST:E=ON", {"CIA: SELFTEST STATE IS SET TO ON at address E"}}},
         "CIA: SELFTEST STATE IS SET TO ON at address E\n",
         R"({"reply":["CIA: SELFTEST STATE IS SET TO ON at address E"]})"},
        {{"raw", "cae", "REBOOT:E"},
         {{"REBOOT:E", {"CIA: Card is REBOOTED", "RBT:0xE:OK"}}},
         "CIA: Card is REBOOTED\nRBT:0xE:OK\n",
         R"({"reply":["CIA: Card is REBOOTED","RBT:0xE:OK"]})"},
    });
}

TEST_F(Commands, Inputs) {
    const std::vector<std::string> sent{"CIA: LAST INPUT STATE SENT ON IO INTERFACE"};
    expectRows({
        {{"input", "3", "1"},
         {{"GETLASTINPST:3=1", sent}},
         "card 3: block 1 is 40\n",
         R"([{"address":"3","block":1,"value":64,"hex":"40"}])",
         "",
         item("a3b0d01") + item("aFb1d02") + item("a3b1d40")},
        {{"input", "3"},
         {{"DISCOVER", cards_}, {"GETLASTINPST:3=0", sent}, {"GETLASTINPST:3=1", sent}},
         "card 3: block 0 is 0A\ncard 3: block 1 is FF\n",
         R"([{"address":"3","block":0,"value":10,"hex":"0A"},{"address":"3","block":1,"value":255,"hex":"FF"}])",
         "",
         item("a3b0d0A") + item("a3b1dFF")},
        {{"input", "f", "5"},
         {{"GETLASTINPST:F=5", sent}},
         "card F: block 5 is 01\n",
         R"([{"address":"F","block":5,"value":1,"hex":"01"}])",
         "",
         item("aFb5d01")},
    });
}

TEST_F(Commands, CardConfiguration) {
    expectRows({
        {{"config", "lcd", "E", "self-test", "on"},
         {{"LCDSELFTEST:E=ON", {"CIA: SELFTEST STATE IS SET TO ON at address E"}}},
         "card E: self-test at start is on\n",
         R"({"address":"E","command":"lcd self-test","on":true})"},
        {{"config", "lcd", "e", "light", "off"},
         {{"LCDINITLIGHT:E=OFF", {"CIA: INITLIGHT STATE IS SET TO OFF at address E"}}},
         "card E: light at start is off\n",
         R"({"address":"E","command":"lcd light","on":false})"},
        {{"config", "analogue", "F", "mask"},
         {{"GETANMASK:F", {"CIA: MASK is GOT from card", "AMV:0xF:0x0F"}}},
         "card F: mask is 0F\n",
         R"({"address":"F","command":"analogue mask","value":15,"hex":"0F"})"},
        // From 80 on the daemon writes the mask with eight digits.
        {{"config", "analogue", "F", "mask"},
         {{"GETANMASK:F", {"CIA: MASK is GOT from card", "AMV:0xF:0xFFFFFF80"}}},
         "card F: mask is 80\n",
         R"({"address":"F","command":"analogue mask","value":128,"hex":"80"})"},
        {{"config", "analogue", "F", "mask", "f"},
         {{"SETANMASK:F=0F", {"CIA: Channel MASK of the card is SET", "AMS:0xF:0x0F"}}},
         "card F: mask is 0F\n",
         R"({"address":"F","command":"analogue mask","value":15,"hex":"0F"})"},
        {{"config", "analogue", "F", "store"},
         {{"STOREANMASK:F", {"CIA: MASK IS STORED at address F"}}},
         "card F: mask is stored\n",
         R"({"address":"F","command":"analogue store"})"},
        {{"config", "servo", "3", "end", "B", "channel", "2", "80"},
         {{"SETSCB2:3=80", {"CIA: SERVO PARAM of the card is SET", "SPS:0x3:SCB2:0x80"}}},
         "card 3: servo end B, channel 2 is 80\n",
         R"({"address":"3","command":"servo end","end":"B","channel":2,"value":128,"hex":"80"})"},
        {{"config", "servo", "0", "end", "A", "channel", "5"},
         {{"GETSCA5:0", {"CIA: SERVO PARAM is GOT from card", "SPG:0x0:SCA5:0x0C"}}},
         "card 0: servo end A, channel 5 is 0C\n",
         R"({"address":"0","command":"servo end","end":"A","channel":5,"value":12,"hex":"0C"})"},
        {{"config", "servo", "0", "store"},
         {{"STORESRVPOS:0", {"CIA: POSITIONS ARE STORED at address 0"}}},
         "card 0: positions are stored\n",
         R"({"address":"0","command":"servo store"})"},
        {{"config", "servo", "0", "restore"},
         {{"MOVESTRPOS:0", {"CIA: SERVOS ARE MOVED TO STORED POSITIONS at address 0"}}},
         "card 0: servos are moved to the stored positions\n",
         R"({"address":"0","command":"servo restore"})"},
        {{"config", "motor", "A", "silent-range", "2"},
         {{"GETMSR2:A", {"CIA: MSR value is GOT from card", "MSR2:0xA:0x10"}}},
         "card A: silent range of channel 2 is 10\n",
         R"({"address":"A","command":"motor silent-range","channel":2,"value":16,"hex":"10"})"},
        {{"config", "motor", "A", "silent-range", "0", "1f"},
         {{"SETMSR0:A=1F", {"CIA: MSR value of the card is SET", "MPS:0xA:MSR0:0x1F"}}},
         "card A: silent range of channel 0 is 1F\n",
         R"({"address":"A","command":"motor silent-range","channel":0,"value":31,"hex":"1F"})"},
        {{"config", "motor", "A", "store"},
         {{"STOREMSRS:A", {"CIA: MSR values are STORED at address A"}}},
         "card A: silent ranges are stored\n",
         R"({"address":"A","command":"motor store"})"},
        {{"config", "reboot", "E"},
         {{"REBOOT:E", {"CIA: Card is REBOOTED", "RBT:0xE:OK"}}},
         "card E: rebooted\n",
         R"({"address":"E","command":"reboot"})"},
    });
}

}  // namespace
