#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "thread/MutexClass.h"

/// Writes the debug log: one line per call, "TIME [TAG] TEXT" in local time,
/// appended to the file in one write. The file is opened and closed for every
/// line, so that it can be rotated or deleted at any time.
///
/// Every thread object holds a copy of its own, with a lock of its own; lines of
/// different copies are not ordered. Level and file name are set before the
/// copies are made and before any thread logs.
class LOGGER {
  public:
    LOGGER() = default;
    LOGGER(const LOGGER& other);
    LOGGER& operator=(const LOGGER& other);
    ~LOGGER() = default;

    /// Any thread. A file that cannot be opened is skipped without a word. A
    /// message below the threshold is not written, but its file stays open: one
    /// descriptor per filtered message, kept as a known cost.
    void LOG(std::string tag, std::string text, int messageLevel);
    /// The two tags of the daemon, "INF" and "ERR", at its one level, 1. A message
    /// is given in pieces, texts all of them, which are joined only when there is
    /// a file to write it to.
    template <typename... Pieces>
    void Info(const Pieces&... pieces) {
        logPieces("INF", {std::string_view(pieces)...});
    }
    template <typename... Pieces>
    void Error(const Pieces&... pieces) {
        logPieces("ERR", {std::string_view(pieces)...});
    }

    /// Messages of at least this level are written: 0 and 1 write all of the
    /// daemon's, 2 and more none.
    std::int32_t level = 0;
    /// Path of the log file; empty writes nothing anywhere.
    std::string fileName;

  private:
    void copyLockState(const LOGGER& other);
    void logPieces(const char* tag, std::initializer_list<std::string_view> pieces);

    CMutexClass lock_;
};
