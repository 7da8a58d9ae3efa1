// Values given on the command line as literals of an ADO type, by the rules of the host's parameters.
#pragma once

#include <string>
#include <string_view>

#include "common/result.h"

namespace tessel::tools {

/// The SQL literal of a value given as text. Numbers stand as they are; texts in single quotes, quotes inside
/// left single; booleans (true, verdadero, -1, 1; false, falso, 0) as -1 or 0; dates and times, given as
/// "yyyy-mm-dd", "hh:mm:ss" or both with a blank or "T" between, by the type's format in single quotes; types
/// of no such class as an empty text. An error for a value that is none of its class.
[[nodiscard]] Result<std::wstring> ParameterLiteral(std::wstring_view ado_type, std::wstring_view value);

}  // namespace tessel::tools
