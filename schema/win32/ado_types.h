// ADO data types as schema rowsets and catalogues tell them.
#pragma once

#include <optional>
#include <string_view>

namespace tessel::schema {

/// The ADO type of a column of the COLUMNS rowset. That rowset names a text or binary type by its base alone;
/// the column's flags tell whether it is of variable length or long, as a recordset's field would.
int AdoTypeOfColumn(int data_type, std::optional<long> column_flags);

/// The ADO type of a type name of SQL ("varchar", "int", "character varying(40)"), or 0 when it is unknown.
int AdoTypeOfName(std::wstring_view type_name);

/// The number in parentheses of a type text, as in "varchar(40)"; 0 when there is none.
long SizeOfTypeName(std::wstring_view type_name);

}  // namespace tessel::schema
