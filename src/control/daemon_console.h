#pragma once

#include "bus/serial_interface.h"
#include "control/console_host.h"
#include "core/zlqueue.h"
#include "ports/socket_interface.h"

/// The running daemon as the console's commands see it. Owned by ZOLT and used by
/// the main thread.
class DaemonConsole final : public ConsoleHost {
  public:
    /// What the commands act on; all of it outlives the DaemonConsole.
    struct Parts {
        SOCKET_INTERFACE& cae;
        SOCKET_INTERFACE& io;
        SOCKET_INTERFACE& mon;
        SERIAL_INTERFACE& serial;
        CardTable& cards;
        ZLQUEUE& busReports;
        /// The pause of the master loop, in microseconds.
        std::int32_t& threadDelay;
    };

    explicit DaemonConsole(const Parts& parts) : parts_(parts) {}

    void reply(ByteList item) override;
    PERIFCARD& card(std::size_t address) override;
    bool polling() const override;
    void setPolling(bool on) override;
    void setThreadDelay(std::int32_t microseconds) override;
    void request(ByteList frame) override;
    void report(ByteList line) override;
    void pause(int seconds) override;
    void closeConnection() override;

  private:
    Parts parts_;
};
