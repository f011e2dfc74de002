#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/golden/item.h"

namespace golden {

/// Collects what comes, step by step, in the form in which a dialogue expects
/// it: channels in a fixed order, byte streams cut into lines, three and more
/// equal log lines in a row as one that may repeat.
class Recording {
  public:
    /// Returns false when the item says nothing new: a further repetition.
    bool add(const Item& item);
    /// What came since the last call, ready to be written.
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
