#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lib/ports/blocking/opening.h"
#include "lib/ports/dialogue.h"
#include "lib/ports/items.h"
#include "lib/ports/separator_search.h"

namespace zolt_ports {

/// A client of the console: one line, one reply. All calls throw PortError. Used by one
/// thread at a time.
class ConsoleSession {
  public:
    /// Opens the port and, if the line end is not known, finds it out. `patience` limits
    /// each wait; `interrupt` is as in Deadline.
    ConsoleSession(const Endpoint& endpoint, zolt_os::Seconds patience, int interrupt = -1);
    /// Leaves, unless the connection has failed.
    ~ConsoleSession();
    ConsoleSession(const ConsoleSession&) = delete;
    ConsoleSession& operator=(const ConsoleSession&) = delete;

    /// Sends one line and waits for its reply.
    Reply ask(const std::string& line);

    /// Reads the lines that came while nothing was asked. To be called when descriptor()
    /// is readable.
    void readUnasked();
    int descriptor() const { return connection_.descriptor(); }

    /// The lines that came unasked, in their order; the caller takes them out.
    std::vector<std::string>& unasked() { return unasked_; }
    /// The line end that the daemon takes.
    const std::string& lineEnd() const { return lineEnd_; }

  private:
    ConsoleSession(const Endpoint& endpoint, OpenPort port, zolt_os::Seconds patience,
                   int interrupt);
    zolt_os::Deadline deadline() const { return zolt_os::Deadline::in(patience_, interrupt_); }
    /// Keeps the refused IO commands that came before the banner.
    void takeLeftover(const std::string& leftover);
    SeparatorFound probe(const std::string& end, std::string& received);
    void findLineEnd(std::string& received);
    /// Reads the items that have come; the reply, if one has become whole.
    std::optional<Reply> take();
    /// Makes unasked lines of replies to commands of an earlier client.
    void keepStrays();
    Reply endedReply() const;

    zolt_os::Seconds patience_;
    int interrupt_;
    std::string lineEnd_;
    Connection connection_;
    ItemReader items_;
    Dialogue dialogue_;
    std::vector<std::string> unasked_;
    bool inOrder_ = true;
};

}  // namespace zolt_ports
