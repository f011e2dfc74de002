#include "lib/ports/dialogue.h"

#include <utility>

#include "lib/ports/port_error.h"

namespace zolt_ports {
namespace {

constexpr std::string_view kUnaskedStart = "COE:";

/// The daemon's longest reply to one command has 69 lines, but one line of a client can
/// hold many commands.
constexpr std::size_t kReplyLimit = 2000;

}  // namespace

Reply Dialogue::take(bool unknown) {
    return {std::exchange(lines_, {}), unknown, false};
}

Dialogue::Event Dialogue::feed(const std::string& item) {
    if (unasked_) {
        // With an empty OutSeparator a carriage return in the quoted command has cut the
        // line.
        if (item != ">") {
            *unasked_ += '\r' + item;
            return {};
        }
        return {std::nullopt, std::exchange(unasked_, std::nullopt)};
    }
    if (item.starts_with(kUnaskedStart)) {
        unasked_ = item;
        return {};
    }
    if (item == ">") {
        return {take(false), std::nullopt};
    }
    if (item == unknownItem_) {
        lines_.emplace_back(kUnknownCommand);
        return {take(true), std::nullopt};
    }
    lines_.push_back(item);
    if (lines_.size() > kReplyLimit) {
        throw notZolt("the answer", "it has no end");
    }
    return {};
}

}  // namespace zolt_ports
