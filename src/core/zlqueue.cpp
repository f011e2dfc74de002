#include "core/zlqueue.h"

#include <utility>

void ZLQUEUE::ToQueue(ByteList item) {
    {
        MutexGuard guard(lock_);
        items_.push_back(std::move(item));
        if (reader_ != nullptr) {
            reader_->itemAdded();
        }
    }
    // The lock is free here, so that the reader does not wake up only to wait for it.
    if (reader_ != nullptr) {
        reader_->wake();
    }
}

bool ZLQUEUE::IsEmpty() {
    MutexGuard guard(lock_);
    return items_.empty();
}

ByteList ZLQUEUE::DeQueue() {
    return takeNext().value_or(ByteList());
}

std::optional<ByteList> ZLQUEUE::takeNext() {
    MutexGuard guard(lock_);
    if (items_.empty()) {
        return std::nullopt;
    }
    std::optional<ByteList> item(std::move(items_.front()));
    items_.pop_front();
    if (reader_ != nullptr) {
        reader_->itemTaken();
    }
    return item;
}
