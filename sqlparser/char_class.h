// What a character can be in a statement: part of a word, digit, white space. The lexer asks this for every
// character, so it is one table look-up up to the accented letters of Latin-1 and a short test for the rest.
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
/// A letter of a keyword.
inline constexpr std::uint8_t kAsciiLetter = 128;
/// A token of its own, whatever stands around it.
inline constexpr std::uint8_t kMark = 64;

namespace detail {

inline constexpr std::size_t kTableSize = 256;

/// Beyond ASCII: the Unicode spaces, and what a bare name may hold.
constexpr std::uint8_t WideClass(std::uint32_t c) {
    if (c == 0xA0 || c == 0x1680 || (c >= 0x2000 && c <= 0x200B) || c == 0x2028 || c == 0x2029 ||
        c == 0x202F || c == 0x205F || c == 0x3000 || c == 0xFEFF) {
        return kBlank | kMacroEnd;
    }
    return IsWideIdentifierStart(c) ? kWordStart | kWordPart : 0;
}

consteval std::array<std::uint8_t, kTableSize> MakeClasses() {
    std::array<std::uint8_t, kTableSize> table{};
    for (int c = 'a'; c <= 'z'; ++c) table[c] = kWordStart | kWordPart | kAsciiLetter;
    for (int c = 'A'; c <= 'Z'; ++c) table[c] = kWordStart | kWordPart | kAsciiLetter;
    for (int c = 'a'; c <= 'f'; ++c) table[c] |= kHexDigit;
    for (int c = 'A'; c <= 'F'; ++c) table[c] |= kHexDigit;
    for (int c = '0'; c <= '9'; ++c) table[c] = kDigit | kWordPart | kHexDigit;
    table['_'] = kWordStart | kWordPart | kAsciiLetter;
    table['$'] = kWordPart;
    table['#'] = kWordPart;
    for (char c : {' ', '\t', '\r', '\n', '\v', '\f'}) table[static_cast<int>(c)] = kBlank | kMacroEnd;
    // The macros' own list of terminators; the line break and ";" end a name here too, so that a macro can
    // stand at the end of a line or of the statement.
    for (char c : {'{', '}', '[', ']', '+', '-', '*',  '/', '<', '>', '=',
                   '!', '(', ')', ',', ':', '?', '\'', '&', '"', ';'}) {
        table[static_cast<int>(c)] |= kMacroEnd;
    }
    for (char c : {'(', ')', ',', ';', '{', '}', '?', '+', '*', '\\', '^', '%', '~'}) {
        table[static_cast<int>(c)] |= kMark;
    }
    for (std::uint32_t c = 0x80; c < kTableSize; ++c) table[c] = WideClass(c);
    return table;
}

inline constexpr std::array<std::uint8_t, kTableSize> kClasses = MakeClasses();

}  // namespace detail

/// The class bits of a character.
inline std::uint8_t ClassOf(wchar_t ch) {
    const auto c = static_cast<std::uint32_t>(ch);
    return c < detail::kTableSize ? detail::kClasses[c] : detail::WideClass(c);
}

inline bool Is(wchar_t ch, std::uint8_t bits) {
    return (ClassOf(ch) & bits) != 0;
}

}  // namespace tessel::sql
