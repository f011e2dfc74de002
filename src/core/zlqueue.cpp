#include "core/zlqueue.h"

#include <utility>

void ZLQUEUE::ToQueue(ByteList item) {
    MutexGuard guard(lock_);
    items_.push_back(std::move(item));
}

bool ZLQUEUE::IsEmpty() {
    MutexGuard guard(lock_);
    return items_.empty();
}

ByteList ZLQUEUE::DeQueue() {
    // Before the lock is taken: the lock has no count, so a nested unlock would
    // free it. With one reader nothing can take the item in between.
    if (IsEmpty()) {
        return {};
    }
    MutexGuard guard(lock_);
    ByteList item = std::move(items_.front());
    items_.pop_front();
    return item;
}
