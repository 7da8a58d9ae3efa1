// What the compiler's buffer checks need at run time: the value that stands before each return address that
// an overrun could reach, and where a program goes when it is found changed. The compiler brings both in a
// library, which asks a cryptographic provider for the value; that would load libraries while the loader
// holds its lock, and the failure would try to write to a console. Here the value is made as Windows' own
// compilers make theirs, and a failure ends the process at once, without running anything of what was
// overwritten.
//
// This file is compiled without the checks, which it could not pass: it sets the value that they compare.
#include <windows.h>

#include <cerrno>
#include <cstdint>

extern "C" {

std::uintptr_t __stack_chk_guard = 0;

namespace {

/// The codes that Windows gives in its error reports.
enum FailFastCode : unsigned { kStackCookieCheckFailure = 2, kRangeCheckFailure = 8 };

[[noreturn]] void FailFast(FailFastCode code) {
    asm volatile("int $0x29" : : "c"(code));
    __builtin_trap();
}

}  // namespace

[[noreturn]] void __stack_chk_fail() {
    FailFast(kStackCookieCheckFailure);
}

/// A copy that was found to overrun its target.
[[noreturn]] void __chk_fail() {
    FailFast(kRangeCheckFailure);
}

}  // extern "C"

namespace {

/// Strings of the compiler's library drag in its random numbers, and those a library that is loaded by its
/// bare name. Nothing here asks for any, so that this refusal is all that is linked of them.
int RefuseRandomNumber(unsigned*) {
    return EINVAL;
}

#ifdef _WIN64
extern "C" int (*const rand_s_import)(unsigned*) asm("__imp_rand_s") = RefuseRandomNumber;
#else
extern "C" int (*const rand_s_import)(unsigned*) asm("__imp__rand_s") = RefuseRandomNumber;
#endif

/// Runs before every other initialisation of the module.
[[gnu::constructor(101)]] void ChooseStackGuard() {
    FILETIME now{};
    LARGE_INTEGER counter{};
    GetSystemTimeAsFileTime(&now);
    QueryPerformanceCounter(&counter);
    std::uint64_t value = static_cast<std::uint64_t>(counter.QuadPart) << 20;
    value ^= (static_cast<std::uint64_t>(now.dwHighDateTime) << 32) | now.dwLowDateTime;
    value ^= (static_cast<std::uint64_t>(GetCurrentProcessId()) << 32) ^ GetCurrentThreadId();
    // The places of this module and of the stack are chosen at random.
    value ^= reinterpret_cast<std::uintptr_t>(&__stack_chk_guard) ^ reinterpret_cast<std::uintptr_t>(&now);
    // Every bit of the result depends on all of the value.
    value = (value ^ (value >> 33)) * 0xFF51AFD7ED558CCDULL;
    value = (value ^ (value >> 33)) * 0xC4CEB9FE1A85EC53ULL;
    value ^= value >> 33;
    // A zero byte ends the copying of a text before it can put the value back.
    __stack_chk_guard = static_cast<std::uintptr_t>(value) & ~static_cast<std::uintptr_t>(0xFF00);
}

}  // namespace
