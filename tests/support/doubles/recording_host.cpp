#include "tests/support/doubles/recording_host.h"

#include <algorithm>
#include <utility>

#include "bus/card_kinds.h"
#include "tests/support/text/bytes.h"

namespace support {

void RecordingHost::plugIn(std::size_t address, char kind) {
    kinds_.at(address) = kind;
}

void RecordingHost::addCard(std::size_t address, char kind) {
    plugIn(address, kind);
    card(address).clearPerifCard();
    setUpCard(card(address), static_cast<std::uint8_t>(address), kind);
}

void RecordingHost::answerWith(const std::string& hexBytes) {
    const std::string given = bytes(hexBytes);
    answer_.emplace();
    std::copy_n(given.begin(), std::min(given.size(), answer_->size()), answer_->begin());
}

void RecordingHost::answerRequest() {
    const std::string request = std::exchange(request_, {});
    if (request.empty()) return;
    if (request[0] == wire::kDiscovery) {
        for (std::size_t address = 0; address < wire::kAddresses; ++address) {
            setUpCard(card(address), static_cast<std::uint8_t>(address), kinds_[address]);
        }
    } else if (answer_) {
        card(static_cast<std::size_t>(request.at(1))).storePioAnswer(*answer_);
    }
}

std::vector<std::string> RecordingHost::takeEvents() {
    return std::exchange(events_, {});
}

void RecordingHost::reply(ByteList item) {
    happened("reply " + std::string(item.begin(), item.end()));
}

void RecordingHost::setPolling(bool on) {
    happened(on ? "polling on" : "polling off");
    polling_ = on;
}

void RecordingHost::setThreadDelay(std::int32_t microseconds) {
    happened("delay " + std::to_string(microseconds));
}

void RecordingHost::request(ByteList frame) {
    happened("request " + hexText(frame));
    request_.assign(frame.begin(), frame.end());
    if (atOnce_) answerRequest();
}

void RecordingHost::report(ByteList line) {
    happened("report " + std::string(line.begin(), line.end()));
}

void RecordingHost::pause(int seconds) {
    happened("pause " + std::to_string(seconds));
    if (!late_) answerRequest();
}

void RecordingHost::closeConnection() {
    happened("close");
}

void RecordingHost::happened(const std::string& event) {
    watch(event);
    events_.push_back(event);
}

}  // namespace support
