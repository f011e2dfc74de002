#pragma once

#include <filesystem>

#include "lib/os/descriptor.h"

namespace support {

/// A serial adapter that never answers: a pseudo-terminal under the given name. It is
/// unplugged when the object goes.
class SilentAdapter {
  public:
    explicit SilentAdapter(std::filesystem::path link);
    ~SilentAdapter();
    SilentAdapter(const SilentAdapter&) = delete;
    SilentAdapter& operator=(const SilentAdapter&) = delete;

    /// The other end of the adapter's line: the adapter sends what is written there. The
    /// descriptor stays with this object.
    int farEnd() const { return controller_.get(); }

  private:
    std::filesystem::path link_;
    zolt_os::Descriptor controller_;
    zolt_os::Descriptor terminal_;
};

}  // namespace support
