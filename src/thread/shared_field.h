#pragma once

#include <atomic>

#include "thread/loop_pause.h"

/// One value that several threads read and write without a lock. An object with such
/// fields can be copied; a copy holds the same value and has no reader. A reader may
/// see a value that is one cycle old.
template <typename T>
class SharedField {
  public:
    SharedField(T value) : value_(value) {}
    SharedField(const SharedField& other) : value_(other.load()) {}
    SharedField& operator=(const SharedField& other) {
        if (this != &other) {
            store(other.load());
        }
        return *this;
    }
    SharedField& operator=(T value) {
        store(value);
        return *this;
    }
    ~SharedField() = default;

    /// Names the loop that reads the field in each of its cycles: from now on, a store
    /// wakes that loop from its rest.
    /// REQUIRES: no other thread uses the field yet, and `reader` outlives every store.
    void readBy(LoopPause& reader) { reader_ = &reader; }

    operator T() const { return load(); }
    T load() const { return value_.load(); }
    void store(T value) {
        value_.store(value);
        announce();
    }
    /// Stores `next` and returns true if the value is `expected`.
    bool replace(T expected, T next) {
        const bool replaced = value_.compare_exchange_strong(expected, next);
        if (replaced) {
            announce();
        }
        return replaced;
    }

  private:
    void announce() {
        if (reader_ != nullptr) {
            reader_->announceChange();
        }
    }

    std::atomic<T> value_;
    LoopPause* reader_ = nullptr;
};
