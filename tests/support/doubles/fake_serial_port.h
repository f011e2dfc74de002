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
    /// Is called for each read(2) of the host: writes at most `size` bytes of the line to
    /// `buffer` and returns their number, or -1 if there are none yet.
    virtual ssize_t read(char* buffer, std::size_t size) = 0;
    /// Is called with each frame that the host writes.
    virtual void written(std::string_view frame) = 0;
};

/// Connects every serial port of the daemon to `line` from now on, whatever its device.
/// REQUIRES: `line` outlives the ports, and the program is linked with
/// zolt_replaces(serial_port).
void plugIn(SerialLine& line);

/// A serial link on a port that is connected to `line`. If its worker has no thread
/// (hand_run_workers.h), the test runs the cycles. REQUIRES: `line` outlives the link; one
/// link exists at a time.
std::unique_ptr<SERIAL_INTERFACE> makeLink(SerialLine& line, CardTable& cards, ZLQUEUE* reports);

}  // namespace support
