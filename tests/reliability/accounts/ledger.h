#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

namespace reliability {

/// The numbers of items that were sent on one ordered way and of what arrived.
struct Tally {
    std::size_t sent = 0;
    std::size_t seen = 0;
    std::size_t lost = 0;
    std::size_t doubled = 0;
    std::size_t outOfOrder = 0;
    /// Items that were seen but never sent.
    std::size_t unknown = 0;

    Tally& operator+=(const Tally& other);
    /// True if every item that was sent was seen, once and in order, and no other item was.
    bool exact() const;
    /// "sent 3, seen 3, lost 0, doubled 0, out of order 0", with ", unknown 1" if there are any.
    std::string text() const;
};

/// Compares what comes out of an ordered way with what went in. The items are texts.
/// REQUIRES: items that are under way at the same time differ.
class Ledger {
  public:
    void send(const std::string& item);
    void see(const std::string& item);
    /// Counts everything that is still under way as lost; nothing more will come.
    void close();

    std::size_t underWay() const { return underWay_.size(); }
    /// `lost` counts the items that a later one has passed, and those of close().
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
