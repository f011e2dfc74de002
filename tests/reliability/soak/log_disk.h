#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace reliability {

/// A small file system below the work folder, with the daemon's log on it. It ends with the
/// private view.
class LogDisk {
  public:
    /// Throws std::system_error.
    LogDisk();

    static std::filesystem::path logFile();

    void rotateLog() const;
    void moveLogFolder(bool away) const;
    /// Fills the disk so that the log takes no line until free().
    void fill() const;
    void free() const;
    /// The number of log lines that end in `end`.
    std::size_t linesWith(const std::string& end) const;
};

}  // namespace reliability
