#pragma once

#include <filesystem>

#include "lib/os/descriptor.h"

namespace support {

/// A serial adapter behind which nobody answers: a pseudo-terminal under the
/// given name for as long as the object lives.
class SilentAdapter {
  public:
    explicit SilentAdapter(std::filesystem::path link);
    ~SilentAdapter();
    SilentAdapter(const SilentAdapter&) = delete;
    SilentAdapter& operator=(const SilentAdapter&) = delete;

    /// The end behind the adapter: what is written there it sends. Stays owned.
    int farEnd() const { return controller_.get(); }

  private:
    std::filesystem::path link_;
    zolt_os::Descriptor controller_;
    zolt_os::Descriptor terminal_;
};

}  // namespace support
