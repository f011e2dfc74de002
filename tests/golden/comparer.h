#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/golden/item.h"

namespace golden {

/// Compares the items that come with those that a dialogue expects. Items of one channel have
/// to come in the written order; each source of the log counts as a channel.
class Comparer {
  public:
    /// Adds to the items that have to come next.
    void expect(const std::vector<Item>& items);
    /// Takes one item. Returns a description of what is wrong with it, or nothing.
    std::optional<std::string> take(const Item& item);
    /// Returns true when everything expected has come.
    bool complete() const;
    /// Returns the items that have not come, as a dialogue writes them.
    std::vector<std::string> missing() const;

  private:
    struct Channel {
        std::deque<Item> expected;
        // The last line, if it may come again.
        std::optional<std::string> repeating;
    };

    static std::optional<std::string> takeLine(Channel& channel, const Item& item);
    static std::optional<std::string> takeBytes(Channel& channel, const Item& item);

    std::map<std::string, Channel> channels_;
};

}  // namespace golden
