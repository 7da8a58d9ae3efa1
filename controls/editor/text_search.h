// Finding and replacing in a text, without any window.
//
// A place matches when its characters are those that are looked for, letter case counting or not. Accents
// always count: "pais" and "país" are two names in a statement, and a replacement must never touch the other.
// A whole word has no letter, digit or underscore before and behind it, as far as the sought text itself ends
// in one.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "common/diagnostic.h"

namespace tessel::controls {

struct SearchFor {
    std::wstring text;
    bool match_case = false;
    bool whole_word = false;

    friend bool operator==(const SearchFor&, const SearchFor&) = default;
};

struct FoundText {
    TextRange range;
    bool wrapped = false;  ///< found only after going round the end (or the beginning) of the text
};

/// Whether exactly that stretch of the text matches.
[[nodiscard]] bool Matches(std::wstring_view text, TextRange range, const SearchFor& what);

/// The first match that begins at `from` or behind it, else the first one of the text. Nothing when the text
/// holds none, or an empty text is looked for.
[[nodiscard]] std::optional<FoundText> FindForward(std::wstring_view text, const SearchFor& what,
                                                   std::size_t from);
/// The last match that ends at `from` or before it, else the last one of the text.
[[nodiscard]] std::optional<FoundText> FindBackward(std::wstring_view text, const SearchFor& what,
                                                    std::size_t from);

/// Every match replaced, as one change of one stretch of the text.
struct Replacement {
    TextRange range;    ///< from the first match to the end of the last one
    std::wstring text;  ///< what stands there instead
    std::size_t count = 0;
};

/// Matches are taken from the beginning on, and none inside another. What is put in is not searched again.
[[nodiscard]] Replacement ReplaceAll(std::wstring_view text, const SearchFor& what, std::wstring_view with);

}  // namespace tessel::controls
