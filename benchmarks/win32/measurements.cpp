#include "benchmarks/win32/measurements.h"

#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <map>

namespace tessel::bench {

namespace {

PROCESS_MEMORY_COUNTERS MemoryCounters() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters;
}

}  // namespace

double Now() {
    LARGE_INTEGER ticks{}, per_second{};
    QueryPerformanceCounter(&ticks);
    QueryPerformanceFrequency(&per_second);
    return static_cast<double>(ticks.QuadPart) / static_cast<double>(per_second.QuadPart);
}

double PeakMemory() {
    return static_cast<double>(MemoryCounters().PeakWorkingSetSize);
}
double CurrentMemory() {
    return static_cast<double>(MemoryCounters().WorkingSetSize);
}

void Measurements::Add(const std::string& name, double seconds, Counters counters) {
    lines_.push_back({name, seconds, {counters.begin(), counters.end()}});
}

bool Measurements::AppendTo(const std::wstring& file) const {
    FILE* out = _wfopen(file.c_str(), L"ab");
    if (!out) return false;
    for (const Line& line : lines_) {
        fprintf(out, "{\"name\": \"%s\", \"nanoseconds\": %.0f", line.name.c_str(), line.seconds * 1e9);
        for (const auto& [name, value] : line.counters) fprintf(out, ", \"%s\": %.6g", name.c_str(), value);
        fprintf(out, "}\n");
    }
    return fclose(out) == 0;
}

void Measurements::Print() const {
    std::map<std::string, std::vector<double>> times;
    for (const Line& line : lines_) times[line.name].push_back(line.seconds * 1e3);
    for (auto& [name, all] : times) {
        std::sort(all.begin(), all.end());
        printf("%-32s %4zu times, median %9.3f ms, %9.3f to %9.3f\n", name.c_str(), all.size(),
               all[all.size() / 2], all.front(), all.back());
    }
}

}  // namespace tessel::bench
