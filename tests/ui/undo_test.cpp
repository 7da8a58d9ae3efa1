// Undo and redo through the presenter, as the user meets them.
#include <gtest/gtest.h>

#include "compose/compose.h"
#include "tests/model/sample_schema.h"
#include "tests/ui/fakes.h"
#include "ui/designer_presenter.h"

namespace tessel::ui {
namespace {

using model::GridRow;

class Undoing : public ::testing::Test {
protected:
    Undoing() {
        presenter_.Load();
        presenter_.BindSchema(&schema_);
    }

    const std::wstring& Cell(GridRow row, int column) const {
        return presenter_.Design().grid.Cell(row, column);
    }
    bool IsTicked(std::wstring_view table, std::wstring_view field) const {
        const model::DiagramTable* shown = presenter_.Design().diagram.FindTable(table);
        if (!shown) return false;
        for (const model::DiagramField& candidate : shown->fields) {
            if (candidate.name == field) return candidate.checked;
        }
        return false;
    }
    const model::Diagram& Diagram() const { return presenter_.Design().diagram; }

    schema::Schema schema_ = model::testing_support::SampleSchema();
    test::Calls calls_;
    test::FakeEditor editor_{calls_};
    test::FakeWindow window_{calls_};
    DesignerPresenter presenter_{window_, editor_, nullptr};
};

TEST_F(Undoing, AFreshDesignerHasNothingToUndo) {
    EXPECT_FALSE(presenter_.CanUndo());
    EXPECT_FALSE(presenter_.CanRedo());
    presenter_.Undo();
    presenter_.Redo();
    EXPECT_EQ(presenter_.BuildSQL(), L"");
}

TEST_F(Undoing, TheStatementThatTheDesignerOpenedWithIsTheFirstState) {
    presenter_.SetDsn(L"SELECT Clientes.nombre FROM Clientes");
    EXPECT_FALSE(presenter_.CanUndo());
}

TEST_F(Undoing, ATypedCellIsOneStepWithAllItSetOff) {
    presenter_.SetDsn(L"SELECT Clientes.nombre FROM Clientes");
    presenter_.GridCellCommitted(GridRow::Campo, 1, L"Clientes.País");
    ASSERT_EQ(Cell(GridRow::Titulo, 1), L"País");
    ASSERT_TRUE(IsTicked(L"Clientes", L"País"));
    presenter_.GridFocusMoved(GridRow::Orden, 7);
    presenter_.Undo();
    EXPECT_TRUE(presenter_.Design().grid.IsColumnEmpty(1));
    EXPECT_EQ(presenter_.Design().grid.Caption(1), L"");
    EXPECT_FALSE(IsTicked(L"Clientes", L"País"));
    EXPECT_FALSE(presenter_.CanUndo());
    EXPECT_EQ(presenter_.Design().grid.FocusedColumn(), 1);
    EXPECT_EQ(presenter_.Design().grid.FocusedRow(), GridRow::Campo);
    presenter_.Redo();
    EXPECT_EQ(Cell(GridRow::Campo, 1), L"Clientes.País");
    EXPECT_TRUE(IsTicked(L"Clientes", L"País"));
    EXPECT_FALSE(presenter_.CanRedo());
}

TEST_F(Undoing, ARefusedCellIsNoStep) {
    presenter_.GridCellCommitted(GridRow::Campo, 0, std::wstring(256, L'x'));
    EXPECT_FALSE(presenter_.CanUndo());
}

TEST_F(Undoing, ATickIsOneStepAndItsMarkFollowsTheGrid) {
    presenter_.TableChosen(L"Clientes");
    presenter_.DiagramFieldChecked(L"Clientes", L"nombre", true);
    presenter_.DiagramFieldChecked(L"Clientes", L"nombre", false);
    presenter_.Undo();
    EXPECT_TRUE(IsTicked(L"Clientes", L"nombre"));
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.nombre");
    presenter_.Undo();
    EXPECT_FALSE(IsTicked(L"Clientes", L"nombre"));
    presenter_.Undo();
    EXPECT_TRUE(Diagram().Tables().empty());
    EXPECT_FALSE(presenter_.CanUndo());
}

TEST_F(Undoing, AnAddedTableShowsTheTicksOfFieldsThatTheGridUsesAlready) {
    presenter_.GridCellCommitted(GridRow::Campo, 0, L"Clientes.nombre");
    presenter_.TableChosen(L"Clientes");
    EXPECT_TRUE(IsTicked(L"Clientes", L"nombre"));
}

TEST_F(Undoing, AnAddedTableGoesWithTheRelationThatItBrought) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Pedidos");
    ASSERT_EQ(Diagram().Relations().size(), 1u);
    presenter_.Undo();
    EXPECT_EQ(Diagram().Tables().size(), 1u);
    EXPECT_TRUE(Diagram().Relations().empty());
    presenter_.Redo();
    EXPECT_EQ(Diagram().Relations().size(), 1u);
}

TEST_F(Undoing, ADrawnRelationIsOneStep) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Productos");
    presenter_.RelationDrawn(L"Clientes", L"IdCliente", L"Productos", L"IdProducto");
    presenter_.Undo();
    EXPECT_TRUE(Diagram().Relations().empty());
    EXPECT_EQ(Diagram().Tables().size(), 2u);
}

TEST_F(Undoing, TheDistinctBoxFollowsInTheWindow) {
    presenter_.DistinctClicked(true);
    window_.distinct = true;
    presenter_.Undo();
    EXPECT_FALSE(presenter_.Design().distinct);
    EXPECT_FALSE(window_.distinct);
    presenter_.Redo();
    EXPECT_TRUE(window_.distinct);
}

TEST_F(Undoing, ClearingEverythingComesBackAtOnce) {
    presenter_.SetDsn(L"SELECT Clientes.nombre, Clientes.País FROM Clientes WHERE Clientes.País = 'ES'");
    const std::wstring before = presenter_.BuildSQL();
    window_.answer = true;
    presenter_.ClearDesign(true);
    EXPECT_EQ(presenter_.BuildSQL(), L"");
    presenter_.Undo();
    EXPECT_EQ(presenter_.BuildSQL(), before);
    EXPECT_TRUE(IsTicked(L"Clientes", L"nombre"));
    EXPECT_FALSE(presenter_.CanUndo());
}

TEST_F(Undoing, ClearingThatWasNotWantedIsNoStep) {
    presenter_.SetDsn(L"SELECT Clientes.nombre FROM Clientes");
    presenter_.ClearDesign(true);
    EXPECT_FALSE(presenter_.CanUndo());
}

TEST_F(Undoing, ARemovedColumnComesBackShown) {
    presenter_.SetDsn(L"SELECT Clientes.nombre, Clientes.País FROM Clientes");
    presenter_.GridFocusMoved(GridRow::Campo, 0);
    presenter_.RemoveFocusedColumn();
    EXPECT_FALSE(presenter_.Design().grid.IsColumnShown(0));
    presenter_.Undo();
    EXPECT_TRUE(presenter_.Design().grid.IsColumnShown(0));
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.nombre");
    EXPECT_EQ(presenter_.Design().grid.FocusedColumn(), 0);
}

TEST_F(Undoing, TheFieldListFollowsTheTables) {
    presenter_.TableChosen(L"Clientes");
    const std::vector<std::wstring> with_table = presenter_.Design().grid.PickList(0);
    EXPECT_FALSE(with_table.empty());
    presenter_.Undo();
    EXPECT_TRUE(presenter_.Design().grid.PickList(0).empty());
    presenter_.Redo();
    EXPECT_EQ(presenter_.Design().grid.PickList(0), with_table);
}

TEST_F(Undoing, APlaceThatTheUserGaveABoxIsAStep) {
    presenter_.TableChosen(L"Clientes");
    presenter_.Design().diagram.SetTableRect(L"Clientes", {0, 0, 90, 90});
    presenter_.StepDone();
    presenter_.Design().diagram.SetTableRect(L"Clientes", {40, 0, 90, 90});
    presenter_.StepDone();
    presenter_.Undo();
    EXPECT_EQ(Diagram().Tables().front().rect.left, 0);
    presenter_.Undo();
    EXPECT_TRUE(Diagram().Tables().empty());
}

TEST_F(Undoing, WhatAControlChangedIsNotMixedWithTheNextGesture) {
    presenter_.TableChosen(L"Clientes");
    presenter_.Design().diagram.SetTableRect(L"Clientes", {0, 0, 90, 90});
    presenter_.StepDone();
    presenter_.Design().diagram.SetTableRect(L"Clientes", {40, 0, 90, 90});
    presenter_.DistinctClicked(true);
    presenter_.Undo();
    EXPECT_FALSE(presenter_.Design().distinct);
    EXPECT_EQ(Diagram().Tables().front().rect.left, 40);
    presenter_.Undo();
    EXPECT_EQ(Diagram().Tables().front().rect.left, 0);
}

TEST_F(Undoing, NothingIsUndoneBehindTheText) {
    presenter_.SetDsn(L"SELECT Clientes.nombre FROM Clientes");
    presenter_.DistinctClicked(true);
    presenter_.TabClicked(Tab::Sql);
    EXPECT_FALSE(presenter_.CanUndo());
    presenter_.Undo();
    EXPECT_TRUE(presenter_.Design().distinct);
}

TEST_F(Undoing, LookingAtTheTextKeepsTheHistory) {
    presenter_.SetDsn(L"SELECT Clientes.nombre FROM Clientes");
    presenter_.DistinctClicked(true);
    presenter_.TabClicked(Tab::Sql);
    presenter_.TabClicked(Tab::Design);
    ASSERT_TRUE(presenter_.CanUndo());
    presenter_.Undo();
    EXPECT_FALSE(presenter_.Design().distinct);
    EXPECT_FALSE(presenter_.CanUndo());
    presenter_.Redo();
    EXPECT_TRUE(presenter_.Design().distinct);
}

TEST_F(Undoing, LookingAtTheTextAfterUndoKeepsWhatCanBeRedone) {
    presenter_.SetDsn(L"SELECT Clientes.nombre FROM Clientes");
    presenter_.DistinctClicked(true);
    presenter_.Undo();
    presenter_.TabClicked(Tab::Sql);
    presenter_.TabClicked(Tab::Design);
    EXPECT_TRUE(presenter_.CanRedo());
    presenter_.Redo();
    EXPECT_TRUE(presenter_.Design().distinct);
}

TEST_F(Undoing, WhatTheAnalysisRewroteIsNoStep) {
    presenter_.SetDsn(L"SELECT Clientes.nombre, Clientes.País FROM Clientes");
    presenter_.GridFocusMoved(GridRow::Campo, 0);
    presenter_.RemoveFocusedColumn();
    presenter_.TabClicked(Tab::Sql);
    presenter_.TabClicked(Tab::Design);
    // The gap has closed.
    ASSERT_EQ(Cell(GridRow::Campo, 0), L"Clientes.País");
    presenter_.Undo();
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.nombre");
    EXPECT_EQ(Cell(GridRow::Campo, 1), L"Clientes.País");
    EXPECT_FALSE(presenter_.CanUndo());
}

TEST_F(Undoing, CellsThatTheTextCouldNotKeepComeBack) {
    presenter_.SetDsn(L"SELECT Clientes.nombre FROM Clientes");
    presenter_.GridCellCommitted(GridRow::Condicion, 3, L">5");
    presenter_.TabClicked(Tab::Sql);
    presenter_.TabClicked(Tab::Design);
    ASSERT_EQ(Cell(GridRow::Condicion, 3), L"");
    presenter_.Undo();
    EXPECT_EQ(Cell(GridRow::Condicion, 3), L">5");
    presenter_.Undo();
    EXPECT_EQ(Cell(GridRow::Condicion, 3), L"");
    EXPECT_FALSE(presenter_.CanUndo());
}

TEST_F(Undoing, TablesWithoutColumnsThatTheSqlTabCouldNotKeepComeBack) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TabClicked(Tab::Sql);
    presenter_.TabClicked(Tab::Design);
    ASSERT_TRUE(Diagram().Tables().empty());
    presenter_.Undo();
    EXPECT_EQ(Diagram().Tables().size(), 1u);
}

TEST_F(Undoing, ATextThatTheUserChangedStartsANewHistory) {
    presenter_.SetDsn(L"SELECT Clientes.nombre FROM Clientes");
    presenter_.DistinctClicked(true);
    presenter_.TabClicked(Tab::Sql);
    editor_.text = L"SELECT Pedidos.Importe FROM Pedidos";
    presenter_.TabClicked(Tab::Design);
    EXPECT_FALSE(presenter_.CanUndo());
    presenter_.GridCellCommitted(GridRow::Orden, 0, L"Ascendente");
    presenter_.Undo();
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Pedidos.Importe");
    EXPECT_EQ(Cell(GridRow::Orden, 0), L"");
    EXPECT_FALSE(presenter_.CanUndo());
}

TEST_F(Undoing, ATextThatTheUserEmptiedStartsANewHistory) {
    presenter_.SetDsn(L"SELECT Clientes.nombre FROM Clientes");
    presenter_.DistinctClicked(true);
    presenter_.TabClicked(Tab::Sql);
    editor_.text = L" \r\n";
    presenter_.TabClicked(Tab::Design);
    EXPECT_FALSE(presenter_.CanUndo());
}

TEST_F(Undoing, ATextThatNoDesignCanShowLeavesNothingToUndoUntilItIsRepaired) {
    presenter_.SetDsn(L"SELECT Clientes.nombre FROM Clientes");
    presenter_.DistinctClicked(true);
    presenter_.TabClicked(Tab::Sql);
    editor_.text = L"SELECT (((";
    presenter_.TabClicked(Tab::Design);
    ASSERT_FALSE(presenter_.IsGridShown());
    EXPECT_FALSE(presenter_.CanUndo());
    presenter_.Undo();
    EXPECT_TRUE(presenter_.Design().distinct);
    presenter_.TabClicked(Tab::Sql);
    EXPECT_EQ(editor_.text, L"SELECT (((");
    editor_.text = L"SELECT Pedidos.Importe FROM Pedidos";
    presenter_.TabClicked(Tab::Design);
    EXPECT_TRUE(presenter_.IsGridShown());
    EXPECT_FALSE(presenter_.CanUndo());
}

TEST_F(Undoing, ACellCommittedWhileTheTabChangesIsAStep) {
    presenter_.SetDsn(L"SELECT Clientes.nombre FROM Clientes");
    window_.on_focus_lost = [this] { presenter_.GridCellCommitted(GridRow::Condicion, 0, L"= 'x'"); };
    presenter_.TabClicked(Tab::Sql);
    window_.on_focus_lost = nullptr;
    presenter_.TabClicked(Tab::Design);
    ASSERT_EQ(Cell(GridRow::Condicion, 0), L"= 'x'");
    presenter_.Undo();
    EXPECT_EQ(Cell(GridRow::Condicion, 0), L"");
    EXPECT_FALSE(presenter_.CanUndo());
}

}  // namespace
}  // namespace tessel::ui
