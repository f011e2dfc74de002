#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/golden/item.h"

namespace golden {

/// Compares what comes with what a dialogue expects. Items of one channel have
/// to come in the written order; the log counts as one channel per source.
class Comparer {
  public:
    /// What the next items have to be. Everything expected before must have come.
    void expect(const std::vector<Item>& items);
    /// Takes one item; the result says in words what is wrong with it.
    std::optional<std::string> take(const Item& item);
    /// True when everything expected has come.
    bool complete() const;
    /// What has not come, as written in a dialogue.
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
