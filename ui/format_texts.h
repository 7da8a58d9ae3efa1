// What "Dar formato" says when it leaves the text alone.
#pragma once

#include <string_view>

namespace tessel::ui::texts {

/// Followed by the line, the column and the parser's own sentence.
inline constexpr std::wstring_view kFormatHasError =
    L"No se puede dar formato a la instrucción porque contiene un error.";
inline constexpr std::wstring_view kFormatUnsure =
    L"No se ha dado formato a la instrucción porque su significado podría cambiar.";

}  // namespace tessel::ui::texts
