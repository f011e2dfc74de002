#pragma once

#include <filesystem>

#include "tests/support/unique_fd.h"

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
    UniqueFd controller_;
    UniqueFd terminal_;
};

}  // namespace support
