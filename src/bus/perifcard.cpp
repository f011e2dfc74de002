#include "bus/perifcard.h"

namespace {

template <typename Array>
void fillWithZero(Array& fields) {
    for (auto& field : fields) {
        field = 0;
    }
}

}  // namespace

void PERIFCARD::clearPerifCard() {
    cardClass = CardClass::kNone;
    dataLength = 0;
    kindCode = 0;
    kindName = "EMPTY";
    fillWithZero(values);
    fillWithZero(changed);
    ClearPIOAnswer();
    pollingOn = false;
    fillWithZero(analogueSums);
    averagingCount = kAveraging;
    MutexGuard guard(pollFrameLock_);
    pollFrame_.clear();
}

void PERIFCARD::ClearPIOAnswer() {
    fillWithZero(pioAnswer_);
}

void PERIFCARD::storePioAnswer(const std::array<char, 16>& answer) {
    // Byte 0 is stored last: a reader that finds 'Q' there also finds the other bytes of the
    // answer.
    for (std::size_t i = answer.size(); i-- > 0;) {
        pioAnswer_[i].store(answer[i], std::memory_order_release);
    }
}

char PERIFCARD::pioAnswer(std::size_t index) const {
    return pioAnswer_[index].load(std::memory_order_acquire);
}

ByteList PERIFCARD::pollFrame() {
    MutexGuard guard(pollFrameLock_);
    return pollFrame_;
}

void PERIFCARD::appendToPollFrame(const ByteList& bytes) {
    MutexGuard guard(pollFrameLock_);
    pollFrame_.insert(pollFrame_.end(), bytes.begin(), bytes.end());
}
