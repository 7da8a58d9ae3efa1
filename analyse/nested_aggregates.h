// Composition tells aggregates by their words and the sign before them, wherever they stand, so an expression
// with
// "(SELECT Max(x) FROM t)" inside counts as an aggregate although it is none.
#pragma once

#include <string>

namespace tessel::analyse {

/// The text with a tab instead of the blank, or after the sign, before every aggregate word: the same
/// expression, of which the words are not recognised. Words inside names, literals and comments stay.
[[nodiscard]] std::wstring WithHiddenAggregates(const std::wstring& text);

}  // namespace tessel::analyse
