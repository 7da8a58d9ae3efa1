#include "controls/diagram/win32/diagram_painter.h"

#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/screen.h"

namespace tessel::controls::diagram {

namespace {

constexpr int kCorner = 5;       // radius of a box's corners, units
constexpr int kReadable_px = 6;  // height of a row's text
constexpr std::size_t kMostWidths = 20000;

bool Touches(const RECT& a, const RECT& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

int FontHeight(HFONT font) {
    TEXTMETRICW metrics{};
    GetTextMetricsW(win32::MeasuringDc(font).Get(), &metrics);
    return metrics.tmHeight;
}

UniqueTheme OpenButtonTheme(int dpi) {
    using OpenForDpi = HTHEME(WINAPI*)(HWND, LPCWSTR, UINT);
    const HMODULE module = GetModuleHandleW(L"uxtheme.dll");
    const auto open_for_dpi =
        reinterpret_cast<OpenForDpi>(reinterpret_cast<void*>(GetProcAddress(module, "OpenThemeDataForDpi")));
    if (open_for_dpi)
        if (const HTHEME theme = open_for_dpi(nullptr, L"BUTTON", static_cast<UINT>(dpi)))
            return UniqueTheme(theme);
    return UniqueTheme(OpenThemeData(nullptr, L"BUTTON"));
}

}  // namespace

void DiagramPainter::SetDpi(int dpi) {
    dpi_ = dpi;
    font_scale_ = 0;
    row_widths_.clear();
    title_widths_.clear();
    measure_row_ = win32::MessageFont(dpi);
    measure_title_ = win32::MessageFont(dpi, true);
    const int height = MulDiv(FontHeight(measure_row_.get()), 96, dpi);
    metrics_ = BoxMetrics();
    metrics_.row_height = std::max(metrics_.check_size + 4, height + 4);
    metrics_.title_height = metrics_.row_height + 6;
    ReadColours();
}

void DiagramPainter::ReadColours() {
    const COLORREF window = GetSysColor(COLOR_WINDOW);
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    colours_.window = window;
    colours_.text = text;
    colours_.border = win32::Blend(window, text, 72);
    colours_.title = win32::Blend(window, text, 24);
    colours_.title_text = text;
    colours_.highlight = highlight;
    colours_.highlight_text = GetSysColor(COLOR_HIGHLIGHTTEXT);
    colours_.faint = win32::Blend(window, text, 110);
    colours_.line = win32::Blend(window, text, 140);
    colours_.hover = win32::Blend(window, text, 14);
    colours_.focus = win32::Blend(window, highlight, 48);
    colours_.mark = win32::Blend(RGB(214, 158, 30), text, 24);
    colours_.light_mark = win32::Blend(window, text, 96);
    colours_.focus_text = text;
    colours_.high_contrast = win32::IsHighContrast();
    if (!colours_.high_contrast) return;
    // Nothing is mixed: every colour is one of the user's, and every text has its own background.
    colours_.border = colours_.line = colours_.mark = colours_.light_mark = text;
    colours_.title = colours_.hover = window;
    colours_.faint = GetSysColor(COLOR_GRAYTEXT);
    colours_.focus = highlight;
    colours_.focus_text = colours_.highlight_text;
}

int DiagramPainter::Width(HFONT font, std::wstring_view text,
                          std::unordered_map<std::wstring, int>& cache) const {
    if (cache.size() > kMostWidths) cache.clear();
    const auto [entry, is_new] = cache.try_emplace(std::wstring(text), 0);
    if (!is_new) return entry->second;
    const win32::MeasuringDc dc(font);
    // Hinted text is not exactly as wide at every zoom; a little room keeps it from being cut.
    entry->second = MulDiv(win32::TextSize(dc.Get(), text).cx, 96 * 104, dpi_ * 100) + 2;
    return entry->second;
}

int DiagramPainter::TitleWidth(std::wstring_view text) const {
    return Width(measure_title_.get(), text, title_widths_);
}

int DiagramPainter::RowWidth(std::wstring_view text) const {
    return Width(measure_row_.get(), text, row_widths_);
}

RECT DiagramPainter::At(const Rect& plane) const {
    const Rect client = view_->ToClient(plane);
    return {client.left, client.top, Right(client), Bottom(client)};
}

bool DiagramPainter::IsReadable() const {
    return Px(metrics_.row_height - 6) >= kReadable_px;
}

void DiagramPainter::SetScale(const Viewport& view) {
    const int scale = view.Dpi() * view.Zoom();
    if (scale == font_scale_) return;
    font_scale_ = scale;
    const int dpi = std::max(1, (scale + 50) / 100);
    row_font_ = win32::MessageFont(dpi);
    title_font_ = win32::MessageFont(dpi, true);
    theme_ = IsAppThemed() && !colours_.high_contrast ? OpenButtonTheme(dpi) : UniqueTheme();
    checks_.clear();
    marks_.Clear();
}

void DiagramPainter::Paint(HDC dc, const RECT& clip, const DiagramState& state, bool focused) {
    focused_ = focused;
    picture_ = false;
    PaintAll(dc, clip, state, state.View());
}

void DiagramPainter::PaintPicture(HDC dc, const RECT& clip, const DiagramState& state, const Viewport& view) {
    focused_ = false;
    picture_ = true;
    PaintAll(dc, clip, state, view);
}

void DiagramPainter::PaintAll(HDC dc, const RECT& clip, const DiagramState& state, const Viewport& view) {
    dc_ = dc;
    clip_ = clip;
    state_ = &state;
    view_ = &view;
    SetScale(view);
    win32::FillSolid(dc, clip, colours_.window);
    if (!state.Model()) return;
    const Layout& layout = state.Shapes();
    const std::optional<Rubber> rubber = picture_ ? std::nullopt : state.RubberLine();
    PaintLines(layout);
    for (const int table : layout.Order())
        if (Touches(At(layout.BoxOf(table).Frame()), clip_)) PaintBox(table, rubber);
    if (rubber && rubber->drawn) PaintRubber(*rubber);
    if (!picture_) PaintHint(state.RelatingHint());
    if (focused_ && Selected() == model::DiagramElement::None) {
        const Size client = view_->Client();
        const RECT around{1, 1, client.width - 1, client.height - 1};
        DrawFocusRect(dc, &around);
    }
}

// Selected and hovered lines come last, above the others.
void DiagramPainter::PaintLines(const Layout& layout) {
    const model::Diagram& diagram = *state_->Model();
    const Hit hover = Hovered();
    const int hovered = hover.kind == HitKind::Relation ? hover.relation : 0;
    const int selected = Selected() == model::DiagramElement::Relation ? diagram.SelectedRelation() : 0;
    const auto is_strong = [&](const Line& line) { return line.key == hovered || line.key == selected; };
    for (const bool strong : {false, true})
        for (const Line& line : layout.Lines()) {
            if (is_strong(line) != strong || line.path.size() < 2) continue;
            if (Touches(At(Inflated(line.bounds, 12)), clip_)) PaintLine(line, strong);
        }
    if (!selected || !focused_) return;
    if (const Line* line = layout.FindLine(selected)) {
        const RECT around = At(Inflated(line->bounds, 8));
        DrawFocusRect(dc_, &around);
    }
}

void DiagramPainter::PaintLine(const Line& line, bool strong) {
    const COLORREF colour = strong ? colours_.highlight : colours_.line;
    const int thin = std::max(1, (3 * view_->ToPixels(100) / 2 + 50) / 100);
    Stroke(line.path, strong ? thin + std::max(1, thin / 2) : thin, colour);
    PaintEnd(line.path.front(), line.path[1], line.ArrowAtLeft(), colour);
    PaintEnd(line.path.back(), line.path[line.path.size() - 2], line.ArrowAtRight(), colour);
}

// A dot, or a head that points at the table whose rows may be missing; both stand outside the box.
void DiagramPainter::PaintEnd(Point end, Point before, bool arrow, COLORREF colour) {
    const bool points_right = before.x < end.x;
    const Point at = view_->ToClient(end);
    const int size = std::max(3, Px(arrow ? 10 : 7)) | 1;
    const int left = points_right ? at.x - size + 1 : at.x;
    Mark mark{arrow ? MarkShape::Arrow : MarkShape::Disc, size, size, 1, !points_right, false};
    marks_.Draw(dc_, left, at.y - size / 2, mark, colour);
}

void DiagramPainter::Stroke(const std::vector<Point>& plane_path, int width, COLORREF colour) {
    std::vector<Point> path;
    for (const Point point : plane_path) path.push_back(view_->ToClient(point));
    const auto length = [&](std::size_t i) {
        return std::abs(path[i].x - path[i - 1].x) + std::abs(path[i].y - path[i - 1].y);
    };
    std::vector<int> radius(path.size(), 0);
    for (std::size_t i = 1; i + 1 < path.size(); ++i) {
        const bool turns = (path[i - 1].x == path[i].x) != (path[i].x == path[i + 1].x);
        if (turns) radius[i] = std::min({Px(6), length(i) / 2, length(i + 1) / 2});
        if (radius[i] < 2) radius[i] = 0;
    }
    const int before_middle = width / 2;
    for (std::size_t i = 1; i < path.size(); ++i) {
        const bool across = path[i - 1].y == path[i].y;
        const Point a = path[i - 1];
        const Point b = path[i];
        // Square corners meet in full; at a round one the line ends where the bend begins.
        const auto reach = [&](std::size_t point, int half) {
            if (point == 0 || point + 1 == path.size()) return 0;
            return radius[point] ? -radius[point] : half;
        };
        const bool forward = across ? b.x >= a.x : b.y >= a.y;
        const std::size_t first = forward ? i - 1 : i;
        const std::size_t last = forward ? i : i - 1;
        const int low = (across ? path[first].x : path[first].y) - reach(first, before_middle);
        const int high = (across ? path[last].x : path[last].y) + reach(last, width - before_middle);
        RECT bar = across ? RECT{low, a.y - before_middle, high, a.y - before_middle + width}
                          : RECT{a.x - before_middle, low, a.x - before_middle + width, high};
        if (Touches(bar, clip_)) win32::FillSolid(dc_, bar, colour);
        if (radius[i]) Bend(a, b, path[i + 1], radius[i], width, colour);
    }
}

void DiagramPainter::Bend(Point before, Point corner, Point after, int radius, int width, COLORREF colour) {
    const Point sideways = before.y == corner.y ? before : after;
    const Point along = before.y == corner.y ? after : before;
    // The curve's centre lies on the side that both lines come from.
    const bool center_right = sideways.x > corner.x;
    const bool center_below = along.y > corner.y;
    const int half = width / 2;
    const int left = center_right ? corner.x - half : corner.x - radius;
    const int right = center_right ? corner.x + radius : corner.x - half + width;
    const int top = center_below ? corner.y - half : corner.y - radius;
    const int bottom = center_below ? corner.y + radius : corner.y - half + width;
    const Mark mark{MarkShape::QuarterRing, right - left, bottom - top, width, !center_right, !center_below};
    marks_.Draw(dc_, left, top, mark, colour);
}

void DiagramPainter::PaintBox(int table, const std::optional<Rubber>& rubber) {
    const Box& box = state_->Shapes().BoxOf(table);
    const model::DiagramTable& shown = state_->Model()->Tables()[static_cast<std::size_t>(table)];
    const model::Diagram& diagram = *state_->Model();
    const bool selected = Selected() == model::DiagramElement::Table &&
                          state_->Shapes().TableIndex(diagram.SelectedTable()) == table;
    PaintFrame(At(box.Frame()), At(box.Title()), selected ? colours_.highlight : colours_.border,
               selected ? colours_.highlight : colours_.title);
    PaintTitle(box, shown, selected);
    PaintRows(table, box, shown, selected, rubber);
    if (box.Scrollable()) PaintThumb(box, Hovered().kind == HitKind::ScrollBar && Hovered().table == table);
}

void DiagramPainter::PaintFrame(const RECT& rect, const RECT& title, COLORREF border, COLORREF title_colour) {
    const int radius = std::max(1, Px(kCorner));
    const int edge = std::max(1, dpi_ * view_->Zoom() / 9600);
    const RECT upper{rect.left, rect.top + radius, rect.right, std::max(title.bottom, rect.top + radius)};
    const RECT top{rect.left + radius, rect.top, rect.right - radius, rect.top + radius};
    const RECT lower{rect.left, upper.bottom, rect.right, rect.bottom - radius};
    const RECT bottom{rect.left + radius, rect.bottom - radius, rect.right - radius, rect.bottom};
    win32::FillSolid(dc_, upper, title_colour);
    win32::FillSolid(dc_, top, title_colour);
    win32::FillSolid(dc_, lower, colours_.window);
    win32::FillSolid(dc_, bottom, colours_.window);
    win32::FillSolid(dc_, {rect.left, upper.top, rect.left + edge, lower.bottom}, border);
    win32::FillSolid(dc_, {rect.right - edge, upper.top, rect.right, lower.bottom}, border);
    win32::FillSolid(dc_, {top.left, rect.top, top.right, rect.top + edge}, border);
    win32::FillSolid(dc_, {top.left, rect.bottom - edge, top.right, rect.bottom}, border);
    for (const bool right : {false, true})
        for (const bool below : {false, true}) {
            const int x = right ? rect.right - radius : rect.left;
            const int y = below ? rect.bottom - radius : rect.top;
            const Mark fill{MarkShape::QuarterDisc, radius, radius, 1, right, below};
            const Mark ring{MarkShape::QuarterRing, radius, radius, edge, right, below};
            marks_.Draw(dc_, x, y, fill, below ? colours_.window : title_colour);
            marks_.Draw(dc_, x, y, ring, border);
        }
}

void DiagramPainter::PaintTitle(const Box& box, const model::DiagramTable& table, bool selected) {
    const RECT title = At(box.Title());
    RECT text = title;
    text.left += Px(metrics_.padding);
    text.right -= Px(metrics_.padding);
    const COLORREF colour = selected                                         ? colours_.highlight_text
                            : table.known || !state_->Model()->BoundSchema() ? colours_.title_text
                                                                             : colours_.faint;
    if (!IsReadable()) {
        const int middle = (text.top + text.bottom) / 2;
        win32::FillSolid(dc_, {text.left, middle - 1, (text.left + 2 * text.right) / 3, middle + 1}, colour);
    } else {
        const win32::Selected font(dc_, title_font_.get());
        win32::DrawTextLine(dc_, text, table.name, colour);
    }
    if (!selected || !focused_ || state_->FocusRow() >= 0) return;
    RECT around = title;
    InflateRect(&around, -std::max(2, Px(3)), -std::max(2, Px(3)));
    SetTextColor(dc_, colours_.highlight_text);
    SetBkColor(dc_, colours_.highlight);
    DrawFocusRect(dc_, &around);
}

}  // namespace tessel::controls::diagram
