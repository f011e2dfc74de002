#pragma once

#include <sys/types.h>

#include <cstddef>
#include <memory>
#include <string_view>

#include "bus/serial_interface.h"

namespace fuzz {

/// The other end of the serial line.
class Line {
  public:
    virtual ~Line() = default;
    /// As read(2) of the host's port: bytes of the line into `buffer`, at most
    /// `size`; -1 when there are none yet.
    virtual ssize_t read(char* buffer, std::size_t size) = 0;
    /// The host has written a frame.
    virtual void written(std::string_view frame) = 0;
};

/// A serial link without thread, port and pauses: the test runs its cycles
/// itself, and the port reads and writes `line`, which outlives the link. One
/// link at a time. Whatever links this in gets stand-ins for the daemon's port,
/// worker and pauses.
std::unique_ptr<SERIAL_INTERFACE> makeLink(Line& line, PERIFCARD* cards, ZLQUEUE* reports);

}  // namespace fuzz
