#include "controls/splitter/win32/splitter_bar.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include "common/win32/dpi.h"
#include "tests/win_grid/window_driver.h"

namespace tessel::controls {
namespace {

using testing::Click;
using testing::MoveMouse;
using testing::PressKey;
using testing::PressMouse;
using testing::ReleaseMouse;
using testing::TestFrame;

class Counter : public SplitterEvents {
public:
    void OnSplitterResized(int id) override {
        last_id = id;
        ++calls;
    }
    int last_id = 0;
    int calls = 0;
};

constexpr int kSplitterId = 70;
constexpr int kFirstId = 71;
constexpr int kSecondId = 72;

class SplitterBarTest : public ::testing::Test {
protected:
    explicit SplitterBarTest(Orientation orientation = Orientation::SideBySide) {
        splitter_.Create(frame_.Handle(), kSplitterId, orientation, &events_);
        first_ = CreateWindowExW(0, L"EDIT", L"uno", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0,
                                 frame_.Handle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(kFirstId)),
                                 nullptr, nullptr);
        second_ = CreateWindowExW(0, L"BUTTON", L"dos", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0,
                                  frame_.Handle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(kSecondId)),
                                  nullptr, nullptr);
        splitter_.SetPanes(first_, second_);
        splitter_.SetMinimums(50, 60);
        splitter_.SetPosition(200);
        SetWindowPos(splitter_.Handle(), nullptr, 0, 0, Px(506), Px(306), SWP_NOZORDER);
        frame_.Pump();
    }

    int Px(int dips) const { return win32::Scale(dips, win32::DpiOf(frame_.Handle())); }
    RECT Place(HWND hwnd) const {
        RECT rect;
        GetWindowRect(hwnd, &rect);
        MapWindowPoints(nullptr, splitter_.Handle(), reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }
    /// Drags the bar by a distance in pixels and leaves the button down.
    void DragBar(int dx, int dy) {
        RECT bar;
        GetClientRect(splitter_.BarHandle(), &bar);
        const int x = bar.right / 2;
        const int y = bar.bottom / 2;
        MoveMouse(splitter_.BarHandle(), x, y);
        PressMouse();
        frame_.Pump();
        MoveMouse(splitter_.BarHandle(), x + dx, y + dy);
        frame_.Pump();
    }

    TestFrame frame_{700, 500};
    Counter events_;
    SplitterBar splitter_;
    HWND first_ = nullptr;
    HWND second_ = nullptr;
};

class StackedSplitterBarTest : public SplitterBarTest {
protected:
    StackedSplitterBarTest() : SplitterBarTest(Orientation::Stacked) {}
};

TEST_F(SplitterBarTest, PanesAndBarFillTheContainer) {
    const RECT first = Place(first_);
    const RECT bar = Place(splitter_.BarHandle());
    const RECT second = Place(second_);
    EXPECT_EQ(first.left, 0);
    EXPECT_EQ(first.right, Px(200));
    EXPECT_EQ(first.bottom, Px(306));
    EXPECT_EQ(bar.left, first.right);
    EXPECT_EQ(bar.right, second.left);
    EXPECT_EQ(second.right, Px(506));
    EXPECT_EQ(splitter_.Position(), 200);
    EXPECT_EQ(events_.last_id, kSplitterId);
}

TEST_F(StackedSplitterBarTest, PanesLieAboveAndBelow) {
    const RECT first = Place(first_);
    const RECT second = Place(second_);
    EXPECT_EQ(first.right, Px(506));
    EXPECT_EQ(first.bottom, Px(200));
    EXPECT_EQ(second.top, Px(206));
    EXPECT_EQ(second.bottom, Px(306));
}

TEST_F(SplitterBarTest, DraggingMovesThePanesWhileTheButtonIsDown) {
    const int calls = events_.calls;
    DragBar(Px(60), 0);
    EXPECT_TRUE(frame_.WaitFor([&] { return Place(first_).right == Px(260); })) << Place(first_).right;
    EXPECT_GT(events_.calls, calls);
    ReleaseMouse();
    frame_.Pump();
    EXPECT_EQ(splitter_.Position(), 260);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(StackedSplitterBarTest, DraggingMovesUpAndDown) {
    DragBar(0, -Px(80));
    ReleaseMouse();
    EXPECT_TRUE(frame_.WaitFor([&] { return splitter_.Position() == 120; })) << splitter_.Position();
}

TEST_F(SplitterBarTest, DraggingStopsAtTheMinimums) {
    DragBar(-Px(400), 0);
    EXPECT_TRUE(frame_.WaitFor([&] { return splitter_.Position() == 50; })) << splitter_.Position();
    ReleaseMouse();
    frame_.Pump();
    DragBar(Px(500), 0);
    EXPECT_TRUE(frame_.WaitFor([&] { return splitter_.Position() == 440; })) << splitter_.Position();
    ReleaseMouse();
    frame_.Pump();
}

TEST_F(SplitterBarTest, EscapeTakesADragBackAndTheFocusReturns) {
    SetFocus(first_);
    DragBar(Px(60), 0);
    ASSERT_TRUE(frame_.WaitFor([&] { return splitter_.Position() == 260; }));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(frame_.WaitFor([&] { return splitter_.Position() == 200; })) << splitter_.Position();
    EXPECT_EQ(GetFocus(), first_);
    EXPECT_NE(frame_.last_command, IDCANCEL);
    ReleaseMouse();
    frame_.Pump();
    EXPECT_EQ(splitter_.Position(), 200);
}

TEST_F(SplitterBarTest, FocusIsWhereItWasAfterADrag) {
    SetFocus(second_);
    DragBar(Px(30), 0);
    ReleaseMouse();
    EXPECT_TRUE(frame_.WaitFor([&] { return GetFocus() == second_; }));
}

TEST_F(SplitterBarTest, DoubleClickRestoresTheDefault) {
    DragBar(Px(100), 0);
    ReleaseMouse();
    ASSERT_TRUE(frame_.WaitFor([&] { return splitter_.Position() == 300; }));
    testing::DoubleClick(splitter_.BarHandle(), 2, 20);
    EXPECT_TRUE(frame_.WaitFor([&] { return splitter_.Position() == 200; })) << splitter_.Position();
}

TEST_F(SplitterBarTest, ArrowsMoveTheFocusedBar) {
    SetFocus(splitter_.BarHandle());
    PressKey(VK_RIGHT);
    EXPECT_TRUE(frame_.WaitFor([&] { return splitter_.Position() == 208; })) << splitter_.Position();
    PressKey(VK_LEFT);
    PressKey(VK_LEFT);
    EXPECT_TRUE(frame_.WaitFor([&] { return splitter_.Position() == 192; })) << splitter_.Position();
    PressKey(VK_HOME);
    EXPECT_TRUE(frame_.WaitFor([&] { return splitter_.Position() == 50; })) << splitter_.Position();
    PressKey(VK_END);
    EXPECT_TRUE(frame_.WaitFor([&] { return splitter_.Position() == 440; })) << splitter_.Position();
}

TEST_F(SplitterBarTest, TabGoesThroughBothPanesAndTheBar) {
    SetFocus(first_);
    PressKey(VK_TAB);
    EXPECT_TRUE(frame_.WaitFor([&] { return GetFocus() == splitter_.BarHandle(); }));
    PressKey(VK_TAB);
    EXPECT_TRUE(frame_.WaitFor([&] { return GetFocus() == second_; }));
}

TEST_F(SplitterBarTest, CommandsOfThePanesReachTheParent) {
    SendMessageW(second_, BM_CLICK, 0, 0);
    EXPECT_EQ(frame_.last_command, kSecondId);
    const int notifications = frame_.notifications;
    NMHDR header{second_, kSecondId, NM_CLICK};
    SendMessageW(splitter_.Handle(), WM_NOTIFY, kSecondId, reinterpret_cast<LPARAM>(&header));
    EXPECT_EQ(frame_.notifications, notifications + 1);
    SendMessageW(second_, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(second_), MAKELPARAM(20, 20));
    EXPECT_EQ(frame_.context_menus, 1);
}

TEST_F(SplitterBarTest, KeepsTheProportionWhenTheContainerGrows) {
    SetWindowPos(splitter_.Handle(), nullptr, 0, 0, Px(1006), Px(306), SWP_NOZORDER);
    EXPECT_EQ(splitter_.Position(), 400);
}

TEST_F(SplitterBarTest, APaneDestroyedByItsOwnerIsForgotten) {
    DestroyWindow(first_);
    SetWindowPos(splitter_.Handle(), nullptr, 0, 0, Px(406), Px(306), SWP_NOZORDER);
    EXPECT_EQ(Place(second_).right, Px(406));
}

TEST_F(SplitterBarTest, NestedSplittersLayOutInside) {
    SplitterBar inner;
    ASSERT_TRUE(inner.Create(splitter_.Handle(), 80, Orientation::Stacked, nullptr));
    const HWND low = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, inner.Handle(),
                                     nullptr, nullptr, nullptr);
    inner.SetPanes(second_, low);
    inner.SetPosition(100);
    splitter_.SetPanes(first_, inner.Handle());
    EXPECT_EQ(inner.Position(), 100);
    SendMessageW(second_, BM_CLICK, 0, 0);
    EXPECT_EQ(frame_.last_command, kSecondId);
    frame_.Pump();
    testing::SavePicture(frame_.Handle(), "splitter_nested");
}

}  // namespace
}  // namespace tessel::controls
