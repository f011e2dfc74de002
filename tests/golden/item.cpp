#include "tests/golden/item.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "lib/text/escape.h"
#include "tests/support/text/text_escape.h"

namespace golden {
namespace {

constexpr std::array<std::string_view, 3> kInterfaces = {"cae", "io", "mon"};
constexpr std::array<std::string_view, 6> kLineChannels = {"bus", "card",   "sim",
                                                           "log", "syslog", "exit"};
// Width of the channel's column in a dialogue.
constexpr std::string::size_type kColumn = 7;

template <class List>
bool contains(const List& list, std::string_view value) {
    return std::find(list.begin(), list.end(), value) != list.end();
}

std::string unquote(std::string_view text) {
    if (text.size() < 2 || text.front() != '"' || text.back() != '"') {
        throw std::invalid_argument("bytes stand between quotation marks");
    }
    return zolt_text::unescape(text.substr(1, text.size() - 2));
}

}  // namespace

std::string clientInterface(std::string_view channel) {
    std::string_view name = channel;
    if (!name.empty() && name.back() >= '2' && name.back() <= '9') name.remove_suffix(1);
    return contains(kInterfaces, name) ? std::string(name) : std::string();
}

bool isByteChannel(std::string_view channel) {
    return channel == "stdout" || channel == "stderr" || !clientInterface(channel).empty();
}

bool isChannel(std::string_view channel) {
    return isByteChannel(channel) || contains(kLineChannels, channel);
}

std::string writeItem(const Item& item) {
    std::string text = item.channel + (item.repeats ? "+" : "");
    text.append(text.size() < kColumn ? kColumn - text.size() : 1, ' ');
    switch (item.kind) {
        case ItemKind::kBytes:
            return text + '"' + support::escapeBytes(item.text) + '"';
        case ItemKind::kLine:
            return text + support::escapeLine(item.text);
        case ItemKind::kClosed:
            return text + "closed";
    }
    return text;
}

Item readItem(std::string_view text) {
    const auto channelEnd = std::min(text.find(' '), text.size());
    Item item;
    item.channel = text.substr(0, channelEnd);
    if (!item.channel.empty() && item.channel.back() == '+') {
        item.channel.pop_back();
        item.repeats = true;
    }
    if (!isChannel(item.channel)) {
        throw std::invalid_argument("unknown channel \"" + item.channel + "\"");
    }
    const auto start = std::min(text.find_first_not_of(' ', channelEnd), text.size());
    const std::string_view rest = text.substr(start);
    if (!isByteChannel(item.channel)) {
        item.text = zolt_text::unescape(rest);
        return item;
    }
    if (item.repeats) throw std::invalid_argument("only lines may repeat");
    if (rest == "closed") {
        item.kind = ItemKind::kClosed;
    } else {
        item.kind = ItemKind::kBytes;
        item.text = unquote(rest);
    }
    return item;
}

}  // namespace golden
