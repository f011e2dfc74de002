#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "bus/perifcard.h"
#include "bus/wire.h"
#include "control/console_host.h"

namespace support {

/// The console's host without daemon and bus: it records in order what the
/// commands do, and answers for the cards. A pause takes no time; the bus answers
/// a request during the pause that follows it.
class RecordingHost : public ConsoleHost {
  public:
    /// Puts a card into the bus: discovery will find it, its record stays as it is.
    void plugIn(std::size_t address, char kind);
    /// Plugs a card into the bus and sets its record up.
    void addCard(std::size_t address, char kind);
    /// Lets all cards answer each configuration request with these bytes (at most
    /// 16, in hexadecimal); without this call the cards are silent.
    void answerWith(const std::string& hexBytes);
    /// From now on an answer comes as soon as its request is queued.
    void answerAtOnce() { atOnce_ = true; }
    /// From now on an answer comes when answerRequest is called.
    void answerLate() { late_ = true; }
    /// Lets the bus answer the last request, unless it has done so.
    void answerRequest();

    /// The events since the last call: "reply TEXT", "request HEX",
    /// "report TEXT", "polling on" or "off", "delay MICROSECONDS", "pause
    /// SECONDS", "close".
    std::vector<std::string> takeEvents();

    /// Is called with each event before the event takes effect.
    std::function<void(const std::string& event)> watch = [](const std::string&) {};

    void reply(ByteList item) override;
    /// Throws for an address that no card can have.
    PERIFCARD& card(std::size_t address) override { return cards_.at(address); }
    bool polling() const override { return polling_; }
    void setPolling(bool on) override;
    void setThreadDelay(std::int32_t microseconds) override;
    void request(ByteList frame) override;
    void report(ByteList line) override;
    void pause(int seconds) override;
    void closeConnection() override;

  private:
    void happened(const std::string& event);

    std::array<PERIFCARD, wire::kAddresses> cards_;
    /// The kinds of the cards in the bus; their records may differ.
    std::array<char, wire::kAddresses> kinds_{};
    std::optional<std::array<char, 16>> answer_;
    bool atOnce_ = false;
    bool late_ = false;
    bool polling_ = false;
    /// The request that is not answered yet; empty for none.
    std::string request_;
    std::vector<std::string> events_;
};

}  // namespace support
