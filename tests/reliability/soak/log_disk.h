#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace reliability {

/// A small file system of its own, below the work folder, with the daemon's log
/// on it. It goes with the private view.
class LogDisk {
  public:
    /// Throws std::system_error.
    LogDisk();

    static std::filesystem::path logFile();

    void rotateLog() const;
    void moveLogFolder(bool away) const;
    /// No line fits any more, until free.
    void fill() const;
    void free() const;
    /// How many lines of the log end so.
    std::size_t linesWith(const std::string& end) const;
};

}  // namespace reliability
