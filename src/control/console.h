#pragma once

#include <string>

#include "control/card_config.h"
#include "control/console_host.h"
#include "control/console_line.h"

/// The console's interpreter. One per daemon; used by one thread. It cannot
/// throw for anything that a line holds.
class Console {
  public:
    /// The separators of the console's interface; `host` outlives this object.
    Console(ConsoleHost& host, std::string inpSeparator, std::string outSeparator);

    /// Carries out every command that the line matches, in the order of the
    /// command table, each with its replies; then queues the prompt, or the
    /// unknown-command answer when nothing matched. Blocks as long as the
    /// commands' own pauses, several seconds.
    void interpret(const std::string& text);

    /// For the command handlers: queues one reply line.
    void reply(const std::string& line);
    ConsoleHost& host() { return host_; }
    CarriedStates& carriedStates() { return carriedStates_; }

  private:
    ConsoleHost& host_;
    std::string inpSeparator_;
    std::string outSeparator_;
    CarriedStates carriedStates_;
};
