// The console's side of a conversation: which items make up a reply, and which
// come unasked. Nothing here knows sockets.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ctl {

/// What the console answers to one line.
struct Reply {
    std::vector<std::string> lines;
    /// The daemon does not know the command; `lines` then holds what it says.
    bool unknown = false;
    /// The daemon said goodbye and ended the connection instead of a prompt.
    bool ended = false;
};

constexpr std::string_view kUnknownCommand = "CIE: UNKNOWN COMMAND ";
constexpr std::string_view kFarewell = "ZOLT: Bye Bye...";

/// Puts the console's items together.
class Dialogue {
  public:
    explicit Dialogue(const std::string& outSeparator)
        : unknownItem_(std::string(kUnknownCommand) + outSeparator + '>') {}

    /// What an item completes: a reply, an unasked line, or nothing yet.
    struct Event {
        std::optional<Reply> reply;
        std::optional<std::string> unasked;
    };
    /// Throws Failure when a reply grows longer than any of the daemon's.
    Event feed(const std::string& item);
    /// The lines of a reply that is not yet whole.
    const std::vector<std::string>& lines() const { return lines_; }

  private:
    Reply take(bool unknown);

    std::string unknownItem_;
    std::vector<std::string> lines_;
    /// A refused IO command, until its own prompt.
    std::optional<std::string> unasked_;
};

/// What the first reply to "DRVVER" tells about a daemon's line ends.
struct SeparatorFound {
    /// The line end that was sent is the right one.
    bool known = false;
    std::string outSeparator;
};

/// Nothing as long as the reply is not whole. Throws Failure when it is none that
/// DRVVER can have.
std::optional<SeparatorFound> findSeparator(std::string_view received);

}  // namespace ctl
