#include "lib/ports/separator_search.h"

#include "lib/ports/dialogue.h"
#include "lib/ports/items.h"
#include "lib/ports/port_error.h"
#include "lib/text/printable.h"

namespace zolt_ports {
namespace {

constexpr const char* kSubject = "the answer to DRVVER";
constexpr std::string_view kVersionStart = "CIA: DRIVER VERSION ";

/// The length of the longest separator that is found.
constexpr std::size_t kSeparatorLimit = 64;

/// More bytes than refused IO commands of an earlier client bring before the reply.
constexpr std::size_t kProbeLimit = 65536;

/// Finds SEP where `text` begins with SEP `middle` '>' SEP CR.
std::optional<std::string> separatorAt(std::string_view text, std::string_view middle) {
    for (std::size_t length = 0;
         length <= kSeparatorLimit && 2 * length + middle.size() + 2 <= text.size(); ++length) {
        const std::string separator(text.substr(0, length));
        std::string whole = separator;
        whole.append(middle).append(">").append(separator).append("\r");
        if (text.starts_with(whole)) {
            return separator;
        }
    }
    return std::nullopt;
}

/// Throws if the bytes are a whole reply with the usual separator: the daemon's replies
/// to DRVVER have been looked for already.
void refuseForeignReply(std::string_view received) {
    ItemReader items("\r\n");
    Dialogue dialogue("\r\n");
    items.feed(received);
    while (const auto item = items.next()) {
        const Dialogue::Event event = dialogue.feed(*item);
        if (event.reply) {
            const std::vector<std::string>& lines = event.reply->lines;
            throw notZolt(kSubject, zolt_text::quote(lines.empty() ? "" : lines[0]));
        }
    }
}

}  // namespace

std::optional<SeparatorFound> findSeparator(std::string_view received) {
    if (received.size() > kProbeLimit) {
        throw notZolt(kSubject, "it has no end");
    }
    const std::size_t version = received.find(kVersionStart);
    if (version != std::string_view::npos) {
        const std::string_view text = received.substr(version + kVersionStart.size());
        const std::size_t end = text.find_first_not_of("0123456789.");
        if (end != std::string_view::npos) {
            // The first item's own carriage return comes before the prompt.
            if (auto separator = separatorAt(text.substr(end), "\r")) {
                return SeparatorFound{true, *separator};
            }
        }
    }
    const std::size_t unknown = received.find(kUnknownCommand);
    if (unknown != std::string_view::npos) {
        const std::string_view text = received.substr(unknown + kUnknownCommand.size());
        if (auto separator = separatorAt(text, "")) {
            return SeparatorFound{false, *separator};
        }
    }
    refuseForeignReply(received);
    return std::nullopt;
}

}  // namespace zolt_ports
