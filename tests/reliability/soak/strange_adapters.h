#pragma once

#include <cstddef>
#include <filesystem>
#include <list>

#include "tests/support/process/silent_adapter.h"

namespace reliability {

/// An adapter that sends without a pause, but never an answer of the bus controller.
class BabblingAdapter {
  public:
    explicit BabblingAdapter(const std::filesystem::path& link);

    /// Sends as much as the line takes. To be called every few milliseconds.
    void tick();

  private:
    support::SilentAdapter adapter_;
};

/// The adapters other than that of the bus.
class StrangeAdapters {
  public:
    void addSilent(const std::filesystem::path& link) { silent_.emplace_back(link); }
    void addBabbling(const std::filesystem::path& link) { babbling_.emplace_back(link); }
    /// Unplugs the oldest adapter of each kind.
    void removeOldest();
    void clear();
    std::size_t count() const { return silent_.size() + babbling_.size(); }
    void tick();

  private:
    std::list<support::SilentAdapter> silent_;
    std::list<BabblingAdapter> babbling_;
};

}  // namespace reliability
