#include "controls/grid/grid_accessible.h"

#include <algorithm>
#include <limits>

#include "common/text.h"
#include "controls/grid/grid_accessible_texts.h"

namespace tessel::controls {

namespace {

using model::GridRow;

// Numbers of the elements, below zero: a row by itself, a hundred to each row for its cells with the caption
// at their end.
constexpr int kRowBase = 10;
constexpr int kHeaderBase = 100;
constexpr int kCellBase = 1000;
constexpr int kCellsOfRow = 100;
constexpr int kCaptionPlace = kCellsOfRow - 1;

constexpr wchar_t kYes[] = L"Si";
constexpr wchar_t kNo[] = L"No";

bool IsRow(int number) {
    return number >= 1 && number <= model::kGridRowCount;
}

AccessiblePlace PlaceOf(const GridRect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

}  // namespace

AccessibleId GridAccessible::CellId(GridRow row, int column) {
    return -(kCellBase + static_cast<int>(row) * kCellsOfRow + column);
}

AccessibleId GridAccessible::RowId(GridRow row) {
    return -(kRowBase + static_cast<int>(row));
}

AccessibleId GridAccessible::HeaderId(int column) {
    return -(kHeaderBase + column);
}

AccessibleId GridAccessible::CaptionId(GridRow row) {
    return CellId(row, kCaptionPlace);
}

GridAccessible::Part GridAccessible::PartOf(AccessibleId id) const {
    if (id == kAccessibleSelf) return {Kind::Grid};
    if (id > 0 || id == std::numeric_limits<AccessibleId>::min() || !grid_) return {};
    if (id == kHeadersId) return {Kind::Headers};
    const int number = -id;
    const auto column_of = [&](int column) { return state_.Layout().IndexOf(column) >= 0; };
    if (number >= kCellBase) {
        const int row = (number - kCellBase) / kCellsOfRow;
        const int column = (number - kCellBase) % kCellsOfRow;
        if (!IsRow(row)) return {};
        if (column == kCaptionPlace) return {Kind::Caption, static_cast<GridRow>(row)};
        if (!column_of(column)) return {};
        return {Kind::Cell, static_cast<GridRow>(row), column};
    }
    if (number >= kHeaderBase) {
        if (!column_of(number - kHeaderBase)) return {};
        return {Kind::Header, GridRow::Campo, number - kHeaderBase};
    }
    if (!IsRow(number - kRowBase)) return {};
    return {Kind::Row, static_cast<GridRow>(number - kRowBase)};
}

bool GridAccessible::Has(AccessibleId id) const {
    return PartOf(id).kind != Kind::None;
}

bool GridAccessible::IsChecked(const model::DesignGrid& grid, int column) {
    const std::wstring text = Lower(Trim(grid.Cell(GridRow::Visible, column)));
    return text == Lower(kYes) || (text != Lower(kNo) && grid.IsColumnUsed(column));
}

/// What of a part its area shows; of one scrolled out of it, where it would be.
AccessiblePlace GridAccessible::Shown(const GridRect& rect, const GridRect& area, unsigned& states) const {
    const GridRect shown = Intersection(rect, area);
    if (!shown.IsEmpty()) return PlaceOf(shown);
    states |= accessible_state::kOffscreen;
    return PlaceOf(rect);
}

AccessibleElement GridAccessible::Describe(AccessibleId id) const {
    using namespace accessible_state;
    const Part part = PartOf(id);
    const GridLayout& layout = state_.Layout();
    AccessibleElement element;
    switch (part.kind) {
        case Kind::Cell:
            return DescribeCell(part);
        case Kind::Header:
            element.name = HeaderName(*grid_, part.column);
            element.role = AccessibleRole::ColumnHeader;
            element.states = kSelectable;
            if (state_.HasWholeColumns() && state_.IsSelected(GridRow::Campo, part.column))
                element.states |= kSelected;
            element.action = kSelectAction;
            element.place = Shown(layout.HeaderRect(part.column), layout.HeaderArea(), element.states);
            break;
        case Kind::Caption:
            element.name = RowName(part.row);
            element.role = AccessibleRole::RowHeader;
            element.states = kReadOnly;
            element.place = Shown(layout.CaptionRect(part.row), layout.CaptionsArea(), element.states);
            break;
        case Kind::Row: {
            GridRect rect = layout.CaptionRect(part.row);
            rect.right = layout.CellsArea().right;
            const GridRect area{layout.CaptionsArea().left, layout.CellsArea().top, layout.CellsArea().right,
                                layout.CellsArea().bottom};
            element.name = RowName(part.row);
            element.role = AccessibleRole::Row;
            element.place = Shown(rect, area, element.states);
            break;
        }
        case Kind::Headers:
            element.name = HeadersName();
            element.role = AccessibleRole::Row;
            element.place = PlaceOf(layout.HeaderArea());
            break;
        case Kind::Grid:
        case Kind::None:
            element.name = GridName();
            element.role = AccessibleRole::Table;
            element.states = kFocusable | kMultiSelectable;
            element.place = {0, 0, layout.CellsArea().right, layout.CellsArea().bottom};
            break;
    }
    return element;
}

AccessibleElement GridAccessible::DescribeCell(const Part& part) const {
    using namespace accessible_state;
    const GridLayout& layout = state_.Layout();
    AccessibleElement element;
    element.name = CellName(*grid_, part.row, part.column);
    element.role = AccessibleRole::Cell;
    element.states = kFocusable | kSelectable;
    element.action = kEditAction;
    if (state_.IsSelected(part.row, part.column)) element.states |= kSelected;
    // The lists are those of the focused row.
    if (part.row == state_.FocusedRow() && !grid_->PickList(part.column).empty())
        element.states |= kHasPopup | (host_.IsListShownOn(part.row, part.column) ? kExpanded : kCollapsed);
    if (part.row == GridRow::Visible) {
        const bool checked = IsChecked(*grid_, part.column);
        element.role = AccessibleRole::CheckButton;
        element.action = checked ? kUncheckAction : kCheckAction;
        if (checked) element.states |= kChecked;
    }
    element.place = Shown(layout.CellRect(part.row, part.column), layout.CellsArea(), element.states);
    return element;
}

std::wstring GridAccessible::ValueOf(AccessibleId id) const {
    const Part part = PartOf(id);
    return part.kind == Kind::Cell ? grid_->Cell(part.row, part.column) : std::wstring();
}

AccessibleId GridAccessible::ParentOf(AccessibleId id) const {
    const Part part = PartOf(id);
    switch (part.kind) {
        case Kind::Header:
            return kHeadersId;
        case Kind::Caption:
        case Kind::Cell:
            return RowId(part.row);
        default:
            return kAccessibleSelf;
    }
}

std::vector<AccessibleId> GridAccessible::ChildrenOf(AccessibleId id) const {
    std::vector<AccessibleId> children;
    const Part part = PartOf(id);
    switch (part.kind) {
        case Kind::Grid:
            if (!grid_) break;
            children.push_back(kHeadersId);
            for (const GridRow row : model::kGridRows) children.push_back(RowId(row));
            break;
        case Kind::Headers:
            for (const GridColumnExtent& extent : state_.Layout().Columns())
                children.push_back(HeaderId(extent.column));
            break;
        case Kind::Row:
            children.push_back(CaptionId(part.row));
            for (const GridColumnExtent& extent : state_.Layout().Columns())
                children.push_back(CellId(part.row, extent.column));
            break;
        default:
            break;
    }
    return children;
}

AccessibleId GridAccessible::Beside(AccessibleId id, AccessibleDirection direction) const {
    const bool upright = direction == AccessibleDirection::Up || direction == AccessibleDirection::Down;
    const bool onward = direction == AccessibleDirection::Down || direction == AccessibleDirection::Right;
    const Part part = PartOf(id);
    if (part.kind == Kind::Grid || part.kind == Kind::None) return id;
    const bool is_line = part.kind == Kind::Row || part.kind == Kind::Headers;
    if (!upright) {
        if (is_line) return id;
        const std::vector<AccessibleId> siblings = ChildrenOf(ParentOf(id));
        const auto own = std::find(siblings.begin(), siblings.end(), id);
        if (onward) return own + 1 == siblings.end() ? id : own[1];
        return own == siblings.begin() ? id : own[-1];
    }
    // The headers count as the row above the first.
    const bool in_headers = part.kind == Kind::Header || part.kind == Kind::Headers;
    const int row = (in_headers ? 0 : static_cast<int>(part.row)) + (onward ? 1 : -1);
    if (row < 0 || row > model::kGridRowCount || (row == 0 && part.kind == Kind::Caption)) return id;
    if (is_line) return row == 0 ? kHeadersId : RowId(static_cast<GridRow>(row));
    if (part.kind == Kind::Caption) return CaptionId(static_cast<GridRow>(row));
    return row == 0 ? HeaderId(part.column) : CellId(static_cast<GridRow>(row), part.column);
}

AccessibleId GridAccessible::ElementAt(int x, int y) const {
    if (!grid_) return kAccessibleSelf;
    const GridHit hit = state_.Layout().HitTest(x, y);
    switch (hit.part) {
        case GridPart::Cell:
            return CellId(hit.row, hit.column);
        case GridPart::Caption:
            return CaptionId(hit.row);
        case GridPart::Header:
        case GridPart::Divider:
            return HeaderId(hit.column);
        case GridPart::Corner:
        case GridPart::None:
            break;
    }
    return kAccessibleSelf;
}

AccessibleId GridAccessible::Focused() const {
    return grid_ && state_.IsFocusShown() ? CellId(state_.FocusedRow(), state_.FocusedColumn())
                                          : kAccessibleSelf;
}

std::vector<AccessibleId> GridAccessible::Selected() const {
    std::vector<AccessibleId> selected;
    if (!grid_ || !state_.IsFocusShown()) return selected;
    for (const GridRow row : model::kGridRows)
        for (const GridColumnExtent& extent : state_.Layout().Columns())
            if (state_.IsSelected(row, extent.column)) selected.push_back(CellId(row, extent.column));
    return selected;
}

bool GridAccessible::Select(AccessibleId id, bool extend) {
    const Part part = PartOf(id);
    if (part.kind == Kind::Cell)
        host_.GoToCell(part.row, part.column, extend);
    else if (part.kind == Kind::Header)
        host_.GoToColumn(part.column);
    else
        return false;
    return true;
}

void GridAccessible::Act(AccessibleId id) {
    const Part part = PartOf(id);
    if (part.kind == Kind::Header) host_.GoToColumn(part.column);
    if (part.kind != Kind::Cell) return;
    if (part.row == GridRow::Visible)
        host_.WriteCell(part.row, part.column, IsChecked(*grid_, part.column) ? kNo : kYes);
    else
        host_.EditCell(part.row, part.column);
}

}  // namespace tessel::controls
