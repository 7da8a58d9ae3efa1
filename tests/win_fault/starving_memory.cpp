// The allocation functions of a copy of the component, in which memory runs out when a test wants it to. They
// serve the copy alone: the test's own program allocates as ever.
#include <windows.h>

#include <cstdlib>
#include <new>

namespace {

long made = 0;
long held = 0;
long starves_at = -1;  // negative: never
bool stays_so = false;

void* Allocate(std::size_t size) noexcept {
    const long number = made++;
    if (starves_at >= 0 && (number == starves_at || (stays_so && number > starves_at))) return nullptr;
    void* const memory = std::malloc(size ? size : 1);
    if (memory) ++held;
    return memory;
}

void* AllocateOrThrow(std::size_t size) {
    if (void* memory = Allocate(size)) return memory;
    throw std::bad_alloc();
}

void Free(void* memory) noexcept {
    if (memory) --held;
    std::free(memory);
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
    Free(memory);
}
void operator delete[](void* memory) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    Free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    Free(memory);
}

extern "C" {

/// Counts from 0 again; allocation number `at` fails, and all later ones with it when `for_good`. A negative
/// number lets all succeed.
__declspec(dllexport) void Starve(long at, BOOL for_good) {
    made = 0;
    starves_at = at;
    stays_so = for_good != FALSE;
}

/// How many allocations were asked for since.
__declspec(dllexport) long AllocationsMade() {
    return made;
}

/// How many are not given back yet.
__declspec(dllexport) long AllocationsHeld() {
    return held;
}

}  // extern "C"
