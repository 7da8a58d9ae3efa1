// Connection strings as hosts give them to ADO, brought into the form that the ODBC driver manager reads.
// Portable.
#pragma once

#include <string>
#include <string_view>

namespace tessel::ado {

/// The string for SQLDriverConnect: OLE DB's own words (Provider, Data Source, User ID, Password, Initial
/// Catalog, Extended Properties) become ODBC's or disappear; everything else stays in its order. A user or
/// password given beside the string wins over one inside it.
[[nodiscard]] std::wstring OdbcConnectionString(std::wstring_view text, std::wstring_view user,
                                                std::wstring_view password);

/// The value of one attribute without its quotes or braces; empty when absent. Names ignore letter case.
[[nodiscard]] std::wstring ConnectionAttribute(std::wstring_view text, std::wstring_view name);

/// A file's name without folder and extension: what a database that is a file is called. Takes both
/// separators.
[[nodiscard]] std::wstring FileStem(std::wstring_view path);

}  // namespace tessel::ado
