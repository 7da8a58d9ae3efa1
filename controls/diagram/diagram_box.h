// One table's box: its size from the table's contents, and where title, rows, check boxes and the scroll bar
// inside it are. Everything is in units of the diagram's plane; nothing here knows a font, text widths are
// asked for.
//
// The first row of every box is "*", all fields; the table's fields follow.
#pragma once

#include <string>
#include <string_view>

#include "controls/diagram/diagram_geometry.h"

namespace tessel::controls::diagram {

/// Measures of a box that depend on the font, in units.
struct BoxMetrics {
    int title_height = 26;
    int row_height = 20;
    int check_size = 13;
    int mark_size = 12;     ///< key marks
    int padding = 7;        ///< between a box's side and what is in it
    int gap = 5;            ///< between the parts of a row
    int scroll_width = 12;  ///< bar at the right of a box whose rows do not fit
    int min_width = 112;
    int max_width = 280;
    int max_rows = 12;  ///< rows shown before a box of natural size scrolls
    friend bool operator==(const BoxMetrics&, const BoxMetrics&) = default;
};

/// Widths of texts in units, in the fonts that the box is painted with.
class TextMeasurer {
public:
    virtual ~TextMeasurer() = default;
    virtual int TitleWidth(std::wstring_view text) const = 0;
    virtual int RowWidth(std::wstring_view text) const = 0;
};

inline constexpr std::wstring_view kAllFields = L"*";

[[nodiscard]] int RowCount(const model::DiagramTable& table);
/// "*" for row 0, else the field's name; empty when there is no such row.
[[nodiscard]] std::wstring_view RowName(const model::DiagramTable& table, int row);
/// The row's text: the field's name, or what "*" stands for.
[[nodiscard]] std::wstring_view RowCaption(const model::DiagramTable& table, int row);
/// The field shown in the row; nullptr for "*".
[[nodiscard]] const model::DiagramField* RowField(const model::DiagramTable& table, int row);
[[nodiscard]] bool RowChecked(const model::DiagramTable& table, int row);
/// The row of a field, without regard to case, blanks around and brackets; -1 when there is none.
[[nodiscard]] int RowOf(const model::DiagramTable& table, std::wstring_view field);

/// The size a box gets when nobody gave it one.
[[nodiscard]] Size NaturalSize(const model::DiagramTable& table, const BoxMetrics& metrics,
                               const TextMeasurer& measurer);
/// No box may be made smaller than this.
[[nodiscard]] Size SmallestSize(const BoxMetrics& metrics);
/// Nor higher than its rows; the width is not limited.
[[nodiscard]] Size LargestSize(int rows, const BoxMetrics& metrics);

class Box {
public:
    Box() = default;
    /// `scroll` is brought into the range that the rows allow.
    Box(const Rect& rect, int rows, int scroll, const BoxMetrics& metrics);

    const Rect& Frame() const { return rect_; }
    int Rows() const { return rows_; }
    int Scroll() const { return scroll_; }
    int MaxScroll() const;
    bool Scrollable() const { return MaxScroll() > 0; }

    Rect Title() const;
    /// The visible field area, without the scroll bar.
    Rect Field() const;
    /// A row's place, which may be partly or wholly outside Field().
    Rect Row(int row) const;
    Rect Check(int row) const;
    Rect Mark(int row) const;
    Rect Text(int row) const;
    bool RowVisible(int row) const { return !IsEmpty(Intersection(Row(row), Field())); }
    /// The row at that height of the plane; -1 outside the field area.
    int RowAt(Point point) const;

    Rect ScrollTrack() const;
    Rect ScrollThumb() const;
    /// The scroll value for which the thumb's top is at that height.
    int ScrollForThumb(int thumb_top) const;
    /// The scroll value that shows a row wholly, moving as little as possible.
    int ScrollToShow(int row) const;

    /// Height at which a relation leaves for a row: the row's middle, kept inside the field area.
    int AnchorY(int row) const;

private:
    Rect rect_;
    int rows_ = 0;
    int scroll_ = 0;
    BoxMetrics metrics_;
};

}  // namespace tessel::controls::diagram
