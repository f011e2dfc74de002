#include "bench/micro/quiet_host.h"

#include <utility>

#include "bench/micro/bench_daemon.h"
#include "bus/card_kinds.h"

QuietHost::QuietHost() {
    discover();
}

void QuietHost::discover() {
    auto kinds = outputCards();
    kinds[3] = card_kind::kDigitalInput;
    kinds[8] = card_kind::kKeyMatrix;
    kinds[15] = card_kind::kAnalogueInput;
    for (std::size_t address = 0; address < kinds.size(); ++address) {
        setUpCard(cards_.at(address), static_cast<std::uint8_t>(address), kinds.at(address));
    }
}

void QuietHost::reply(ByteList item) {
    replies.ToQueue(std::move(item));
}

void QuietHost::request(ByteList frame) {
    if (frame.front() == wire::kDiscovery) {
        discover();
    } else {
        cards_.at(static_cast<std::size_t>(*std::next(frame.begin())))
            .storePioAnswer({wire::kPioAnswer});
    }
    requests.ToQueue(std::move(frame));
}

void QuietHost::report(ByteList line) {
    reports.ToQueue(std::move(line));
}
