#pragma once

#include <cstddef>

namespace support {

/// What one thread has taken from the heap by `new`. Whatever links
/// allocation_count.cpp in counts; freeing does not take anything off.
struct Allocations {
    std::size_t count = 0;
    std::size_t bytes = 0;  ///< as asked for
};

/// The calling thread's, since its start.
Allocations allocations();

/// Those of one call of `action`, on this thread.
template <typename Action>
Allocations allocationsOf(const Action& action) {
    const Allocations before = allocations();
    action();
    const Allocations after = allocations();
    return {after.count - before.count, after.bytes - before.bytes};
}

}  // namespace support
