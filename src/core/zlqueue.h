#pragma once

#include <deque>
#include <optional>

#include "common/byte_list.h"
#include "thread/MutexClass.h"
#include "thread/loop_pause.h"

/// The channel between the daemon's threads: an unbounded first-in, first-out queue of byte
/// lists. Any number of threads may write; each queue has one reader. The queue owns its
/// items.
class ZLQUEUE {
  public:
    /// Names the loop that reads the queue: an item then ends the loop's rest.
    /// REQUIRES: no other thread uses the queue yet, and `reader` outlives every use of it.
    void readBy(LoopPause& reader) { reader_ = &reader; }

    void ToQueue(ByteList item) ZOLT_EXCLUDES(lock_);
    bool IsEmpty() ZOLT_EXCLUDES(lock_);
    /// The oldest item, or an empty list when there is none. An item may itself be empty: a
    /// reader that has to tell the two apart uses takeNext().
    ByteList DeQueue() ZOLT_EXCLUDES(lock_);
    /// The oldest item, or nothing when there is none.
    std::optional<ByteList> takeNext() ZOLT_EXCLUDES(lock_);

  private:
    /// Set before other threads use the queue, and only read from then on.
    LoopPause* reader_ = nullptr;
    CMutexClass lock_;
    std::deque<ByteList> items_ ZOLT_GUARDED_BY(lock_);
};
