#pragma once

#include <string>

#include "control/carried_states.h"
#include "control/console_host.h"

/// What a console command works with: the client that gets its replies, the daemon
/// that it acts on, and the states that it leaves for the next command. Owned by
/// the Console and used by its thread.
class ConsoleContext {
  public:
    /// `host` outlives this object.
    ConsoleContext(ConsoleHost& host, std::string outSeparator);

    /// Queues one reply line, to which the output separator is added.
    void reply(const std::string& line);

    const std::string& outSeparator() const { return outSeparator_; }
    ConsoleHost& host() { return host_; }
    CarriedStates& carriedStates() { return carriedStates_; }

  private:
    ConsoleHost& host_;
    std::string outSeparator_;
    CarriedStates carriedStates_;
};
