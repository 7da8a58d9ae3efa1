// Tables and fields that are dropped on the designer, through the presenter.
#include <gtest/gtest.h>

#include "tests/model/sample_schema.h"
#include "tests/ui/fakes.h"
#include "ui/designer_presenter.h"

namespace tessel::ui {
namespace {

using model::GridRow;

class Dropping : public ::testing::Test {
protected:
    Dropping() {
        presenter_.Load();
        presenter_.BindSchema(&schema_);
    }

    const std::wstring& Cell(GridRow row, int column) const {
        return presenter_.Design().grid.Cell(row, column);
    }
    const model::Diagram& Diagram() const { return presenter_.Design().diagram; }

    schema::Schema schema_ = model::testing_support::SampleSchema();
    test::Calls calls_;
    test::FakeEditor editor_{calls_};
    test::FakeWindow window_{calls_};
    DesignerPresenter presenter_{window_, editor_, nullptr};
};

TEST_F(Dropping, AFieldOfAnAbsentTableBringsTheTableRelatedByItsKeys) {
    presenter_.SetDsn(L"SELECT Clientes.nombre FROM Clientes");
    presenter_.FieldDropped(L"Pedidos", L"IdPedido", 1);
    EXPECT_EQ(Cell(GridRow::Campo, 1), L"Pedidos.IdPedido");
    ASSERT_EQ(Diagram().Relations().size(), 1u);
    EXPECT_EQ(Diagram().Relations()[0].info.RightTable, L"Pedidos");
    EXPECT_EQ(presenter_.BuildSQL(),
              L"SELECT Clientes.nombre AS nombre, Pedidos.IdPedido AS IdPedido \r\nFROM (Clientes INNER JOIN "
              L"Pedidos ON "
              L"Clientes.IdCliente = Pedidos.IdCliente) ;");
}

TEST_F(Dropping, ADropIsOneStepToUndo) {
    presenter_.SetDsn(L"SELECT Clientes.nombre FROM Clientes");
    presenter_.FieldDropped(L"Pedidos", L"IdPedido", 0);
    ASSERT_EQ(Cell(GridRow::Campo, 1), L"Clientes.nombre");
    presenter_.Undo();
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.nombre");
    EXPECT_EQ(Diagram().Tables().size(), 1u);
    EXPECT_FALSE(presenter_.CanUndo());
    presenter_.Redo();
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Pedidos.IdPedido");
    EXPECT_EQ(Diagram().Tables().size(), 2u);
}

TEST_F(Dropping, AllTheFieldsOfATableAreOneColumn) {
    presenter_.FieldDropped(L"Clientes", L"*", 2);
    EXPECT_EQ(Cell(GridRow::Campo, 2), L"Clientes.*");
    EXPECT_EQ(Cell(GridRow::Titulo, 2), L"");
    EXPECT_TRUE(Diagram().FindTable(L"Clientes")->all_checked);
    EXPECT_EQ(presenter_.Design().grid.FocusedColumn(), 2);
}

TEST_F(Dropping, ATableThatIsThereStaysAsItIs) {
    presenter_.TableDropped(L"Clientes");
    presenter_.TableDropped(L"clientes");
    EXPECT_EQ(Diagram().Tables().size(), 1u);
}

TEST_F(Dropping, NothingIsDroppedOnADesignThatIsNotInForce) {
    presenter_.SetDsn(L"SELECT a FROM t UNION SELECT b FROM u");
    presenter_.TabClicked(Tab::Design);
    ASSERT_FALSE(presenter_.IsGridShown());
    presenter_.TableDropped(L"Clientes");
    presenter_.FieldDropped(L"Clientes", L"nombre", 0);
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"");
    EXPECT_EQ(Diagram().FindTable(L"Clientes"), nullptr);
}

}  // namespace
}  // namespace tessel::ui
