#include "controls/grid/grid_layout.h"

#include <gtest/gtest.h>

namespace tessel::controls {

void PrintTo(const GridRect& rect, std::ostream* out) {
    *out << rect.left << "," << rect.top << "," << rect.right << "," << rect.bottom;
}

void PrintTo(const GridHit& hit, std::ostream* out) {
    *out << "part " << static_cast<int>(hit.part) << " row " << static_cast<int>(hit.row) << " column "
         << hit.column;
}

namespace {

using model::GridRow;

// Captions 100 wide, header 30 high, rows 20 high: the cells begin at (100, 30).
GridMetrics Metrics() {
    GridMetrics metrics;
    metrics.captions_width = 100;
    metrics.header_height = 30;
    metrics.row_height = 20;
    metrics.divider_reach = 4;
    metrics.arrow_width = 15;
    return metrics;
}

GridLayout Layout(int width, int height, std::vector<GridColumnExtent> columns) {
    GridLayout layout;
    layout.SetMetrics(Metrics());
    layout.SetClient(width, height);
    layout.SetColumns(std::move(columns));
    return layout;
}

std::vector<GridColumnExtent> Equal(int count, int width) {
    std::vector<GridColumnExtent> columns;
    for (int i = 0; i < count; ++i) columns.push_back({i, width});
    return columns;
}

TEST(GridLayout, AreasTileTheClient) {
    const GridLayout layout = Layout(500, 200, Equal(60, 80));
    EXPECT_EQ(layout.CornerArea(), (GridRect{0, 0, 100, 30}));
    EXPECT_EQ(layout.HeaderArea(), (GridRect{100, 0, 500, 30}));
    EXPECT_EQ(layout.CaptionsArea(), (GridRect{0, 30, 100, 200}));
    EXPECT_EQ(layout.CellsArea(), (GridRect{100, 30, 500, 200}));
}

TEST(GridLayout, ClientSmallerThanItsFixedPartsHasNoNegativeArea) {
    const GridLayout layout = Layout(60, 20, Equal(60, 80));
    for (const GridRect& area :
         {layout.CornerArea(), layout.HeaderArea(), layout.CaptionsArea(), layout.CellsArea()}) {
        EXPECT_GE(area.Width(), 0);
        EXPECT_GE(area.Height(), 0);
    }
    EXPECT_EQ(layout.VisibleRange(), (GridLayout::Range{0, 0}));
}

TEST(GridLayout, CellsFollowOneAnotherWithoutGaps) {
    const GridLayout layout = Layout(500, 200, {{0, 80}, {1, 50}, {2, 120}});
    EXPECT_EQ(layout.CellRect(GridRow::Campo, 0), (GridRect{100, 30, 180, 50}));
    EXPECT_EQ(layout.CellRect(GridRow::Titulo, 1), (GridRect{180, 50, 230, 70}));
    EXPECT_EQ(layout.CellRect(GridRow::Or, 2), (GridRect{230, 170, 350, 190}));
    EXPECT_EQ(layout.HeaderRect(2), (GridRect{230, 0, 350, 30}));
    EXPECT_EQ(layout.CaptionRect(GridRow::Tabla), (GridRect{0, 70, 100, 90}));
    EXPECT_EQ(layout.ArrowRect(GridRow::Titulo, 1), (GridRect{215, 50, 230, 70}));
}

TEST(GridLayout, HiddenColumnsTakeNoRoomAndHaveNoCell) {
    const GridLayout layout = Layout(500, 200, {{0, 80}, {2, 80}, {5, 80}});
    EXPECT_TRUE(layout.CellRect(GridRow::Campo, 1).IsEmpty());
    EXPECT_TRUE(layout.HeaderRect(3).IsEmpty());
    EXPECT_EQ(layout.CellRect(GridRow::Campo, 2).left, 180);
    EXPECT_EQ(layout.CellRect(GridRow::Campo, 5).left, 260);
    EXPECT_EQ(layout.ContentWidth(), 240);
}

TEST(GridLayout, HitTestNamesWhatIsUnderThePoint) {
    const GridLayout layout = Layout(500, 200, {{0, 80}, {2, 80}, {3, 80}});
    struct Case {
        int x;
        int y;
        GridHit hit;
    };
    const Case cases[] = {
        {5, 5, {GridPart::Corner}},
        {5, 30, {GridPart::Caption, GridRow::Campo}},
        {99, 189, {GridPart::Caption, GridRow::Or}},
        {5, 190, {}},
        {100, 30, {GridPart::Cell, GridRow::Campo, 0}},
        {179, 49, {GridPart::Cell, GridRow::Campo, 0}},
        {180, 50, {GridPart::Cell, GridRow::Titulo, 2}},
        {339, 189, {GridPart::Cell, GridRow::Or, 3}},
        {340, 60, {}},
        {200, 190, {}},
        {140, 10, {GridPart::Header, GridRow::Campo, 0}},
        {176, 10, {GridPart::Divider, GridRow::Campo, 0}},
        {183, 10, {GridPart::Divider, GridRow::Campo, 0}},
        {184, 10, {GridPart::Header, GridRow::Campo, 2}},
        {343, 29, {GridPart::Divider, GridRow::Campo, 3}},
        {344, 10, {}},
        {-1, 40, {}},
        {500, 40, {}},
    };
    for (const Case& c : cases) EXPECT_EQ(layout.HitTest(c.x, c.y), c.hit) << c.x << "," << c.y;
}

TEST(GridLayout, HitTestFollowsTheScrollPosition) {
    GridLayout layout = Layout(300, 200, Equal(60, 80));
    layout.ScrollTo(90, 0);
    EXPECT_EQ(layout.HitTest(100, 40), (GridHit{GridPart::Cell, GridRow::Campo, 1}));
    EXPECT_EQ(layout.HitTest(170, 40), (GridHit{GridPart::Cell, GridRow::Campo, 2}));
    EXPECT_EQ(layout.HitTest(169, 5), (GridHit{GridPart::Divider, GridRow::Campo, 1}));
    EXPECT_EQ(layout.HitTest(50, 40), (GridHit{GridPart::Caption, GridRow::Campo}));
}

TEST(GridLayout, NarrowColumnCanBeTakenHoldOfAgain) {
    const GridLayout layout = Layout(500, 200, {{0, 80}, {1, 3}, {2, 80}});
    EXPECT_EQ(layout.HitTest(181, 5), (GridHit{GridPart::Divider, GridRow::Campo, 1}));
}

TEST(GridLayout, VisibleRangeHoldsPartlyShownColumns) {
    GridLayout layout = Layout(300, 200, Equal(60, 80));
    EXPECT_EQ(layout.VisibleRange(), (GridLayout::Range{0, 3}));
    layout.ScrollTo(80, 0);
    EXPECT_EQ(layout.VisibleRange(), (GridLayout::Range{1, 4}));
    layout.ScrollTo(79, 0);
    EXPECT_EQ(layout.VisibleRange(), (GridLayout::Range{0, 4}));
    layout.ScrollTo(100000, 0);
    EXPECT_EQ(layout.ScrollX(), 60 * 80 - 200);
    EXPECT_EQ(layout.VisibleRange(), (GridLayout::Range{57, 60}));
}

TEST(GridLayout, ScrollStaysInsideWhatExists) {
    GridLayout layout = Layout(300, 110, Equal(10, 80));
    EXPECT_FALSE(layout.ScrollTo(-10, -10));
    EXPECT_TRUE(layout.ScrollTo(10000, 10000));
    EXPECT_EQ(layout.ScrollX(), layout.MaximumScrollX());
    EXPECT_EQ(layout.ScrollY(), 160 - 80);
    layout.SetClient(2000, 2000);
    EXPECT_EQ(layout.ScrollX(), 0);
    EXPECT_EQ(layout.ScrollY(), 0);
}

TEST(GridLayout, FewerColumnsPullTheScrollBack) {
    GridLayout layout = Layout(300, 200, Equal(60, 80));
    layout.ScrollTo(100000, 0);
    layout.SetColumns(Equal(4, 80));
    EXPECT_EQ(layout.ScrollX(), 4 * 80 - 200);
}

TEST(GridLayout, ColumnStepsStopAtColumnStarts) {
    GridLayout layout = Layout(300, 200, Equal(60, 80));
    EXPECT_EQ(layout.ColumnStepX(true), 80);
    EXPECT_EQ(layout.ColumnStepX(false), 0);
    layout.ScrollTo(100, 0);
    EXPECT_EQ(layout.ColumnStepX(true), 160);
    EXPECT_EQ(layout.ColumnStepX(false), 80);
    layout.ScrollTo(160, 0);
    EXPECT_EQ(layout.ColumnStepX(false), 80);
}

TEST(GridLayout, PageStepsReachEveryColumnOnce) {
    GridLayout layout = Layout(300, 200, Equal(60, 80));
    EXPECT_EQ(layout.PageStepX(true), 160);  // columns 0 and 1 were whole, 2 was cut off
    layout.ScrollTo(160, 0);
    EXPECT_EQ(layout.PageStepX(true), 320);
    EXPECT_EQ(layout.PageStepX(false), 0);
    int pages = 0;
    for (layout.ScrollTo(0, 0); layout.ScrollTo(layout.PageStepX(true), 0);) ++pages;
    EXPECT_EQ(layout.ScrollX(), layout.MaximumScrollX());
    EXPECT_EQ(pages, 29);
    while (layout.ScrollTo(layout.PageStepX(false), 0)) --pages;
    EXPECT_EQ(layout.ScrollX(), 0);
}

TEST(GridLayout, PageStepPassesAColumnWiderThanTheView) {
    GridLayout layout = Layout(300, 200, {{0, 600}, {1, 80}, {2, 600}, {3, 80}});
    EXPECT_EQ(layout.PageStepX(true), 600);
    layout.ScrollTo(680, 0);
    EXPECT_EQ(layout.PageStepX(false), 600);
    layout.ScrollTo(600, 0);
    EXPECT_EQ(layout.PageStepX(false), 0);
}

TEST(GridLayout, EnsureVisibleScrollsAsLittleAsPossible) {
    GridLayout layout = Layout(300, 200, Equal(60, 80));
    EXPECT_FALSE(layout.EnsureVisible(GridRow::Campo, 1));
    EXPECT_TRUE(layout.EnsureVisible(GridRow::Campo, 2));
    EXPECT_EQ(layout.ScrollX(), 40);
    EXPECT_TRUE(layout.EnsureVisible(GridRow::Campo, 59));
    EXPECT_EQ(layout.ScrollX(), 60 * 80 - 200);
    EXPECT_TRUE(layout.EnsureVisible(GridRow::Campo, 0));
    EXPECT_EQ(layout.ScrollX(), 0);
}

TEST(GridLayout, EnsureVisibleShowsTheStartOfAColumnWiderThanTheView) {
    GridLayout layout = Layout(300, 200, {{0, 80}, {1, 500}, {2, 80}});
    layout.EnsureVisible(GridRow::Campo, 1);
    EXPECT_EQ(layout.ScrollX(), 80);
}

TEST(GridLayout, EnsureVisibleScrollsRowsInALowClient) {
    GridLayout layout = Layout(300, 30 + 50, Equal(10, 80));
    EXPECT_TRUE(layout.EnsureVisible(GridRow::Or, 0));
    EXPECT_EQ(layout.ScrollY(), 160 - 50);
    EXPECT_TRUE(layout.EnsureVisible(GridRow::Campo, 0));
    EXPECT_EQ(layout.ScrollY(), 0);
}

TEST(GridLayout, NoColumnsAtAllIsHarmless) {
    GridLayout layout = Layout(300, 200, {});
    EXPECT_EQ(layout.ContentWidth(), 0);
    EXPECT_EQ(layout.ColumnStepX(true), 0);
    EXPECT_EQ(layout.ColumnStepX(false), 0);
    EXPECT_EQ(layout.PageStepX(true), 0);
    EXPECT_EQ(layout.HitTest(150, 40), GridHit{});
    EXPECT_EQ(layout.HitTest(150, 5), GridHit{});
    EXPECT_FALSE(layout.EnsureVisible(GridRow::Campo, 3));
    EXPECT_FALSE(layout.ScrollTo(50, 50));
}

TEST(GridLayout, IntersectionOfRectanglesApartIsEmptyAtTheOrigin) {
    EXPECT_EQ(Intersection({0, 0, 10, 10}, {10, 0, 20, 10}), GridRect{});
    EXPECT_EQ(Intersection({0, 0, 10, 10}, {5, 5, 20, 20}), (GridRect{5, 5, 10, 10}));
}

}  // namespace
}  // namespace tessel::controls
