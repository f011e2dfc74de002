#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "apps/zolt-sim/bytes.h"
#include "lib/os/descriptor.h"

namespace zolt_sim::test {

/// A loaded machine needs far less; only a failing test waits this long.
inline constexpr std::chrono::seconds kDeadline{30};

template <typename Predicate>
bool waitUntil(Predicate predicate) {
    const auto end = std::chrono::steady_clock::now() + kDeadline;
    while (!predicate()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

/// A new empty folder. The destructor removes it with everything in it.
class Folder {
  public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string file(const std::string& name) const { return (path_ / name).string(); }
    /// Writes a file and returns its path.
    std::string write(const std::string& name, const std::string& text) const;

  private:
    std::filesystem::path path_;
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
