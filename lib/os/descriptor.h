#pragma once

#include <unistd.h>

#include <utility>

/// What the programs and the tests need from the system: file descriptors that close
/// themselves, events and waits with a deadline.
namespace zolt_os {

/// Owns one file descriptor, or none.
class Descriptor {
  public:
    Descriptor() = default;
    /// Takes `number` over; a negative one means none.
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        reset(std::exchange(other.number_, -1));
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { reset(); }

    /// Negative if there is none.
    int get() const { return number_; }
    bool valid() const { return number_ >= 0; }
    /// Closes the descriptor and takes `number` over in its place.
    void reset(int number = -1) {
        if (number_ >= 0) {
            ::close(number_);
        }
        number_ = number;
    }

  private:
    int number_ = -1;
};

/// Takes over what a system call has returned. Throws std::system_error with errno and
/// `what` if `number` is negative.
Descriptor checked(int number, const char* what);

}  // namespace zolt_os
