#pragma once

#include <atomic>
#include <functional>
#include <thread>
#include <utility>

#include "tests/support/wait.h"

/// Makes a call on a thread of its own; the destructor waits for its return.
class BackgroundCall {
  public:
    explicit BackgroundCall(std::function<void()> call)
        : thread_([this, call = std::move(call)] {
              call();
              returned_ = true;
          }) {}
    ~BackgroundCall() { thread_.join(); }
    BackgroundCall(const BackgroundCall&) = delete;
    BackgroundCall& operator=(const BackgroundCall&) = delete;

    bool returns() const {
        return support::waitUntil([this] { return returned_.load(); });
    }
    /// True if the call has not returned after a moment. On a slow machine this may miss a
    /// wrong return, but it never invents one.
    bool staysBlocked() const {
        constexpr std::chrono::milliseconds kMoment{50};
        return !support::waitUntil([this] { return returned_.load(); }, kMoment);
    }

  private:
    std::atomic<bool> returned_{false};
    std::thread thread_;
};
