// The Tab key in every window: it reaches every control once, in the order in which one reads, comes back to
// the first, and the control that has the keyboard is seen to have it.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "tests/preview/literal_rows.h"
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"
#include "ui/win32/dlg_pvw.h"

namespace tessel::testing {

namespace {

using Pixels = std::vector<DWORD>;
using Ids = std::vector<int>;

constexpr int kBar = 0;      ///< the bars between the panes have no identifier
constexpr int kSearch = 11;  ///< of the schema browser
constexpr int kTree = 12;
constexpr int kList = 21;  ///< of the properties

bool IsTabStrip(HWND control) {
    wchar_t name[40] = L"";
    GetClassNameW(control, name, 40);
    return lstrcmpiW(name, WC_TABCONTROLW) == 0;
}

/// Where a control shows that it has the keyboard, on the screen: of a tab strip its tabs.
RECT PlaceOf(HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    if (!IsTabStrip(control)) return place;
    RECT first{};
    RECT last{};
    SendMessageW(control, TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first));
    SendMessageW(control, TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&last));
    place = {first.left, first.top, last.right, last.bottom};
    MapWindowPoints(control, nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

Pixels PictureOf(HWND control) {
    const HWND root = GetAncestor(control, GA_ROOT);
    RedrawWindow(root, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    RECT frame{};
    GetWindowRect(root, &frame);
    const RECT place = PlaceOf(control);
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    if (width <= 0 || height <= 0) return {};
    const HDC window = GetWindowDC(root);
    const HDC memory = CreateCompatibleDC(window);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(window, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, window, place.left - frame.left, place.top - frame.top, SRCCOPY);
    GdiFlush();
    const auto* first = static_cast<const DWORD*>(bits);
    Pixels pixels(first, first + static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(root, window);
    return pixels;
}

BOOL CALLBACK TakePicture(HWND control, LPARAM data) {
    auto& pictures = *reinterpret_cast<std::map<HWND, Pixels>*>(data);
    const bool stops = (GetWindowLongPtrW(control, GWL_STYLE) & WS_TABSTOP) != 0;
    if (stops && IsWindowVisible(control)) pictures[control] = PictureOf(control);
    return TRUE;
}

/// One walk around a window, a step of it each time it is asked.
class TabWalk {
public:
    /// The keyboard is nowhere to be seen: what the controls look like without it.
    void Begin(HWND root, HWND first) {
        TakePictureOfAll(root);
        SetFocus(first);
    }
    void TakePictureOfAll(HWND root) {
        EnumChildWindows(root, TakePicture, reinterpret_cast<LPARAM>(&without_));
    }

    /// Looks at the control with the keyboard and presses Tab. True when the walk came back to its beginning,
    /// or to a control where it is to end.
    bool Step(int last_id = -1) {
        const HWND control = GetFocus();
        if (!control || control == left_) return false;
        if (!visited_.empty() && control == visited_.front()) return true;
        if (const auto before = without_.find(control);
            before != without_.end() && PictureOf(control) == before->second)
            return false;
        if (!IsAtItsEnd(control)) return false;
        visited_.push_back(control);
        if (GetDlgCtrlID(control) == last_id) return true;
        left_ = control;
        PressKey(VK_TAB);
        return false;
    }

    Ids Visited() const {
        Ids ids;
        for (const HWND control : visited_) ids.push_back(GetDlgCtrlID(control));
        return ids;
    }
    /// Every control stands to the right of the one before, or below it.
    bool IsReadingOrder() const {
        for (std::size_t i = 1; i < visited_.size(); ++i) {
            const RECT before = PlaceOf(visited_[i - 1]);
            const RECT after = PlaceOf(visited_[i]);
            if (after.left < before.right && after.top < before.bottom) return false;
        }
        return true;
    }

private:
    /// The Tab key walks through the grid's cells; the walk goes on behind the last.
    bool IsAtItsEnd(HWND control) {
        if (GetDlgCtrlID(control) != ui::kIdGrid || control == at_end_) return true;
        at_end_ = control;
        PressKey(VK_END, false, true);
        return false;
    }

    std::map<HWND, Pixels> without_;
    std::vector<HWND> visited_;
    HWND left_ = nullptr;
    HWND at_end_ = nullptr;
};

constexpr wchar_t kStatement[] =
    L"SELECT Clientes.Nombre FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente)";
constexpr wchar_t kUnion[] = L"SELECT a FROM t UNION SELECT b FROM u";

HWND OwnDialog() {
    const HWND dialog = FindWindowW(L"TesselDialog", nullptr);
    return dialog && IsWindowVisible(dialog) ? dialog : nullptr;
}

}  // namespace

class TabOrder : public DlgDsnTest {
protected:
    void Walk(const Ids& expected) {
        script_.Do([this] { SetFocus(Control(ui::kIdFocus)); });
        script_.Do([this] { walk_.Begin(window_.Handle(), Control(ui::kIdAddTable)); });
        FinishWalk(expected);
    }
    void FinishWalk(const Ids& expected) {
        script_.Until([this] { return walk_.Step(); },
                      "every control was reached, and showed that it has the keyboard");
        script_.Do([this, expected] {
            EXPECT_EQ(walk_.Visited(), expected);
            EXPECT_TRUE(walk_.IsReadingOrder());
        });
    }
    /// A dialog that `open` opens; closed by Esc.
    void WalkDialog(std::function<void()> open, const Ids& expected) {
        script_.Do(std::move(open));
        script_.Until([] { return OwnDialog() && GetAncestor(GetFocus(), GA_ROOT) == OwnDialog(); },
                      "the dialog is open");
        script_.Do([this] {
            SetFocus(nullptr);
            walk_.Begin(OwnDialog(), GetNextDlgTabItem(OwnDialog(), nullptr, FALSE));
        });
        FinishWalk(expected);
        script_.Do([] { PressKey(VK_ESCAPE); });
        script_.Until([] { return OwnDialog() == nullptr; }, "the dialog is closed");
    }
    void Cancel(const wchar_t* statement) {
        script_.Do([this] { Press(ui::kIdCancel); });
        EXPECT_FALSE(Run(statement));
    }

    TabWalk walk_;
};

TEST_F(TabOrder, OnTheDesignTabIsThatOfReading) {
    Walk({ui::kIdAddTable, ui::kIdSyntaxTree, kSearch, kTree, kBar, kList, kBar, ui::kIdTabs, ui::kIdDiagram,
          kBar, ui::kIdRemoveColumn, ui::kIdClearAll, ui::kIdDistinct, ui::kIdGrid, ui::kIdAccept,
          ui::kIdCancel, ui::kIdHelp});
    Cancel(kStatement);
}

TEST_F(TabOrder, OnAnEmptyDesignTheDiagramIsSeenToHaveTheKeyboardToo) {
    Walk({ui::kIdAddTable, ui::kIdSyntaxTree, kSearch, kTree, kBar, kList, kBar, ui::kIdTabs, ui::kIdDiagram,
          kBar, ui::kIdDistinct, ui::kIdGrid, ui::kIdAccept, ui::kIdCancel, ui::kIdHelp});
    Cancel(L"");
}

// The editor keeps the Tab key for itself; F6 leaves it.
TEST_F(TabOrder, OnTheSqlTabEndsInTheEditorWhichF6Leaves) {
    script_.Do([this] { SetFocus(Control(ui::kIdFocus)); });
    script_.Do([this] { walk_.Begin(window_.Handle(), Control(ui::kIdSyntaxTree)); });
    script_.Until([this] { return walk_.Step(ui::kIdEditor); }, "the editor shows that it has the keyboard");
    script_.Do([this] {
        EXPECT_EQ(walk_.Visited(),
                  (Ids{ui::kIdSyntaxTree, kSearch, kTree, kBar, kList, kBar, ui::kIdTabs, ui::kIdEditor}));
        PressKey(VK_F6);
    });
    script_.Until([this] { return GetFocus() == Control(ui::kIdAccept); }, "F6 goes on to the buttons");
    Cancel(kUnion);
}

TEST_F(TabOrder, WithoutADesignReachesTheLinkToTheReason) {
    script_.Do([] { PressKey(VK_TAB, false, true); });
    script_.Until([this] { return window_.Presenter().CurrentTab() == ui::Tab::Design && !GridIsVisible(); },
                  "the design tab without a design");
    script_.Do([this] { SetFocus(Control(ui::kIdFocus)); });
    script_.Do([this] { walk_.Begin(window_.Handle(), Control(ui::kIdSyntaxTree)); });
    FinishWalk({ui::kIdSyntaxTree, kSearch, kTree, kBar, kList, kBar, ui::kIdTabs, ui::kIdReasonLink,
                ui::kIdAccept, ui::kIdCancel, ui::kIdHelp});
    Cancel(kUnion);
}

TEST_F(TabOrder, InAddTableIsThatOfReading) {
    WalkDialog([this] { Press(ui::kIdAddTable); }, {301, 302, 303, 305, 304, IDCANCEL});
    Cancel(kStatement);
}

TEST_F(TabOrder, InTheSyntaxTreeIsThatOfReading) {
    WalkDialog([this] { Press(ui::kIdSyntaxTree); }, {201, IDCANCEL});
    Cancel(kStatement);
}

TEST_F(TabOrder, InTheRelationIsThatOfReading) {
    WalkDialog(
        [this] {
            window_.Presenter().Design().diagram.SelectRelation(Diagram().Relations()[0].key);
            SetFocus(Control(ui::kIdDiagram));
            PressKey(VK_RETURN);
        },
        {312, IDOK, IDCANCEL});
    Cancel(kStatement);
}

TEST(TabOrderOfThePreview, IsThatOfReadingWithTheFindBar) {
    test::LiteralRows rows({L"Nombre", L"Ciudad"}, {{L"Ana", L"Madrid"}, {L"Luz", L"Lima"}});
    win32::ActivationContext context;
    ui::dlgPVW window(rows);
    Script script;
    TabWalk walk;
    script.OnTrouble([&] { PostMessageW(window.Handle(), WM_CLOSE, 0, 0); });
    script.Until([&] { return window.Handle() && IsWindowVisible(window.Handle()); }, "visible");
    script.Do([] { PressKey('F', false, true); });
    script.Until([&] { return GetFocus() == Descendant(window.Handle(), ui::FindBar::kIdText); },
                 "the find bar");
    script.Do([&] {
        SetFocus(nullptr);
        walk.Begin(window.Handle(), window.List());
    });
    script.Until([&] { return walk.Step(); },
                 "every control was reached, and showed that it has the keyboard");
    script.Do([&] {
        EXPECT_EQ(walk.Visited(), (Ids{ui::dlgPVW::kIdRows, ui::FindBar::kIdText, ui::FindBar::kIdNext,
                                       ui::FindBar::kIdPrevious, IDCANCEL}));
        EXPECT_TRUE(walk.IsReadingOrder());
        PostMessageW(window.Handle(), WM_CLOSE, 0, 0);
    });
    script.Start();
    EXPECT_FALSE(window.Show(nullptr));
    EXPECT_TRUE(script.Finished()) << script.Trouble();
}

}  // namespace tessel::testing
