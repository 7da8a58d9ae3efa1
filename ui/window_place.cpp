#include "ui/window_place.h"

#include <algorithm>

namespace tessel::ui {

Area KeptInside(const Area& window, const Area& work) {
    const int width = std::min(window.Width(), work.Width());
    const int height = std::min(window.Height(), work.Height());
    const int left = std::clamp(window.left, work.left, work.right - width);
    const int top = std::clamp(window.top, work.top, work.bottom - height);
    return {left, top, left + width, top + height};
}

Area Centred(int width, int height, const Area& over, const Area& work) {
    const int left = over.left + (over.Width() - width) / 2;
    const int top = over.top + (over.Height() - height) / 2;
    return KeptInside({left, top, left + width, top + height}, work);
}

std::vector<FlowPlace> Flow(const std::vector<int>& widths, int width, int gap) {
    std::vector<FlowPlace> places;
    FlowPlace next;
    for (const int wanted : widths) {
        if (next.left > 0 && next.left + wanted > width) next = {next.row + 1, 0};
        places.push_back(next);
        next.left += wanted + gap;
    }
    return places;
}

}  // namespace tessel::ui
