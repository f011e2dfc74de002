#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zolt_ports {

/// What the console answers to one line.
struct Reply {
    std::vector<std::string> lines;
    /// The daemon does not know the command; `lines` holds its answer.
    bool unknown = false;
    /// The daemon said goodbye and ended the connection instead of sending a prompt.
    bool ended = false;
};

constexpr std::string_view kUnknownCommand = "CIE: UNKNOWN COMMAND ";
constexpr std::string_view kFarewell = "ZOLT: Bye Bye...";

/// Puts the items of the console together to replies, and keeps the lines apart that
/// come unasked: "COE:" lines, which report refused commands of the IO port.
class Dialogue {
  public:
    explicit Dialogue(const std::string& outSeparator)
        : unknownItem_(std::string(kUnknownCommand) + outSeparator + '>') {}

    /// What an item has completed: a reply, an unasked line, or nothing.
    struct Event {
        std::optional<Reply> reply;
        std::optional<std::string> unasked;
    };
    /// Throws PortError if a reply grows longer than any of the daemon's.
    Event feed(const std::string& item);
    /// The lines of a reply that is not yet whole.
    const std::vector<std::string>& lines() const { return lines_; }

  private:
    Reply take(bool unknown);

    std::string unknownItem_;
    std::vector<std::string> lines_;
    /// An unasked line whose prompt has not come yet.
    std::optional<std::string> unasked_;
};

}  // namespace zolt_ports
