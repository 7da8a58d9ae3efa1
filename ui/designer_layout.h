// The designer window's layout rules as arithmetic, in twips (1/1440 inch), so that they can be tested
// without a window. The window converts to pixels at its own dpi.
#pragma once

#include <optional>

namespace tessel::ui {

struct TwipsBox {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const TwipsBox&, const TwipsBox&) = default;
};

/// A size of which either part may not apply (it would be negative); the control then keeps what it has.
struct TwipsSize {
    std::optional<int> width;
    std::optional<int> height;
    friend bool operator==(const TwipsSize&, const TwipsSize&) = default;
};

/// Where pages begin inside the tab strip, and how much smaller than the strip they are.
inline constexpr int kPageLeft = 90;
inline constexpr int kPageTop = 465;
inline constexpr int kPageNarrower = 180;
inline constexpr int kPageLower = 555;

/// The grid's place inside picDsn.
inline constexpr int kGridTop = 300;
inline constexpr int kGridNarrower = 90;
inline constexpr int kGridLower = 390;

/// The form's resize: the splitter fills what picTop and picBottom leave. Nothing when the height would be
/// negative (a minimised window changes nothing).
[[nodiscard]] std::optional<TwipsBox> SplitterBox(int inner_width, int inner_height, int top_height,
                                                  int bottom_height);

/// picBtns stays at the right edge of picBottom.
[[nodiscard]] int ButtonsLeft(int inner_width, int buttons_width);

/// The resize of HSR: the grid's size inside picDsn (its place is left 0, top kGridTop).
[[nodiscard]] TwipsSize GridSize(int pane_width, int pane_height);

/// The resize of VSplit1: the size of both pages for a tab strip of that size.
[[nodiscard]] TwipsSize PageSize(int strip_width, int strip_height);

}  // namespace tessel::ui
