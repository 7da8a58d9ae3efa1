// The in-place editor of the design grid: one editable combo box, shown over a cell while it is edited and
// hidden otherwise. It owns the combo's quirks (texts completed on closing the list, the wheel changing the
// selection, keys that a dialog would take) and decides nothing about cells: it reports how the user left it
// to its owner.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "common/win32/subclass.h"

namespace tessel::controls {

/// The keys by which the user leaves the editor.
enum class EditorKey { Enter, Next, Previous, Up, Down, PageUp, PageDown, Escape };

class CellEditorOwner {
public:
    virtual void OnEditorKey(EditorKey key) = 0;
    /// An item of the list was chosen with the mouse; the editor's text is the item.
    virtual void OnEditorChosen() = 0;
    virtual void OnEditorFocusLost() = 0;
    /// The text became wider than the editor; the owner may place it again.
    virtual void OnEditorTextChanged() = 0;

protected:
    ~CellEditorOwner() = default;
};

class CellEditor {
public:
    explicit CellEditor(CellEditorOwner& owner) : owner_(owner) {}
    CellEditor(const CellEditor&) = delete;
    CellEditor& operator=(const CellEditor&) = delete;

    struct Contents {
        std::wstring text;
        std::vector<std::wstring> items;
        bool open_list_on_typing = false;  ///< the row takes only words of its list
        std::wstring name;                 ///< what assistive programs call the cell
    };

    /// Shows the editor in `parent` (created with it on first use) and gives it the focus, all text selected.
    bool Open(HWND parent, HFONT font, int dpi, const RECT& place, Contents contents);
    /// Hides it. The focus, if it is inside, goes to the parent first.
    void Close();
    bool IsOpen() const { return open_; }
    /// Moves it to a place in the parent. Not while its list is shown.
    void Place(const RECT& place);

    std::wstring Text() const;
    /// The width that shows the whole text, arrow included.
    int WantedWidth() const;
    void ShowList();
    bool IsListShown() const;
    bool HasFocus() const;
    void Focus();
    /// Types a character, as if the user had pressed its key with the editor open.
    void Type(wchar_t ch);
    void Paste();

    HWND Combo() const { return combo_; }
    HWND Edit() const { return edit_; }

    /// WM_COMMAND of the combo, given on by the parent.
    void OnCommand(UINT code);
    /// The message that the editor posts to its parent to finish a choice made in the list.
    void OnChoicePosted();
    static constexpr UINT kChoiceMessage = WM_APP + 1;

private:
    static LRESULT EditProcedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, void* self,
                                 const win32::SubclassChain& next);
    bool Create(HWND parent);
    /// True when the message is dealt with.
    bool OnEditMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result);
    bool OnKeyDown(WPARAM key);
    void OnTyped();
    void TakeHighlighted();
    void HighlightMatch();
    void SetText(const std::wstring& text);
    std::wstring ItemText(int index) const;
    void FitList();
    void ShowTextFromItsStart();

    CellEditorOwner& owner_;
    HWND parent_ = nullptr;
    HWND combo_ = nullptr;  ///< a child of parent_, destroyed with it
    HWND edit_ = nullptr;
    HWND list_ = nullptr;
    HFONT font_ = nullptr;  ///< the parent's
    RECT place_{};
    int dpi_ = 96;
    bool open_ = false;
    bool chosen_ = false;
    bool open_list_on_typing_ = false;
    std::vector<std::wstring> items_;
    std::wstring typed_;  ///< the user's own text, without what the combo puts in its place
};

}  // namespace tessel::controls
