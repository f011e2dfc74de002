// A client of the console: one command, one reply.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "apps/zoltctl/command_line/settings.h"
#include "apps/zoltctl/ports/connection.h"
#include "apps/zoltctl/ports/dialogue.h"
#include "apps/zoltctl/ports/items.h"
#include "apps/zoltctl/ports/opening.h"

namespace ctl {

class ConsoleSession {
  public:
    /// Gets in and, when the line end is not known, finds it out. Throws Failure,
    /// as the others do. `patience` is the time for each wait, `interrupt` as in
    /// Deadline.
    ConsoleSession(const Endpoint& endpoint, Seconds patience, int interrupt = -1);
    /// Leaves, unless the connection is no longer in order.
    ~ConsoleSession();
    ConsoleSession(const ConsoleSession&) = delete;
    ConsoleSession& operator=(const ConsoleSession&) = delete;

    /// Sends one line and waits for its reply.
    Reply ask(const std::string& line);

    /// Reads what has come while nothing was asked. Call it when descriptor() is
    /// readable.
    void readUnasked();
    int descriptor() const { return connection_.descriptor(); }

    /// Lines that came unasked, in their order; the caller takes them out.
    std::vector<std::string>& unasked() { return unasked_; }
    const std::string& lineEnd() const { return lineEnd_; }

  private:
    explicit ConsoleSession(const Endpoint& endpoint, OpenPort port, Seconds patience,
                            int interrupt);
    Deadline deadline() const { return Deadline::in(patience_, interrupt_); }
    /// Refused IO commands that waited for a console.
    void takeLeftover(const std::string& leftover);
    SeparatorFound probe(const std::string& end, std::string& received);
    void findLineEnd(std::string& received);
    /// Takes what has come apart; the reply, if it became whole.
    std::optional<Reply> take();
    /// Replies that nobody here asked for become unasked lines.
    void keepStrays();
    Reply endedReply() const;

    Seconds patience_;
    int interrupt_;
    std::string lineEnd_;
    Connection connection_;
    ItemReader items_;
    Dialogue dialogue_;
    std::vector<std::string> unasked_;
    bool inOrder_ = true;
};

}  // namespace ctl
