// A pseudo-terminal that behaves like a serial adapter: raw, and with a host
// that may open and close its end at will.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "apps/zolt-sim/line/descriptor.h"
#include "apps/zolt-sim/text.h"

namespace sim {

class PtyPair {
  public:
    // In raw mode, without echo, before anybody else can open it. Throws std::system_error.
    PtyPair();

    // Readable when the host has written; and when it has opened or closed its end.
    int lineDescriptor() const { return line_.get(); }
    int watchDescriptor() const { return watch_.get(); }

    // The file that the host opens.
    const std::string& hostPath() const { return hostPath_; }

    // What the host has written, up to `buffer`; never waits.
    std::size_t read(std::span<std::uint8_t> buffer);

    // False when the host's side is full because nobody reads there; never waits.
    bool write(const Bytes& bytes);

    struct HostActions {
        bool opened = false;
        bool closed = false;
    };
    // What the host did with its end since the last call; never waits.
    HostActions takeHostActions();

    // Throws away what the host has not read, as a serial port does when it is closed.
    void discardUnread();

  private:
    Descriptor line_;
    // Kept open so that the terminal neither hangs up nor loses its raw mode
    // while no host has it open.
    Descriptor hostEnd_;
    Descriptor watch_;
    std::string hostPath_;
};

}  // namespace sim
