// Where windows and rows of buttons are put, as arithmetic in pixels that can be tested without a window.
#pragma once

#include <vector>

namespace tessel::ui {

struct Area {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    friend bool operator==(const Area&, const Area&) = default;
};

/// The window moved, and made smaller where it must be, so that all of it lies in the work area.
[[nodiscard]] Area KeptInside(const Area& window, const Area& work);

/// A window of that size in the middle of `over`, kept inside the work area.
[[nodiscard]] Area Centred(int width, int height, const Area& over, const Area& work);

struct FlowPlace {
    int row = 0;
    int left = 0;
    friend bool operator==(const FlowPlace&, const FlowPlace&) = default;
};

/// Places things of those widths side by side, `gap` apart, and begins a new row where the next one would
/// pass `width`. One that is wider than that has a row to itself.
[[nodiscard]] std::vector<FlowPlace> Flow(const std::vector<int>& widths, int width, int gap);

}  // namespace tessel::ui
