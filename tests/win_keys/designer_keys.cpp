#include "tests/win_keys/designer_keys.h"

#include <commctrl.h>

#include "common/win32/clipboard.h"
#include "controls/diagram/diagram_box.h"

namespace tessel::testing {

namespace {

constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU

struct ChildSearch {
    const wchar_t* window_class;
    HWND found;
};

BOOL CALLBACK IsOfClass(HWND hwnd, LPARAM lparam) {
    auto* search = reinterpret_cast<ChildSearch*>(lparam);
    wchar_t name[40] = L"";
    GetClassNameW(hwnd, name, 40);
    if (lstrcmpiW(name, search->window_class) != 0) return TRUE;
    search->found = hwnd;
    return FALSE;
}

HWND Inside(HWND root, const wchar_t* window_class) {
    ChildSearch search{window_class, nullptr};
    EnumChildWindows(root, IsOfClass, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

}  // namespace

DesignerKeys::DesignerKeys(const std::wstring& key, Check check) : check_(check) {
    EXPECT_TRUE(ParseStroke(key, stroke_));
    // Whatever is open is closed, so that the window's own loop comes to its end.
    script_.OnTrouble([this] {
        NothingIsOpen();
        PostMessageW(window_.Handle(), WM_CLOSE, 0, 0);
    });
}

void DesignerKeys::TestBody() {
    check_(*this);
    if (!answer_) {
        Until([this] { return NothingIsOpen(); }, "what the key opened is closed");
        Do([this] { PostMessageW(Control(ui::kIdCancel), BM_CLICK, 0, 0); });
    }
    EXPECT_EQ(Run(statement_), answer_.value_or(false));
}

bool DesignerKeys::NothingIsOpen() {
    if (OpenMenu()) {
        EndMenu();
        return false;
    }
    if (const HWND box = OpenMessageBox()) {
        PostMessageW(box, WM_CLOSE, 0, 0);
        return false;
    }
    const HWND dialog = FindWindowW(L"TesselDialog", nullptr);
    if (dialog) PostMessageW(dialog, WM_CLOSE, 0, 0);
    return !dialog && IsWindowEnabled(window_.Handle());
}

void DesignerKeys::Press() {
    script_.Do([this] { PressStroke(stroke_); });
}

void DesignerKeys::Press(WORD virtual_key, bool shift, bool control) {
    script_.Do([=] { PressKey(virtual_key, shift, control); });
}

void DesignerKeys::Type(const wchar_t* text) {
    script_.Do([text] { TypeText(text); });
}

void DesignerKeys::FocusOn(std::function<HWND()> window) {
    script_.Do([window] { SetFocus(window()); });
    script_.Until([window] { return HasFocus(window()); }, "the focus is there");
}

void DesignerKeys::FocusOnCell(model::GridRow row, int column) {
    FocusOn(ui::kIdGrid);
    script_.Do([=, this] {
        window_.Presenter().Design().grid.SetFocus(row, column);
        window_.Presenter().GridFocusMoved(row, column);
    });
}

void DesignerKeys::FocusOnTable(const wchar_t* table) {
    FocusOn(ui::kIdDiagram);
    script_.Do([=, this] { window_.Presenter().Design().diagram.SelectTable(table); });
}

void DesignerKeys::OpenSqlTab() {
    script_.Do([] { PressKey(VK_TAB, false, true); });
    script_.Until(
        [this] { return HasFocus(Control(ui::kIdEditor)) && EditorText().find(L';') != std::wstring::npos; },
        "the composed text is shown");
}

HWND DesignerKeys::Tree() {
    return Inside(Control(ui::kIdBrowser), WC_TREEVIEWW);
}

HWND DesignerKeys::SearchBox() {
    return Inside(Control(ui::kIdBrowser), WC_EDITW);
}

HWND DesignerKeys::Properties() {
    return Inside(Control(ui::kIdProperties), WC_LISTVIEWW);
}

bool DesignerKeys::Checked(const wchar_t* table, const wchar_t* field) {
    const model::DiagramTable* shown = Diagram().FindTable(table);
    return shown && controls::diagram::RowChecked(*shown, controls::diagram::RowOf(*shown, field));
}

HWND DesignerKeys::Dialog(const wchar_t* title) {
    const HWND dialog = FindWindowW(L"TesselDialog", title);
    return dialog && IsWindowVisible(dialog) ? dialog : nullptr;
}

HWND DesignerKeys::OpenMenu() {
    const HWND menu = FindWindowW(L"#32768", nullptr);
    return menu && IsWindowVisible(menu) ? menu : nullptr;
}

std::vector<std::wstring> DesignerKeys::MenuLines() {
    std::vector<std::wstring> lines;
    const auto menu = reinterpret_cast<HMENU>(SendMessageW(OpenMenu(), kGetMenu, 0, 0));
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[100] = L"";
        GetMenuStringW(menu, static_cast<UINT>(i), text, 100, MF_BYPOSITION);
        lines.push_back(text);
    }
    return lines;
}

std::wstring DesignerKeys::ClipboardText() {
    return win32::TextFromClipboard(nullptr).value_or(L"");
}

}  // namespace tessel::testing
