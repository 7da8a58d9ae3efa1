// dlgPVW, "Vista previa de datos": rows in a grid that asks only for the cells it shows, with a status line,
// a find bar, and copying of rows and of the current cell. Nothing can be changed in it.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "common/result.h"
#include "ui/help_contexts.h"
#include "ui/preview_rows.h"
#include "ui/win32/find_bar.h"
#include "ui/win32/modal_dialog.h"

namespace tessel::ui {

class dlgPVW final : public ModalDialog {
public:
    enum ControlId : int { kIdRows = 301, kIdStatus = 302, kIdFindBar = 303 };
    /// The widest a column is made when the window opens, in dips.
    static constexpr int kWidestColumn = 150;

    /// `rows` is not owned and must outlive the window.
    explicit dlgPVW(PreviewRows& rows) : rows_(rows) {}

    /// Shows the rows until the user closes the window. The reason when it could not be opened.
    std::optional<Error> Show(HWND owner);

    HWND List() const { return list_; }
    /// The cell with the focus; row -1 when there is none.
    CellPlace CurrentCell() const { return {current_row_, current_column_}; }
    /// Looks for the text from the current cell on, in slices, while the window stays usable.
    void Find(std::wstring_view text, bool backwards);
    bool IsSearching() const { return search_.has_value(); }

private:
    bool OnCreateControls() override;
    void OnLayout(SIZE client) override;
    void OnScaled(int before) override;
    void OnCommand(int id, int notification) override;
    LRESULT OnNotify(NMHDR* header) override;
    bool OnPreTranslate(const MSG& message) override;
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    HWND FirstFocus() const override { return list_; }
    long HelpTopic() const override { return help::kPreview; }
    int DefaultButton() const override { return find_bar_.HasFocus() ? FindBar::kIdNext : IDCANCEL; }

    bool CreateList();
    void AddColumns();
    int FittingWidth(int column);
    int TextWidth(const std::wstring& text) const;

    bool OnKey(WPARAM key);
    bool OnListKey(WPARAM key, bool control, bool shift);
    bool MoveByKey(WPARAM key);
    void OnItemChanged(const NMLISTVIEW& change);
    void FillCell(NMLVDISPINFOW& info);
    LRESULT DrawCell(NMLVCUSTOMDRAW& draw);
    void DrawWholeCell(HDC dc, CellPlace place);
    RECT CellBounds(CellPlace place) const;
    void MoveToCell(CellPlace place);
    void MoveToColumn(int column);
    void ScrollToColumn(int column);
    void UpdateStatus();
    void ShowStatus(const std::wstring& text);

    void OnMouseMove(POINT point);
    void ShowMenu(POINT screen);
    void SelectAll();
    void CopyRows();
    void CopyCell();
    void Copy(const std::wstring& text);

    void ShowFindBar();
    void HideFindBar();
    void FindAgain(bool backwards);
    void SearchSlice();
    void RepaintUnread();
    void StopSearch();

    PreviewRows& rows_;
    HWND list_ = nullptr;
    HWND status_ = nullptr;
    HWND close_ = nullptr;
    HWND tips_ = nullptr;
    FindBar find_bar_;
    // Told by the list, because asking it for the focused row may cost a walk over all of them.
    std::int64_t current_row_ = -1;
    int current_column_ = 0;
    std::optional<CellPlace> tip_cell_;
    std::wstring tip_text_;
    std::optional<RowSearch> search_;
    // Counts the beginnings and ends of searches: one may end while its slice is reading.
    int searches_ = 0;
    bool in_slice_ = false;
    std::wstring group_separator_;
};

}  // namespace tessel::ui
