#include "controls/diagram/diagram_state.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/diagram/fixed_measurer.h"
#include "tests/model/sample_schema.h"

namespace tessel::controls::diagram {
namespace {

using Log = std::vector<std::wstring>;

/// Keeps what the state reports and, like the designer, does it.
class RecordingHost : public DiagramHost {
public:
    explicit RecordingHost(model::Diagram& diagram) : diagram_(diagram) {}
    void Repaint() override { ++repaints; }
    void FieldChecked(std::wstring_view table, std::wstring_view field, bool checked) override {
        log.push_back((checked ? L"+" : L"-") + std::wstring(table) + L"." + std::wstring(field));
        diagram_.SetChecked(table, field, checked);
    }
    void RelationDrawn(std::wstring_view left_table, std::wstring_view left_field,
                       std::wstring_view right_table, std::wstring_view right_field) override {
        log.push_back(std::wstring(left_table) + L"." + std::wstring(left_field) + L"=" +
                      std::wstring(right_table) + L"." + std::wstring(right_field));
    }
    void ContextMenu(model::DiagramElement element, Point) override {
        log.push_back(L"menu " + std::to_wstring(static_cast<int>(element)));
    }
    void DeleteWanted(model::DiagramElement element) override {
        log.push_back(L"delete " + std::to_wstring(static_cast<int>(element)));
    }
    void RelationActivated(int key) override { log.push_back(L"activate " + std::to_wstring(key)); }
    bool CarriedOutside(std::wstring_view table, std::wstring_view field, Point) override {
        log.push_back(L"carried " + std::wstring(table) + L"." + std::wstring(field));
        return takes_outside;
    }
    void CarriedBack() override { log.push_back(L"back"); }
    void DroppedOutside(std::wstring_view table, std::wstring_view field, Point) override {
        log.push_back(L"dropped " + std::wstring(table) + L"." + std::wstring(field));
    }

    bool takes_outside = false;
    Log log;
    int repaints = 0;

private:
    model::Diagram& diagram_;
};

class DiagramStateTest : public testing::Test, private ChangeListener {
protected:
    DiagramStateTest() {
        diagram.Bind(&schema);
        diagram.AddListener(this);
        state.SetMetrics(BoxMetrics(), &measurer);
        state.SetClient({900, 600});
        state.Bind(&diagram);
    }
    ~DiagramStateTest() override { diagram.RemoveListener(this); }

    void OnChanged() override { state.ModelChanged(); }

    const Box& BoxOf(std::wstring_view table) {
        state.Update();
        return state.Shapes().BoxOf(state.Shapes().TableIndex(table));
    }
    Point TitleOf(std::wstring_view table) { return state.View().ToClient(Center(BoxOf(table).Title())); }
    int RowIn(std::wstring_view table, std::wstring_view field) {
        return RowOf(*diagram.FindTable(table), field);
    }
    Point FieldOf(std::wstring_view table, std::wstring_view field) {
        return state.View().ToClient(Center(BoxOf(table).Text(RowIn(table, field))));
    }
    Point CheckOf(std::wstring_view table, std::wstring_view field) {
        return state.View().ToClient(Center(BoxOf(table).Check(RowIn(table, field))));
    }
    Point LineOf(int key) {
        state.Update();
        return state.View().ToClient(Halfway(state.Shapes().FindLine(key)->path));
    }
    void Click(Point at) {
        state.MouseDown(Button::Left, at);
        state.MouseUp(Button::Left, at);
    }
    void Drag(Point from, Point to) {
        state.MouseDown(Button::Left, from);
        state.MouseMove({(from.x + to.x) / 2, (from.y + to.y) / 2});
        state.MouseMove(to);
        state.MouseUp(Button::Left, to);
    }
    int Relate(const wchar_t* left, const wchar_t* left_field, const wchar_t* right,
               const wchar_t* right_field, int kind = model::kInnerJoin) {
        return diagram.AddRelation({left, left_field, right, right_field, kind, false});
    }

    schema::Schema schema = model::testing_support::SampleSchema();
    model::Diagram diagram;
    FixedMeasurer measurer;
    RecordingHost host{diagram};
    DiagramState state{host};
};

TEST_F(DiagramStateTest, NewTablesGetAPlaceBesideTheirRelatives) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    Relate(L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente");
    state.Update();
    ASSERT_TRUE(diagram.Tables()[0].placed);
    ASSERT_TRUE(diagram.Tables()[1].placed);
    EXPECT_GT(diagram.Tables()[1].rect.left, Right(diagram.Tables()[0].rect));
}

TEST_F(DiagramStateTest, ATableThatComesBackStandsWhereItStood) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    Drag(TitleOf(L"Pedidos"), {500, 400});
    const Rect place = BoxOf(L"Pedidos").Frame();
    diagram.Clear();
    state.Update();
    diagram.AddTable(L"PEDIDOS", true);
    diagram.AddTable(L"Productos", true);
    EXPECT_EQ(BoxOf(L"Pedidos").Frame(), place);
    EXPECT_FALSE(Overlaps(BoxOf(L"Productos").Frame(), place));
}

TEST_F(DiagramStateTest, TheEndsOfALineAreAtTheJoinedFields) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    const int key = Relate(L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente", model::kLeftJoin);
    state.Update();
    const Line& line = *state.Shapes().FindLine(key);
    EXPECT_EQ(line.path.front().y, Center(BoxOf(L"Clientes").Row(1)).y);
    EXPECT_EQ(line.path.back().y, Center(BoxOf(L"Pedidos").Row(2)).y);
    EXPECT_TRUE(line.ArrowAtRight());
    EXPECT_FALSE(line.ArrowAtLeft());
    diagram.SetRelationKind(key, model::kRightJoin);
    state.Update();
    EXPECT_TRUE(state.Shapes().FindLine(key)->ArrowAtLeft());
}

TEST_F(DiagramStateTest, AnUnknownFieldIsJoinedAtTheTitle) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    const int key = Relate(L"Clientes", L"NoExiste", L"Pedidos", L"IdCliente");
    state.Update();
    EXPECT_EQ(state.Shapes().FindLine(key)->path.front().y, Center(BoxOf(L"Clientes").Title()).y);
}

TEST_F(DiagramStateTest, DraggingATitleMovesTheBoxOnceAtTheEnd) {
    diagram.AddTable(L"Clientes", true);
    const Rect before = BoxOf(L"Clientes").Frame();
    const Point from = TitleOf(L"Clientes");
    state.MouseDown(Button::Left, from);
    state.MouseMove({from.x + 100, from.y + 60});
    EXPECT_EQ(diagram.Tables()[0].rect, before);
    EXPECT_EQ(BoxOf(L"Clientes").Frame().left, before.left + 100);
    state.MouseUp(Button::Left, {from.x + 100, from.y + 60});
    EXPECT_EQ(diagram.Tables()[0].rect,
              (Rect{before.left + 100, before.top + 60, before.width, before.height}));
    EXPECT_EQ(diagram.SelectedTable(), L"Clientes");
}

TEST_F(DiagramStateTest, ABoxIsNotMovedOutOfThePlaneNorByAnUnsteadyClick) {
    diagram.AddTable(L"Clientes", true);
    const Rect before = BoxOf(L"Clientes").Frame();
    const Point from = TitleOf(L"Clientes");
    Drag(from, {from.x + 2, from.y - 2});
    EXPECT_EQ(diagram.Tables()[0].rect, before);
    Drag(from, {from.x - 500, from.y - 500});
    EXPECT_EQ(diagram.Tables()[0].rect, (Rect{0, 0, before.width, before.height}));
}

TEST_F(DiagramStateTest, EscGivesUpAMove) {
    diagram.AddTable(L"Clientes", true);
    const Rect before = BoxOf(L"Clientes").Frame();
    const Point from = TitleOf(L"Clientes");
    state.MouseDown(Button::Left, from);
    state.MouseMove({from.x + 100, from.y + 60});
    EXPECT_TRUE(state.KeyDown(Key::Escape, {}));
    state.MouseUp(Button::Left, {from.x + 100, from.y + 60});
    EXPECT_EQ(BoxOf(L"Clientes").Frame(), before);
    EXPECT_EQ(diagram.Tables()[0].rect, before);
    EXPECT_FALSE(state.KeyDown(Key::Escape, {}));
}

TEST_F(DiagramStateTest, ATableTakenAwayInTheMiddleOfADragEndsIt) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    const Point from = TitleOf(L"Clientes");
    state.MouseDown(Button::Left, from);
    state.MouseMove({from.x + 100, from.y + 60});
    diagram.RemoveTable(L"Clientes");
    state.MouseMove({from.x + 120, from.y + 60});
    EXPECT_FALSE(state.HoldsMouse());
    state.MouseUp(Button::Left, {from.x + 120, from.y + 60});
    EXPECT_EQ(diagram.Tables().size(), 1u);
}

TEST_F(DiagramStateTest, EdgesAndCornersResizeWithinLimits) {
    diagram.AddTable(L"Clientes", true);
    const Rect before = BoxOf(L"Clientes").Frame();
    Drag({Right(before), Center(before).y + 20}, {Right(before) + 40, Center(before).y + 20});
    EXPECT_EQ(diagram.Tables()[0].rect.width, before.width + 40);
    const Rect wide = diagram.Tables()[0].rect;
    Drag({Right(wide), Bottom(wide)}, {Right(wide) - 1000, Bottom(wide) - 1000});
    const Size smallest = SmallestSize(BoxMetrics());
    EXPECT_EQ(diagram.Tables()[0].rect, (Rect{wide.left, wide.top, smallest.width, smallest.height}));
    EXPECT_TRUE(BoxOf(L"Clientes").Scrollable());
    const Rect small = diagram.Tables()[0].rect;
    Drag({small.left + small.width / 2, Bottom(small)}, {small.left + small.width / 2, Bottom(small) + 1000});
    EXPECT_EQ(diagram.Tables()[0].rect.height, before.height);
    EXPECT_FALSE(BoxOf(L"Clientes").Scrollable());
}

TEST_F(DiagramStateTest, AClickOnACheckBoxReportsTheStateWished) {
    diagram.AddTable(L"Clientes", true);
    Click(CheckOf(L"Clientes", L"nombre"));
    Click(CheckOf(L"Clientes", L"nombre"));
    Click(CheckOf(L"Clientes", L"*"));
    EXPECT_EQ(host.log, (Log{L"+Clientes.nombre", L"-Clientes.nombre", L"+Clientes.*"}));
}

TEST_F(DiagramStateTest, ACheckBoxLeftBeforeTheButtonGoesUpReportsNothing) {
    diagram.AddTable(L"Clientes", true);
    state.MouseDown(Button::Left, CheckOf(L"Clientes", L"nombre"));
    state.MouseUp(Button::Left, CheckOf(L"Clientes", L"País"));
    EXPECT_TRUE(host.log.empty());
}

TEST_F(DiagramStateTest, DraggingAFieldOntoAFieldDrawsARelation) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    const Point from = FieldOf(L"Clientes", L"IdCliente");
    const Point to = FieldOf(L"Pedidos", L"IdCliente");
    state.MouseDown(Button::Left, from);
    state.MouseMove({from.x + 30, from.y});
    state.MouseMove(to);
    const std::optional<Rubber> rubber = state.RubberLine();
    ASSERT_TRUE(rubber);
    EXPECT_EQ(rubber->row, 1);
    EXPECT_EQ(rubber->target.row, 2);
    state.MouseUp(Button::Left, to);
    EXPECT_EQ(host.log, (Log{L"Clientes.IdCliente=Pedidos.IdCliente"}));
    EXPECT_FALSE(state.RubberLine());
    EXPECT_TRUE(diagram.Relations().empty());
}

TEST_F(DiagramStateTest, ARelationIsDrawnBetweenFieldsOfTwoTablesOnly) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    Drag(FieldOf(L"Clientes", L"IdCliente"), FieldOf(L"Clientes", L"nombre"));
    Drag(FieldOf(L"Clientes", L"IdCliente"), FieldOf(L"Pedidos", L"*"));
    Drag(FieldOf(L"Clientes", L"*"), FieldOf(L"Pedidos", L"IdCliente"));
    Drag(FieldOf(L"Clientes", L"IdCliente"), TitleOf(L"Pedidos"));
    Drag(FieldOf(L"Clientes", L"IdCliente"), {850, 550});
    EXPECT_TRUE(host.log.empty());
}

TEST_F(DiagramStateTest, ClicksSelectBoxesRelationsAndNothing) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    const int key = Relate(L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente");
    Click(FieldOf(L"Pedidos", L"nombre"));
    EXPECT_EQ(diagram.SelectedTable(), L"Pedidos");
    EXPECT_EQ(state.FocusRow(), 4);
    Click(LineOf(key));
    EXPECT_EQ(diagram.SelectedElement(), model::DiagramElement::Relation);
    EXPECT_EQ(diagram.SelectedRelation(), key);
    Click({850, 550});
    EXPECT_EQ(diagram.SelectedElement(), model::DiagramElement::None);
}

TEST_F(DiagramStateTest, AMenuIsAskedForWhatIsUnderThePointer) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    const int key = Relate(L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente");
    state.ContextMenu(TitleOf(L"Pedidos"));
    EXPECT_EQ(diagram.SelectedTable(), L"Pedidos");
    state.ContextMenu(LineOf(key));
    EXPECT_EQ(diagram.SelectedRelation(), key);
    state.ContextMenu({850, 550});
    EXPECT_EQ(host.log, (Log{L"menu 1", L"menu 2", L"menu 0"}));
}

TEST_F(DiagramStateTest, ADoubleClickOnARelationActivatesIt) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    const int key = Relate(L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente");
    state.DoubleClick(LineOf(key));
    EXPECT_EQ(host.log, (Log{L"activate " + std::to_wstring(key)}));
}

TEST_F(DiagramStateTest, TheSelectedBoxStandsInFront) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    state.Update();
    diagram.SetTableRect(L"Clientes", {10, 10, 200, 150});
    diagram.SetTableRect(L"Pedidos", {100, 60, 200, 150});
    state.Update();
    Click({20, 20});
    EXPECT_EQ(state.HitAt({150, 120}).table, 0);
    Click({280, 80});
    EXPECT_EQ(state.HitAt({150, 120}).table, 1);
}

TEST_F(DiagramStateTest, TheWheelScrollsTheBoxUnderItOrThePlane) {
    diagram.AddTable(L"Clientes", true);
    state.Update();
    diagram.SetTableRect(L"Clientes", {10, 10, 200, SmallestSize(BoxMetrics()).height + 20});
    const Point over = state.View().ToClient(Center(BoxOf(L"Clientes").Field()));
    state.Wheel(over, -1, {}, false);
    EXPECT_GT(BoxOf(L"Clientes").Scroll(), 0);
    EXPECT_EQ(state.View().Scroll(), (Point{0, 0}));
    diagram.AddTable(L"Pedidos", true);
    state.Update();
    diagram.SetTableRect(L"Pedidos", {2000, 2000, 150, 150});
    state.Update();
    state.Wheel({800, 500}, -1, {}, false);
    EXPECT_GT(state.View().Scroll().y, 0);
    EXPECT_EQ(state.View().Scroll().x, 0);
    state.Wheel({800, 500}, -1, {true, false}, false);
    EXPECT_GT(state.View().Scroll().x, 0);
    state.Wheel({800, 500}, 1, {false, true}, false);
    EXPECT_EQ(state.View().Zoom(), 110);
}

TEST_F(DiagramStateTest, TheMiddleButtonPansThePlane) {
    diagram.AddTable(L"Clientes", true);
    state.Update();
    diagram.SetTableRect(L"Clientes", {2000, 2000, 150, 150});
    state.Update();
    state.MouseDown(Button::Middle, {400, 300});
    state.MouseMove({350, 280});
    state.MouseUp(Button::Middle, {350, 280});
    EXPECT_EQ(state.View().Scroll(), (Point{50, 20}));
    EXPECT_FALSE(state.HoldsMouse());
}

TEST_F(DiagramStateTest, TheThumbInABoxScrollsIt) {
    diagram.AddTable(L"Pedidos", true);
    state.Update();
    diagram.SetTableRect(L"Pedidos", {10, 10, 200, SmallestSize(BoxMetrics()).height + 40});
    const Box& box = BoxOf(L"Pedidos");
    const Point thumb = Center(box.ScrollThumb());
    Drag(thumb, {thumb.x, thumb.y + 300});
    EXPECT_EQ(BoxOf(L"Pedidos").Scroll(), BoxOf(L"Pedidos").MaxScroll());
    Click({thumb.x, BoxOf(L"Pedidos").ScrollTrack().top + 1});
    EXPECT_LT(BoxOf(L"Pedidos").Scroll(), BoxOf(L"Pedidos").MaxScroll());
}

TEST_F(DiagramStateTest, ALinkScrollsTheLongTableItIsHeldOver) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    state.Update();
    const Rect place = BoxOf(L"Pedidos").Frame();
    diagram.SetTableRect(L"Pedidos", {place.left, place.top, 160, SmallestSize(BoxMetrics()).height + 30});
    const Point from = FieldOf(L"Clientes", L"IdCliente");
    const Rect field = BoxOf(L"Pedidos").Field();
    const Point edge{field.left + 60, Bottom(field) - 4};
    state.MouseDown(Button::Left, from);
    state.MouseMove({from.x + 30, from.y});
    state.MouseMove(edge);
    for (int i = 0; i < 20; ++i) state.AutoScroll();
    EXPECT_EQ(BoxOf(L"Pedidos").Scroll(), BoxOf(L"Pedidos").MaxScroll());
    state.MouseUp(Button::Left, edge);
    EXPECT_EQ(host.log, (Log{L"Clientes.IdCliente=Pedidos.Importe"}));
}

TEST_F(DiagramStateTest, ABoxDraggedOutsideScrollsThePlaneAlong) {
    diagram.AddTable(L"Clientes", true);
    const Point from = TitleOf(L"Clientes");
    state.MouseDown(Button::Left, from);
    state.MouseMove({950, from.y});
    for (int i = 0; i < 10; ++i) state.AutoScroll();
    EXPECT_EQ(state.View().Scroll().x, 200);
    state.MouseUp(Button::Left, {950, from.y});
    EXPECT_GT(diagram.Tables()[0].rect.left, 950);
}

TEST_F(DiagramStateTest, KeysWalkThroughFieldsAndTables) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    Relate(L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente");
    state.Update();
    EXPECT_TRUE(state.KeyDown(Key::Down, {}));
    EXPECT_EQ(diagram.SelectedTable(), L"Clientes");
    EXPECT_EQ(state.FocusRow(), -1);
    state.KeyDown(Key::Down, {});
    state.KeyDown(Key::Down, {});
    EXPECT_EQ(state.FocusRow(), 1);
    state.KeyDown(Key::Space, {});
    EXPECT_EQ(host.log, (Log{L"+Clientes.IdCliente"}));
    state.KeyDown(Key::End, {});
    EXPECT_EQ(state.FocusRow(), 4);
    state.KeyDown(Key::Home, {});
    EXPECT_EQ(state.FocusRow(), -1);
    state.KeyDown(Key::Right, {});
    EXPECT_EQ(diagram.SelectedTable(), L"Pedidos");
    state.KeyDown(Key::Left, {});
    EXPECT_EQ(diagram.SelectedTable(), L"Clientes");
    state.Typed(L'p');
    EXPECT_EQ(state.FocusRow(), RowIn(L"Clientes", L"País"));
}

TEST_F(DiagramStateTest, ControlAndPageKeysReachRelationsToo) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    const int key = Relate(L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente");
    state.Update();
    const Modifiers ctrl{false, true};
    state.KeyDown(Key::PageDown, ctrl);
    EXPECT_EQ(diagram.SelectedTable(), L"Clientes");
    state.KeyDown(Key::PageDown, ctrl);
    state.KeyDown(Key::PageDown, ctrl);
    EXPECT_EQ(diagram.SelectedRelation(), key);
    EXPECT_TRUE(state.KeyDown(Key::Enter, {}));
    EXPECT_TRUE(state.KeyDown(Key::Delete, {}));
    EXPECT_EQ(host.log, (Log{L"activate " + std::to_wstring(key), L"delete 2"}));
    state.KeyDown(Key::Right, {});
    EXPECT_EQ(diagram.SelectedTable(), L"Pedidos");
    EXPECT_FALSE(state.KeyDown(Key::Enter, {}));
    state.KeyDown(Key::PageUp, ctrl);
    EXPECT_EQ(diagram.SelectedTable(), L"Clientes");
    state.KeyDown(Key::PageUp, ctrl);
    EXPECT_EQ(diagram.SelectedRelation(), key);
}

TEST_F(DiagramStateTest, ControlAndArrowsMoveShiftAndArrowsResize) {
    diagram.AddTable(L"Clientes", true);
    const Rect before = BoxOf(L"Clientes").Frame();
    state.KeyDown(Key::Down, {});
    state.KeyDown(Key::Right, {false, true});
    state.KeyDown(Key::Down, {false, true});
    EXPECT_EQ(diagram.Tables()[0].rect, (Rect{before.left + 8, before.top + 8, before.width, before.height}));
    state.KeyDown(Key::Right, {true, false});
    EXPECT_EQ(diagram.Tables()[0].rect.width, before.width + 8);
}

TEST_F(DiagramStateTest, AFieldOutOfSightIsBroughtIntoSight) {
    diagram.AddTable(L"Pedidos", true);
    state.Update();
    diagram.SetTableRect(L"Pedidos", {1500, 1500, 200, SmallestSize(BoxMetrics()).height + 10});
    state.Update();
    state.KeyDown(Key::Down, {});
    state.KeyDown(Key::End, {});
    const Box& box = BoxOf(L"Pedidos");
    EXPECT_TRUE(box.RowVisible(5));
    const Rect shown = state.View().ToClient(Intersection(box.Row(5), box.Field()));
    EXPECT_GE(shown.top, 0);
    EXPECT_LE(Bottom(shown), 600);
    EXPECT_LE(Right(shown), 900);
}

TEST_F(DiagramStateTest, ThePointerHighlightsWhatItIsOver) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    const int key = Relate(L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente");
    state.MouseMove(LineOf(key));
    EXPECT_EQ(state.Hover().kind, HitKind::Relation);
    EXPECT_EQ(state.Hover().relation, key);
    diagram.RemoveRelation(key);
    state.Update();
    EXPECT_EQ(state.Hover(), Hit());
    state.MouseMove(FieldOf(L"Pedidos", L"nombre"));
    EXPECT_EQ(state.Hover().row, 4);
    state.MouseLeave();
    EXPECT_EQ(state.Hover(), Hit());
}

TEST_F(DiagramStateTest, NothingHappensWithoutADiagram) {
    state.Bind(nullptr);
    Click({100, 100});
    state.DoubleClick({100, 100});
    state.MouseMove({120, 100});
    state.Wheel({100, 100}, 1, {}, false);
    state.ContextMenu({100, 100});
    EXPECT_FALSE(state.KeyDown(Key::Down, {}));
    EXPECT_TRUE(host.log.empty());
}

TEST_F(DiagramStateTest, AFieldCarriedOutsideIsDroppedWhereItIsTaken) {
    host.takes_outside = true;
    diagram.AddTable(L"Clientes", true);
    const Point field = FieldOf(L"Clientes", L"Nombre");
    state.MouseDown(Button::Left, field);
    state.MouseMove({field.x + 20, field.y});
    EXPECT_TRUE(state.RubberLine());
    EXPECT_TRUE(host.log.empty());
    state.MouseMove({200, 640});
    EXPECT_EQ(host.log, (Log{L"carried Clientes.nombre"}));
    EXPECT_FALSE(state.RubberLine());
    EXPECT_EQ(state.PointerAt({200, 640}), Cursor::Arrow);
    state.MouseMove({200, 300});
    EXPECT_EQ(host.log.back(), L"back");
    state.MouseMove({210, 650});
    state.MouseUp(Button::Left, {210, 650});
    EXPECT_EQ(host.log, (Log{L"carried Clientes.nombre", L"back", L"carried Clientes.nombre", L"back",
                             L"dropped Clientes.nombre"}));
    EXPECT_FALSE(state.HoldsMouse());
}

TEST_F(DiagramStateTest, AFieldLetGoWhereNothingTakesItIsForgotten) {
    diagram.AddTable(L"Clientes", true);
    const Point field = FieldOf(L"Clientes", L"Nombre");
    state.MouseDown(Button::Left, field);
    state.MouseMove({200, 640});
    state.MouseMove({200, 641});
    EXPECT_EQ(state.PointerAt({200, 641}), Cursor::No);
    state.MouseUp(Button::Left, {200, 641});
    EXPECT_EQ(host.log.back(), L"back");
}

TEST_F(DiagramStateTest, ATableCarriedOutsideStandsForAllItsFieldsAndIsNotMoved) {
    host.takes_outside = true;
    diagram.AddTable(L"Clientes", true);
    const Point title = TitleOf(L"Clientes");
    const Rect before = diagram.FindTable(L"Clientes")->rect;
    state.MouseDown(Button::Left, title);
    state.MouseMove({title.x + 30, title.y + 30});
    EXPECT_NE(BoxOf(L"Clientes").Frame(), before);
    state.MouseMove({300, 640});
    EXPECT_EQ(BoxOf(L"Clientes").Frame(), before);
    state.AutoScroll();
    EXPECT_EQ(state.View().Scroll(), (Point{0, 0}));
    state.MouseUp(Button::Left, {300, 640});
    EXPECT_EQ(host.log.back(), L"dropped Clientes.*");
    EXPECT_EQ(BoxOf(L"Clientes").Frame(), before);
    EXPECT_EQ(diagram.FindTable(L"Clientes")->rect, before);
}

TEST_F(DiagramStateTest, AllTheFieldsAreCarriedOutsideButJoinNothing) {
    host.takes_outside = true;
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    const Point all = FieldOf(L"Clientes", L"*");
    Drag(all, FieldOf(L"Pedidos", L"IdCliente"));
    EXPECT_TRUE(host.log.empty());
    Drag(all, {200, 700});
    EXPECT_EQ(host.log.back(), L"dropped Clientes.*");
}

TEST_F(DiagramStateTest, EscGivesUpWhatIsCarriedOutside) {
    host.takes_outside = true;
    diagram.AddTable(L"Clientes", true);
    const Point field = FieldOf(L"Clientes", L"Nombre");
    state.MouseDown(Button::Left, field);
    state.MouseMove({200, 640});
    EXPECT_TRUE(state.KeyDown(Key::Escape, {}));
    state.MouseUp(Button::Left, {200, 640});
    EXPECT_EQ(host.log, (Log{L"carried Clientes.nombre", L"back"}));
}

TEST_F(DiagramStateTest, ATableArrivesWhereItIsDropped) {
    state.WishPlace(L"Pedidos", {500, 300});
    diagram.AddTable(L"Pedidos", true);
    const Rect title = BoxOf(L"Pedidos").Title();
    EXPECT_TRUE(Contains(title, {500, 300}));
    // The wish was for that one arrival.
    diagram.RemoveTable(L"Pedidos");
    state.Update();
    diagram.AddTable(L"Clientes", true);
    EXPECT_LT(BoxOf(L"Clientes").Frame().left, 100);
}

TEST_F(DiagramStateTest, ATableDroppedOnAnotherStandsBesideIt) {
    diagram.AddTable(L"Clientes", true);
    state.WishPlace(L"Pedidos", TitleOf(L"Clientes"));
    diagram.AddTable(L"Pedidos", true);
    const Rect there = BoxOf(L"Clientes").Frame();
    const Rect arrived = BoxOf(L"Pedidos").Frame();
    EXPECT_FALSE(Overlaps(there, arrived));
    EXPECT_LT(std::abs(arrived.left - there.left) + std::abs(arrived.top - there.top), 400);
}

TEST_F(DiagramStateTest, FittingShowsEverythingAtTheLargestZoomThatDoes) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    diagram.SetTableRect(L"Clientes", {400, 900, 160, 120});
    diagram.SetTableRect(L"Pedidos", {1600, 200, 160, 120});
    state.Update();
    EXPECT_FALSE(state.ShowsEverything());
    state.KeyDown(Key::Nine, {false, true});
    EXPECT_TRUE(state.ShowsEverything());
    const int zoom = state.View().Zoom();
    EXPECT_LT(zoom, 100);
    state.SetZoom(zoom + 3, {0, 0});
    EXPECT_FALSE(state.ShowsEverything());
    // Nothing is left to scroll to.
    diagram.SetTableRect(L"Clientes", {16, 900, 160, 120});
    state.Fit();
    EXPECT_EQ(state.View().MinScroll(), state.View().MaxScroll());
    diagram.SetTableRect(L"Clientes", {400, 900, 160, 120});
    diagram.SetTableRect(L"Pedidos", {600, 900, 160, 120});
    state.Fit();
    EXPECT_EQ(state.View().Zoom(), 100);
    EXPECT_TRUE(state.ShowsEverything());
    diagram.SetTableRect(L"Pedidos", {30000, 30000, 160, 120});
    state.Fit();
    EXPECT_EQ(state.View().Zoom(), kMinZoom);
}

TEST_F(DiagramStateTest, ArrangingPutsRelatedTablesSideBySideAgain) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    Relate(L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente");
    diagram.SetTableRect(L"Clientes", {900, 700, 200, 150});
    diagram.SetTableRect(L"Pedidos", {880, 690, 170, 110});
    state.Arrange();
    const Rect left = BoxOf(L"Clientes").Frame();
    const Rect right = BoxOf(L"Pedidos").Frame();
    EXPECT_FALSE(Overlaps(left, right));
    EXPECT_LT(Right(left), right.left);
    EXPECT_LT(left.left, 100);
    EXPECT_EQ(left.width, 200);
    EXPECT_EQ(right.height, 110);
}

TEST_F(DiagramStateTest, RevealingSelectsTheFieldAndShowsIt) {
    diagram.AddTable(L"Clientes", true);
    diagram.SetTableRect(L"Clientes", {2000, 1500, 160, 120});
    EXPECT_TRUE(state.Reveal(L"clientes", L"Nombre"));
    EXPECT_EQ(diagram.SelectedTable(), L"Clientes");
    EXPECT_EQ(state.FocusRow(), RowIn(L"Clientes", L"Nombre"));
    EXPECT_TRUE(Contains({0, 0, 900, 600}, FieldOf(L"Clientes", L"Nombre")));
    EXPECT_FALSE(state.Reveal(L"Otra", L""));
}

TEST_F(DiagramStateTest, RandomEventsNeverLoseABoxOrALine) {
    const unsigned seed = 987654;
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (const wchar_t* table : {L"Clientes", L"Pedidos", L"Productos", L"Empleados"})
        diagram.AddTable(table, false);
    for (int i = 0; i < 4000; ++i) {
        const Point at{below(1000) - 50, below(700) - 50};
        switch (below(10)) {
            case 0:
            case 1:
                state.MouseDown(static_cast<Button>(below(3)), at);
                break;
            case 2:
                state.MouseUp(static_cast<Button>(below(3)), at);
                break;
            case 3:
                state.KeyDown(static_cast<Key>(below(15)), {below(3) == 0, below(3) == 0});
                break;
            case 4:
                state.Wheel(at, below(5) - 2, {below(2) == 0, below(4) == 0}, below(3) == 0);
                break;
            case 5:
                state.DoubleClick(at);
                break;
            case 6:
                state.AutoScroll();
                break;
            case 7:
                if (below(20) == 0)
                    diagram.RemoveTable(diagram.Tables().empty() ? L"" : diagram.Tables()[0].name);
                if (below(4) == 0) diagram.AddTable(below(2) ? L"Clientes" : L"Pedidos", false);
                break;
            default:
                state.MouseMove(at);
        }
        state.Update();
        ASSERT_EQ(state.Shapes().Boxes().size(), diagram.Tables().size());
        ASSERT_EQ(state.Shapes().Lines().size(), diagram.Relations().size());
        for (const Box& box : state.Shapes().Boxes()) {
            ASSERT_GE(box.Frame().left, 0);
            ASSERT_GE(box.Frame().top, 0);
            ASSERT_GT(box.Frame().width, 0);
        }
    }
}

}  // namespace
}  // namespace tessel::controls::diagram
