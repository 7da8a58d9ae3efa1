#include "controls/diagram/diagram_box.h"

#include <gtest/gtest.h>

#include "controls/diagram/diagram_marks.h"
#include "controls/diagram/diagram_texts.h"
#include "controls/diagram/diagram_viewport.h"
#include "tests/diagram/fixed_measurer.h"

namespace tessel::controls::diagram {
namespace {

model::DiagramTable TableOf(int fields, std::wstring name = L"Tabla") {
    model::DiagramTable table;
    table.name = std::move(name);
    for (int i = 1; i <= fields; ++i)
        table.fields.push_back({L"Campo" + std::to_wstring(i), false, false, false, L""});
    return table;
}

TEST(DiagramBox, TheFirstRowIsAllFields) {
    model::DiagramTable table = TableOf(2);
    EXPECT_EQ(RowCount(table), 3);
    EXPECT_EQ(RowName(table, 0), L"*");
    EXPECT_EQ(RowName(table, 2), L"Campo2");
    EXPECT_EQ(RowName(table, 3), L"");
    EXPECT_EQ(RowField(table, 0), nullptr);
    EXPECT_EQ(RowOf(table, L"*"), 0);
    EXPECT_EQ(RowOf(table, L" [CAMPO2] "), 2);
    EXPECT_EQ(RowOf(table, L"Otro"), -1);
    EXPECT_FALSE(RowChecked(table, 0));
    table.all_checked = true;
    EXPECT_TRUE(RowChecked(table, 0));
    EXPECT_FALSE(RowChecked(table, 1));
}

TEST(DiagramBox, ABoxIsAsLargeAsItsContentsWithinLimits) {
    const BoxMetrics metrics;
    const FixedMeasurer measurer;
    EXPECT_EQ(NaturalSize(TableOf(0, L"T"), metrics, measurer).height,
              metrics.title_height + metrics.row_height + 4);
    EXPECT_EQ(NaturalSize(TableOf(5), metrics, measurer).height,
              metrics.title_height + 6 * metrics.row_height + 4);
    EXPECT_EQ(NaturalSize(TableOf(200), metrics, measurer).height,
              metrics.title_height + metrics.max_rows * metrics.row_height + 4);
    EXPECT_EQ(NaturalSize(TableOf(1, std::wstring(200, L'x')), metrics, measurer).width, metrics.max_width);
    EXPECT_GE(NaturalSize(TableOf(1, L"T"), metrics, measurer).width, metrics.min_width);
}

TEST(DiagramBox, NothingScrollsAtNaturalSizeUnlessThereAreTooManyRows) {
    const BoxMetrics metrics;
    const FixedMeasurer measurer;
    for (const int fields : {0, 1, 5, 11, 12, 30}) {
        const Size size = NaturalSize(TableOf(fields), metrics, measurer);
        const Box box({10, 20, size.width, size.height}, fields + 1, 0, metrics);
        EXPECT_EQ(box.Scrollable(), fields + 1 > metrics.max_rows) << fields;
    }
}

TEST(DiagramBox, RowsFillTheFieldAreaAndAreFoundAgain) {
    const BoxMetrics metrics;
    const Box box({10, 20, 150, metrics.title_height + 5 * metrics.row_height + 4}, 30, 47, metrics);
    for (int row = 0; row < 30; ++row) {
        if (!box.RowVisible(row)) continue;
        EXPECT_EQ(box.RowAt(Center(Intersection(box.Row(row), box.Field()))), row);
        EXPECT_GE(box.Check(row).left, box.Row(row).left);
        EXPECT_LE(Right(box.Text(row)), Right(box.Row(row)));
    }
    EXPECT_EQ(box.RowAt(Center(box.Title())), -1);
    EXPECT_EQ(box.RowAt({0, 0}), -1);
}

TEST(DiagramBox, ScrollingIsKeptInRangeAndTheThumbFollows) {
    const BoxMetrics metrics;
    const Rect rect{0, 0, 150, metrics.title_height + 5 * metrics.row_height + 4};
    EXPECT_EQ(Box(rect, 30, -5, metrics).Scroll(), 0);
    EXPECT_EQ(Box(rect, 30, 100000, metrics).Scroll(), 25 * metrics.row_height);
    const Box top(rect, 30, 0, metrics);
    const Box bottom(rect, 30, 100000, metrics);
    EXPECT_EQ(top.ScrollThumb().top, top.ScrollTrack().top);
    EXPECT_EQ(Bottom(bottom.ScrollThumb()), Bottom(bottom.ScrollTrack()));
    EXPECT_EQ(top.ScrollForThumb(bottom.ScrollThumb().top), bottom.Scroll());
    EXPECT_EQ(top.ScrollToShow(29), 25 * metrics.row_height);
    EXPECT_EQ(bottom.ScrollToShow(0), 0);
    EXPECT_EQ(top.ScrollToShow(3), 0);
}

TEST(DiagramBox, ARelationLeavesFromItsRowOrTheNearestVisiblePlace) {
    const BoxMetrics metrics;
    const Rect rect{0, 100, 150, metrics.title_height + 5 * metrics.row_height + 4};
    const Box box(rect, 30, 10 * metrics.row_height, metrics);
    EXPECT_EQ(box.AnchorY(12), Center(box.Row(12)).y);
    EXPECT_GE(box.AnchorY(0), box.Field().top);
    EXPECT_LT(box.AnchorY(0), box.Field().top + metrics.row_height);
    EXPECT_LT(box.AnchorY(29), Bottom(box.Field()));
    EXPECT_GE(box.AnchorY(29), Bottom(box.Field()) - metrics.row_height);
}

TEST(DiagramViewport, EveryZoomGoesThereAndBack) {
    for (const int dpi : {96, 120, 144, 192, 288})
        for (const int zoom : {25, 33, 100, 175, 400}) {
            Viewport view;
            view.SetDpi(dpi);
            view.SetClient({800, 600});
            view.SetExtent({0, 0, 20000, 20000});
            view.SetZoom(zoom, {0, 0});
            view.SetScroll({300, 200});
            EXPECT_EQ(view.ToPixels(9600), 9600 * dpi / 96 * zoom / 100) << dpi << " " << zoom;
            const Point plane = view.ToPlane({123, 456});
            const Point client = view.ToClient(plane);
            EXPECT_LE(std::abs(client.x - 123), view.ToPixels(1));
            EXPECT_LE(std::abs(client.y - 456), view.ToPixels(1));
        }
}

TEST(DiagramViewport, NeighboursStayNeighboursAtEveryZoom) {
    Viewport view;
    view.SetZoom(33, {0, 0});
    for (int y = -50; y < 50; ++y) {
        const Rect upper = view.ToClient(Rect{0, y, 10, 7});
        const Rect lower = view.ToClient(Rect{0, y + 7, 10, 7});
        EXPECT_EQ(Bottom(upper), lower.top);
    }
}

TEST(DiagramViewport, ZoomIsLimitedAndKeepsThePointUnderThePointer) {
    Viewport view;
    view.SetClient({800, 600});
    view.SetExtent({0, 0, 10000, 10000});
    view.SetScroll({1000, 1000});
    const Point before = view.ToPlane({400, 300});
    view.SetZoom(200, {400, 300});
    EXPECT_EQ(view.ToPlane({400, 300}), before);
    view.SetZoom(5000, {0, 0});
    EXPECT_EQ(view.Zoom(), kMaxZoom);
    view.SetZoom(1, {0, 0});
    EXPECT_EQ(view.Zoom(), kMinZoom);
    EXPECT_EQ(NextZoom(100, 1), 110);
    EXPECT_EQ(NextZoom(100, -1), 90);
    EXPECT_EQ(NextZoom(400, 1), 400);
    EXPECT_EQ(NextZoom(25, -1), 25);
}

TEST(DiagramViewport, ScrollingStaysInThePlaneAndRevealsWhatIsAskedFor) {
    Viewport view;
    view.SetClient({400, 300});
    view.SetExtent({0, 0, 1000, 200});
    view.SetScroll({5000, 5000});
    EXPECT_EQ(view.Scroll(), (Point{600, 0}));
    view.Reveal({100, 20, 50, 50});
    EXPECT_EQ(view.Scroll(), (Point{100, 0}));
    view.Reveal({550, 20, 50, 50});
    EXPECT_EQ(view.Scroll(), (Point{200, 0}));
}

TEST(DiagramMarks, CoverageIsFullInsideAndNothingOutside) {
    const Mark disc{MarkShape::Disc, 9, 9, 1, false, false};
    EXPECT_EQ(Coverage(disc, 4, 4), 255);
    EXPECT_EQ(Coverage(disc, 9, 4), 0);
    EXPECT_EQ(Coverage(disc, -1, 4), 0);
    EXPECT_LT(Coverage(disc, 0, 0), 128);
    const Mark arrow{MarkShape::Arrow, 10, 11, 1, false, false};
    const Mark mirrored{MarkShape::Arrow, 10, 11, 1, true, false};
    EXPECT_EQ(Coverage(arrow, 0, 5), 255);
    for (int x = 0; x < 10; ++x) EXPECT_EQ(Coverage(arrow, x, 3), Coverage(mirrored, 9 - x, 3));
    const Mark ring{MarkShape::QuarterRing, 12, 12, 2, false, false};
    EXPECT_EQ(Coverage(ring, 11, 11), 0);
    EXPECT_EQ(Coverage(ring, 0, 0), 0);
    EXPECT_GT(Coverage(ring, 11, 0), 200);
    EXPECT_GT(Coverage(ring, 0, 11), 200);
}

TEST(DiagramTexts, ARelationNamesItsFieldsAndItsKind) {
    model::RelInfo relation{L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente", model::kInnerJoin, false};
    EXPECT_EQ(RelationText(relation), L"Clientes.IdCliente = Pedidos.IdCliente (interna)");
    relation.JType = model::kLeftJoin;
    EXPECT_EQ(RelationText(relation), L"Clientes.IdCliente = Pedidos.IdCliente (izquierda)");
    relation.JType = model::kRightJoin;
    EXPECT_EQ(RelationText(relation), L"Clientes.IdCliente = Pedidos.IdCliente (derecha)");
}

TEST(DiagramTexts, AFieldTellsItsTypeAndKeys) {
    EXPECT_EQ(FieldText({L"IdCliente", false, true, true, L"adInteger"}),
              L"IdCliente: adInteger, clave principal, clave externa");
    EXPECT_EQ(FieldText({L"[Año de alta]", false, false, false, L""}), L"[Año de alta]");
}

}  // namespace
}  // namespace tessel::controls::diagram
