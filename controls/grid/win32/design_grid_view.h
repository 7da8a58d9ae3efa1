// dxG, the design grid, as a window over model::DesignGrid: captions of the attribute rows on the left, a
// header with the query columns' numbers and captions, and the cells, edited in place with a combo box that
// offers the column's pick list.
//
// The view shows the model and reports gestures. It writes no cell: a committed text goes to
// OnGridCellCommitted, the presenter writes the model and runs the rules, the model tells the view to
// repaint. Column widths, which mean nothing to a query, are the one thing it sets itself. Geometry and
// navigation are portable, in grid_layout.h and grid_state.h; the editor is in cell_editor.h, painting in
// design_grid_paint.cpp.
//
// Assistive programs see it as grid_accessible.h describes it.
//
// Keys: arrows, Home, End, Ctrl+Home, Ctrl+End, PageUp, PageDown and Tab move, with Shift (but for Tab) they
// select a block; Tab leaves behind the last cell, Ctrl+Tab at once. Ctrl+Space or a click on the header
// selects the column, Ctrl+A everything; Ctrl+Shift+Left and Right, or dragging the header, move the column,
// Alt+Left and Right and Ctrl+9 give it another width. F2, a double click or typing edits, Enter goes down,
// as in a spreadsheet; Alt+Down or F4 opens the list; Del empties; Ctrl+C, Ctrl+X and Ctrl+V copy, cut and
// paste. Esc belongs to the grid only while a cell is edited or something is dragged.
#pragma once

#include <windows.h>

#include <uxtheme.h>

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "common/change_source.h"
#include "common/win32/accessible_window.h"
#include "common/win32/handles.h"
#include "common/win32/window.h"
#include "controls/grid/grid_accessible.h"
#include "controls/grid/grid_state.h"
#include "controls/grid/win32/cell_editor.h"
#include "model/design_grid.h"

namespace tessel::controls {

struct GridColours;

class GridEvents {
public:
    virtual ~GridEvents() = default;
    /// The user moved to a cell. The presenter records the focus in the model and refills the pick lists.
    virtual void OnGridFocusMoved(model::GridRow row, int column) = 0;
    /// The user committed a text that differs from the cell's. It may be longer than a cell holds: then
    /// nothing may be written, and the editor stays open with it.
    virtual void OnGridCellCommitted(model::GridRow row, int column, std::wstring_view text) = 0;
    /// The user moved a column to the place of another.
    virtual void OnGridColumnMoved(int /*from*/, int /*to*/) {}
    /// The user emptied a block, or pasted one over a selection.
    virtual void OnGridCellsEmptied(const model::CellRange& /*range*/) {}
    virtual void OnGridCellsPasted(const model::CellRange& /*range*/, const model::CellBlock& /*block*/) {}
    /// Right button or menu key on a query column; the focus has moved there. The point is on the screen.
    virtual void OnGridContextMenu(int /*column*/, POINT /*screen*/) {}
};

class DesignGridView final : public win32::Window,
                             private ChangeListener,
                             private CellEditorOwner,
                             private GridAccessibleHost {
public:
    ~DesignGridView() override;

    /// Creates the control without size.
    bool Create(HWND parent, int id);
    /// Shows a grid and reports to `events`. Neither is owned; both may be nullptr, and must be let go with
    /// another Bind before they die.
    void Bind(model::DesignGrid* grid, GridEvents* events);

    bool IsEditing() const { return editor_.IsOpen(); }
    /// Opens the editor on a cell with its text. Moves the focus there and scrolls to it. Nothing happens on
    /// a column that is not shown.
    void BeginEdit(model::GridRow row, int column);
    /// Reports the editor's text, if it differs from the cell's, and closes it. False when the text is too
    /// long for a cell: it was reported, and the editor stays open with it. True when nothing was being
    /// edited.
    bool CommitEdit();
    /// Closes the editor and forgets its text.
    void CancelEdit();
    /// Opens the list of the cell being edited.
    void ShowList() { editor_.ShowList(); }

    // The selection, which is the focused cell where no block is selected, and the clipboard.
    bool CanCopy() const;
    bool CanPaste() const;
    void Copy() const;
    void Cut();
    void Paste();
    void EmptySelection();
    /// Moves the focused column past its neighbour.
    bool CanMoveColumn(bool right) const;
    void MoveColumn(bool right);

    /// The query column that would take what is dropped at that point of the screen; one beyond the last
    /// behind it, -1 where nothing is taken.
    int DropColumnAt(POINT screen) const;
    /// Marks the column that would take what is dragged; -1 takes the mark away.
    void ShowDropMark(int column);
    /// Scrolls while something is dragged near the left or right end of the cells.
    void ScrollUnderDrag(POINT screen);

    /// A cell's place in client pixels, as far as it shows; empty when it is scrolled out or its column is
    /// hidden.
    RECT CellRect(model::GridRow row, int column) const;
    const GridState& State() const { return state_; }
    const CellEditor& Editor() const { return editor_; }

private:
    static constexpr int kCellPadding = 6;                   ///< both sides of a text together, at 96 dpi
    static constexpr UINT kRefusedMessage = WM_APP + 2;      ///< a text too long was left by moving the focus
    static constexpr UINT kFocusHiddenMessage = WM_APP + 3;  ///< the focused column was hidden
    static void ReleaseTheme(HTHEME theme) { CloseThemeData(theme); }
    using UniqueTheme = win32::Unique<HTHEME, ReleaseTheme>;

    void OnChanged() override;
    void OnEditorKey(EditorKey key) override;
    void OnEditorChosen() override { CommitEdit(); }
    void OnEditorFocusLost() override;
    void OnEditorTextChanged() override;

    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    bool OnKeyMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result);
    bool OnMouseMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result);
    LRESULT OnDialogCode(const MSG* message) const;
    bool OnKeyDown(WPARAM key);
    /// A key with Alt.
    bool OnSystemKeyDown(WPARAM key);
    void OnChar(wchar_t ch);
    bool OnMoveKey(WPARAM key);
    bool OnClipboardKey(WPARAM key);
    void OnButtonDown(int x, int y, bool extend);
    void OnRightButtonDown(int x, int y);
    void OnButtonUp();
    void OnCellPressed(const GridHit& hit, int x, int y, bool extend);
    void OnDoubleClick(int x, int y);
    void OnMouseMove(int x, int y);
    bool OnSetCursor();
    void OnContextMenu(POINT screen);
    void OnScroll(int bar, int code);
    bool OnWheel(int delta, bool sideways);
    void OnFocusHidden();

    void RefreshMetrics();
    void RefreshClient();
    void UpdateScrollBars();
    void ScrollTo(int x, int y);
    void PlaceEditor();
    /// Opens the editor on the focused cell; nullptr keeps the cell's text.
    bool OpenEditor(const wchar_t* text = nullptr);
    void Go(GridMove move);
    void GoTo(model::GridRow row, int column);
    void CollapseSelection();
    void Extend(GridMove move);
    void ExtendTo(model::GridRow row, int column);
    void SelectColumns(int column, bool extend);
    void SelectAll();
    void DragSelection(int x, int y);
    void ReportFocus();
    void LeaveByTab(bool backwards);
    void EndResize(bool keep);
    void FitColumn(int column);
    /// The focused column one step wider or narrower.
    void StretchColumn(bool wider);
    void BeginMove(int column, int x);
    void DragColumn(int x);
    void OnScrollTimer();
    void EndMove(bool keep);
    void MoveColumnTo(int from, int to, bool select);
    bool IsArrowShown() const;
    const std::wstring& FocusedText() const;

    // design_grid_accessible.cpp
    bool IsListShownOn(model::GridRow row, int column) const override;
    void GoToCell(model::GridRow row, int column, bool extend) override;
    void GoToColumn(int column) override;
    void EditCell(model::GridRow row, int column) override;
    void WriteCell(model::GridRow row, int column, const std::wstring& text) override;
    /// Tells assistive programs what changed since it was last called.
    void Announce();

    void OnPaint();
    void PaintHeaderItem(HDC dc, const GridColours& colours, const GridRect& rect, int column);
    void PaintHeaderBackground(HDC dc, const RECT& rect, bool focused);
    void PaintCaptions(HDC dc, const GridColours& colours);
    void PaintCell(HDC dc, const GridColours& colours, const GridRect& rect, model::GridRow row, int column);
    void PaintFocusedCell(HDC dc, const GridColours& colours);
    void PaintDropMark(HDC dc) const;
    void PaintMoveMark(HDC dc) const;
    int Scaled(int dips) const;

    model::DesignGrid* grid_ = nullptr;
    GridEvents* events_ = nullptr;
    GridState state_;
    CellEditor editor_{*this};
    model::GridRow edited_row_ = model::GridRow::Campo;
    int edited_column_ = 0;
    bool committing_ = false;  ///< the presenter is being told; its message box takes the editor's focus
    int drop_column_ = -1;
    bool selecting_ = false;  ///< a block is being drawn with the mouse
    int dpi_ = 96;
    int wheel_rest_ = 0;

    /// What assistive programs were told last.
    struct Announced {
        AccessibleId cell = kAccessibleSelf;
        std::wstring name;
        std::wstring value;
        bool checked = false;
        model::CellRange selection;
        std::vector<int> columns;
    };
    Announced announced_;
    GridAccessible tree_{state_, *this};
    win32::AccessibleWindow accessible_{tree_};

    win32::UniqueFont font_;
    win32::UniqueFont bold_font_;
    UniqueTheme header_theme_;
    /// Header items without text, by width, height and state of the visual style.
    std::map<std::tuple<int, int, int>, win32::UniqueBitmap> header_items_;
    UniqueTheme combo_theme_;
};

}  // namespace tessel::controls
