// Positioned messages about a statement's text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessel {

/// A stretch of a text in wchar_t units from its start.
struct TextRange {
    std::size_t offset = 0;
    std::size_t length = 0;

    std::size_t End() const { return offset + length; }
    friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// A message with its place. `line` and `column` count from 1; columns count wchar_t units of the line. CR
/// LF, LF and a lone CR each end a line.
struct Diagnostic {
    TextRange range;
    std::size_t line = 1;
    std::size_t column = 1;
    std::wstring message;  ///< a Spanish sentence
};

/// The diagnostic of `range` inside `text`, with line and column computed.
[[nodiscard]] Diagnostic MakeDiagnostic(std::wstring_view text, TextRange range, std::wstring message);

}  // namespace tessel
