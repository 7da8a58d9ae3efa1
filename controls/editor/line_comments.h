// Commenting lines out and in: "-- " before every line, at the indentation of the outermost one.
#pragma once

#include <string>
#include <string_view>

namespace tessel::controls {

/// The lines commented out; or, when every line that holds something is a comment already, with the first
/// "--" of each and one blank after it taken away. Empty lines and line ends stay as they are.
[[nodiscard]] std::wstring ToggleLineComments(std::wstring_view lines);

}  // namespace tessel::controls
