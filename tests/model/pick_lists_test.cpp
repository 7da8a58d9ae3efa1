#include "model/pick_lists.h"

#include <gtest/gtest.h>

#include "tests/model/sample_schema.h"

namespace tessel::model {
namespace {

using Texts = std::vector<std::wstring>;

class PickListTest : public testing::Test {
protected:
    PickListTest() {
        design.grid.LoadColumns();
        design.diagram.Bind(&schema);
    }

    Texts ListOf(GridRow row, const Texts& parameters = {}) {
        RefillPickLists(design, row, parameters);
        for (int column = 1; column < design.grid.ColumnCount(); ++column) {
            EXPECT_EQ(design.grid.PickList(column), design.grid.PickList(0));
        }
        return design.grid.PickList(0);
    }

    schema::Schema schema = testing_support::SampleSchema();
    Design design;
};

TEST_F(PickListTest, WithoutTablesTheFieldListsAreEmpty) {
    EXPECT_EQ(ListOf(GridRow::Campo), Texts{});
    EXPECT_EQ(ListOf(GridRow::Tabla), Texts{});
}

TEST_F(PickListTest, FieldsStandBehindTheStarOfTheirTableInTheDiagramsOrder) {
    design.diagram.AddTable(L"detalle de pedidos", true);
    design.diagram.AddTable(L"Categorías", true);
    EXPECT_EQ(ListOf(GridRow::Campo),
              (Texts{L"[Detalle de pedidos].*", L"[Detalle de pedidos].IdPedido",
                     L"[Detalle de pedidos].IdProducto", L"[Detalle de pedidos].Cantidad", L"Categorías.*",
                     L"Categorías.IdCategoría", L"Categorías.nombre"}));
    EXPECT_EQ(ListOf(GridRow::Tabla), (Texts{L"[Detalle de pedidos]", L"Categorías"}));
}

TEST_F(PickListTest, ViewsAndTablesThatTheSchemaDoesNotKnowAreOffered) {
    design.diagram.AddTable(L"Ventas por año", true);
    design.diagram.AddTable(L"Desconocida", true);
    EXPECT_EQ(ListOf(GridRow::Campo), (Texts{L"[Ventas por año].*", L"[Ventas por año].Año",
                                             L"[Ventas por año].Importe", L"Desconocida.*"}));
    EXPECT_EQ(ListOf(GridRow::Tabla), (Texts{L"[Ventas por año]", L"Desconocida"}));
}

TEST_F(PickListTest, ObjectsOfOtherKindsAreNotOffered) {
    design.diagram.AddTable(L"Clientes", true);
    Diagram::Contents contents = design.diagram.Save();
    contents.tables[0].kind = static_cast<schema::ObjectKind>(3);
    design.diagram.Restore(contents);
    EXPECT_EQ(ListOf(GridRow::Campo), Texts{});
    EXPECT_EQ(ListOf(GridRow::Tabla), Texts{});
}

TEST_F(PickListTest, TheWordRowsOfferTheirWords) {
    EXPECT_EQ(ListOf(GridRow::Agrupacion),
              (Texts{L"Agrupado por", L"Suma", L"Promedio", L"Mínimo", L"Máximo", L"Cuenta", L"Expresión"}));
    EXPECT_EQ(ListOf(GridRow::Visible), (Texts{L"Si", L"No"}));
    EXPECT_EQ(ListOf(GridRow::Orden), (Texts{L"Ascendente", L"Descendente"}));
}

TEST_F(PickListTest, TheTitleRowOnlyEmptiesTheLists) {
    ListOf(GridRow::Orden);
    EXPECT_EQ(ListOf(GridRow::Titulo), Texts{});
}

TEST_F(PickListTest, CriteriaRowsOfferTheParameters) {
    EXPECT_EQ(ListOf(GridRow::Condicion, {L"desde", L"hasta"}), (Texts{L"@desde", L"@hasta"}));
    EXPECT_EQ(ListOf(GridRow::Or, {L"desde"}), Texts{L"@desde"});
}

TEST_F(PickListTest, WithoutParametersCriteriaRowsKeepTheListOfTheRowBefore) {
    FocusMoved(design, GridRow::Orden, 0, {});
    FocusMoved(design, GridRow::Condicion, 0, {});
    EXPECT_EQ(design.grid.PickList(0), (Texts{L"Ascendente", L"Descendente"}));
    FocusMoved(design, GridRow::Or, 5, {});
    EXPECT_EQ(design.grid.PickList(5), (Texts{L"Ascendente", L"Descendente"}));
}

TEST_F(PickListTest, MovingWithinARowDoesNotRefill) {
    FocusMoved(design, GridRow::Tabla, 0, {});
    design.diagram.AddTable(L"Clientes", true);
    FocusMoved(design, GridRow::Tabla, 4, {});
    EXPECT_EQ(design.grid.PickList(0), Texts{});
    EXPECT_EQ(design.grid.FocusedColumn(), 4);
    FocusMoved(design, GridRow::Orden, 4, {});
    FocusMoved(design, GridRow::Tabla, 4, {});
    EXPECT_EQ(design.grid.PickList(0), Texts{L"Clientes"});
}

}  // namespace
}  // namespace tessel::model
