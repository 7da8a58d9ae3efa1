#include "controls/diagram/diagram_box.h"

#include <limits>

#include "common/identifiers.h"
#include "controls/diagram/diagram_texts.h"

namespace tessel::controls::diagram {

namespace {

constexpr int kSmallestThumb = 14;
constexpr int kFrame = 1;
constexpr int kBottomRoom = 2;

int HeightFor(int rows, const BoxMetrics& metrics) {
    return metrics.title_height + rows * metrics.row_height + 2 * kFrame + kBottomRoom;
}

}  // namespace

int RowCount(const model::DiagramTable& table) {
    return static_cast<int>(table.fields.size()) + 1;
}

const model::DiagramField* RowField(const model::DiagramTable& table, int row) {
    if (row < 1 || row > static_cast<int>(table.fields.size())) return nullptr;
    return &table.fields[static_cast<std::size_t>(row - 1)];
}

std::wstring_view RowName(const model::DiagramTable& table, int row) {
    if (row == 0) return kAllFields;
    const model::DiagramField* field = RowField(table, row);
    return field ? std::wstring_view(field->name) : std::wstring_view();
}

std::wstring_view RowCaption(const model::DiagramTable& table, int row) {
    return row == 0 ? AllFieldsCaption() : RowName(table, row);
}

bool RowChecked(const model::DiagramTable& table, int row) {
    if (row == 0) return table.all_checked;
    const model::DiagramField* field = RowField(table, row);
    return field && field->checked;
}

int RowOf(const model::DiagramTable& table, std::wstring_view field) {
    // The name as the table shows it is the usual case, and comparing it costs nothing.
    for (int row = 0; row < RowCount(table); ++row)
        if (RowName(table, row) == field) return row;
    for (int row = 0; row < RowCount(table); ++row)
        if (SameIdentifier(RowName(table, row), field)) return row;
    return -1;
}

Size NaturalSize(const model::DiagramTable& table, const BoxMetrics& metrics, const TextMeasurer& measurer) {
    const int rows = RowCount(table);
    const bool scrolls = rows > metrics.max_rows;
    const int before_text =
        metrics.padding + metrics.check_size + metrics.gap + metrics.mark_size + metrics.gap;
    const int after_text = metrics.padding + (scrolls ? metrics.scroll_width : 0);
    int width = measurer.TitleWidth(table.name) + 2 * metrics.padding;
    for (int row = 0; row < rows; ++row)
        width = std::max(width, before_text + measurer.RowWidth(RowCaption(table, row)) + after_text);
    return {std::clamp(width + 2 * kFrame, metrics.min_width, metrics.max_width),
            HeightFor(std::min(rows, metrics.max_rows), metrics)};
}

Size SmallestSize(const BoxMetrics& metrics) {
    return {metrics.min_width * 2 / 3, HeightFor(1, metrics)};
}

Size LargestSize(int rows, const BoxMetrics& metrics) {
    return {std::numeric_limits<int>::max(), HeightFor(rows, metrics)};
}

Box::Box(const Rect& rect, int rows, int scroll, const BoxMetrics& metrics)
    : rect_(rect), rows_(rows), metrics_(metrics) {
    scroll_ = std::clamp(scroll, 0, MaxScroll());
}

int Box::MaxScroll() const {
    return std::max(0, rows_ * metrics_.row_height - Field().height);
}

Rect Box::Title() const {
    return {rect_.left, rect_.top, rect_.width, std::min(metrics_.title_height, rect_.height)};
}

Rect Box::Field() const {
    const int top = rect_.top + metrics_.title_height + kFrame;
    const int height = std::max(0, rect_.height - metrics_.title_height - 2 * kFrame - kBottomRoom);
    const bool scrolls = rows_ * metrics_.row_height > height;
    return {rect_.left + kFrame, top,
            std::max(0, rect_.width - 2 * kFrame - (scrolls ? metrics_.scroll_width : 0)), height};
}

Rect Box::Row(int row) const {
    const Rect field = Field();
    return {field.left, field.top + row * metrics_.row_height - scroll_, field.width, metrics_.row_height};
}

Rect Box::Check(int row) const {
    const Rect place = Row(row);
    return {rect_.left + metrics_.padding, place.top + (place.height - metrics_.check_size) / 2,
            metrics_.check_size, metrics_.check_size};
}

Rect Box::Mark(int row) const {
    const Rect check = Check(row);
    const Rect place = Row(row);
    return {Right(check) + metrics_.gap, place.top + (place.height - metrics_.mark_size) / 2,
            metrics_.mark_size, metrics_.mark_size};
}

Rect Box::Text(int row) const {
    const Rect place = Row(row);
    const int left = Right(Mark(row)) + metrics_.gap;
    return {left, place.top, std::max(0, Right(place) - metrics_.gap / 2 - left), place.height};
}

int Box::RowAt(Point point) const {
    if (!Contains(Field(), point)) return -1;
    const int row = (point.y - Field().top + scroll_) / metrics_.row_height;
    return row < rows_ ? row : -1;
}

Rect Box::ScrollTrack() const {
    if (!Scrollable()) return {};
    const Rect field = Field();
    return {Right(field), field.top, metrics_.scroll_width, field.height};
}

Rect Box::ScrollThumb() const {
    const Rect track = ScrollTrack();
    if (IsEmpty(track)) return {};
    const int content = rows_ * metrics_.row_height;
    const int height =
        std::min(track.height, std::max(kSmallestThumb, track.height * track.height / content));
    const int top = track.top + (track.height - height) * scroll_ / MaxScroll();
    return {track.left, top, track.width, height};
}

int Box::ScrollForThumb(int thumb_top) const {
    const Rect track = ScrollTrack();
    const int room = track.height - ScrollThumb().height;
    if (room <= 0) return scroll_;
    return std::clamp((thumb_top - track.top) * MaxScroll() / room, 0, MaxScroll());
}

int Box::ScrollToShow(int row) const {
    const int top = row * metrics_.row_height;
    const int bottom = top + metrics_.row_height;
    const int height = Field().height;
    if (top < scroll_ || metrics_.row_height > height) return std::clamp(top, 0, MaxScroll());
    if (bottom > scroll_ + height) return std::clamp(bottom - height, 0, MaxScroll());
    return scroll_;
}

int Box::AnchorY(int row) const {
    const Rect field = Field();
    const int margin = std::min(metrics_.row_height / 4, field.height / 2);
    const Rect place = Row(std::clamp(row, 0, std::max(0, rows_ - 1)));
    return std::clamp(place.top + place.height / 2, field.top + margin,
                      std::max(field.top + margin, Bottom(field) - margin));
}

}  // namespace tessel::controls::diagram
