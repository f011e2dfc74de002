#pragma once

#include <sys/types.h>

#include <cstddef>
#include <memory>
#include <string_view>

#include "bus/serial_interface.h"

namespace support {

/// The other end of the serial line.
class SerialLine {
  public:
    virtual ~SerialLine() = default;
    /// As read(2) of the host's port: bytes of the line into `buffer`, at most
    /// `size`; -1 when there are none yet.
    virtual ssize_t read(char* buffer, std::size_t size) = 0;
    /// The host has written a frame.
    virtual void written(std::string_view frame) = 0;
};

/// What is behind every port from now on, whatever its device; it outlives the
/// ports. Whatever links fake_serial_port.cpp in gets a stand-in for the daemon's port.
void plugIn(SerialLine& line);

/// A serial link on a port to `line`, which outlives it. Where its worker has no
/// thread (hand_run_workers.h) the test runs its cycles itself. One link at a
/// time.
std::unique_ptr<SERIAL_INTERFACE> makeLink(SerialLine& line, CardTable& cards, ZLQUEUE* reports);

}  // namespace support
