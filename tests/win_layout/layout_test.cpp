// Every window at every scale on every screen: nothing is cut, nothing lies over anything else, everything
// can be reached.
#include <gtest/gtest.h>

#include "common/win32/dpi.h"
#include "common/win32/screen.h"
#include "tests/win_layout/every_window.h"
#include "tests/win_layout/layout_audit.h"

namespace tessel::testing {

namespace {

struct Screen {
    int width;
    int height;
};

constexpr int kScales[] = {96, 120, 144, 192, 288};  // 100, 125, 150, 200 and 300 %
constexpr Screen kScreens[] = {{800, 600}, {1024, 768}, {1366, 768}, {3840, 2160}};
constexpr int kTaskBar = 40;  // dips

RECT WorkArea(const Screen& screen, int dpi) {
    return {0, 0, screen.width, screen.height - win32::Scale(kTaskBar, dpi)};
}

void ExpectNoFaults(HWND window, const std::string& where) {
    Settle();
    for (const std::string& fault : LayoutFaults(window, win32::DpiOf(window)))
        ADD_FAILURE() << where << ": " << fault;
}

RECT PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

class EveryWindow : public ::testing::TestWithParam<Shown> {};

std::string ParameterName(const ::testing::TestParamInfo<Shown>& info) {
    return NameOf(info.param);
}

}  // namespace

// The window is opened once and told of each screen, as a window is that is dragged from monitor to monitor.
TEST_P(EveryWindow, HasRoomForEverythingOnEveryScreenItComesTo) {
    const std::string trouble = Open(GetParam(), [](HWND window) {
        AllowAnySize(window);
        for (const int dpi : kScales)
            for (const Screen& screen : kScreens) {
                const RECT work = WorkArea(screen, dpi);
                const win32::SimulatedScreen simulated(dpi, work);
                const std::string where = std::to_string(dpi) + " dpi on " + std::to_string(screen.width) +
                                          "x" + std::to_string(screen.height);
                BringToScreen(window, work);
                ExpectNoFaults(window, where + ", filled");
                MoveWindow(window, 0, 0, 10, 10, TRUE);
                const RECT least = PlaceOf(window);
                EXPECT_LE(least.right, work.right) << where << ": the smallest size is wider than the screen";
                EXPECT_LE(least.bottom, work.bottom)
                    << where << ": the smallest size is higher than the screen";
                ExpectNoFaults(window, where + ", smallest");
            }
    });
    EXPECT_EQ(trouble, "");
}

TEST_P(EveryWindow, OpensWholeAndInsideTheWorkAreaAtEveryScale) {
    for (const int dpi : kScales) {
        const Screen screen{1024, 768};
        const RECT work = WorkArea(screen, dpi);
        const win32::SimulatedScreen simulated(dpi, work);
        const std::string where = "opened at " + std::to_string(dpi) + " dpi";
        const std::string trouble = Open(GetParam(), [&](HWND window) {
            const RECT place = PlaceOf(window);
            EXPECT_GE(place.left, work.left) << where;
            EXPECT_GE(place.top, work.top) << where;
            EXPECT_LE(place.right, work.right) << where;
            EXPECT_LE(place.bottom, work.bottom) << where;
            ExpectNoFaults(window, where);
        });
        EXPECT_EQ(trouble, "") << where;
    }
}

INSTANTIATE_TEST_SUITE_P(All, EveryWindow, ::testing::ValuesIn(kEveryWindow), ParameterName);

}  // namespace tessel::testing
