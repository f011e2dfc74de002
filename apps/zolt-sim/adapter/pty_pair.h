#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "apps/zolt-sim/bytes.h"
#include "lib/os/descriptor.h"

namespace zolt_sim {

/// A pseudo-terminal that behaves like a serial adapter: raw, without echo, and with a
/// host that may open and close its end at will.
class PtyPair {
  public:
    /// The terminal is raw before any host can open it. Throws Error or, without free
    /// descriptors, std::system_error.
    PtyPair();

    /// Readable when the host has written.
    int wireDescriptor() const { return wire_.get(); }
    /// Readable when the host has opened or closed its end.
    int watchDescriptor() const { return watch_.get(); }

    /// The file that the host opens.
    const std::string& hostPath() const { return hostPath_; }

    /// Reads what the host has written, at most the size of `buffer`, and returns the
    /// number of bytes. Never waits.
    std::size_t read(std::span<std::uint8_t> buffer);

    /// False if the host's side is full because the host does not read. Never waits.
    bool write(const Bytes& bytes);

    struct HostActions {
        bool opened = false;
        bool closed = false;
    };
    /// What the host did with its end since the last call. Never waits.
    HostActions takeHostActions();

    /// Drops what the host has not read, as a serial port does when it is closed.
    void discardUnread();

  private:
    zolt_os::Descriptor wire_;
    /// Kept open so that the terminal neither hangs up nor loses its raw mode while no
    /// host has it open.
    zolt_os::Descriptor hostEnd_;
    zolt_os::Descriptor watch_;
    std::string hostPath_;
};

}  // namespace zolt_sim
