#include "tests/allocation/failing_allocations.h"

#include <cstdlib>
#include <new>

namespace {

long allocations_left = -1;  // negative: none fails

void* Allocate(std::size_t size) noexcept {
    if (allocations_left >= 0 && allocations_left-- == 0) return nullptr;
    return std::malloc(size ? size : 1);
}

void* AllocateOrThrow(std::size_t size) {
    if (void* memory = Allocate(size)) return memory;
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
    return AllocateOrThrow(size);
}
void* operator new[](std::size_t size) {
    return AllocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}

namespace tessel::testing {

bool RunsOutOfMemoryAt(long at, const std::function<void()>& body, bool* reached) {
    bool threw = false;
    allocations_left = at;
    try {
        body();
    } catch (const std::bad_alloc&) {
        threw = true;
    }
    *reached = allocations_left < 0;
    allocations_left = -1;
    return threw;
}

}  // namespace tessel::testing
