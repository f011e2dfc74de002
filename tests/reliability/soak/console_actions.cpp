// Actions of an operator on the console.
#include <array>

#include "tests/reliability/soak/actions.h"

namespace reliability {
namespace {

void command(SoakStage& stage, Random& random) {
    constexpr std::array kLines{
        "DRVVER",         "DISCOVER",       "POLLSTATE",        "HELP",
        "IOEXAMPLES",     "DISABLEPOLL",    "ENABLEPOLL",       "POLLON:3",
        "POLLOFF:3",      "POLLON:5",       "POLLOFF:F",        "GETLASTINPST:3=1",
        "GETLASTINPST:F", "GETLASTINPST:5", "POLLON:8POLLON:4", "SPEED=x",
        "SPEED=0",        "SPEED=101",      "speed=1",          "GETMSR2:E",
        "SETANMASK:3=0F", "NO SUCH THING"};
    stage.cae().send(std::string(random.oneOf(kLines)) + "\r\n");
}

// Each of these commands stops the master loop for a second.
void configureCard(SoakStage& stage, Random& random) {
    constexpr std::array kLines{
        "LCDSELFTEST:E=ON", "LCDINITLIGHT:E=OF", "REBOOT:E",      "REBOOT:3",     "SETANMASK:F=0F",
        "GETANMASK:F",      "STOREANMASK:F",     "STORESRVPOS:0", "MOVESTRPOS:0", "SETSCB2:0=80",
        "GETSCA2:0",        "SETMSR2:A=10",      "GETMSR1:A",     "STOREMSRS:A"};
    stage.cae().send(std::string(random.oneOf(kLines)) + "\r\n");
}

// No card answers at this address, which costs the link.
void askSilentAddress(SoakStage& stage, Random& /*random*/) {
    stage.bus().dropMeasurement();
    stage.cae().send("REBOOT:D\r\n");
}

void setSpeed(SoakStage& stage, Random& random) {
    constexpr std::array kPercents{1, 10, 25, 50, 75, 90, 99, 100, 100};
    stage.cae().send("SPEED=" + std::to_string(random.oneOf(kPercents)) + "\r\n");
}

// FORCEDISCOVER clears the cards, which makes commands illegal: it is only sent if none is
// under way.
void forceDiscover(SoakStage& stage, Random& /*random*/) {
    if (stage.outputsUnderWay() > 0 || !stage.cae().connected()) return;
    stage.setCardsKnown(false);
    stage.cae().send("FORCEDISCOVER\r\n");
}

void exitFromConsole(SoakStage& stage, Random& /*random*/) {
    stage.cae().send("EXIT\r\n");
}

constexpr Action kConsoleActions[] = {
    {"console command", 10, command},
    {"card configuration", 2, configureCard},
    {"ask a silent address", 1, askSilentAddress},
    {"SPEED", 4, setSpeed},
    {"FORCEDISCOVER", 1, forceDiscover},
    {"EXIT on the console", 1, exitFromConsole},
};

}  // namespace

std::span<const Action> consoleActions() {
    return kConsoleActions;
}

}  // namespace reliability
