// Reads the cells of a fetched row into Variants of the types that ADO gives: texts of any length and bytes
// in pieces, decimals exactly, dates with their fractions of a second.
#pragma once

#include "common/win32/com.h"
#include "hostkit/ado/column.h"

namespace tessel::ado {

/// The cell of the current row; columns count from 1 and are to be read in rising order.
Status ReadCell(Statement& statement, int number, const Column& column, win32::UniqueVariant* target);

}  // namespace tessel::ado
