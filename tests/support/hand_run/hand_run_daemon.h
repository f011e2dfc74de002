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
/// thread of the test. Needs hand_run_workers.cpp and fake_serial_port.cpp, and popen led
/// here by the linker (--wrap=popen), so that the link finds a port on every
/// machine. One at a time.
class HandRunDaemon {
  public:
    /// `kinds` are those of the cards, by address; the link has found them. They
    /// are not polled yet.
    explicit HandRunDaemon(const std::array<char, wire::kAddresses>& kinds);

    /// Runs the master loop; `betweenCycles` is called ahead of each cycle and
    /// ends the loop with false.
    void runMaster(const std::function<bool()>& betweenCycles);
    /// What one cycle of the master loop takes from the heap.
    Allocations masterCycle();

    /// A client that its interface has accepted.
    TcpClient connect(SOCKET_INTERFACE& interface) const;

    SOCKET_INTERFACE& cae() const { return *cae_; }
    SOCKET_INTERFACE& io() const { return *io_; }
    SOCKET_INTERFACE& mon() const { return *mon_; }
    SERIAL_INTERFACE& serial() const { return *serial_; }

    QuickBus bus;

  private:
    int signalFlag_ = -1;
    ZOLT zolt_;
    SOCKET_INTERFACE* cae_ = nullptr;
    SOCKET_INTERFACE* io_ = nullptr;
    SOCKET_INTERFACE* mon_ = nullptr;
    SERIAL_INTERFACE* serial_ = nullptr;
    /// Of CAE, IO and MON.
    std::array<std::uint16_t, 3> ports_{};
};

}  // namespace support
