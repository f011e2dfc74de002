#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/golden/item.h"

namespace golden {

/// Turns the trace of the simulated bus into items: frames on channel "bus",
/// changes of cards on channel "card", without the times.
///
/// The number of polls depends on the machine's speed. Polls are left out, or shown only when
/// the request to a card or its answer differs from the last one.
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
    // True when the last request was a poll.
    bool polling_ = false;
    // True once the answer to that poll is complete.
    bool pollEnded_ = false;
    Exchange poll_;
    // The last exchange shown, by the card's address as the trace writes it.
    std::map<std::string, Exchange> shown_;
};

}  // namespace golden
