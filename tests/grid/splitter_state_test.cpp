#include "controls/splitter/splitter_state.h"

#include <gtest/gtest.h>

namespace tessel::controls {
namespace {

SplitterState Splitter(int length, int bar, int first_minimum, int second_minimum) {
    SplitterState state;
    state.SetMetrics(bar, first_minimum, second_minimum);
    state.SetLength(length);
    return state;
}

TEST(Splitter, StartsInTheMiddle) {
    const SplitterState state = Splitter(206, 6, 0, 0);
    EXPECT_EQ(state.Position(), 100);
    EXPECT_EQ(state.SecondSize(), 100);
}

TEST(Splitter, PanesAndBarFillTheLength) {
    SplitterState state = Splitter(501, 6, 10, 20);
    for (int position : {-5, 0, 17, 250, 480, 900}) {
        state.SetPosition(position);
        EXPECT_EQ(state.Position() + state.Bar() + state.SecondSize(), 501) << position;
    }
}

TEST(Splitter, PositionRespectsTheMinimums) {
    struct Case {
        int asked;
        int got;
    };
    const Case cases[] = {{0, 50}, {50, 50}, {120, 120}, {230, 230}, {231, 230}, {1000, 230}, {-40, 50}};
    for (const Case& c : cases) {
        SplitterState state = Splitter(310, 10, 50, 70);
        state.SetPosition(c.asked);
        EXPECT_EQ(state.Position(), c.got) << c.asked;
    }
}

TEST(Splitter, PositionGivenBeforeTheLengthIsTakenWhenTheLengthComes) {
    SplitterState state;
    state.SetMetrics(6, 40, 40);
    state.SetPosition(150);
    EXPECT_EQ(state.Position(), 0);
    state.SetLength(1006);
    EXPECT_EQ(state.Position(), 150);
}

TEST(Splitter, KeepsTheProportionWhenResized) {
    SplitterState state = Splitter(1006, 6, 0, 0);
    state.SetPosition(250);
    state.SetLength(2006);
    EXPECT_EQ(state.Position(), 500);
    state.SetLength(506);
    EXPECT_EQ(state.Position(), 125);
}

TEST(Splitter, ReturnsToItsProportionAfterBeingTooSmall) {
    SplitterState state = Splitter(1006, 6, 200, 200);
    state.SetPosition(250);
    state.SetLength(306);
    state.SetLength(0);
    state.SetLength(1006);
    EXPECT_EQ(state.Position(), 250);
}

TEST(Splitter, ResizingManyTimesDoesNotDrift) {
    SplitterState state = Splitter(1006, 6, 50, 50);
    state.SetPosition(333);
    for (int length = 1005; length > 200; --length) state.SetLength(length);
    for (int length = 200; length <= 1006; ++length) state.SetLength(length);
    EXPECT_EQ(state.Position(), 333);
}

TEST(Splitter, TooLittleRoomIsSharedByTheMinimums) {
    const SplitterState state = Splitter(106, 6, 100, 300);
    EXPECT_EQ(state.Position(), 25);
    EXPECT_EQ(state.SecondSize(), 75);
}

TEST(Splitter, NoRoomAtAllGivesNothingNegative) {
    for (int length : {0, 1, 6}) {
        const SplitterState state = Splitter(length, 6, 100, 300);
        EXPECT_EQ(state.Position(), 0) << length;
        EXPECT_EQ(state.SecondSize(), 0) << length;
    }
}

TEST(Splitter, DragKeepsTheBarUnderThePointer) {
    SplitterState state = Splitter(1006, 6, 100, 100);
    state.SetPosition(300);
    state.BeginDrag(303);
    EXPECT_TRUE(state.IsDragging());
    EXPECT_TRUE(state.DragTo(413));
    EXPECT_EQ(state.Position(), 410);
    EXPECT_FALSE(state.DragTo(413));
    state.EndDrag();
    EXPECT_FALSE(state.DragTo(500));
    EXPECT_EQ(state.Position(), 410);
}

TEST(Splitter, DragPastAMinimumComesBackWithThePointer) {
    SplitterState state = Splitter(1006, 6, 100, 100);
    state.SetPosition(300);
    state.BeginDrag(300);
    state.DragTo(-50);
    EXPECT_EQ(state.Position(), 100);
    EXPECT_FALSE(state.DragTo(60));
    EXPECT_TRUE(state.DragTo(160));
    EXPECT_EQ(state.Position(), 160);
}

TEST(Splitter, CancelledDragRestoresThePositionAndTheProportion) {
    SplitterState state = Splitter(1006, 6, 100, 100);
    state.SetPosition(300);
    state.BeginDrag(300);
    state.DragTo(700);
    state.CancelDrag();
    EXPECT_FALSE(state.IsDragging());
    EXPECT_EQ(state.Position(), 300);
    state.SetLength(2006);
    EXPECT_EQ(state.Position(), 600);
}

TEST(Splitter, KeyboardMovesByStepsAndToTheEnds) {
    SplitterState state = Splitter(1006, 6, 100, 200);
    state.SetPosition(300);
    EXPECT_TRUE(state.MoveBy(8));
    EXPECT_EQ(state.Position(), 308);
    EXPECT_TRUE(state.MoveToStart());
    EXPECT_EQ(state.Position(), 100);
    EXPECT_FALSE(state.MoveBy(-8));
    EXPECT_TRUE(state.MoveToEnd());
    EXPECT_EQ(state.Position(), 800);
    EXPECT_FALSE(state.MoveBy(8));
}

TEST(Splitter, NewMinimumsMoveTheBar) {
    SplitterState state = Splitter(1006, 6, 0, 0);
    state.SetPosition(100);
    state.SetMetrics(6, 250, 100);
    EXPECT_EQ(state.Position(), 250);
}

}  // namespace
}  // namespace tessel::controls
