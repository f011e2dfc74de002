#pragma once

#include "bus/perifcard.h"
#include "control/console_host.h"
#include "core/zlqueue.h"

/// The console's host without bus and clients: cards answer every request at once, queues are
/// those of the daemon, and pauses take no time.
class QuietHost final : public ConsoleHost {
  public:
    /// A card of every kind.
    QuietHost();

    void reply(ByteList item) override;
    PERIFCARD& card(std::size_t address) override { return cards_.at(address); }
    CardTable& cards() { return cards_; }
    bool polling() const override { return polling_; }
    void setPolling(bool on) override { polling_ = on; }
    void setThreadDelay(std::int32_t /*microseconds*/) override {}
    void request(ByteList frame) override;
    void report(ByteList line) override;
    void pause(int /*seconds*/) override {}
    void closeConnection() override {}

    ZLQUEUE replies;
    ZLQUEUE requests;
    ZLQUEUE reports;

  private:
    void discover();

    CardTable cards_;
    bool polling_ = false;
};
