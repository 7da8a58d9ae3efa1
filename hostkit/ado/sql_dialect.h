// What the statements and connection strings that hosts write need before an engine other than Jet, or an
// ODBC driver manager, can take them. Pure functions over text; portable, so that they are tested everywhere.
#pragma once

#include <string>
#include <string_view>

namespace tessel::ado {

/// The statement with the keyword DISTINCTROW, which only the Jet engine knows, written as DISTINCT in its
/// own letter case. String literals, quoted and bracketed names and comments stay as they are; so does
/// everything else.
[[nodiscard]] std::wstring StatementForEngine(std::wstring_view sql);

}  // namespace tessel::ado
