#include "apps/zoltctl/ports/dialogue.h"

#include <utility>

#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/output/text.h"
#include "apps/zoltctl/ports/items.h"

namespace ctl {
namespace {

constexpr std::string_view kUnaskedStart = "COE:";
constexpr std::string_view kVersionStart = "CIA: DRIVER VERSION ";

/// The daemon's longest reply has 69 lines, but one line can hold many commands.
constexpr std::size_t kReplyLimit = 2000;

/// Longer separators are not looked for, nor is the answer to DRVVER among more
/// bytes than these.
constexpr std::size_t kSeparatorLimit = 64;
constexpr std::size_t kProbeLimit = 65536;

/// The separator at the start of `text`, known by its second place: it stands
/// before `middle` and a `>`, and again between the `>` and a carriage return.
std::optional<std::string> separatorBehind(std::string_view text, std::string_view middle) {
    for (std::size_t length = 0;
         length <= kSeparatorLimit && 2 * length + middle.size() + 2 <= text.size(); ++length) {
        const std::string separator(text.substr(0, length));
        std::string whole = separator;
        whole.append(middle).append(">").append(separator).append("\r");
        if (startsWith(text, whole)) {
            return separator;
        }
    }
    return std::nullopt;
}

/// A reply in the usual line ends that is none to DRVVER.
void refuseForeignReply(std::string_view received) {
    ItemReader items("\r\n");
    Dialogue dialogue("\r\n");
    items.feed(received);
    while (const auto item = items.next()) {
        const Dialogue::Event event = dialogue.feed(*item);
        if (event.reply) {
            throw Failure(Status::kNotZolt,
                          "the answer to DRVVER is none of zolt's: " +
                              quote(event.reply->lines.empty() ? "" : event.reply->lines[0]));
        }
    }
}

}  // namespace

Reply Dialogue::take(bool unknown) {
    return {std::exchange(lines_, {}), unknown, false};
}

Dialogue::Event Dialogue::feed(const std::string& item) {
    if (unasked_) {
        // With an empty OutSeparator a carriage return in the quoted command has
        // cut the line.
        if (item != ">") {
            *unasked_ += '\r' + item;
            return {};
        }
        return {std::nullopt, std::exchange(unasked_, std::nullopt)};
    }
    if (startsWith(item, kUnaskedStart)) {
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
        throw Failure(Status::kNotZolt, "the answer is none of zolt's: it has no end");
    }
    return {};
}

std::optional<SeparatorFound> findSeparator(std::string_view received) {
    if (received.size() > kProbeLimit) {
        throw Failure(Status::kNotZolt, "the answer to DRVVER is none of zolt's: it has no end");
    }
    const std::size_t version = received.find(kVersionStart);
    if (version != std::string_view::npos) {
        const std::string_view text = received.substr(version + kVersionStart.size());
        const std::size_t end = text.find_first_not_of("0123456789.");
        if (end != std::string_view::npos) {
            // The first item's own carriage return stands before the prompt.
            if (auto separator = separatorBehind(text.substr(end), "\r")) {
                return SeparatorFound{true, *separator};
            }
        }
    }
    const std::size_t unknown = received.find(kUnknownCommand);
    if (unknown != std::string_view::npos) {
        const std::string_view text = received.substr(unknown + kUnknownCommand.size());
        if (auto separator = separatorBehind(text, "")) {
            return SeparatorFound{false, *separator};
        }
    }
    refuseForeignReply(received);
    return std::nullopt;
}

}  // namespace ctl
