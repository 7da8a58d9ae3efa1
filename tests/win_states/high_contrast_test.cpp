// In high contrast our own controls keep to the system's colours, unmixed.
#include <windows.h>

#include <map>
#include <set>

#include "common/win32/dpi.h"
#include "common/win32/screen.h"
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

namespace tessel::testing {

namespace {

class HighContrast : public DlgDsnTest {
protected:
    /// The colours of the control as it is on the screen now, each with its pixels.
    std::map<COLORREF, int> ColoursOf(HWND control) {
        RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        RECT client{};
        GetClientRect(control, &client);
        const HDC dc = GetDC(control);
        std::map<COLORREF, int> colours;
        // Every third pixel both ways: asking for one is a slow call.
        for (LONG y = 0; y < client.bottom; y += 3)
            for (LONG x = 0; x < client.right; x += 3) ++colours[GetPixel(dc, x, y)];
        ReleaseDC(control, dc);
        return colours;
    }

    /// How many of a thousand pixels are of none of the system's colours: the edges of smooth letters and
    /// marks.
    static int Mixed(const std::map<COLORREF, int>& colours) {
        int all = 0;
        int mixed = 0;
        for (const auto& [colour, count] : colours) {
            all += count;
            if (!SystemColours().contains(colour)) mixed += count;
        }
        return all ? mixed * 1000 / all : 1000;
    }

    static std::set<COLORREF> SystemColours() {
        std::set<COLORREF> colours;
        for (const int element : {COLOR_WINDOW, COLOR_WINDOWTEXT, COLOR_BTNFACE, COLOR_BTNTEXT,
                                  COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT, COLOR_GRAYTEXT})
            colours.insert(GetSysColor(element));
        return colours;
    }

    /// Looks at the window in high contrast, and leaves.
    void Look(const std::function<void()>& look) {
        script_.Do([this, look] {
            const win32::SimulatedScreen screen(win32::DpiOf(window_.Handle()),
                                                win32::WorkAreaOf(window_.Handle()), true);
            SendMessageW(window_.Handle(), WM_SYSCOLORCHANGE, 0, 0);
            look();
        });
        script_.Do([this] { Press(ui::kIdCancel); });
        Run(kTotalsByCustomer);
    }
};

constexpr int kLettersAndMarks = 60;  // of a thousand

}  // namespace

TEST_F(HighContrast, GridMixesNoColours) {
    Look([this] {
        const auto colours = ColoursOf(Control(ui::kIdGrid));
        EXPECT_LE(Mixed(colours), kLettersAndMarks);
    });
}

TEST_F(HighContrast, FocusedCellAndItsHeadersStandOutInTheHighlightColour) {
    Look([this] {
        SetFocus(Control(ui::kIdGrid));
        EXPECT_GT(ColoursOf(Control(ui::kIdGrid))[GetSysColor(COLOR_HIGHLIGHT)], 0);
    });
}

TEST_F(HighContrast, DiagramMixesNoColours) {
    Look([this] { EXPECT_LE(Mixed(ColoursOf(Control(ui::kIdDiagram))), kLettersAndMarks); });
}

TEST_F(HighContrast, SelectedTableOfTheDiagramStandsOutInTheHighlightColour) {
    Look([this] {
        window_.Presenter().Design().diagram.SelectTable(L"Pedidos");
        EXPECT_GT(ColoursOf(Control(ui::kIdDiagram))[GetSysColor(COLOR_HIGHLIGHT)], 0);
    });
}

TEST_F(HighContrast, FocusedBarOfASplitterIsTheHighlightColour) {
    Look([this] {
        const HWND bar =
            FindWindowExW(Control(ui::kIdMainSplitter), nullptr, L"TesselSplitterGripV", nullptr);
        ASSERT_NE(bar, nullptr);
        SetFocus(bar);
        const auto colours = ColoursOf(bar);
        EXPECT_GT(colours.contains(GetSysColor(COLOR_HIGHLIGHT)), 0);
        EXPECT_LE(Mixed(colours), kLettersAndMarks);
    });
}

TEST_F(HighContrast, EndsWithTheColoursOfBefore) {
    std::map<COLORREF, int> before;
    script_.Do([&] { before = ColoursOf(Control(ui::kIdDiagram)); });
    script_.Do([this] {
        const win32::SimulatedScreen screen(win32::DpiOf(window_.Handle()),
                                            win32::WorkAreaOf(window_.Handle()), true);
        SendMessageW(window_.Handle(), WM_SYSCOLORCHANGE, 0, 0);
    });
    script_.Do([&] {
        SendMessageW(window_.Handle(), WM_SYSCOLORCHANGE, 0, 0);
        EXPECT_EQ(ColoursOf(Control(ui::kIdDiagram)), before);
        Press(ui::kIdCancel);
    });
    Run(kTotalsByCustomer);
}

}  // namespace tessel::testing
