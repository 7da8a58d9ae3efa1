// What dlgAddTable lists: the tables and views of a schema, or the tables related to one of them. Text lines
// whose first field, up to the first tab, is the table's name; the rest is for the user.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "schema/schema.h"

namespace tessel::ui {

inline constexpr std::wstring_view kAllTablesEntry = L"< Mostrar todas las tablas y vistas>";

/// Combo1: the entry for everything, then every table in the schema's order.
[[nodiscard]] std::vector<std::wstring> AddTableEntries(const schema::Schema& schema);

/// The entry of that text, or the first one when there is none.
[[nodiscard]] std::size_t EntryOf(const std::vector<std::wstring>& entries, std::wstring_view table_name);

/// List1 for an entry. For everything: each table and view with a tab. For a table: one line a relation, the
/// related table, a tab, and the fields that join them: the referenced side, "<--", the referring side.
[[nodiscard]] std::vector<std::wstring> AddTableLines(const schema::Schema& schema, std::wstring_view entry);

/// The lines whose table's name holds the text, without regard to case; all of them for a blank text.
[[nodiscard]] std::vector<std::wstring> LinesHolding(const std::vector<std::wstring>& lines,
                                                     std::wstring_view text);

/// The table named by a line: what stands before its first tab outside brackets.
[[nodiscard]] std::wstring TableOfLine(std::wstring_view line);

}  // namespace tessel::ui
