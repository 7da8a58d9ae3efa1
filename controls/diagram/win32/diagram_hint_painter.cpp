// What is painted over the diagram while a relation is being drawn: its line, and what the user is to do.
#include <algorithm>

#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "controls/diagram/win32/diagram_painter.h"

namespace tessel::controls::diagram {

namespace {

constexpr int kHintPadding = 6;  // dips

}  // namespace

void DiagramPainter::PaintRubber(const Rubber& rubber) {
    const Box& box = state_->Shapes().BoxOf(rubber.table);
    const bool to_right = rubber.to.x >= Center(box.Frame()).x;
    const int height = rubber.row >= 0 ? box.AnchorY(rubber.row) : Center(box.Title()).y;
    const Point from{to_right ? Right(box.Frame()) : box.Frame().left - 1, height};
    const int bend = (from.x + rubber.to.x) / 2;
    const std::vector<Point> path{from, {bend, from.y}, {bend, rubber.to.y}, rubber.to};
    Stroke(path, std::max(2, Px(2)), colours_.highlight);
    PaintEnd(path.front(), path[1], false, colours_.highlight);
}

int DiagramPainter::HintHeight(const std::wstring& text, int client_width) const {
    if (text.empty()) return 0;
    const int padding = win32::Scale(kHintPadding, dpi_);
    const win32::UniqueMemoryDc dc(CreateCompatibleDC(nullptr));
    const win32::Selected font(dc.get(), measure_row_.get());
    RECT lines{padding, 0, client_width - padding, 0};
    DrawTextW(dc.get(), text.c_str(), -1, &lines, DT_WORDBREAK | DT_NOPREFIX | DT_CALCRECT);
    return lines.bottom + 2 * padding;
}

void DiagramPainter::PaintHint(const std::wstring& text) {
    if (text.empty()) return;
    const int padding = win32::Scale(kHintPadding, dpi_);
    const Size client = view_->Client();
    const int height = HintHeight(text, client.width);
    const win32::Selected font(dc_, measure_row_.get());
    const RECT band{0, client.height - height, client.width, client.height};
    win32::FillSolid(dc_, band, colours_.focus);
    win32::FillSolid(dc_, {band.left, band.top, band.right, band.top + std::max(1, dpi_ / 96)},
                     colours_.border);
    SetTextColor(dc_, colours_.focus_text);
    SetBkMode(dc_, TRANSPARENT);
    RECT place{padding, band.top + padding, band.right - padding, band.bottom};
    DrawTextW(dc_, text.c_str(), -1, &place, DT_WORDBREAK | DT_NOPREFIX);
}

}  // namespace tessel::controls::diagram
