// What several benchmarks look at: the statements, the sample database's tables, and counted memory.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <string>
#include <vector>

namespace tessel::bench {

/// The statements of statements.sql, in order.
[[nodiscard]] const std::vector<std::wstring>& Statements();
/// Those that the design can show.
[[nodiscard]] const std::vector<std::wstring>& ShownStatements();
/// The script that creates the sample database's empty tables, in UTF-8.
[[nodiscard]] const std::string& TablesScript();

/// Counts what operator new gives out and takes back as long as it lives; one at a time.
class CountedMemory {
public:
    CountedMemory();
    ~CountedMemory();
    CountedMemory(const CountedMemory&) = delete;
    CountedMemory& operator=(const CountedMemory&) = delete;

    /// Bytes of the blocks that were allocated since then and are still there, as large as the allocator made
    /// them.
    [[nodiscard]] std::size_t Held() const;
    /// The most that Held has been.
    [[nodiscard]] std::size_t Peak() const;
};

/// Reports the most memory that the work holds at once, apart from the time measured.
template <class Work>
void ReportMemory(benchmark::State& state, Work work) {
    const CountedMemory memory;
    work();
    state.counters["peak_bytes"] = static_cast<double>(memory.Peak());
}

}  // namespace tessel::bench
