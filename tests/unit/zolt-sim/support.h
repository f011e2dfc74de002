#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "apps/zolt-sim/bytes.h"
#include "lib/os/descriptor.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/wait.h"

namespace zolt_sim::test {

using support::waitUntil;

/// A new empty folder. The destructor removes it with everything in it.
class Folder : public support::TemporaryFolder {
  public:
    /// Writes a file and returns its path.
    std::string write(const std::string& name, const std::string& text) const;
};

/// The host's end of the wire. It opens the adapter as a host program would.
class Host {
  public:
    explicit Host(const std::string& link);

    void send(const Bytes& bytes);
    /// Waits for at least `count` bytes. Returns fewer if the deadline passes.
    Bytes receive(std::size_t count);
    /// Sends a frame around the payload and returns the payload of the answer.
    Bytes ask(const Bytes& payload);
    /// Whether the adapter has been unplugged.
    bool hungUp() const;

  private:
    zolt_os::Descriptor port_;
    Bytes received_;
};

/// Waits until one of the lines ends with the text. False if the deadline passes.
template <typename Lines>
bool waitForLine(Lines lines, const std::string& end) {
    return waitUntil([&] {
        const std::vector<std::string> now = lines();
        return std::any_of(now.begin(), now.end(),
                           [&](const std::string& line) { return line.ends_with(end); });
    });
}

}  // namespace zolt_sim::test
