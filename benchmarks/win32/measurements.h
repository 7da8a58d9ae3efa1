// What a run of the window's benchmarks found: times of named measurements with counters beside them,
// appended to a file as one JSON object a line, which scripts/bench_table reads. Several programs may append
// to the same file, so that what holds much memory is measured in a process of its own.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace tessel::bench {

/// Seconds of the system's finest clock since an instant of its own choice.
[[nodiscard]] double Now();

/// The largest working set of this process so far, in bytes, and the present one.
[[nodiscard]] double PeakMemory();
[[nodiscard]] double CurrentMemory();

class Measurements {
public:
    using Counters = std::initializer_list<std::pair<const char*, double>>;

    /// One repetition of a measurement.
    void Add(const std::string& name, double seconds, Counters counters = {});
    /// Appends everything to the file. False when it cannot be written.
    [[nodiscard]] bool AppendTo(const std::wstring& file) const;
    /// Prints the median of each measurement, for a person who waits.
    void Print() const;

private:
    struct Line {
        std::string name;
        double seconds;
        std::vector<std::pair<std::string, double>> counters;
    };
    std::vector<Line> lines_;
};

}  // namespace tessel::bench
