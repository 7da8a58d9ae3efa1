// Text helpers shared by every portable folder.
//
// Text is std::wstring: UTF-16 on Windows, where the product lives, UTF-32 elsewhere. "Blank" means character
// 32 only, as in the host languages that call us; use IsWhiteSpace where any white space counts. Lower-casing
// is Unicode-aware for the Latin, Greek and Cyrillic letters and does not depend on the process locale.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

/// The text without leading and trailing blanks (character 32 only).
[[nodiscard]] std::wstring_view TrimView(std::wstring_view text);
[[nodiscard]] std::wstring Trim(std::wstring_view text);

/// LowerChar beyond ASCII.
[[nodiscard]] wchar_t LowerWideChar(wchar_t ch);

/// One character in lower case; characters without a lower case stay. Inline, because names are compared all
/// the time and hardly ever leave ASCII.
[[nodiscard]] inline wchar_t LowerChar(wchar_t ch) {
    if (ch >= L'A' && ch <= L'Z') return static_cast<wchar_t>(ch + (L'a' - L'A'));
    return static_cast<char32_t>(ch) < 0x80 ? ch : LowerWideChar(ch);
}
[[nodiscard]] std::wstring Lower(std::wstring_view text);

/// Lower(Trim(text)): the form in which names, keywords and grid words are compared.
[[nodiscard]] std::wstring Folded(std::wstring_view text);

/// Equality after trimming and lower-casing both sides.
[[nodiscard]] bool SameName(std::wstring_view a, std::wstring_view b);

/// Equality without regard to letter case, blanks counting.
[[nodiscard]] bool SameIgnoringCase(std::wstring_view a, std::wstring_view b);

/// True for blank, tab, line breaks, no-break space and the other Unicode spaces.
[[nodiscard]] bool IsWhiteSpace(wchar_t ch);
/// True when the text holds nothing but white space of any kind (an editor text that counts as empty).
[[nodiscard]] bool IsAllWhiteSpace(std::wstring_view text);

/// Number of UTF-16 units of the text, the unit in which cell limits are counted on every system.
[[nodiscard]] std::size_t Utf16Length(std::wstring_view text);

/// The text cut to at most `units` UTF-16 units, never inside a surrogate pair.
[[nodiscard]] std::wstring CutToUtf16(std::wstring_view text, std::size_t units);

/// UTF-8 conversions. Ill-formed input becomes U+FFFD, one for each offending byte or surrogate; never fails.
[[nodiscard]] std::wstring FromUtf8(std::string_view bytes);
[[nodiscard]] std::string ToUtf8(std::wstring_view text);

/// Pieces of the text between separators; an empty text gives one empty piece.
[[nodiscard]] std::vector<std::wstring> Split(std::wstring_view text, wchar_t separator);

}  // namespace tessel
