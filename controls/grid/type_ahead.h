// Which item of a pick list is meant by what was typed so far.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessel::controls {

/// The index of the item that is the text, else of the first that begins with it, else of the first whose
/// field (what stands behind the table and its point) begins with it; -1 when there is none, and for an empty
/// text. Case, accents and brackets do not count.
[[nodiscard]] int FindTyped(const std::vector<std::wstring>& items, std::wstring_view typed);

}  // namespace tessel::controls
