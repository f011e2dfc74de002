// What the tests of the simulated bus share.
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

// Far beyond what a loaded machine needs; only a failing test waits this long.
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

// A new empty folder, removed with everything in it at the end.
class Folder {
  public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string file(const std::string& name) const { return (path_ / name).string(); }
    // Writes a file and returns its path.
    std::string write(const std::string& name, const std::string& text) const;

  private:
    std::filesystem::path path_;
};

// The host's end of the line: opens the adapter as a host program would.
class Host {
  public:
    explicit Host(const std::string& link);

    void send(const Bytes& bytes);
    // Waits for at least `count` bytes; fewer come back after the deadline.
    Bytes receive(std::size_t count);
    // Sends a frame around the payload and returns the answer's payload.
    Bytes ask(const Bytes& payload);
    // Whether the adapter has been taken away.
    bool hungUp() const;

  private:
    zolt_os::Descriptor port_;
    Bytes received_;
};

// Whether one of the lines ends with the text; waits for it.
template <typename Lines>
bool waitForLine(Lines lines, const std::string& end) {
    return waitUntil([&] {
        const std::vector<std::string> now = lines();
        return std::any_of(now.begin(), now.end(),
                           [&](const std::string& line) { return line.ends_with(end); });
    });
}

}  // namespace zolt_sim::test
