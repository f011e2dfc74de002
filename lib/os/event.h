#pragma once

#include "lib/os/descriptor.h"

namespace zolt_os {

/// A descriptor that stays readable from the first raise() on. Any thread may raise it.
class Event {
  public:
    /// Throws std::system_error if the system gives no descriptor.
    Event();

    void raise();
    /// The descriptor; wait for POLLIN on it.
    int get() const { return descriptor_.get(); }

  private:
    Descriptor descriptor_;
};

}  // namespace zolt_os
