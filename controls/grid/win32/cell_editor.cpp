#include "controls/grid/win32/cell_editor.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "common/win32/accessible_name.h"
#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/module.h"
#include "common/win32/screen.h"
#include "controls/grid/type_ahead.h"

namespace tessel::controls {

namespace {

constexpr int kShownItems = 12;
constexpr int kComboId = 21;  // apart from IDOK and IDCANCEL of a dialog around us

int TextWidth(const win32::MeasuringDc& dc, std::wstring_view text) {
    return static_cast<int>(win32::TextSize(dc.Get(), text).cx);
}

}  // namespace

bool CellEditor::Create(HWND parent) {
    if (combo_ && IsWindow(combo_)) return true;
    parent_ = parent;
    combo_ = CreateWindowExW(0, WC_COMBOBOXW, L"", WS_CHILD | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL, 0,
                             0, 10, 10, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(kComboId)),
                             win32::ThisModule(), nullptr);
    if (!combo_) return false;
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (!GetComboBoxInfo(combo_, &info) || !info.hwndItem ||
        !win32::Subclass(info.hwndItem, EditProcedure, this)) {
        DestroyWindow(combo_);
        combo_ = nullptr;
        return false;
    }
    edit_ = info.hwndItem;
    list_ = info.hwndList;
    // The length is judged when the text is committed, with a message; cutting it here would lose text
    // silently.
    SendMessageW(combo_, CB_LIMITTEXT, 0, 0);
    return true;
}

bool CellEditor::Open(HWND parent, HFONT font, int dpi, const RECT& place, Contents contents) {
    if (!Create(parent)) return false;
    font_ = font;
    dpi_ = dpi;
    chosen_ = false;
    open_list_on_typing_ = contents.open_list_on_typing;
    SendMessageW(combo_, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    SendMessageW(combo_, CB_RESETCONTENT, 0, 0);
    items_ = std::move(contents.items);
    for (const std::wstring& item : items_)
        SendMessageW(combo_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    for (const HWND part : {combo_, edit_, list_}) win32::SetAccessibleName(part, contents.name.c_str());
    FitList();
    Place(place);
    SetText(contents.text);
    open_ = true;
    ShowWindow(combo_, SW_SHOW);
    Focus();
    return true;
}

void CellEditor::Close() {
    if (!open_) return;
    open_ = false;
    chosen_ = false;
    if (IsListShown()) SendMessageW(combo_, CB_SHOWDROPDOWN, FALSE, 0);
    if (HasFocus()) SetFocus(parent_);
    ShowWindow(combo_, SW_HIDE);
}

void CellEditor::Place(const RECT& place) {
    // Moving a combo box closes its list.
    if (open_ && (IsListShown() || EqualRect(&place, &place_))) return;
    place_ = place;
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    // The height of a combo box is that of its list too; the field's own height follows from its item height.
    const int item_height = static_cast<int>(SendMessageW(combo_, CB_GETITEMHEIGHT, 0, 0));
    const int items = std::clamp(static_cast<int>(SendMessageW(combo_, CB_GETCOUNT, 0, 0)), 1, kShownItems);
    SetWindowPos(combo_, HWND_TOP, place.left, place.top, width,
                 height + items * item_height + win32::Scale(4, dpi_), SWP_NOACTIVATE);
    // Twice, because some systems take the height given as that of the text alone and add an edge to it.
    int field = static_cast<int>(SendMessageW(combo_, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0));
    for (int attempt = 0; attempt < 2; ++attempt) {
        RECT closed;
        GetWindowRect(combo_, &closed);
        const int excess = static_cast<int>(closed.bottom - closed.top) - height;
        if (excess == 0 || field - excess <= 0) break;
        field -= excess;
        SendMessageW(combo_, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), field);
    }
    if (open_) ShowTextFromItsStart();
}

void CellEditor::ShowTextFromItsStart() {
    if (SendMessageW(edit_, EM_GETSEL, 0, 0) != MAKELONG(0, GetWindowTextLengthW(edit_))) return;
    // All selected, with the caret at the start: the other way round a long text would show its end.
    SendMessageW(edit_, EM_SETSEL, static_cast<WPARAM>(GetWindowTextLengthW(edit_)), 0);
    SendMessageW(edit_, EM_SCROLLCARET, 0, 0);
}

void CellEditor::FitList() {
    const int count = static_cast<int>(SendMessageW(combo_, CB_GETCOUNT, 0, 0));
    int widest = 0;
    const win32::MeasuringDc dc(font_);
    for (int i = 0; i < count; ++i) widest = std::max(widest, TextWidth(dc, ItemText(i)));
    widest += win32::SystemMetric(SM_CXVSCROLL, dpi_) + win32::Scale(12, dpi_);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (GetMonitorInfoW(MonitorFromWindow(combo_, MONITOR_DEFAULTTONEAREST), &monitor))
        widest = std::min(widest, static_cast<int>(monitor.rcWork.right - monitor.rcWork.left));
    SendMessageW(combo_, CB_SETDROPPEDWIDTH, widest, 0);
    SendMessageW(combo_, CB_SETMINVISIBLE, kShownItems, 0);
}

std::wstring CellEditor::Text() const {
    const int length = combo_ ? GetWindowTextLengthW(combo_) : 0;
    if (length <= 0) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(combo_, text.data(), length + 1)));
    return text;
}

std::wstring CellEditor::ItemText(int index) const {
    const LRESULT length = SendMessageW(combo_, CB_GETLBTEXTLEN, index, 0);
    if (length == CB_ERR) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    SendMessageW(combo_, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void CellEditor::SetText(const std::wstring& text) {
    SetWindowTextW(combo_, text.c_str());
    typed_ = text;
}

int CellEditor::WantedWidth() const {
    return TextWidth(win32::MeasuringDc(font_), Text()) + win32::SystemMetric(SM_CXVSCROLL, dpi_) +
           win32::Scale(16, dpi_);
}

void CellEditor::ShowList() {
    if (!open_) return;
    DWORD begin = 0;
    DWORD end = 0;
    SendMessageW(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
    SendMessageW(combo_, CB_SHOWDROPDOWN, TRUE, 0);
    // Opening may have completed the text from the list. What is typed next goes on where the caret was.
    if (Text() != typed_) {
        SetText(typed_);
        SendMessageW(edit_, EM_SETSEL, begin, static_cast<LPARAM>(end));
    }
    HighlightMatch();
    // Windows hides the pointer while text is typed, and opening the list does not bring it back.
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
}

bool CellEditor::IsListShown() const {
    return combo_ && SendMessageW(combo_, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

bool CellEditor::HasFocus() const {
    const HWND focus = GetFocus();
    return focus && combo_ && (focus == combo_ || IsChild(combo_, focus));
}

void CellEditor::Focus() {
    // Through the combo the focus would leave the edit field first, which counts as leaving the editor.
    if (!HasFocus()) SetFocus(edit_);
    SendMessageW(combo_, CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
    ShowTextFromItsStart();
}

void CellEditor::Type(wchar_t ch) {
    SendMessageW(edit_, WM_CHAR, ch, 1);
}
void CellEditor::Paste() {
    SendMessageW(edit_, WM_PASTE, 0, 0);
}

void CellEditor::OnCommand(UINT code) {
    if (!open_) return;
    switch (code) {
        case CBN_EDITCHANGE:
            OnTyped();
            break;
        case CBN_SELENDOK:
            // Sent before the text changes; the choice is taken up when the list has closed.
            chosen_ = IsListShown();
            break;
        case CBN_SELENDCANCEL:
            chosen_ = false;
            break;
        case CBN_CLOSEUP:
            if (chosen_) PostMessageW(parent_, kChoiceMessage, 0, 0);
            // A list closed without a choice must leave the user's text; Windows completes it from the list.
            else if (Text() != typed_)
                SetText(typed_);
            break;
        case CBN_KILLFOCUS:
            owner_.OnEditorFocusLost();
            break;
        default:
            break;
    }
}

void CellEditor::OnChoicePosted() {
    if (!open_ || !chosen_) return;
    chosen_ = false;
    const int index = static_cast<int>(SendMessageW(combo_, CB_GETCURSEL, 0, 0));
    if (index >= 0) SetText(ItemText(index));
    owner_.OnEditorChosen();
}

void CellEditor::OnTyped() {
    typed_ = Text();
    owner_.OnEditorTextChanged();
    if (open_list_on_typing_ && !typed_.empty() && !IsListShown())
        ShowList();
    else
        HighlightMatch();
}

void CellEditor::HighlightMatch() {
    if (!IsListShown()) return;
    // The list's own selection, because the combo's would replace the text.
    SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(FindTyped(items_, typed_)), 0);
}

void CellEditor::TakeHighlighted() {
    const int index = static_cast<int>(SendMessageW(list_, LB_GETCURSEL, 0, 0));
    const std::wstring text = index >= 0 ? ItemText(index) : typed_;
    SendMessageW(combo_, CB_SHOWDROPDOWN, FALSE, 0);
    chosen_ = false;
    SetText(text);
}

bool CellEditor::OnKeyDown(WPARAM key) {
    const bool list_shown = IsListShown();
    const auto leave = [&](EditorKey how) {
        if (list_shown) TakeHighlighted();
        owner_.OnEditorKey(how);
        return true;
    };
    switch (key) {
        case VK_RETURN:
            return leave(EditorKey::Enter);
        case VK_TAB:
            return leave(GetKeyState(VK_SHIFT) < 0 ? EditorKey::Previous : EditorKey::Next);
        case VK_ESCAPE:
            if (list_shown) {
                SendMessageW(combo_, CB_SHOWDROPDOWN, FALSE, 0);
                chosen_ = false;
                if (Text() != typed_) SetText(typed_);
                return true;
            }
            owner_.OnEditorKey(EditorKey::Escape);
            return true;
        case VK_UP:
        case VK_DOWN:
        case VK_PRIOR:
        case VK_NEXT:
            // With the list shown they walk through it; without it they would change the text unseen.
            if (list_shown) return false;
            owner_.OnEditorKey(key == VK_UP      ? EditorKey::Up
                               : key == VK_DOWN  ? EditorKey::Down
                               : key == VK_PRIOR ? EditorKey::PageUp
                                                 : EditorKey::PageDown);
            return true;
        default:
            return false;
    }
}

bool CellEditor::OnEditMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
    result = 0;
    switch (message) {
        case WM_GETDLGCODE:
            // Enter, Esc and Tab are the editor's own while it is open; a dialog's default buttons must not
            // see them.
            result = DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_HASSETSEL;
            return true;
        case WM_KEYDOWN:
            return OnKeyDown(wparam);
        case WM_CHAR:
            // The characters of those keys would only beep.
            return wparam == VK_RETURN || wparam == VK_TAB || wparam == VK_ESCAPE;
        case WM_MOUSEWHEEL:
            if (IsListShown()) return false;
            result = SendMessageW(parent_, message, wparam, lparam);
            return true;
        default:
            return false;
    }
}

LRESULT CellEditor::EditProcedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, void* self,
                                  const win32::SubclassChain& next) {
    auto* editor = static_cast<CellEditor*>(self);
    if (message == WM_NCDESTROY) {
        editor->combo_ = editor->edit_ = editor->list_ = nullptr;
        editor->open_ = false;
        return next(hwnd, message, wparam, lparam);
    }
    try {
        LRESULT result = 0;
        if (editor->open_ && editor->OnEditMessage(message, wparam, lparam, result)) return result;
    } catch (...) {
        // Exhausted memory: the key is lost, the host lives on.
        return 0;
    }
    return next(hwnd, message, wparam, lparam);
}

}  // namespace tessel::controls
