#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

namespace reliability {

/// What became of the items that were sent on one ordered way.
struct Tally {
    std::size_t sent = 0;
    std::size_t seen = 0;
    std::size_t lost = 0;
    std::size_t doubled = 0;
    std::size_t outOfOrder = 0;
    /// Seen, but like nothing that was sent.
    std::size_t unknown = 0;

    Tally& operator+=(const Tally& other);
    /// Everything sent was seen, once, in order, and nothing else.
    bool exact() const;
    /// "sent 3, seen 3, lost 0, doubled 0, out of order 0", and "unknown" if any.
    std::string text() const;
};

/// Compares what comes out of an ordered way with what went in. Items are texts;
/// those that are under way at the same time have to differ.
class Ledger {
  public:
    void send(const std::string& item);
    void see(const std::string& item);
    /// Nothing more will come: what is still under way is lost.
    void close();

    std::size_t underWay() const { return underWay_.size(); }
    /// Items that were passed by a later one, and those lost by close.
    Tally tally() const;

  private:
    bool takeExpected(const std::string& item);
    bool takeOvertaken(const std::string& item);
    bool seenLately(const std::string& item) const;

    std::deque<std::string> underWay_;
    std::deque<std::string> overtaken_;
    std::deque<std::string> lately_;
    std::size_t lostForGood_ = 0;
    Tally counts_;
};

}  // namespace reliability
