#pragma once

#include <cstddef>

namespace support {

/// What one thread has taken from the heap by `new`; freeing does not reduce the numbers.
/// REQUIRES: the program is linked with zolt_replaces(heap).
struct Allocations {
    std::size_t count = 0;
    std::size_t bytes = 0;  ///< as asked for
};

/// The numbers of the calling thread since its start.
Allocations allocations();

/// The numbers of one call of `action` on this thread.
template <typename Action>
Allocations allocationsOf(const Action& action) {
    const Allocations before = allocations();
    action();
    const Allocations after = allocations();
    return {after.count - before.count, after.bytes - before.bytes};
}

}  // namespace support
