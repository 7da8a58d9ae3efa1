// What this process holds of the system, for tests that must give everything back.
#pragma once

#include <windows.h>
// After windows.h, whose types it uses.
#include <psapi.h>

#include <cstdio>

namespace tessel::tests {

/// The working set in kilobytes, signed, so that differences may be negative.
inline long long MemoryInUse() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<long long>(counters.WorkingSetSize / 1024);
}

}  // namespace tessel::tests
