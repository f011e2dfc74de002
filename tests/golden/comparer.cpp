#include "tests/golden/comparer.h"

#include <algorithm>

#include "tests/golden/log_lines.h"

namespace golden {
namespace {

std::string difference(const std::deque<Item>& expected, const Item& got) {
    const std::string wanted =
        expected.empty() ? "nothing more on this channel" : writeItem(expected.front());
    return "  expected: " + wanted + "\n  got:      " + writeItem(got);
}

}  // namespace

void Comparer::expect(const std::vector<Item>& items) {
    for (const auto& item : items) {
        auto& expected = channels_[channelKey(item)].expected;
        const bool continues = item.kind == ItemKind::kBytes && !expected.empty() &&
                               expected.back().kind == ItemKind::kBytes;
        if (continues) {
            expected.back().text += item.text;
        } else {
            expected.push_back(item);
        }
    }
}

std::optional<std::string> Comparer::take(const Item& item) {
    auto& channel = channels_[channelKey(item)];
    return item.kind == ItemKind::kBytes ? takeBytes(channel, item) : takeLine(channel, item);
}

std::optional<std::string> Comparer::takeLine(Channel& channel, const Item& item) {
    auto& expected = channel.expected;
    if (!expected.empty() && expected.front().kind == item.kind &&
        expected.front().text == item.text) {
        channel.repeating.reset();
        if (expected.front().repeats) channel.repeating = item.text;
        expected.pop_front();
        return std::nullopt;
    }
    if (item.kind == ItemKind::kLine && channel.repeating == item.text) return std::nullopt;
    return difference(expected, item);
}

std::optional<std::string> Comparer::takeBytes(Channel& channel, const Item& item) {
    auto& expected = channel.expected;
    if (expected.empty() || expected.front().kind != ItemKind::kBytes ||
        !expected.front().text.starts_with(item.text)) {
        return difference(expected, item);
    }
    expected.front().text.erase(0, item.text.size());
    if (expected.front().text.empty()) expected.pop_front();
    return std::nullopt;
}

bool Comparer::complete() const {
    return std::all_of(channels_.begin(), channels_.end(),
                       [](const auto& entry) { return entry.second.expected.empty(); });
}

std::vector<std::string> Comparer::missing() const {
    std::vector<std::string> lines;
    for (const auto& [key, channel] : channels_) {
        for (const auto& item : channel.expected) lines.push_back(writeItem(item));
    }
    return lines;
}

}  // namespace golden
