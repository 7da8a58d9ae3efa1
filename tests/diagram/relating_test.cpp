// "Agregar relación": a relation that the user completes in the diagram.
#include <gtest/gtest.h>

#include "controls/diagram/diagram_state.h"
#include "tests/diagram/fixed_measurer.h"
#include "tests/model/sample_schema.h"

namespace tessel::controls::diagram {
namespace {

using Log = std::vector<std::wstring>;

class DrawnRelations : public DiagramHost {
public:
    void Repaint() override {}
    void FieldChecked(std::wstring_view, std::wstring_view, bool) override { log.push_back(L"tick"); }
    void RelationDrawn(std::wstring_view left_table, std::wstring_view left_field,
                       std::wstring_view right_table, std::wstring_view right_field) override {
        log.push_back(std::wstring(left_table) + L"." + std::wstring(left_field) + L"=" +
                      std::wstring(right_table) + L"." + std::wstring(right_field));
    }
    void ContextMenu(model::DiagramElement, Point) override { log.push_back(L"menu"); }
    void DeleteWanted(model::DiagramElement) override { log.push_back(L"delete"); }
    void RelationActivated(int) override { log.push_back(L"activate"); }

    Log log;
};

class Relating : public testing::Test, private ChangeListener {
protected:
    Relating() {
        diagram.Bind(&schema);
        diagram.AddListener(this);
        state.SetMetrics(BoxMetrics(), &measurer);
        state.SetClient({900, 600});
        state.Bind(&diagram);
        for (const wchar_t* table : {L"Clientes", L"Pedidos", L"Productos"}) diagram.AddTable(table, true);
        state.Update();
    }
    ~Relating() override { diagram.RemoveListener(this); }
    void OnChanged() override { state.ModelChanged(); }

    Point FieldOf(std::wstring_view table, std::wstring_view field) {
        const Box& box = state.Shapes().BoxOf(state.Shapes().TableIndex(table));
        return state.View().ToClient(Center(box.Text(RowOf(*diagram.FindTable(table), field))));
    }
    Point TitleOf(std::wstring_view table) {
        return state.View().ToClient(Center(state.Shapes().BoxOf(state.Shapes().TableIndex(table)).Title()));
    }
    void Click(Point at) {
        state.MouseMove(at);
        state.MouseDown(Button::Left, at);
        state.MouseUp(Button::Left, at);
    }

    schema::Schema schema = model::testing_support::SampleSchema();
    model::Diagram diagram;
    FixedMeasurer measurer;
    DrawnRelations host;
    DiagramState state{host};
};

TEST_F(Relating, TwoClicksNameTheTwoFields) {
    state.BeginRelation(L"Clientes");
    EXPECT_TRUE(state.IsRelating());
    Click(FieldOf(L"Clientes", L"nombre"));
    EXPECT_TRUE(host.log.empty());
    Click(FieldOf(L"Productos", L"nombre"));
    EXPECT_EQ(host.log, Log({L"Clientes.nombre=Productos.nombre"}));
    EXPECT_FALSE(state.IsRelating());
}

TEST_F(Relating, BegunOnAFieldItNeedsOnlyTheOtherOne) {
    Click(FieldOf(L"Clientes", L"País"));
    state.BeginRelation(L"Clientes");
    Click(FieldOf(L"Productos", L"nombre"));
    EXPECT_EQ(host.log, Log({L"Clientes.País=Productos.nombre"}));
}

TEST_F(Relating, TheForeignKeyTellsTheFirstField) {
    state.BeginRelation(L"Clientes");
    Click(FieldOf(L"Pedidos", L"IdCliente"));
    EXPECT_EQ(host.log, Log({L"Clientes.IdCliente=Pedidos.IdCliente"}));
}

TEST_F(Relating, TheSameNameTellsTheFirstFieldWhereNoKeyDoes) {
    state.BeginRelation(L"Productos");
    Click(FieldOf(L"Pedidos", L"nombre"));
    EXPECT_EQ(host.log, Log({L"Productos.nombre=Pedidos.nombre"}));
}

TEST_F(Relating, WithNothingToTellTheFirstFieldTheUserIsAskedOn) {
    state.BeginRelation(L"Productos");
    Click(FieldOf(L"Pedidos", L"Importe"));
    EXPECT_TRUE(host.log.empty());
    EXPECT_TRUE(state.IsRelating());
}

TEST_F(Relating, TheHintSaysWhatComesNext) {
    EXPECT_EQ(state.RelatingHint(), L"");
    state.BeginRelation(L"Clientes");
    EXPECT_EQ(state.RelatingHint(),
              L"Nueva relación: señale el campo de Clientes y después el de otra tabla (Tab: otra tabla, "
              L"Entrar elige, Esc "
              L"abandona).");
    Click(FieldOf(L"Clientes", L"IdCliente"));
    EXPECT_EQ(state.RelatingHint(),
              L"Nueva relación: señale el campo de otra tabla que se une con Clientes.IdCliente "
              L"(Tab: otra tabla, Entrar elige, Esc abandona).");
}

TEST_F(Relating, ALineFollowsThePointerAndTheCursorTellsWhereItMayEnd) {
    state.BeginRelation(L"Clientes");
    state.MouseMove(FieldOf(L"Pedidos", L"IdCliente"));
    ASSERT_TRUE(state.RubberLine());
    EXPECT_TRUE(state.RubberLine()->drawn);
    EXPECT_EQ(state.RubberLine()->table, state.Shapes().TableIndex(L"Clientes"));
    EXPECT_EQ(state.RubberLine()->target.row, RowOf(*diagram.FindTable(L"Pedidos"), L"IdCliente"));
    EXPECT_EQ(state.PointerAt(FieldOf(L"Pedidos", L"IdCliente")), Cursor::Link);
    EXPECT_EQ(state.PointerAt(TitleOf(L"Pedidos")), Cursor::No);
}

TEST_F(Relating, TheKeyboardAloneCompletesIt) {
    diagram.SelectTable(L"Clientes");
    state.Update();
    state.BeginRelation(L"Clientes");
    // The title, "*", the first field.
    state.KeyDown(Key::Down, {});
    state.KeyDown(Key::Down, {});
    EXPECT_TRUE(state.KeyDown(Key::Enter, {}));
    EXPECT_TRUE(host.log.empty());
    EXPECT_TRUE(state.KeyDown(Key::Tab, {}));
    EXPECT_EQ(diagram.SelectedTable(), L"Pedidos");
    for (int i = 0; i < 3; ++i) state.KeyDown(Key::Down, {});
    ASSERT_TRUE(state.RubberLine());
    EXPECT_TRUE(state.RubberLine()->drawn);
    EXPECT_TRUE(state.KeyDown(Key::Enter, {}));
    EXPECT_EQ(host.log, Log({L"Clientes.IdCliente=Pedidos.IdCliente"}));
}

TEST_F(Relating, TabGoesThroughTheTablesInBothDirections) {
    diagram.SelectTable(L"Clientes");
    state.Update();
    state.BeginRelation(L"Clientes");
    state.KeyDown(Key::Tab, {true, false});
    EXPECT_EQ(diagram.SelectedTable(), L"Productos");
    state.KeyDown(Key::Tab, {});
    EXPECT_EQ(diagram.SelectedTable(), L"Clientes");
}

TEST_F(Relating, EscAbandonsIt) {
    state.BeginRelation(L"Clientes");
    Click(FieldOf(L"Clientes", L"nombre"));
    EXPECT_TRUE(state.KeyDown(Key::Escape, {}));
    EXPECT_FALSE(state.IsRelating());
    EXPECT_FALSE(state.RubberLine());
    Click(FieldOf(L"Productos", L"nombre"));
    EXPECT_TRUE(host.log.empty());
}

TEST_F(Relating, ARightClickAbandonsItWithoutAMenu) {
    state.BeginRelation(L"Clientes");
    state.MouseDown(Button::Right, TitleOf(L"Pedidos"));
    state.ContextMenu(TitleOf(L"Pedidos"));
    EXPECT_FALSE(state.IsRelating());
    EXPECT_TRUE(host.log.empty());
}

TEST_F(Relating, TitlesAndAllFieldsAreNoFields) {
    state.BeginRelation(L"Clientes");
    Click(FieldOf(L"Clientes", L"nombre"));
    Click(TitleOf(L"Productos"));
    Click(FieldOf(L"Productos", L"*"));
    EXPECT_TRUE(host.log.empty());
    EXPECT_TRUE(state.IsRelating());
    EXPECT_EQ(diagram.FindTable(L"Productos")->rect, diagram.Tables()[2].rect);
}

TEST_F(Relating, RemovingTheTableGivesItUp) {
    state.BeginRelation(L"Clientes");
    diagram.RemoveTable(L"Clientes");
    state.Update();
    EXPECT_FALSE(state.IsRelating());
}

TEST_F(Relating, ATableThatIsNotThereBeginsNothing) {
    state.BeginRelation(L"Nadie");
    EXPECT_FALSE(state.IsRelating());
}

}  // namespace
}  // namespace tessel::controls::diagram
