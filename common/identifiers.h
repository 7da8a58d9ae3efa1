// Identifier texts of the dialect: brackets, reserved words, and splitting a qualified name at its points.
//
// Names that need it are reported in brackets by the schema and the diagram ([Detalle de pedidos]), so that
// everything composed from them is valid SQL; comparisons ignore the brackets.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

/// IsIdentifierStart beyond ASCII: everything is a letter but the signs of Latin-1 (not its ª, µ and º),
/// general punctuation, the currency signs, arrows and the like, and the punctuation of East Asian scripts.
[[nodiscard]] constexpr bool IsWideIdentifierStart(std::uint32_t code) {
    if (code < 0xC0) return code == 0xAA || code == 0xB5 || code == 0xBA;
    if (code == 0xD7 || code == 0xF7) return false;
    const bool punctuation = (code >= 0x2000 && code <= 0x2BFF) || (code >= 0x3000 && code <= 0x303F) ||
                             (code >= 0xFF00 && code <= 0xFF20) || code == 0x1680 || code == 0xFEFF;
    return !punctuation;
}

/// True for a character that a bare identifier may begin with: a letter of any script. A leading "_" is left
/// out: the Jet engine refuses it.
[[nodiscard]] constexpr bool IsIdentifierStart(wchar_t ch) {
    const auto code = static_cast<std::uint32_t>(ch);
    if (code < 0x80) return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z');
    return IsWideIdentifierStart(code);
}
/// True for a letter, a decimal digit or "_".
[[nodiscard]] bool IsIdentifierPart(wchar_t ch);

/// True when a bare name cannot stand unquoted: blanks, punctuation, a leading digit, a reserved word, empty.
[[nodiscard]] bool NeedsBrackets(std::wstring_view name);

/// The name as it stands when it is a plain identifier or already bracketed or quoted, else in brackets ("]"
/// inside doubled).
[[nodiscard]] std::wstring BracketIfNeeded(std::wstring_view name);

/// A name as the database reports it, written as statements write it. Brackets and quotes in it are letters
/// like others, so that a table really called "[a]" is not taken for one called "a".
[[nodiscard]] std::wstring WrittenName(std::wstring_view raw_name);

/// The name without enclosing brackets, double quotes or back quotes, trimmed.
[[nodiscard]] std::wstring Unbracketed(std::wstring_view name);

/// Names equal without regard to case, surrounding blanks and enclosing brackets or quotes.
[[nodiscard]] bool SameIdentifier(std::wstring_view a, std::wstring_view b);

/// Unbracketed and folded: a key for maps of names.
[[nodiscard]] std::wstring IdentifierKey(std::wstring_view name);
void AppendIdentifierKey(std::wstring_view name, std::wstring& text);

/// The pieces of a qualified name between points outside brackets, quotes and parentheses, each trimmed:
/// "[a.b].c" gives two. A bracket or quote that is never closed reaches to the end.
[[nodiscard]] std::vector<std::wstring> SplitQualified(std::wstring_view text);

/// Where the last of those points stands, or npos when there is none.
[[nodiscard]] std::size_t LastPoint(std::wstring_view text);

/// What a text is as a qualified name.
struct QualifiedName {
    bool is_one = false;
    int parts = 0;
    std::size_t last_point = std::wstring_view::npos;  ///< where LastPoint is
};

/// A qualified name is a text that is one or more identifiers (bare, bracketed or quoted) joined by points;
/// the last may be "*" (but "*" alone is none). Function calls, operators, literals and a bare reserved word
/// are not.
[[nodiscard]] QualifiedName ReadQualifiedName(std::wstring_view text);
[[nodiscard]] inline bool IsQualifiedName(std::wstring_view text) {
    return ReadQualifiedName(text).is_one;
}

/// True for a reserved word of the dialect in any letter case.
[[nodiscard]] bool IsReservedWord(std::wstring_view word);

}  // namespace tessel
