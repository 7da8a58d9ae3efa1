// What the host, the screens and Windows do to the window while it is open.
#include <windows.h>

#include <commctrl.h>

#include "common/win32/dpi.h"
#include "common/win32/modal_loop.h"
#include "common/win32/screen.h"
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

namespace tessel::testing {

namespace {

constexpr wchar_t kStatement[] = L"SELECT Clientes.Nombre FROM Clientes";

HWND MakeHostWindow(const wchar_t* text = L"host") {
    return CreateWindowExW(0, L"STATIC", text, WS_OVERLAPPED | WS_VISIBLE, 0, 0, 200, 100, nullptr, nullptr,
                           nullptr, nullptr);
}

HWND OpenDialog() {
    const HWND dialog = FindWindowW(L"TesselDialog", nullptr);
    return dialog && IsWindowVisible(dialog) ? dialog : nullptr;
}

RECT PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

bool IsInside(HWND window, const RECT& area) {
    const RECT place = PlaceOf(window);
    return place.left >= area.left && place.top >= area.top && place.right <= area.right &&
           place.bottom <= area.bottom;
}

bool QuitIsWaiting(WPARAM code) {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        if (message.message == WM_QUIT) return message.wParam == code;
    return false;
}

LONG HeightOf(HFONT font) {
    LOGFONTW description{};
    GetObjectW(font, sizeof description, &description);
    return description.lfHeight;
}

LONG FontHeight(HWND control) {
    return HeightOf(reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
}

class WindowStates : public DlgDsnTest {
protected:
    HWND Window() { return window_.Handle(); }
    void OpenAddTable() {
        script_.Do([this] { Press(ui::kIdAddTable); });
        script_.Until([] { return OpenDialog() != nullptr; }, "the dialog is open");
    }
    void CancelAtTheEnd() {
        script_.Do([this] { Press(ui::kIdCancel); });
    }
};

}  // namespace

TEST_F(WindowStates, MinimisedAndRestoredEverythingIsWhereItWas) {
    RECT grid{};
    script_.Do([&] {
        grid = PlaceOf(Control(ui::kIdGrid));
        ShowWindow(Window(), SW_MINIMIZE);
        EXPECT_TRUE(IsIconic(Window()));
        ShowWindow(Window(), SW_RESTORE);
    });
    script_.Until([this] { return !IsIconic(Window()); }, "restored");
    script_.Do([&] {
        const RECT now = PlaceOf(Control(ui::kIdGrid));
        EXPECT_TRUE(EqualRect(&grid, &now));
    });
    CancelAtTheEnd();
    EXPECT_FALSE(Run(kStatement));
}

TEST_F(WindowStates, MaximisedItGivesThePanesWhatThereIs) {
    RECT before{};
    script_.Do([&] {
        before = PlaceOf(Control(ui::kIdDiagram));
        ShowWindow(Window(), SW_MAXIMIZE);
        EXPECT_TRUE(IsZoomed(Window()));
        const RECT now = PlaceOf(Control(ui::kIdDiagram));
        EXPECT_GT(now.bottom - now.top, before.bottom - before.top);
        ShowWindow(Window(), SW_RESTORE);
        const RECT restored = PlaceOf(Control(ui::kIdDiagram));
        EXPECT_TRUE(EqualRect(&before, &restored));
    });
    CancelAtTheEnd();
    Run(kStatement);
}

TEST_F(WindowStates, OpensInsideTheWorkAreaOfTheHostsMonitor) {
    const RECT second{3000, 200, 4000, 900};
    const win32::SimulatedScreen screen(96, second);
    ui::DesignerWindow window(nullptr);
    ASSERT_TRUE(window.Create());
    EXPECT_TRUE(IsInside(window.Handle(), second));
}

TEST_F(WindowStates, OpensWithTheScaleOfTheHostsMonitor) {
    const win32::SimulatedScreen screen(144, RECT{0, 0, 1024, 728});
    ui::DesignerWindow window(nullptr);
    ASSERT_TRUE(window.Create());
    EXPECT_EQ(FontHeight(Descendant(window.Handle(), ui::kIdAccept)),
              HeightOf(win32::MessageFont(144).get()));
}

TEST_F(WindowStates, ScreenThatGoesAwayLeavesTheWindowOnAnother) {
    script_.Do([this] {
        SetWindowPos(Window(), nullptr, 5000, 4000, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        SendMessageW(Window(), WM_DISPLAYCHANGE, 32, MAKELPARAM(1024, 768));
        EXPECT_TRUE(IsInside(Window(), win32::WorkAreaOf(Window())));
    });
    CancelAtTheEnd();
    Run(kStatement);
}

TEST_F(WindowStates, ScreenThatGoesAwayWhileMinimisedLeavesAPlaceToBeRestoredTo) {
    script_.Do([this] {
        SetWindowPos(Window(), nullptr, 5000, 4000, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        ShowWindow(Window(), SW_MINIMIZE);
        SendMessageW(Window(), WM_DISPLAYCHANGE, 32, MAKELPARAM(1024, 768));
        EXPECT_TRUE(IsIconic(Window()));
        ShowWindow(Window(), SW_RESTORE);
        EXPECT_TRUE(IsInside(Window(), win32::WorkAreaOf(Window())));
    });
    CancelAtTheEnd();
    Run(kStatement);
}

TEST_F(WindowStates, TaskBarThatGrowsLeavesTheWindowWhole) {
    script_.Do([this] {
        const RECT smaller{0, 150, 900, 700};
        const win32::SimulatedScreen screen(96, smaller);
        SendMessageW(Window(), WM_SETTINGCHANGE, SPI_SETWORKAREA, 0);
        EXPECT_TRUE(IsInside(Window(), smaller));
    });
    CancelAtTheEnd();
    Run(kStatement);
}

TEST_F(WindowStates, DialogFollowsTheScreensToo) {
    OpenAddTable();
    script_.Do([] {
        SetWindowPos(OpenDialog(), nullptr, 5000, 4000, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        SendMessageW(OpenDialog(), WM_DISPLAYCHANGE, 32, MAKELPARAM(1024, 768));
        EXPECT_TRUE(IsInside(OpenDialog(), win32::WorkAreaOf(OpenDialog())));
        PressKey(VK_ESCAPE);
    });
    script_.Until([] { return !OpenDialog(); }, "the dialog is closed");
    CancelAtTheEnd();
    Run(kStatement);
}

TEST_F(WindowStates, AnotherScaleBringsAnotherFontToEveryControl) {
    const int ids[] = {ui::kIdAccept, ui::kIdRunQuery, ui::kIdClearAll, ui::kIdTabs};
    script_.Do([&] {
        std::vector<LONG> before;
        for (const int id : ids) before.push_back(FontHeight(Control(id)));
        const RECT work{0, 0, 3840, 2080};
        const win32::SimulatedScreen screen(2 * win32::SystemDpiOf(Window()), work);
        RECT suggested{0, 0, 2000, 1360};
        const WORD dpi = static_cast<WORD>(win32::DpiOf(Window()));
        SendMessageW(Window(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
        for (std::size_t i = 0; i < before.size(); ++i)
            EXPECT_NEAR(FontHeight(Control(ids[i])), 2 * before[i], 1);
    });
    CancelAtTheEnd();
    Run(kStatement);
}

TEST_F(WindowStates, SmallScreenIsNotAskedForMoreThanItHas) {
    struct Case {
        int dpi;
        int width;
        int height;
        int expected;
    };
    const Case cases[] = {{96, 1024, 728, 96},  {192, 1024, 768, 192},  {288, 1024, 768, 205},
                          {192, 800, 600, 160}, {288, 3840, 2160, 288}, {96, 400, 300, 96},
                          {120, 640, 480, 120}, {144, 640, 400, 107}};
    for (const Case& c : cases) EXPECT_EQ(win32::FittingDpi(c.dpi, c.width, c.height), c.expected) << c.width;
}

TEST_F(WindowStates, KeyboardComesBackToTheControlThatHadIt) {
    const HWND other = MakeHostWindow();
    script_.Do([this] { SetFocus(Control(ui::kIdAccept)); });
    script_.Do([&] { SetActiveWindow(other); });
    script_.Do([&] { SetActiveWindow(Window()); });
    script_.Until([this] { return GetFocus() == Control(ui::kIdAccept); }, "the focus is back");
    CancelAtTheEnd();
    Run(kStatement);
    DestroyWindow(other);
}

TEST_F(WindowStates, KeyboardComesBackToTheControlOfADialogThatHadIt) {
    const HWND other = MakeHostWindow();
    HWND focus = nullptr;
    OpenAddTable();
    script_.Do([&] {
        focus = GetNextDlgTabItem(OpenDialog(), GetFocus(), FALSE);
        SetFocus(focus);
        SetActiveWindow(other);
    });
    script_.Do([] { SetActiveWindow(OpenDialog()); });
    script_.Until([&] { return focus && GetFocus() == focus; }, "the focus is back");
    script_.Do([] { PostMessageW(OpenDialog(), WM_CLOSE, 0, 0); });
    script_.Until([] { return !OpenDialog(); }, "the dialog is closed");
    CancelAtTheEnd();
    Run(kStatement);
    DestroyWindow(other);
}

TEST_F(WindowStates, ActivationAndFocusReturnToTheHost) {
    const HWND host = MakeHostWindow();
    const HWND edit = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, host, nullptr,
                                      nullptr, nullptr);
    SetActiveWindow(host);
    SetFocus(edit);
    CancelAtTheEnd();
    Run(kStatement);
    EXPECT_EQ(GetActiveWindow(), host);
    EXPECT_EQ(GetFocus(), edit);
    DestroyWindow(host);
}

TEST_F(WindowStates, HostWindowDestroyedMeanwhileChangesNothing) {
    const HWND host = MakeHostWindow();
    SetActiveWindow(host);
    script_.Do([&] { DestroyWindow(host); });
    script_.Do([this] {
        EXPECT_TRUE(IsWindowVisible(Window()));
        Press(ui::kIdAccept);
    });
    EXPECT_TRUE(Run(kStatement));
}

TEST_F(WindowStates, WindowThatTheHostOpensMeanwhileIsLeftAlone) {
    HWND host = nullptr;
    script_.Do([&] { host = MakeHostWindow(); });
    script_.Do([&] { EXPECT_TRUE(IsWindowEnabled(host)); });
    CancelAtTheEnd();
    Run(kStatement);
    EXPECT_TRUE(IsWindowEnabled(host));
    DestroyWindow(host);
}

TEST_F(WindowStates, EveryWindowOfTheHostIsUsableAfterwards) {
    const HWND hosts[] = {MakeHostWindow(L"one"), MakeHostWindow(L"two"), MakeHostWindow(L"three")};
    OpenAddTable();
    script_.Do([&] {
        for (const HWND host : hosts) EXPECT_FALSE(IsWindowEnabled(host));
        PostMessageW(OpenDialog(), WM_CLOSE, 0, 0);
    });
    script_.Until([] { return !OpenDialog(); }, "the dialog is closed");
    script_.Do([&] {
        for (const HWND host : hosts) EXPECT_FALSE(IsWindowEnabled(host)) << "the designer is still open";
    });
    CancelAtTheEnd();
    Run(kStatement);
    for (const HWND host : hosts) {
        EXPECT_TRUE(IsWindowEnabled(host));
        DestroyWindow(host);
    }
}

TEST_F(WindowStates, QuittingThroughADialogEndsBothLoopsAndReachesTheHost) {
    OpenAddTable();
    script_.Do([] { PostQuitMessage(9); });
    EXPECT_FALSE(Run(kStatement));
    EXPECT_FALSE(window_.Presenter().Accepted());
    EXPECT_FALSE(OpenDialog());
    EXPECT_TRUE(QuitIsWaiting(9));
}

TEST_F(WindowStates, CloseMeansNothingWhileADialogIsOpen) {
    OpenAddTable();
    script_.Do([this] { SendMessageW(Window(), WM_CLOSE, 0, 0); });
    script_.Do([this] {
        EXPECT_TRUE(OpenDialog());
        EXPECT_TRUE(IsWindowVisible(Window()));
        PostMessageW(OpenDialog(), WM_CLOSE, 0, 0);
    });
    script_.Until([] { return !OpenDialog(); }, "the dialog is closed");
    script_.Do([this] {
        EXPECT_TRUE(IsWindowVisible(Window()));
        Press(ui::kIdAccept);
    });
    EXPECT_TRUE(Run(kStatement));
}

TEST_F(WindowStates, AltF4ClosesTheInnermostOnly) {
    OpenAddTable();
    script_.Do([] { PressAlt(VK_F4); });
    script_.Until([] { return !OpenDialog(); }, "the dialog is closed");
    script_.Do([this] {
        EXPECT_TRUE(IsWindowVisible(Window()));
        PressAlt(VK_F4);
    });
    EXPECT_FALSE(Run(kStatement));
}

TEST_F(WindowStates, WindowsMayEndAndTheWindowIsCancelled) {
    script_.Do([this] {
        EXPECT_EQ(SendMessageW(Window(), WM_QUERYENDSESSION, 0, 0), TRUE);
        EXPECT_TRUE(IsWindowVisible(Window())) << "somebody else may still refuse";
        SendMessageW(Window(), WM_ENDSESSION, FALSE, 0);
    });
    script_.Do([this] {
        EXPECT_TRUE(IsWindowVisible(Window())) << "somebody refused";
        SendMessageW(Window(), WM_ENDSESSION, TRUE, 0);
    });
    EXPECT_FALSE(Run(kStatement));
}

TEST_F(WindowStates, WindowsEndsWhileADialogIsOpen) {
    OpenAddTable();
    script_.Do([this] {
        // Every top-level window is told.
        const HWND dialog = OpenDialog();
        SendMessageW(Window(), WM_ENDSESSION, TRUE, 0);
        SendMessageW(dialog, WM_ENDSESSION, TRUE, 0);
    });
    EXPECT_FALSE(Run(kStatement));
    EXPECT_FALSE(OpenDialog());
}

TEST_F(WindowStates, WindowsEndsWhileAQuestionIsOpen) {
    script_.Do([this] { Press(ui::kIdClearAll); });
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the question is open");
    script_.Do([this] { SendMessageW(Window(), WM_ENDSESSION, TRUE, 0); });
    EXPECT_FALSE(Run(kStatement));
    EXPECT_FALSE(OpenMessageBox());
}

}  // namespace tessel::testing
