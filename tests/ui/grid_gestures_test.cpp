// Moving, inserting, emptying and pasting columns and cells, and what becomes of the statement.
#include <gtest/gtest.h>

#include "tests/model/sample_schema.h"
#include "tests/ui/fakes.h"
#include "ui/designer_presenter.h"

namespace tessel::ui {
namespace {

using model::GridRow;
using Texts = std::vector<std::wstring>;

class GridGestures : public ::testing::Test {
protected:
    GridGestures() {
        presenter_.Load();
        presenter_.BindSchema(&schema_);
    }

    const std::wstring& Cell(GridRow row, int column) const {
        return presenter_.Design().grid.Cell(row, column);
    }
    void Write(GridRow row, int column, const wchar_t* text) {
        presenter_.GridCellCommitted(row, column, text);
    }

    schema::Schema schema_ = model::testing_support::SampleSchema();
    test::Calls calls_;
    test::FakeEditor editor_{calls_};
    test::FakeWindow window_{calls_};
    DesignerPresenter presenter_{window_, editor_, nullptr};
};

TEST_F(GridGestures, AMovedColumnMovesInSelectGroupByAndOrderBy) {
    presenter_.SetDsn(
        L"SELECT Clientes.nombre, Clientes.País, Count(Clientes.IdCliente) AS Total FROM Clientes "
        L"GROUP BY Clientes.nombre, Clientes.País ORDER BY Clientes.nombre, Clientes.País");
    ASSERT_EQ(
        presenter_.BuildSQL(),
        L"SELECT Clientes.nombre AS nombre, Clientes.País AS País, Count(Clientes.IdCliente) AS Total \r\n"
        L"FROM Clientes \r\nGROUP BY Clientes.nombre, Clientes.País \r\nORDER BY Clientes.nombre, "
        L"Clientes.País;");
    presenter_.GridColumnMoved(1, 0);
    EXPECT_EQ(
        presenter_.BuildSQL(),
        L"SELECT Clientes.País AS País, Clientes.nombre AS nombre, Count(Clientes.IdCliente) AS Total \r\n"
        L"FROM Clientes \r\nGROUP BY Clientes.País, Clientes.nombre \r\nORDER BY Clientes.País, "
        L"Clientes.nombre;");
    presenter_.GridColumnMoved(2, 0);
    EXPECT_EQ(
        presenter_.BuildSQL(),
        L"SELECT Count(Clientes.IdCliente) AS Total, Clientes.País AS País, Clientes.nombre AS nombre \r\n"
        L"FROM Clientes \r\nGROUP BY Clientes.País, Clientes.nombre \r\nORDER BY Clientes.País, "
        L"Clientes.nombre;");
}

TEST_F(GridGestures, AMovedColumnTakesItsCriteriaAlongInWhereAndHaving) {
    presenter_.SetDsn(
        L"SELECT Clientes.País, Sum(Pedidos.Importe) AS Total FROM Clientes INNER JOIN Pedidos ON "
        L"Clientes.IdCliente = Pedidos.IdCliente WHERE Clientes.País = 'ES' GROUP BY Clientes.País "
        L"HAVING Sum(Pedidos.Importe) > 10");
    const std::wstring criterion = Cell(GridRow::Condicion, 0);
    presenter_.GridColumnMoved(0, 5);
    EXPECT_EQ(Cell(GridRow::Condicion, 5), criterion);
    EXPECT_EQ(Cell(GridRow::Campo, 5), L"Clientes.País");
    EXPECT_EQ(presenter_.Design().grid.Caption(5), L"País");
}

TEST_F(GridGestures, TheFocusGoesWithAMovedColumn) {
    Write(GridRow::Campo, 0, L"1");
    presenter_.GridFocusMoved(GridRow::Orden, 0);
    presenter_.GridColumnMoved(0, 3);
    EXPECT_EQ(presenter_.Design().grid.FocusedColumn(), 3);
    EXPECT_EQ(presenter_.Design().grid.FocusedRow(), GridRow::Orden);
    presenter_.Undo();
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"1");
}

TEST_F(GridGestures, AMoveThatCannotBeIsNoStep) {
    Write(GridRow::Campo, 0, L"1");
    presenter_.Undo();
    ASSERT_TRUE(presenter_.CanRedo());
    presenter_.GridColumnMoved(0, 60);
    presenter_.GridColumnMoved(2, 2);
    EXPECT_TRUE(presenter_.CanRedo());
}

TEST_F(GridGestures, APasteThatDoesNotFitSaysWhyAndWritesNothing) {
    using model::CellRange;
    const std::wstring too_long(256, L'x');
    EXPECT_FALSE(presenter_.GridCellsPasted({GridRow::Campo, GridRow::Campo, {0}}, {{L"1", too_long}}));
    EXPECT_FALSE(presenter_.GridCellsPasted({GridRow::Campo, GridRow::Campo, {59}}, {{L"1", L"2"}}));
    EXPECT_FALSE(presenter_.GridCellsPasted({GridRow::Or, GridRow::Or, {0}}, {{L"1"}, {L"2"}}));
    EXPECT_EQ(
        window_.messages,
        Texts({L"El texto de una celda no puede tener más de 255 caracteres. No se ha pegado nada.",
               L"No hay tantas columnas a partir de esta: una consulta puede tener 60 columnas como máximo. "
               L"No se ha pegado nada.",
               L"No hay tantas filas a partir de esta. Colóquese en una fila más arriba. No se ha pegado "
               L"nada."}));
    EXPECT_FALSE(presenter_.CanUndo());
    EXPECT_FALSE(presenter_.CanClearDesign());
}

TEST_F(GridGestures, APastedBlockIsOneStep) {
    presenter_.TableChosen(L"Clientes");
    EXPECT_TRUE(presenter_.GridCellsPasted({GridRow::Campo, GridRow::Campo, {0}},
                                           {{L"Clientes.nombre", L"Clientes.País"}, {L"Quién", L"Dónde"}}));
    EXPECT_EQ(presenter_.BuildSQL(),
              L"SELECT Clientes.nombre AS Quién, Clientes.País AS Dónde \r\nFROM Clientes;");
    presenter_.Undo();
    EXPECT_EQ(presenter_.BuildSQL(), L"");
    EXPECT_EQ(presenter_.Design().diagram.Tables().size(), 1u);
}

TEST_F(GridGestures, AColumnIsPutInBeforeTheFocusedOne) {
    Write(GridRow::Campo, 0, L"1");
    Write(GridRow::Campo, 1, L"2");
    presenter_.GridFocusMoved(GridRow::Orden, 1);
    presenter_.InsertColumn();
    EXPECT_EQ(Cell(GridRow::Campo, 2), L"2");
    EXPECT_TRUE(presenter_.Design().grid.IsColumnEmpty(1));
    EXPECT_EQ(presenter_.Design().grid.FocusedColumn(), 1);
    EXPECT_EQ(presenter_.Design().grid.FocusedRow(), GridRow::Campo);
}

TEST_F(GridGestures, WithSixtyColumnsInUseNoneIsPutIn) {
    for (int column = 0; column < 60; ++column) Write(GridRow::Campo, column, L"1");
    presenter_.InsertColumn();
    EXPECT_EQ(window_.messages,
              Texts({L"No queda ninguna columna vacía: una consulta puede tener 60 columnas como máximo."}));
}

TEST_F(GridGestures, WhatCanBeRemovedAndClearedIsWhateverHoldsText) {
    EXPECT_FALSE(presenter_.CanRemoveFocusedColumn());
    EXPECT_FALSE(presenter_.CanClearDesign());
    Write(GridRow::Condicion, 2, L">5");
    EXPECT_FALSE(presenter_.CanRemoveFocusedColumn());
    EXPECT_TRUE(presenter_.CanClearDesign());
    presenter_.GridFocusMoved(GridRow::Orden, 2);
    EXPECT_TRUE(presenter_.CanRemoveFocusedColumn());
    presenter_.RemoveFocusedColumn();
    EXPECT_FALSE(presenter_.CanClearDesign());
    presenter_.Undo();
    EXPECT_TRUE(presenter_.CanClearDesign());
    EXPECT_TRUE(presenter_.CanRemoveFocusedColumn());
}

}  // namespace
}  // namespace tessel::ui
