// dxG, the design grid, as a window over model::DesignGrid: captions of the attribute rows on the left, a header with
// the query columns' captions, and the cells, edited in place with a combo box that offers the column's pick list.
//
// The view shows the model and reports gestures. It writes no cell: a committed text goes to OnGridCellCommitted, the
// presenter writes the model and runs the rules, the model tells the view to repaint. Column widths, which mean
// nothing to a query, are the one thing it sets itself. Geometry and navigation are portable, in grid_layout.h and
// grid_state.h.
#pragma once

#include <windows.h>

#include <string_view>

#include "common/change_source.h"
#include "common/win32/window.h"
#include "model/design_grid.h"

namespace tessel::controls {

class GridEvents {
public:
    virtual ~GridEvents() = default;
    /// The user moved to a cell. The presenter records the focus in the model and refills the pick lists.
    virtual void OnGridFocusMoved(model::GridRow row, int column) = 0;
    /// The user committed a text, which may be longer than a cell holds; then the editor stays open with it.
    virtual void OnGridCellCommitted(model::GridRow row, int column, std::wstring_view text) = 0;
    /// Right button or menu key on a query column. (-1, -1) never occurs: the point is always on the screen.
    virtual void OnGridContextMenu(int /*column*/, POINT /*screen*/) {}
};

class DesignGridView final : public win32::Window, private ChangeListener {
public:
    ~DesignGridView() override;

    /// Creates the control without size.
    bool Create(HWND parent, int id);
    /// Shows a grid and reports to `events`. Neither is owned; both may be nullptr, and must be let go with another
    /// Bind before they die.
    void Bind(model::DesignGrid* grid, GridEvents* events);

    bool IsEditing() const;
    /// Opens the editor on a cell with its text, or with `typed` in its place. Scrolls there and moves the focus.
    void BeginEdit(model::GridRow row, int column);
    /// Reports the editor's text and closes it. False when the text is too long for a cell: it was reported, and the
    /// editor stays open with it. True when nothing was being edited.
    bool CommitEdit();
    /// Closes the editor and forgets its text.
    void CancelEdit();

    /// A cell's place in client pixels; empty when it is scrolled out or its column is hidden.
    RECT CellRect(model::GridRow row, int column) const;

private:
    void OnChanged() override;
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;

    model::DesignGrid* grid_ = nullptr;
    GridEvents* events_ = nullptr;
};

}  // namespace tessel::controls
