#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "control/zolt.h"
#include "ports/socket_interface.h"
#include "tests/support/allocation_count.h"
#include "tests/support/doubles/quick_bus.h"
#include "tests/support/tcp/tcp_client.h"

namespace support {

/// The daemon without threads and without files, on ports of the system's choice
/// and on a QuickBus. Its master loop and its workers run cycle by cycle on the
/// thread of the test. Only one may exist at a time.
/// REQUIRES: the program is linked with zolt_replaces(threads serial_port heap) and
/// zolt_wraps(popen); with the latter the link finds a port on every machine.
class HandRunDaemon {
  public:
    /// `kinds` has the kind of the card at each address. The link has found the
    /// cards, but does not poll them yet.
    explicit HandRunDaemon(const std::array<char, wire::kAddresses>& kinds);

    /// Runs the master loop; `betweenCycles` is called before each cycle and
    /// ends the loop by returning false.
    void runMaster(const std::function<bool()>& betweenCycles);
    /// Runs one cycle of the master loop; returns what it takes from the heap.
    Allocations masterCycle();

    /// Connects a client; its interface has accepted it.
    TcpClient connect(SOCKET_INTERFACE& interface) const;

    SOCKET_INTERFACE& cae() const { return *cae_; }
    SOCKET_INTERFACE& io() const { return *io_; }
    SOCKET_INTERFACE& mon() const { return *mon_; }
    SERIAL_INTERFACE& serial() const { return *serial_; }

    QuickBus bus;

  private:
    int signalFlag_ = ZOLT::kNoSignal;
    ZOLT zolt_;
    SOCKET_INTERFACE* cae_ = nullptr;
    SOCKET_INTERFACE* io_ = nullptr;
    SOCKET_INTERFACE* mon_ = nullptr;
    SERIAL_INTERFACE* serial_ = nullptr;
    /// The ports of CAE, IO and MON.
    std::array<std::uint16_t, 3> ports_{};
};

}  // namespace support
