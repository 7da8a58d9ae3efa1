#include "tests/win_layout/layout_audit.h"

#include <commctrl.h>

#include <algorithm>

#include "common/text.h"
#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "hostkit/drive/input.h"
#include "ui/win32/designer_ids.h"

namespace tessel::testing {

namespace {

constexpr int kLeastPane = 24;   // dips: a pane of lines shows at least one
constexpr int kButtonEdge = 3;   // dips between a push button's edge and its caption
constexpr int kMark = 17;        // dips: a check box or a radio circle with its distance from the text
constexpr int kComboArrow = 17;  // dips
constexpr wchar_t kOurClasses[] = L"Tessel";

std::wstring ClassOf(HWND hwnd) {
    wchar_t name[64] = L"";
    GetClassNameW(hwnd, name, 64);
    return name;
}

bool IsShown(HWND hwnd) {
    return (GetWindowLongPtrW(hwnd, GWL_STYLE) & WS_VISIBLE) != 0;
}

bool IsOurs(HWND hwnd) {
    return ClassOf(hwnd).starts_with(kOurClasses);
}

RECT InParent(HWND hwnd, HWND parent) {
    RECT rect{};
    GetWindowRect(hwnd, &rect);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

SIZE ClientSize(HWND hwnd) {
    RECT client{};
    GetClientRect(hwnd, &client);
    return {client.right, client.bottom};
}

class Audit {
public:
    explicit Audit(int dpi) : dpi_(dpi) {}

    void Walk(HWND parent) {
        std::vector<HWND> shown;
        for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            if (IsShown(child) && GetDlgCtrlID(child) != ui::kIdFocus) shown.push_back(child);
        for (const HWND child : shown) {
            if (!CheckPlace(child, parent)) continue;
            CheckText(child);
            // lblNo scrolls: what it holds may be out of sight.
            if (IsOurs(child) && GetDlgCtrlID(child) != ui::kIdReason) Walk(child);
        }
        for (std::size_t i = 0; i < shown.size(); ++i)
            for (std::size_t j = i + 1; j < shown.size(); ++j) CheckPair(shown[i], shown[j], parent);
    }

    std::vector<std::string> faults;

private:
    int Px(int dips) const { return win32::Scale(dips, dpi_); }

    void Fault(HWND hwnd, const std::string& what) {
        const RECT rect = InParent(hwnd, GetParent(hwnd));
        faults.push_back(ToUtf8(ClassOf(hwnd)) + " " + std::to_string(GetDlgCtrlID(hwnd)) + " \"" +
                         ToUtf8(TextOf(hwnd)).substr(0, 60) + "\" (" + std::to_string(rect.left) + "," +
                         std::to_string(rect.top) + " " + std::to_string(rect.right - rect.left) + "x" +
                         std::to_string(rect.bottom - rect.top) + "): " + what);
    }

    /// False when there is nothing of the control to look at.
    bool CheckPlace(HWND hwnd, HWND parent) {
        const RECT rect = InParent(hwnd, parent);
        const SIZE inside = ClientSize(parent);
        if (rect.right <= rect.left || rect.bottom <= rect.top) {
            Fault(hwnd, "has no room");
            return false;
        }
        if (rect.left < 0 || rect.top < 0 || rect.right > inside.cx || rect.bottom > inside.cy)
            Fault(hwnd, "reaches out of its parent of " + std::to_string(inside.cx) + "x" +
                            std::to_string(inside.cy));
        const int id = GetDlgCtrlID(hwnd);
        const bool is_pane = id == ui::kIdGrid || id == ui::kIdDiagram || id == ui::kIdEditor ||
                             id == ui::kIdBrowser || id == ui::kIdProperties || id == ui::kIdReason;
        const std::wstring name = ClassOf(hwnd);
        if ((is_pane || name == L"ListBox" || name == WC_TREEVIEWW || name == WC_LISTVIEWW) &&
            (rect.bottom - rect.top < Px(kLeastPane) || rect.right - rect.left < Px(2 * kLeastPane)))
            Fault(hwnd, "is too small to show a line");
        return true;
    }

    // The pages lie on the tab strip's body, and lblNo behind the grid; nothing else lies on anything.
    void CheckPair(HWND one, HWND other, HWND parent) {
        if (ClassOf(one) == WC_TABCONTROLW) return CheckPage(one, other);
        if (ClassOf(other) == WC_TABCONTROLW) return CheckPage(other, one);
        if (GetDlgCtrlID(one) == ui::kIdReason || GetDlgCtrlID(other) == ui::kIdReason) return;
        const RECT a = InParent(one, parent);
        const RECT b = InParent(other, parent);
        RECT both{};
        if (IntersectRect(&both, &a, &b)) Fault(one, "lies over \"" + ToUtf8(TextOf(other)) + "\"");
    }

    void CheckPage(HWND tabs, HWND page) {
        const RECT place = InParent(page, tabs);
        const int count = static_cast<int>(SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0));
        for (int i = 0; i < count; ++i) {
            RECT item{};
            RECT both{};
            SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
            if (IntersectRect(&both, &item, &place)) Fault(tabs, "has a tab behind its page");
        }
    }

    SIZE Measure(HWND hwnd, const std::wstring& text, int width, UINT format) const {
        const HDC dc = GetDC(hwnd);
        RECT area{0, 0, width, 0};
        {
            const win32::Selected font(dc, reinterpret_cast<HFONT>(SendMessageW(hwnd, WM_GETFONT, 0, 0)));
            DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area, format | DT_CALCRECT);
        }
        ReleaseDC(hwnd, dc);
        return {area.right, area.bottom};
    }

    void CheckText(HWND hwnd) {
        const std::wstring name = ClassOf(hwnd);
        if (name == WC_BUTTONW) return CheckButton(hwnd);
        if (name == WC_STATICW) return CheckStatic(hwnd);
        if (name == WC_EDITW) return CheckEdit(hwnd);
        if (name == WC_COMBOBOXW) return CheckCombo(hwnd);
        if (name == WC_TABCONTROLW) return CheckTabs(hwnd);
        const SIZE line = Measure(hwnd, L"Ág", 0, DT_SINGLELINE);
        if (name == WC_TREEVIEWW && SendMessageW(hwnd, TVM_GETITEMHEIGHT, 0, 0) < line.cy)
            Fault(hwnd, "has items lower than its text");
        if (name == WC_LISTBOXW && SendMessageW(hwnd, LB_GETITEMHEIGHT, 0, 0) < line.cy)
            Fault(hwnd, "has items lower than its text");
    }

    void Require(HWND hwnd, SIZE needed, SIZE room) {
        if (needed.cx > room.cx || needed.cy > room.cy)
            Fault(hwnd, "needs " + std::to_string(needed.cx) + "x" + std::to_string(needed.cy) + ", has " +
                            std::to_string(room.cx) + "x" + std::to_string(room.cy));
    }

    void CheckButton(HWND hwnd) {
        const LONG_PTR style = GetWindowLongPtrW(hwnd, GWL_STYLE);
        const LONG_PTR type = style & BS_TYPEMASK;
        SIZE room = ClientSize(hwnd);
        if (type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON) {
            room.cx -= 2 * Px(kButtonEdge);
            room.cy -= 2;
        } else {
            room.cx -= Px(kMark);
        }
        const bool wraps = (style & BS_MULTILINE) != 0;
        Require(hwnd, Measure(hwnd, TextOf(hwnd), room.cx, wraps ? DT_WORDBREAK : DT_SINGLELINE), room);
    }

    void CheckStatic(HWND hwnd) {
        const LONG_PTR style = GetWindowLongPtrW(hwnd, GWL_STYLE);
        const bool one_line = (style & SS_CENTERIMAGE) != 0 || (style & SS_TYPEMASK) == SS_LEFTNOWORDWRAP;
        UINT format = one_line ? DT_SINGLELINE : DT_WORDBREAK;
        if (style & SS_NOPREFIX) format |= DT_NOPREFIX;
        const SIZE room = ClientSize(hwnd);
        Require(hwnd, Measure(hwnd, TextOf(hwnd), room.cx, format), room);
    }

    void CheckEdit(HWND hwnd) {
        wchar_t cue[100] = L"";
        SendMessageW(hwnd, EM_GETCUEBANNER, reinterpret_cast<WPARAM>(cue), 100);
        Require(hwnd, Measure(hwnd, cue[0] ? cue : L"Ág", 0, DT_SINGLELINE | DT_NOPREFIX), ClientSize(hwnd));
    }

    void CheckCombo(HWND hwnd) {
        SIZE room = ClientSize(hwnd);
        room.cx -= Px(kComboArrow);
        Require(hwnd, Measure(hwnd, TextOf(hwnd), 0, DT_SINGLELINE | DT_NOPREFIX), room);
    }

    void CheckTabs(HWND hwnd) {
        const SIZE client = ClientSize(hwnd);
        const int count = static_cast<int>(SendMessageW(hwnd, TCM_GETITEMCOUNT, 0, 0));
        for (int i = 0; i < count; ++i) {
            wchar_t text[64] = L"";
            TCITEMW item{};
            item.mask = TCIF_TEXT;
            item.pszText = text;
            item.cchTextMax = 64;
            SendMessageW(hwnd, TCM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
            RECT place{};
            SendMessageW(hwnd, TCM_GETITEMRECT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&place));
            Require(hwnd, Measure(hwnd, text, 0, DT_SINGLELINE),
                    {place.right - place.left, place.bottom - place.top});
            if (place.right > client.cx) Fault(hwnd, "has a tab out of sight");
        }
    }

    int dpi_;
};

}  // namespace

std::vector<std::string> LayoutFaults(HWND window, int dpi) {
    Audit audit(dpi);
    audit.Walk(window);
    return std::move(audit.faults);
}

}  // namespace tessel::testing
