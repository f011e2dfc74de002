#pragma once

#include <termios.h>

#include <cstddef>
#include <mutex>
#include <queue>
#include <string>
#include <utility>
#include <vector>

#include "lib/os/descriptor.h"

/// The cards' end of a serial line, run by a script: a pseudo-terminal that gets the answer
/// to a request just before the read call of the host that is to find it. Nothing races, so
/// a slow machine changes no outcome.
///
/// The line sees the read and write calls of the code under test because the test program
/// wraps these two when it is linked. There is one line at a time; any thread may use it.
class ScriptedLine {
  public:
    /// Bytes (not hexadecimal) that arrive before the `attempt`-th read call
    /// after a request, counted from 1; ascending within one answer.
    struct Piece {
        int attempt;
        std::string bytes;
    };

    ScriptedLine();
    ~ScriptedLine();
    ScriptedLine(const ScriptedLine&) = delete;
    ScriptedLine& operator=(const ScriptedLine&) = delete;

    /// The device that the host opens.
    const std::string& path() const { return path_; }

    /// The answer to the next request that has none yet; requests beyond the
    /// script meet silence. `hex` is a whole frame with its length byte.
    void answer(const std::string& hex);
    void answerInPieces(std::vector<Piece> pieces);

    /// Bytes that the host can read at once, whatever it does; in `hex`.
    void put(const std::string& hex);
    /// How many bytes the host has not read.
    std::size_t unread() const;

    /// What the host has written since the last call: one text per write call,
    /// in hexadecimal.
    std::vector<std::string> takeWrites();
    /// Read calls of the host since its last write.
    int readsSinceWrite() const;

    /// What the host has set the port to.
    termios settings() const;

    // The wrapped calls use the functions below.
    bool isHostEnd(int descriptor) const;
    void beforeRead();
    void afterWrite(const std::string& written);

  private:
    void deliver(const std::string& text);

    zolt_os::Descriptor controller_;
    /// This end stays open, so that the line keeps its mode and its bytes while the host
    /// closes and opens its own end.
    zolt_os::Descriptor terminal_;
    std::string path_;
    mutable std::mutex lock_;
    std::queue<std::vector<Piece>> script_;
    std::vector<Piece> pending_;
    std::vector<std::string> writes_;
    int reads_ = 0;
};
