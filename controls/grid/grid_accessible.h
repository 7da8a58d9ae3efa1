// The design grid as assistive programs see it: a table of rows. The first row holds the headers of the shown
// columns, each of the others an attribute: its caption and then its cells. "Visible:" is a row of check
// boxes.
//
// Follows the model and the view's state and keeps nothing of its own. What the user asks for is left to the
// view. The texts are in grid_accessible_texts.h.
#pragma once

#include "common/accessible_tree.h"
#include "controls/grid/grid_state.h"

namespace tessel::controls {

/// What the grid's view does for an assistive program.
class GridAccessibleHost {
public:
    virtual bool IsListShownOn(model::GridRow row, int column) const = 0;
    virtual void GoToCell(model::GridRow row, int column, bool extend) = 0;
    virtual void GoToColumn(int column) = 0;
    virtual void EditCell(model::GridRow row, int column) = 0;
    /// Writes a word of the row's list, as the user would.
    virtual void WriteCell(model::GridRow row, int column, const std::wstring& text) = 0;

protected:
    ~GridAccessibleHost() = default;
};

class GridAccessible final : public AccessibleTree {
public:
    GridAccessible(const GridState& state, GridAccessibleHost& host) : state_(state), host_(host) {}
    /// Not owned; nullptr when there is nothing to show.
    void Bind(const model::DesignGrid* grid) { grid_ = grid; }

    static AccessibleId CellId(model::GridRow row, int column);
    static AccessibleId RowId(model::GridRow row);
    static AccessibleId HeaderId(int column);
    static AccessibleId CaptionId(model::GridRow row);
    static constexpr AccessibleId kHeadersId = -1;

    bool Has(AccessibleId id) const override;
    AccessibleElement Describe(AccessibleId id) const override;
    std::wstring ValueOf(AccessibleId id) const override;
    AccessibleId ParentOf(AccessibleId id) const override;
    std::vector<AccessibleId> ChildrenOf(AccessibleId id) const override;
    AccessibleId Beside(AccessibleId id, AccessibleDirection direction) const override;
    AccessibleId ElementAt(int x, int y) const override;
    AccessibleId Focused() const override;
    std::vector<AccessibleId> Selected() const override;
    bool Select(AccessibleId id, bool extend) override;
    void Act(AccessibleId id) override;

    /// True when the column is shown in the result, as the cell of "Visible:" says.
    static bool IsChecked(const model::DesignGrid& grid, int column);

private:
    enum class Kind { Grid, Headers, Header, Row, Caption, Cell, None };
    struct Part {
        Kind kind = Kind::None;
        model::GridRow row = model::GridRow::Campo;
        int column = -1;
    };
    Part PartOf(AccessibleId id) const;
    AccessibleElement DescribeCell(const Part& part) const;
    AccessiblePlace Shown(const GridRect& rect, const GridRect& area, unsigned& states) const;

    const GridState& state_;
    GridAccessibleHost& host_;
    const model::DesignGrid* grid_ = nullptr;
};

}  // namespace tessel::controls
