#include "bench/micro/bench_daemon.h"

#include "bus/card_kinds.h"

std::array<char, wire::kAddresses> sixteenInputs() {
    std::array<char, wire::kAddresses> kinds{};
    kinds.fill(card_kind::kDigitalInput);
    return kinds;
}

std::array<char, wire::kAddresses> outputCards() {
    std::array<char, wire::kAddresses> kinds{};
    kinds[0] = card_kind::kServo;
    kinds[5] = card_kind::kDigitalOutput;
    kinds[9] = card_kind::kInfrared;
    kinds[10] = card_kind::kMotor;
    kinds[14] = card_kind::kLcd;
    return kinds;
}
