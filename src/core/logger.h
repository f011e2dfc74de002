#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "thread/MutexClass.h"

/// Writes the debug log: one line per call, "TIME [TAG] TEXT" in the machine's local time,
/// appended to the file in one write. The logger opens and closes the file for every line,
/// so that the file can be rotated or deleted at any time.
///
/// Every thread object holds a copy of its own, with a lock of its own; lines of different
/// copies are not ordered.
/// REQUIRES: level and file name are set before the copies are made and before any thread
/// logs.
class LOGGER {
  public:
    LOGGER() = default;
    /// A copy of a logger that the caller holds locked is locked itself.
    LOGGER(const LOGGER& other);
    LOGGER& operator=(const LOGGER& other);
    ~LOGGER() = default;

    /// Any thread may call this. A file that cannot be opened is skipped without a word. A
    /// message below the level is not written, but its file stays open: one descriptor per
    /// filtered message, kept as a known cost.
    void LOG(std::string tag, std::string text, int messageLevel);
    /// These two write with the tags of the daemon, "INF" and "ERR", at its one level, 1. The
    /// pieces of a message are texts; they are joined only when there is a file to write the
    /// message to.
    template <typename... Pieces>
    void info(const Pieces&... pieces) {
        logPieces("INF", {std::string_view(pieces)...});
    }
    template <typename... Pieces>
    void error(const Pieces&... pieces) {
        logPieces("ERR", {std::string_view(pieces)...});
    }

    /// Messages of at least this level are written: 0 and 1 write all messages of the daemon,
    /// 2 and more none.
    std::int32_t level = 0;
    /// The path of the log file; with an empty one, nothing is written anywhere.
    std::string fileName;

  private:
    void copyLockState(const LOGGER& other);
    void logPieces(const char* tag, std::initializer_list<std::string_view> pieces);

    /// Keeps the calls on this object apart from the opening of the file to its closing.
    CMutexClass lock_;
};
