#include "tests/reliability/accounts/ledger.h"

#include <algorithm>

namespace reliability {
namespace {

// The number of items that are remembered: an item that comes twice differs from an item
// that was never sent, and a late item from a lost one.
constexpr std::size_t kMemory = 1024;

void remember(std::deque<std::string>& items, const std::string& item) {
    items.push_back(item);
    if (items.size() > kMemory) items.pop_front();
}

}  // namespace

Tally& Tally::operator+=(const Tally& other) {
    sent += other.sent;
    seen += other.seen;
    lost += other.lost;
    doubled += other.doubled;
    outOfOrder += other.outOfOrder;
    unknown += other.unknown;
    return *this;
}

bool Tally::exact() const {
    return seen == sent && lost == 0 && doubled == 0 && outOfOrder == 0 && unknown == 0;
}

std::string Tally::text() const {
    std::string line = "sent " + std::to_string(sent) + ", seen " + std::to_string(seen) +
                       ", lost " + std::to_string(lost) + ", doubled " + std::to_string(doubled) +
                       ", out of order " + std::to_string(outOfOrder);
    if (unknown > 0) line += ", unknown " + std::to_string(unknown);
    return line;
}

void Ledger::send(const std::string& item) {
    ++counts_.sent;
    underWay_.push_back(item);
}

void Ledger::see(const std::string& item) {
    ++counts_.seen;
    if (takeExpected(item)) {
        remember(lately_, item);
    } else if (takeOvertaken(item)) {
        ++counts_.outOfOrder;
        remember(lately_, item);
    } else if (seenLately(item)) {
        ++counts_.doubled;
    } else {
        ++counts_.unknown;
    }
}

void Ledger::close() {
    lostForGood_ += underWay_.size();
    underWay_.clear();
}

Tally Ledger::tally() const {
    Tally tally = counts_;
    tally.lost = lostForGood_ + overtaken_.size();
    return tally;
}

bool Ledger::takeExpected(const std::string& item) {
    const auto found = std::find(underWay_.begin(), underWay_.end(), item);
    if (found == underWay_.end()) return false;
    for (auto passed = underWay_.begin(); passed != found; ++passed) {
        overtaken_.push_back(*passed);
        if (overtaken_.size() > kMemory) {
            overtaken_.pop_front();
            ++lostForGood_;
        }
    }
    underWay_.erase(underWay_.begin(), found + 1);
    return true;
}

bool Ledger::takeOvertaken(const std::string& item) {
    const auto found = std::find(overtaken_.begin(), overtaken_.end(), item);
    if (found == overtaken_.end()) return false;
    overtaken_.erase(found);
    return true;
}

bool Ledger::seenLately(const std::string& item) const {
    return std::find(lately_.begin(), lately_.end(), item) != lately_.end();
}

}  // namespace reliability
