#include "model/field_placing.h"

#include <gtest/gtest.h>

#include "model/grid_editing.h"
#include "tests/model/sample_schema.h"

namespace tessel::model {
namespace {

class PlaceFieldTest : public testing::Test {
protected:
    PlaceFieldTest() {
        design.grid.LoadColumns();
        design.diagram.Bind(&schema);
        design.diagram.AddTable(L"Clientes", true);
        design.diagram.AddTable(L"Pedidos", true);
    }

    /// The "Campo:" cells of the shown columns up to the last used one.
    std::vector<std::wstring> Fields() const {
        std::vector<std::wstring> fields;
        for (int column = 0; column < design.grid.ColumnCount(); ++column)
            if (design.grid.IsColumnShown(column)) fields.push_back(design.grid.Cell(GridRow::Campo, column));
        while (!fields.empty() && fields.back().empty()) fields.pop_back();
        return fields;
    }

    schema::Schema schema = testing_support::SampleSchema();
    Design design;
};

using Texts = std::vector<std::wstring>;

TEST_F(PlaceFieldTest, AnUnusedColumnTakesTheField) {
    EXPECT_EQ(PlaceField(design, L"Clientes.nombre", 3), 3);
    EXPECT_EQ(Fields(), (Texts{L"", L"", L"", L"Clientes.nombre"}));
    EXPECT_EQ(design.grid.Cell(GridRow::Tabla, 3), L"Clientes");
    EXPECT_EQ(design.grid.Cell(GridRow::Visible, 3), L"Si");
    EXPECT_EQ(design.grid.Caption(3), L"nombre");
    EXPECT_TRUE(design.diagram.FindTable(L"Clientes")->fields[1].checked);
}

TEST_F(PlaceFieldTest, AUsedColumnMakesRoomAndKeepsItsCells) {
    PlaceField(design, L"Clientes.IdCliente", 0);
    PlaceField(design, L"Clientes.nombre", 1);
    ASSERT_TRUE(design.grid.SetCell(GridRow::Condicion, 0, L">5"));
    EXPECT_EQ(PlaceField(design, L"Pedidos.IdPedido", 0), 0);
    EXPECT_EQ(Fields(), (Texts{L"Pedidos.IdPedido", L"Clientes.IdCliente", L"Clientes.nombre"}));
    EXPECT_EQ(design.grid.Cell(GridRow::Condicion, 1), L">5");
    EXPECT_EQ(design.grid.Cell(GridRow::Condicion, 0), L"");
}

TEST_F(PlaceFieldTest, RoomIsTakenFromAnEmptyColumnOnTheLeftWhenThereIsNoneOnTheRight) {
    for (int column = 0; column < kGridColumnCount; ++column)
        ASSERT_TRUE(design.grid.SetCell(GridRow::Campo, column, L"x" + std::to_wstring(column)));
    DelField(design, L"x2");
    EXPECT_EQ(PlaceField(design, L"Clientes.nombre", 5), 4);
    EXPECT_EQ(design.grid.Cell(GridRow::Campo, 3), L"x4");
    EXPECT_EQ(design.grid.Cell(GridRow::Campo, 4), L"Clientes.nombre");
    EXPECT_EQ(design.grid.Cell(GridRow::Campo, 5), L"x5");
    EXPECT_TRUE(design.grid.IsColumnShown(4));
}

TEST_F(PlaceFieldTest, AFieldIsNeverPlacedTwice) {
    PlaceField(design, L"Clientes.nombre", 2);
    EXPECT_EQ(PlaceField(design, L"clientes.NOMBRE", 0), 2);
    EXPECT_EQ(Fields(), (Texts{L"", L"", L"Clientes.nombre"}));
}

TEST_F(PlaceFieldTest, BeyondTheLastColumnTheFirstFreeOneIsTaken) {
    PlaceField(design, L"Clientes.nombre", 0);
    EXPECT_EQ(PlaceField(design, L"Clientes.*", kGridColumnCount), 1);
    EXPECT_EQ(PlaceField(design, L"Pedidos.*", -1), 2);
}

TEST_F(PlaceFieldTest, NothingHappensWhenThereIsNoRoom) {
    for (int column = 0; column < kGridColumnCount; ++column)
        ASSERT_TRUE(design.grid.SetCell(GridRow::Campo, column, L"x" + std::to_wstring(column)));
    const auto before = design.grid.Columns();
    EXPECT_EQ(PlaceField(design, L"Clientes.nombre", 5), -1);
    EXPECT_EQ(PlaceField(design, L"  ", 5), -1);
    EXPECT_EQ(PlaceField(design, std::wstring(256, L'x'), 5), -1);
    EXPECT_EQ(design.grid.Columns(), before);
}

TEST_F(PlaceFieldTest, AColumnWithoutAFieldKeepsItsOtherCells) {
    ASSERT_TRUE(design.grid.SetCell(GridRow::Orden, 1, L"Ascendente"));
    EXPECT_EQ(PlaceField(design, L"Clientes.nombre", 1), 1);
    EXPECT_EQ(design.grid.Cell(GridRow::Orden, 1), L"Ascendente");
}

}  // namespace
}  // namespace tessel::model
