// What this process holds of the system, for tests that must give everything back.
//
// Windows counts GDI and USER objects and kernel handles itself. Wine answers 0 for all three; there they are
// counted one by one: the shared table of GDI handles, the windows and menus among the USER handles, and
// every handle value that names something.
#pragma once

#include <windows.h>
#include <winternl.h>
// After windows.h, whose types it uses.
#include <psapi.h>

#include <cstdint>
#include <cstdio>

namespace tessel::tests {

/// What is in use in all heaps, in kilobytes, signed, so that differences may be negative. The working set
/// would tell what the heaps keep for later as well, which comes and goes by megabytes.
inline long long HeapsInUse() {
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    unsigned long long bytes = 0;
    for (DWORD i = 0; i < count && i < 64; ++i) {
        if (!HeapLock(heaps[i])) continue;
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
        HeapUnlock(heaps[i]);
    }
    return static_cast<long long>(bytes / 1024);
}

/// The working set in kilobytes, signed, so that differences may be negative.
inline long long MemoryInUse() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<long long>(counters.WorkingSetSize / 1024);
}

/// The GDI objects in the table that the process environment block points to.
inline long CountGdiTable() {
#ifdef _WIN64
    constexpr std::size_t kTablePlace = 0xF8, kEntrySize = 24, kTypePlace = 14;
#else
    constexpr std::size_t kTablePlace = 0x94, kEntrySize = 16, kTypePlace = 10;
#endif
    constexpr int kEntries = 0x4000;
    const auto* block = reinterpret_cast<const std::uint8_t*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const auto* table = *reinterpret_cast<const std::uint8_t* const*>(block + kTablePlace);
    long count = 0;
    for (int i = 0; table && i < kEntries; ++i)
        if (table[i * kEntrySize + kTypePlace] != 0) ++count;
    return count;
}

inline long GdiObjects() {
    const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    return counted ? static_cast<long>(counted) : CountGdiTable();
}

inline long UserObjects() {
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS))
        return static_cast<long>(counted);
    long count = 0;
    for (ULONG_PTR value = 0x20; value < 0x10000; value += 2) {
        DWORD process = 0;
        GetWindowThreadProcessId(reinterpret_cast<HWND>(value), &process);
        if (process == GetCurrentProcessId() || IsMenu(reinterpret_cast<HMENU>(value))) ++count;
    }
    return count;
}

inline long KernelHandles() {
    DWORD counted = 0;
    if (GetProcessHandleCount(GetCurrentProcess(), &counted) && counted) return static_cast<long>(counted);
    long count = 0;
    for (ULONG_PTR value = 4; value < 0x10000; value += 4) {
        DWORD flags = 0;
        if (GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags)) ++count;
    }
    return count;
}

/// What a process holds at one moment.
struct ProcessUse {
    long gdi = GdiObjects();
    long user = UserObjects();
    long handles = KernelHandles();
    long long heaps_kb = HeapsInUse();
    long long memory_kb = MemoryInUse();
};

}  // namespace tessel::tests
