// What a field's type is called in Spanish, and which sort of values it holds, for the schema browser's texts
// and icons.
#pragma once

#include <string>

#include "schema/schema.h"

namespace tessel::controls {

/// The sorts of values that have an icon of their own.
enum class FieldSort : int { Other, Text, Number, Date, Boolean, Binary };

/// A short Spanish description of a field's type: "Texto (40)", "Decimal (10,2)", "Entero largo".
[[nodiscard]] std::wstring FieldTypeText(const schema::Field& field);

[[nodiscard]] FieldSort SortOf(const schema::Field& field);

}  // namespace tessel::controls
