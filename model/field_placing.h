// Placing a field in the query column that the user pointed at, where AddField takes the first free one. An
// unused column takes the field; in front of a used one room is made.
#pragma once

#include <string_view>

#include "model/design.h"

namespace tessel::model {

/// Places a field in that column. A field that a column holds already is not placed again; a column that does
/// not exist means the first free one. Nothing happens when all columns are used or the text does not fit a
/// cell. Returns the column that holds the field now, or -1.
int PlaceField(Design& design, std::wstring_view sField, int column);

}  // namespace tessel::model
