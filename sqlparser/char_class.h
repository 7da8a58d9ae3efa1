// What a character can be in a statement: part of a word, digit, white space. The lexer asks this for every
// character, so it is one table look-up for ASCII and a short test for the rest.
#pragma once

#include <array>
#include <cstdint>

#include "common/identifiers.h"

namespace tessel::sql {

inline constexpr std::uint8_t kWordStart = 1;
inline constexpr std::uint8_t kWordPart = 2;
inline constexpr std::uint8_t kDigit = 4;
inline constexpr std::uint8_t kBlank = 8;
inline constexpr std::uint8_t kHexDigit = 16;
/// Ends a macro's name.
inline constexpr std::uint8_t kMacroEnd = 32;

namespace detail {

consteval std::array<std::uint8_t, 128> MakeAsciiClasses() {
    std::array<std::uint8_t, 128> table{};
    for (int c = 'a'; c <= 'z'; ++c) table[c] = kWordStart | kWordPart;
    for (int c = 'A'; c <= 'Z'; ++c) table[c] = kWordStart | kWordPart;
    for (int c = 'a'; c <= 'f'; ++c) table[c] |= kHexDigit;
    for (int c = 'A'; c <= 'F'; ++c) table[c] |= kHexDigit;
    for (int c = '0'; c <= '9'; ++c) table[c] = kDigit | kWordPart | kHexDigit;
    table['_'] = kWordStart | kWordPart;
    table['$'] = kWordPart;
    table['#'] = kWordPart;
    for (char c : {' ', '\t', '\r', '\n', '\v', '\f'}) table[static_cast<int>(c)] = kBlank | kMacroEnd;
    // The macros' own list of terminators; the line break and ";" end a name here too, so that a macro can
    // stand at the end of a line or of the statement.
    for (char c : {'{', '}', '[', ']', '+', '-', '*',  '/', '<', '>', '=',
                   '!', '(', ')', ',', ':', '?', '\'', '&', '"', ';'}) {
        table[static_cast<int>(c)] |= kMacroEnd;
    }
    return table;
}

inline constexpr std::array<std::uint8_t, 128> kAsciiClasses = MakeAsciiClasses();

/// Beyond ASCII: the Unicode spaces, and what a bare name may hold.
inline std::uint8_t WideClass(std::uint32_t c) {
    if (c == 0xA0 || c == 0x1680 || (c >= 0x2000 && c <= 0x200B) || c == 0x2028 || c == 0x2029 ||
        c == 0x202F || c == 0x205F || c == 0x3000 || c == 0xFEFF) {
        return kBlank | kMacroEnd;
    }
    return IsIdentifierStart(static_cast<wchar_t>(c)) ? kWordStart | kWordPart : 0;
}

}  // namespace detail

/// The class bits of a character.
inline std::uint8_t ClassOf(wchar_t ch) {
    const auto c = static_cast<std::uint32_t>(ch);
    return c < 128 ? detail::kAsciiClasses[c] : detail::WideClass(c);
}

inline bool Is(wchar_t ch, std::uint8_t bits) {
    return (ClassOf(ch) & bits) != 0;
}

}  // namespace tessel::sql
