#pragma once

#include <string>

#include "control/console_context.h"

/// The console's interpreter. One per daemon; used by one thread. No line makes it
/// throw.
class Console {
  public:
    /// The separators are those of the console's interface; `host` outlives this
    /// object.
    Console(ConsoleHost& host, std::string inpSeparator, std::string outSeparator);

    /// Carries out every command that the line matches, in the order of the
    /// command table, each with its replies; then queues the prompt, or the
    /// unknown-command answer when no command matched. Blocks as long as the
    /// commands' own pauses, which may be several seconds.
    void interpret(const std::string& text);

  private:
    std::string inpSeparator_;
    ConsoleContext context_;
};
