// Other spellings of a statement that mean the same to every reader: white space, comments, letter case, a
// final ";". And what of a design is left when the spelling of its cells does not count.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/design.h"
#include "tests/laws/random_source.h"

namespace tessel::laws {

/// The statement with other white space and letter case, comments between its words, and perhaps a ";".
[[nodiscard]] std::wstring Respelled(std::wstring_view text, Random& random);

/// Everything that the design holds, one line a column, relation or table; cells as they are.
[[nodiscard]] std::vector<std::wstring> DesignLines(const model::Design& design);

/// The text's words without white space, comments and letter case.
[[nodiscard]] std::wstring WithoutSpelling(std::wstring_view text);

}  // namespace tessel::laws
