#include "tests/support/allocation_count.h"

#include <cstdlib>
#include <new>

namespace {

thread_local support::Allocations ofThisThread;

void* counted(std::size_t size, void* memory) {
    if (memory == nullptr) std::abort();
    ++ofThisThread.count;
    ofThisThread.bytes += size;
    return memory;
}

void* take(std::size_t size) {
    return counted(size, std::malloc(size == 0 ? 1 : size));
}

void* take(std::size_t size, std::align_val_t alignment) {
    const auto step = static_cast<std::size_t>(alignment);
    // The size has to be a multiple of the alignment.
    return counted(size, std::aligned_alloc(step, (size + step - 1) / step * step));
}

}  // namespace

// Every form of the operators is replaced: a sanitizer would replace the others, and they
// would not know the memory that was taken here.

void* operator new(std::size_t size) {
    return take(size);
}
void* operator new[](std::size_t size) {
    return take(size);
}
void* operator new(std::size_t size, const std::nothrow_t& /*unused*/) noexcept {
    return take(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*unused*/) noexcept {
    return take(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return take(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return take(size, alignment);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t& /*unused*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t& /*unused*/) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/,
                       std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}

namespace support {

Allocations allocations() {
    return ofThisThread;
}

}  // namespace support
