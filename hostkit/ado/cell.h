// Reads the cells of a fetched row into Variants of the types that ADO gives: texts of any length and bytes
// in pieces, decimals exactly, dates with their fractions of a second.
#pragma once

#include <string_view>

#include "common/win32/com.h"
#include "hostkit/ado/column.h"

namespace tessel::ado {

/// The cell of the current row; columns count from 1 and are to be read in rising order.
Status ReadCell(Statement& statement, int number, const Column& column, win32::UniqueVariant* target);

/// The value of a decimal column from the text that drivers give for it.
[[nodiscard]] win32::UniqueVariant DecimalValue(std::wstring_view text);
/// The automation date of a date and time; Null when there is none for it.
[[nodiscard]] win32::UniqueVariant DateValue(const SQL_TIMESTAMP_STRUCT& stamp);

}  // namespace tessel::ado
