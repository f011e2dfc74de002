#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/golden/item.h"

namespace golden {

/// Turns the trace of the simulated bus into items: frames on channel "bus",
/// changes of cards on channel "card", without the times.
///
/// How many polls there are depends on the machine's speed. They are left out,
/// or shown only when a card is asked or answers other than the last time.
class BusTrace {
  public:
    explicit BusTrace(bool pollsShown) : pollsShown_(pollsShown) {}

    std::vector<Item> read(const std::string& line);

  private:
    struct Exchange {
        std::string request;
        std::string answer;
        bool operator==(const Exchange&) const = default;
    };

    std::vector<Item> request(const std::string& frame);
    std::vector<Item> answer(const std::string& frame);
    std::vector<Item> endPoll();

    bool pollsShown_;
    // The last request was a poll, and whether its answer is complete.
    bool polling_ = false;
    bool pollEnded_ = false;
    Exchange poll_;
    // Card address, as the trace writes it, to the last exchange shown.
    std::map<std::string, Exchange> shown_;
};

}  // namespace golden
