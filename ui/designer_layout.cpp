#include "ui/designer_layout.h"

namespace tessel::ui {

namespace {

std::optional<int> UnlessNegative(int value) {
    return value < 0 ? std::nullopt : std::optional<int>(value);
}

}  // namespace

std::optional<TwipsBox> SplitterBox(int inner_width, int inner_height, int top_height, int bottom_height) {
    const int height = inner_height - top_height - bottom_height;
    if (height < 0) return std::nullopt;
    return TwipsBox{0, top_height, inner_width, height};
}

int ButtonsLeft(int inner_width, int buttons_width) {
    return inner_width - buttons_width;
}

TwipsSize GridSize(int pane_width, int pane_height) {
    return {UnlessNegative(pane_width - kGridNarrower), UnlessNegative(pane_height - kGridLower)};
}

TwipsSize PageSize(int strip_width, int strip_height) {
    return {UnlessNegative(strip_width - kPageNarrower), UnlessNegative(strip_height - kPageLower)};
}

}  // namespace tessel::ui
