// A file descriptor that closes itself.
#pragma once

#include <unistd.h>

#include <utility>

namespace sim {

class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) {
            ::close(number_);
        }
    }

    // -1 when there is none.
    int get() const { return number_; }
    bool valid() const { return number_ >= 0; }

  private:
    int number_ = -1;
};

// Throws std::system_error with errno and `what` when `number` is negative.
Descriptor checked(int number, const char* what);

// An eventfd that stays readable from the first wake() on.
class StopEvent {
  public:
    StopEvent();
    void wake();
    int get() const { return event_.get(); }

  private:
    Descriptor event_;
};

}  // namespace sim
