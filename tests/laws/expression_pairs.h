// Every two expressions of a statement: whether a look at them tells the same as their forms.
#pragma once

#include <string>

#include "schema/schema.h"

namespace tessel::laws {

/// The first pair of which the look is wrong, in words, or nothing. Nothing too where the text does not
/// parse.
[[nodiscard]] std::string MisjudgedPair(const std::wstring& text, const schema::Schema* schema);

}  // namespace tessel::laws
