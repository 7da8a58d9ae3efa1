// What several benchmarks look at: the statements, the sample database's tables, and counted memory.
#pragma once

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

/// Bytes now held through operator new, and the most that were held since ResetPeak.
[[nodiscard]] std::size_t HeldBytes();
[[nodiscard]] std::size_t PeakBytes();
void ResetPeak();

}  // namespace tessel::bench
