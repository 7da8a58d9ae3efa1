#include "common/diagnostic.h"

#include <algorithm>
#include <utility>

namespace tessel {

Diagnostic MakeDiagnostic(std::wstring_view text, TextRange range, std::wstring message) {
    Diagnostic diagnostic{range, 1, 1, std::move(message)};
    const std::size_t place = std::min(range.offset, text.size());
    std::size_t line_start = 0;
    for (std::size_t i = 0; i < place; ++i) {
        // The line feed of a CR LF ends the line; a place on it still belongs to the line before.
        const bool ends_line =
            text[i] == L'\n' || (text[i] == L'\r' && (i + 1 >= text.size() || text[i + 1] != L'\n'));
        if (!ends_line) continue;
        ++diagnostic.line;
        line_start = i + 1;
    }
    diagnostic.column = place - line_start + 1;
    return diagnostic;
}

}  // namespace tessel
