#include "tests/golden/recording.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "tests/golden/log_lines.h"

namespace golden {
namespace {

// The channels in the order in which they are written. All others follow the cards, by name,
// and the exit is last.
constexpr std::array<std::string_view, 8> kFirst = {"log of main", "log of cae",    "log of io",
                                                    "log of mon",  "log of serial", "syslog",
                                                    "bus",         "card"};
constexpr std::string_view kLast = "exit";

std::size_t rank(std::string_view channel) {
    if (channel == kLast) return kFirst.size() + 1;
    const auto found = std::find(kFirst.begin(), kFirst.end(), channel);
    return static_cast<std::size_t>(found - kFirst.begin());
}

// A reply ends in a carriage return of its own after its line end. A line of standard output
// ends in a line feed.
std::vector<Item> cutIntoLines(const Item& bytes) {
    std::vector<Item> lines;
    Item line{bytes.channel, ItemKind::kBytes, ""};
    const bool client = !clientInterface(bytes.channel).empty();
    for (std::size_t i = 0; i < bytes.text.size(); ++i) {
        line.text += bytes.text[i];
        const bool last = i + 1 == bytes.text.size();
        const bool cut = client ? bytes.text[i] == '\r' && !last && bytes.text[i + 1] != '\n'
                                : bytes.text[i] == '\n';
        if (cut || last) {
            lines.push_back(line);
            line.text.clear();
        }
    }
    return lines;
}

}  // namespace

bool Recording::add(const Item& item) {
    auto& channel = channels_[channelKey(item)];
    if (item.kind == ItemKind::kLine) return addLine(channel, item);
    auto& items = channel.items;
    if (item.kind == ItemKind::kBytes && !items.empty() && items.back().kind == ItemKind::kBytes) {
        items.back().text += item.text;
    } else {
        items.push_back(item);
    }
    return true;
}

bool Recording::addLine(Channel& channel, const Item& item) {
    if (item.channel == "log" && channel.repeating == item.text) return false;
    channel.repeating.reset();
    auto& items = channel.items;
    const auto count = items.size();
    if (item.channel == "log" && count >= 2 && items[count - 1] == item &&
        items[count - 2] == item) {
        items.pop_back();
        items.back().repeats = true;
        channel.repeating = item.text;
        return true;
    }
    items.push_back(item);
    return true;
}

std::vector<Item> Recording::endStep() {
    std::vector<std::string> names;
    for (const auto& [name, channel] : channels_) names.push_back(name);
    std::stable_sort(names.begin(), names.end(),
                     [](const auto& left, const auto& right) { return rank(left) < rank(right); });
    std::vector<Item> all;
    for (const auto& name : names) {
        for (const auto& item : channels_[name].items) {
            const auto pieces =
                item.kind == ItemKind::kBytes ? cutIntoLines(item) : std::vector<Item>{item};
            all.insert(all.end(), pieces.begin(), pieces.end());
        }
        channels_[name].items.clear();
    }
    return all;
}

}  // namespace golden
