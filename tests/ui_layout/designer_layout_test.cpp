#include "ui/designer_layout.h"

#include <gtest/gtest.h>

using namespace tessel::ui;

TEST(FormResize, SplitterFillsWhatTopAndBottomLeave) {
    EXPECT_EQ(SplitterBox(15000, 9000, 600, 700), (TwipsBox{0, 600, 15000, 7700}));
}

TEST(FormResize, SplitterOfNoHeightIsStillPlaced) {
    EXPECT_EQ(SplitterBox(15000, 1300, 600, 700), (TwipsBox{0, 600, 15000, 0}));
}

TEST(FormResize, NegativeHeightChangesNothing) {
    EXPECT_EQ(SplitterBox(15000, 1299, 600, 700), std::nullopt);
}

TEST(FormResize, MinimisedFormChangesNothing) {
    EXPECT_EQ(SplitterBox(0, 0, 600, 700), std::nullopt);
}

TEST(FormResize, ButtonsStayAtTheRightEdge) {
    EXPECT_EQ(ButtonsLeft(15000, 4200), 10800);
}

TEST(SplitterResize, GridIsSmallerThanItsPane) {
    EXPECT_EQ(GridSize(9000, 4000), (TwipsSize{8910, 3610}));
    EXPECT_EQ(kGridTop, 300);
}

TEST(SplitterResize, NegativeGridWidthOrHeightDoesNotApply) {
    EXPECT_EQ(GridSize(89, 4000), (TwipsSize{std::nullopt, 3610}));
    EXPECT_EQ(GridSize(9000, 389), (TwipsSize{8910, std::nullopt}));
    EXPECT_EQ(GridSize(90, 390), (TwipsSize{0, 0}));
}

TEST(SplitterResize, PagesAreSmallerThanTheTabStrip) {
    EXPECT_EQ(PageSize(9000, 6000), (TwipsSize{8820, 5445}));
}

TEST(SplitterResize, NegativePageWidthOrHeightDoesNotApply) {
    EXPECT_EQ(PageSize(179, 554), (TwipsSize{std::nullopt, std::nullopt}));
    EXPECT_EQ(PageSize(180, 555), (TwipsSize{0, 0}));
}
