#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/golden/item.h"

namespace golden {

/// Collects the items of a run, step by step, in the form in which a dialogue expects them:
/// channels in a fixed order, byte streams cut into lines, and three or more equal log lines in
/// a row as one line that may repeat.
class Recording {
  public:
    /// Returns false when the item is only one more repetition of a line.
    bool add(const Item& item);
    /// Returns the items that came since the last call, ready to be written.
    std::vector<Item> endStep();

  private:
    struct Channel {
        std::vector<Item> items;
        std::optional<std::string> repeating;
    };

    static bool addLine(Channel& channel, const Item& item);

    std::map<std::string, Channel> channels_;
};

}  // namespace golden
