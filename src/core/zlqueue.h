#pragma once

#include <deque>
#include <optional>

#include "common/byte_list.h"
#include "thread/LoopPause.h"
#include "thread/MutexClass.h"

/// The channel between the daemon's threads: an unbounded first-in, first-out
/// queue of byte lists. Any number of threads may write; each queue has one
/// reader. The queue owns its items.
class ZLQUEUE {
  public:
    /// Names the loop that reads the queue, whose short pauses are to end when there
    /// is an item. Before another thread knows the queue; the pause outlives every use
    /// of it.
    void ReadBy(LoopPause& reader) { reader_ = &reader; }

    void ToQueue(ByteList item);
    bool IsEmpty();
    /// The oldest item, or an empty list when there is none. An item may itself
    /// be empty: a reader that has to tell the two apart uses TakeNext().
    ByteList DeQueue();
    /// The oldest item, or nothing when there is none.
    std::optional<ByteList> TakeNext();

  private:
    LoopPause* reader_ = nullptr;
    CMutexClass lock_;
    std::deque<ByteList> items_;
};
