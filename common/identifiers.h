// Identifier texts of the dialect: brackets, reserved words, and splitting a qualified name at its points.
//
// Names that need it are reported in brackets by the schema and the diagram ([Detalle de pedidos]), so that
// everything composed from them is valid SQL; comparisons ignore the brackets.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessel {

/// True for a character that a bare identifier may begin with: a letter of any script. A leading "_" is left
/// out: the Jet engine refuses it.
[[nodiscard]] bool IsIdentifierStart(wchar_t ch);
/// True for a letter, a decimal digit or "_".
[[nodiscard]] bool IsIdentifierPart(wchar_t ch);

/// True when a bare name cannot stand unquoted: blanks, punctuation, a leading digit, a reserved word, empty.
[[nodiscard]] bool NeedsBrackets(std::wstring_view name);

/// The name as it stands when it is a plain identifier or already bracketed or quoted, else in brackets ("]"
/// inside doubled).
[[nodiscard]] std::wstring BracketIfNeeded(std::wstring_view name);

/// The name without enclosing brackets, double quotes or back quotes, trimmed.
[[nodiscard]] std::wstring Unbracketed(std::wstring_view name);

/// Names equal without regard to case, surrounding blanks and enclosing brackets or quotes.
[[nodiscard]] bool SameIdentifier(std::wstring_view a, std::wstring_view b);

/// Unbracketed and folded: a key for maps of names.
[[nodiscard]] std::wstring IdentifierKey(std::wstring_view name);

/// The pieces of a qualified name between points outside brackets, quotes and parentheses, each trimmed:
/// "[a.b].c" gives two. A bracket or quote that is never closed reaches to the end.
[[nodiscard]] std::vector<std::wstring> SplitQualified(std::wstring_view text);

/// True when the whole text is one or more identifiers (bare, bracketed or quoted) joined by points; the last
/// may be "*" (but "*" alone is none). Function calls, operators, literals and a bare reserved word are not.
[[nodiscard]] bool IsQualifiedName(std::wstring_view text);

/// True for a reserved word of the dialect in any letter case.
[[nodiscard]] bool IsReservedWord(std::wstring_view word);

}  // namespace tessel
