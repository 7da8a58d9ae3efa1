// The same place in two layouts of a text.
#pragma once

#include <cstddef>
#include <string_view>

namespace tessel::controls {

/// The offset in `after` that stands where `at` stands in `before`, when the two differ in blanks, tabs and
/// line ends only: behind the same last character that is none of them.
[[nodiscard]] std::size_t SamePlace(std::string_view before, std::size_t at, std::string_view after);

}  // namespace tessel::controls
