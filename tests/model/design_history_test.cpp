#include "model/design_history.h"

#include <gtest/gtest.h>

#include "model/grid_editing.h"
#include "tests/model/sample_schema.h"

namespace tessel::model {
namespace {

class History : public ::testing::Test {
protected:
    History() {
        design_.diagram.Bind(&schema_);
        design_.grid.LoadColumns();
        history_.Start(design_);
    }

    void Write(GridRow row, int column, std::wstring_view text) {
        ASSERT_TRUE(design_.grid.SetCell(row, column, text));
        CellCommitted(design_, row, column);
    }
    const std::wstring& Cell(GridRow row, int column) const { return design_.grid.Cell(row, column); }

    schema::Schema schema_ = testing_support::SampleSchema();
    Design design_;
    DesignHistory history_;
};

TEST_F(History, StartsWithNothingToUndoOrRedo) {
    EXPECT_FALSE(history_.CanUndo());
    EXPECT_FALSE(history_.CanRedo());
    EXPECT_FALSE(history_.Undo(design_).done);
    EXPECT_FALSE(history_.Redo(design_).done);
}

TEST_F(History, AnUnchangedDesignIsNoStep) {
    EXPECT_FALSE(history_.Record(design_));
    EXPECT_FALSE(history_.CanUndo());
}

TEST_F(History, ACellComesBackAndGoesAgainWithItsCaption) {
    Write(GridRow::Titulo, 2, L"Total");
    EXPECT_TRUE(history_.Record(design_));
    const DesignHistory::Outcome undone = history_.Undo(design_);
    EXPECT_TRUE(undone.done);
    EXPECT_EQ(undone.cell, (GridPlace{GridRow::Titulo, 2}));
    EXPECT_EQ(Cell(GridRow::Titulo, 2), L"");
    EXPECT_EQ(design_.grid.Caption(2), L"");
    EXPECT_TRUE(history_.CanRedo());
    const DesignHistory::Outcome redone = history_.Redo(design_);
    EXPECT_EQ(redone.cell, (GridPlace{GridRow::Titulo, 2}));
    EXPECT_EQ(Cell(GridRow::Titulo, 2), L"Total");
    EXPECT_EQ(design_.grid.Caption(2), L"Total");
    EXPECT_FALSE(history_.CanRedo());
}

TEST_F(History, WhatWasNotRecordedIsUndoneToo) {
    Write(GridRow::Condicion, 0, L">5");
    history_.Undo(design_);
    EXPECT_EQ(Cell(GridRow::Condicion, 0), L"");
    history_.Redo(design_);
    EXPECT_EQ(Cell(GridRow::Condicion, 0), L">5");
}

TEST_F(History, ANewStepForgetsWhatCouldBeRedone) {
    Write(GridRow::Titulo, 0, L"a");
    history_.Record(design_);
    history_.Undo(design_);
    Write(GridRow::Titulo, 0, L"b");
    history_.Record(design_);
    EXPECT_FALSE(history_.CanRedo());
    history_.Undo(design_);
    EXPECT_EQ(Cell(GridRow::Titulo, 0), L"");
}

TEST_F(History, ARemovedTableComesBackWithItsRelationsItsMarksAndItsPlace) {
    design_.diagram.AddTable(L"Clientes", false);
    design_.diagram.AddTable(L"Pedidos", false);
    ASSERT_EQ(design_.diagram.Relations().size(), 1u);
    FieldChecked(design_, L"Clientes", L"nombre", true);
    design_.diagram.SetTableRect(L"Clientes", {5, 6, 70, 80});
    history_.Record(design_);
    const Diagram::Contents before = design_.diagram.Save();
    design_.diagram.RemoveTable(L"Clientes");
    history_.Record(design_);
    EXPECT_FALSE(history_.Undo(design_).cell);
    EXPECT_EQ(design_.diagram.Save(), before);
    history_.Redo(design_);
    EXPECT_EQ(design_.diagram.Tables().size(), 1u);
    EXPECT_TRUE(design_.diagram.Relations().empty());
}

TEST_F(History, TheKindOfARelationAndTheDistinctBoxAreSteps) {
    design_.diagram.AddTable(L"Clientes", false);
    design_.diagram.AddTable(L"Pedidos", false);
    history_.Record(design_);
    const int key = design_.diagram.Relations().front().key;
    design_.diagram.SetRelationKind(key, kLeftJoin);
    EXPECT_TRUE(history_.Record(design_));
    design_.distinct = true;
    EXPECT_TRUE(history_.Record(design_));
    history_.Undo(design_);
    EXPECT_FALSE(design_.distinct);
    EXPECT_EQ(design_.diagram.FindRelation(key)->info.JType, kLeftJoin);
    history_.Undo(design_);
    EXPECT_EQ(design_.diagram.FindRelation(key)->info.JType, kInnerJoin);
}

TEST_F(History, MovingABoxIsAStepAndItsFirstPlaceIsNot) {
    design_.diagram.AddTable(L"Clientes", true);
    history_.Record(design_);
    design_.diagram.SetTableRect(L"Clientes", {10, 10, 100, 100});
    EXPECT_FALSE(history_.Record(design_));
    design_.diagram.SetTableRect(L"Clientes", {50, 10, 100, 100});
    EXPECT_TRUE(history_.Record(design_));
    history_.Undo(design_);
    EXPECT_EQ(design_.diagram.Tables().front().rect, (DiagramRect{10, 10, 100, 100}));
    history_.Undo(design_);
    EXPECT_TRUE(design_.diagram.Tables().empty());
    history_.Redo(design_);
    EXPECT_EQ(design_.diagram.Tables().front().rect, (DiagramRect{10, 10, 100, 100}));
}

TEST_F(History, AMovedColumnGoesBackWithItsWidthAndLaterWidthsStay) {
    Write(GridRow::Campo, 0, L"Clientes.IdCliente");
    Write(GridRow::Campo, 1, L"Clientes.nombre");
    design_.grid.SetColumnWidth(0, 200);
    history_.Record(design_);
    ASSERT_TRUE(design_.grid.MoveColumn(0, 3));
    history_.Record(design_);
    EXPECT_EQ(design_.grid.ColumnWidth(3), 200);
    design_.grid.SetColumnWidth(3, 210);
    design_.grid.SetColumnWidth(0, 90);  // of "nombre", which has moved up
    history_.Undo(design_);
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.IdCliente");
    EXPECT_EQ(design_.grid.ColumnWidth(0), 210);
    EXPECT_EQ(design_.grid.ColumnWidth(1), 90);
    history_.Redo(design_);
    EXPECT_EQ(Cell(GridRow::Campo, 3), L"Clientes.IdCliente");
    EXPECT_EQ(design_.grid.ColumnWidth(3), 210);
}

TEST_F(History, FocusWidthSelectionAndListsAreNoSteps) {
    design_.diagram.AddTable(L"Clientes", true);
    history_.Record(design_);
    design_.grid.SetFocus(GridRow::Orden, 4);
    design_.grid.SetColumnWidth(4, 300);
    design_.grid.SetPickLists({L"a"});
    design_.diagram.SelectTable(L"Clientes");
    EXPECT_FALSE(history_.Record(design_));
}

TEST_F(History, RelationsWithNewKeysAreNoStep) {
    design_.diagram.AddTable(L"Clientes", false);
    design_.diagram.AddTable(L"Pedidos", false);
    history_.Record(design_);
    const RelInfo info = design_.diagram.Relations().front().info;
    design_.diagram.RemoveRelation(design_.diagram.Relations().front().key);
    design_.diagram.AddRelation(info);
    EXPECT_FALSE(history_.Record(design_));
}

TEST_F(History, KeysOfRelationsStayUniqueAfterUndo) {
    design_.diagram.AddTable(L"Clientes", false);
    design_.diagram.AddTable(L"Pedidos", false);
    history_.Record(design_);
    const RelInfo info = design_.diagram.Relations().front().info;
    const int key = design_.diagram.Relations().front().key;
    design_.diagram.RemoveRelation(key);
    history_.Record(design_);
    history_.Undo(design_);
    EXPECT_NE(design_.diagram.FindRelation(key), nullptr);
    RelInfo other = info;
    other.RightField = L"otro";
    const int new_key = design_.diagram.AddRelation(other);
    EXPECT_NE(new_key, key);
    EXPECT_NE(new_key, 0);
}

TEST_F(History, TheOldestStepsAreForgotten) {
    const int more = static_cast<int>(DesignHistory::kMaxSteps) + 5;
    for (int i = 0; i < more; ++i) {
        Write(GridRow::Condicion, 0, L">" + std::to_wstring(i));
        history_.Record(design_);
    }
    int undone = 0;
    while (history_.Undo(design_).done) ++undone;
    EXPECT_EQ(undone, static_cast<int>(DesignHistory::kMaxSteps));
    EXPECT_EQ(Cell(GridRow::Condicion, 0), L">4");
    while (history_.Redo(design_).done) --undone;
    EXPECT_EQ(undone, 0);
    EXPECT_EQ(Cell(GridRow::Condicion, 0), L">" + std::to_wstring(more - 1));
}

TEST_F(History, StartingAnewForgetsEverything) {
    Write(GridRow::Titulo, 0, L"a");
    history_.Record(design_);
    history_.Start(design_);
    EXPECT_FALSE(history_.CanUndo());
    EXPECT_FALSE(history_.Undo(design_).done);
    EXPECT_EQ(Cell(GridRow::Titulo, 0), L"a");
}

}  // namespace
}  // namespace tessel::model
