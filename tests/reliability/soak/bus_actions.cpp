// Actions on inputs, answers and adapters.
#include <array>
#include <filesystem>

#include "tests/reliability/soak/actions.h"
#include "tests/support/text/hex_number.h"

namespace reliability {
namespace {

void changeInput(SoakStage& stage, Random& random) {
    constexpr std::array kInputs{"set 1 0", "set 3 0",  "set 3 1", "set C 1",
                                 "key 8",   "turn F 0", "turn F 5"};
    const std::string input = random.oneOf(kInputs);
    // The values above 7F are kept for the marks of the calm phases.
    stage.bus().control(input + " " + support::hexNumber(random.below(0x80), 2));
}

// The adapter of the bus gets odd numbers, strange adapters get even ones.
std::string adapterName(std::size_t number) {
    return "/dev/ttyUSB" + std::to_string(number);
}

void unplug(SoakStage& stage, Random& /*random*/) {
    if (stage.bus().plugged()) stage.bus().unplug();
}

void plug(SoakStage& stage, Random& random) {
    stage.plugIn(adapterName(1 + 2 * random.below(49)));
}

void plugStranger(SoakStage& stage, Random& random) {
    constexpr std::size_t kMost = 4;
    const std::string name = adapterName(2 + 2 * random.below(49));
    const bool babbling = random.oneIn(2);
    if (stage.strangers().count() >= kMost || std::filesystem::is_symlink(name)) return;
    stage.bus().strangerCame();
    if (babbling) {
        stage.diary().note("  babbling " + name);
        stage.strangers().addBabbling(name);
    } else {
        stage.diary().note("  silent " + name);
        stage.strangers().addSilent(name);
    }
}

void unplugStranger(SoakStage& stage, Random& /*random*/) {
    stage.strangers().removeOldest();
}

std::string timesText(Random& random) {
    return std::to_string(1 + random.below(4)) + " times";
}

void silence(SoakStage& stage, Random& random) {
    constexpr std::array kRequests{"",           " for poll",      " for output",
                                   " for check", " for discovery", " at 3"};
    const std::string request = random.oneOf(kRequests);
    stage.spoil("silence" + request + " " + timesText(random));
}

// The delays are below and above the daemon's limit, which is some tens of milliseconds.
void answerLate(SoakStage& stage, Random& random) {
    const std::string delay = std::to_string(1 + random.below(200));
    stage.spoil("delay " + delay + " " + timesText(random));
}

// The requests whose answers may be changed. Discovery is not among them: a card would count
// as another kind, and its commands would be illegal.
const char* spoilable(Random& random) {
    constexpr std::array kRequests{"poll", "output", "check", "config"};
    return random.oneOf(kRequests);
}

void makeNoise(SoakStage& stage, Random& random) {
    constexpr std::size_t kDiscoveryAnswer = 0x31;
    std::string fault = "noise";
    const std::size_t count = 1 + random.below(120);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t byte = random.below(256);
        fault += " " + support::hexNumber(byte == kDiscoveryAnswer ? 0 : byte, 2);
    }
    stage.spoil(fault + " for " + spoilable(random) + " " + timesText(random));
}

void babble(SoakStage& stage, Random& random) {
    std::string fault = "noise";
    for (int i = 0; i < 120; ++i) fault += " 4E";
    stage.spoil(fault + " for poll " + std::to_string(10 + random.below(90)) + " times");
}

void spoilAnswer(SoakStage& stage, Random& random) {
    constexpr std::array kFaults{"truncate", "oversize", "length", "address", "class"};
    const std::string kind = random.oneOf(kFaults);
    const std::size_t number = random.below(256);
    std::string fault = kind;
    if (kind == "truncate" || kind == "oversize") {
        fault += " " + std::to_string(1 + number % 150);
    } else if (kind == "class") {
        fault += " " + std::string(1, "12346"[number % 5]);
    } else {
        fault += " " + support::hexNumber(number, 2);
    }
    stage.spoil(fault + " for " + spoilable(random) + " " + timesText(random));
}

void clearFaults(SoakStage& stage, Random& /*random*/) {
    stage.bus().control("faults clear");
}

constexpr Action kBusActions[] = {
    {"input change", 16, changeInput},
    {"unplug", 3, unplug},
    {"plug under another name", 8, plug},
    {"plug a stranger", 2, plugStranger},
    {"unplug strangers", 2, unplugStranger},
    {"silence", 2, silence},
    {"late answers", 3, answerLate},
    {"noise", 3, makeNoise},
    {"babble", 1, babble},
    {"spoiled answers", 4, spoilAnswer},
    {"clear faults", 4, clearFaults},
};

}  // namespace

std::span<const Action> busActions() {
    return kBusActions;
}

}  // namespace reliability
