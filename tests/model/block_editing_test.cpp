#include "model/block_editing.h"

#include <gtest/gtest.h>

#include <set>

#include "model/grid_editing.h"
#include "tests/model/sample_schema.h"

namespace tessel::model {
namespace {

using enum GridRow;

class Blocks : public ::testing::Test {
protected:
    Blocks() {
        design_.diagram.Bind(&schema_);
        design_.grid.LoadColumns();
        design_.diagram.AddTable(L"Clientes", true);
        AddField(design_, L"Clientes.nombre", L"", kKeepVisibility);
        AddField(design_, L"Clientes.País", L"Tierra", kHide);
        EXPECT_TRUE(grid_.SetCell(Condicion, 1, L"='ES'"));
        EXPECT_TRUE(grid_.SetCell(Orden, 0, L"Ascendente"));
    }

    const std::wstring& Cell(GridRow row, int column) const { return grid_.Cell(row, column); }
    std::set<std::wstring> Ticks() const {
        std::set<std::wstring> ticks;
        for (const DiagramField& field : design_.diagram.Tables().front().fields) {
            if (field.checked) ticks.insert(field.name);
        }
        return ticks;
    }
    CellBlock ColumnBlock(int column) const { return CopyCells(grid_, {Campo, Or, {column}}); }

    schema::Schema schema_ = testing_support::SampleSchema();
    Design design_;
    DesignGrid& grid_ = design_.grid;
};

TEST_F(Blocks, CopyTakesRowsAndColumnsAsShown) {
    EXPECT_EQ(CopyCells(grid_, {Campo, Titulo, {0, 1}}),
              (CellBlock{{L"Clientes.nombre", L"Clientes.País"}, {L"nombre", L"Tierra"}}));
}

TEST_F(Blocks, APastedColumnIsTheColumnThatWasCopied) {
    ASSERT_EQ(PasteCells(design_, {Campo, Or, {4}}, ColumnBlock(1)), PasteProblem::None);
    EXPECT_EQ(ColumnBlock(4), ColumnBlock(1));
    EXPECT_EQ(grid_.Caption(4), L"Tierra");
}

TEST_F(Blocks, APastedColumnLeavesNothingOfTheOneThatWasThere) {
    ASSERT_EQ(PasteCells(design_, {Campo, Or, {1}}, ColumnBlock(0)), PasteProblem::None);
    EXPECT_EQ(ColumnBlock(1), ColumnBlock(0));
    EXPECT_EQ(Cell(Condicion, 1), L"");
    EXPECT_EQ(Ticks(), (std::set<std::wstring>{L"nombre"}));
}

TEST_F(Blocks, ABlockOfAllRowsBeginsAtTheFirstWhereverItIsPasted) {
    ASSERT_EQ(PasteCells(design_, {Orden, Orden, {3}}, ColumnBlock(0)), PasteProblem::None);
    EXPECT_EQ(Cell(Campo, 3), L"Clientes.nombre");
    EXPECT_EQ(Cell(Orden, 3), L"Ascendente");
}

TEST_F(Blocks, APastedFieldIsCompletedAsATypedOne) {
    ASSERT_EQ(PasteCells(design_, {Campo, Campo, {5}}, {{L"Clientes.IdCliente"}}), PasteProblem::None);
    EXPECT_EQ(Cell(Titulo, 5), L"IdCliente");
    EXPECT_EQ(Cell(Tabla, 5), L"Clientes");
    EXPECT_EQ(Cell(Visible, 5), L"Si");
    EXPECT_EQ(grid_.Caption(5), L"IdCliente");
    EXPECT_TRUE(Ticks().contains(L"IdCliente"));
}

TEST_F(Blocks, ARowOfFieldsFillsTheShownColumns) {
    grid_.ShowColumn(3, false);
    ASSERT_EQ(PasteCells(design_, {Campo, Campo, {2}}, {{L"a", L"b", L"c"}}), PasteProblem::None);
    EXPECT_EQ(Cell(Campo, 2), L"a");
    EXPECT_EQ(Cell(Campo, 3), L"");
    EXPECT_EQ(Cell(Campo, 4), L"b");
    EXPECT_EQ(Cell(Campo, 5), L"c");
}

TEST_F(Blocks, OneCellFillsTheWholeSelection) {
    ASSERT_EQ(PasteCells(design_, {Condicion, Or, {0, 1}}, {{L">1"}}), PasteProblem::None);
    for (const int column : {0, 1}) {
        EXPECT_EQ(Cell(Condicion, column), L">1");
        EXPECT_EQ(Cell(Or, column), L">1");
    }
}

TEST_F(Blocks, ACellTooLongPastesNothing) {
    const CellBlock before = ColumnBlock(2);
    const CellBlock block = {{L"Clientes.nombre"}, {std::wstring(kMaxCellLength + 1, L'x')}};
    EXPECT_EQ(PasteCells(design_, {Campo, Titulo, {2}}, block), PasteProblem::CellTooLong);
    EXPECT_EQ(ColumnBlock(2), before);
}

TEST_F(Blocks, ACellOfExactlyTheLimitIsPasted) {
    const std::wstring text(kMaxCellLength, L'x');
    EXPECT_EQ(PasteCells(design_, {Titulo, Titulo, {2}}, {{text}}), PasteProblem::None);
    EXPECT_EQ(Cell(Titulo, 2), text);
}

TEST_F(Blocks, MoreColumnsThanThereArePasteNothing) {
    const CellBlock row = {std::vector<std::wstring>(3, L"1+1")};
    EXPECT_EQ(PasteCells(design_, {Campo, Campo, {58}}, row), PasteProblem::TooFewColumns);
    EXPECT_EQ(Cell(Campo, 58), L"");
    EXPECT_EQ(PasteCells(design_, {Campo, Campo, {57}}, row), PasteProblem::None);
    EXPECT_EQ(Cell(Campo, 59), L"1+1");
}

TEST_F(Blocks, MoreRowsThanThereArePasteNothing) {
    EXPECT_EQ(PasteCells(design_, {Or, Or, {0}}, {{L"a"}, {L"b"}}), PasteProblem::TooFewRows);
    EXPECT_EQ(Cell(Or, 0), L"");
    EXPECT_EQ(PasteCells(design_, {Condicion, Condicion, {0}}, {{L"a"}, {L"b"}}), PasteProblem::None);
    EXPECT_EQ(Cell(Or, 0), L"b");
}

TEST_F(Blocks, EmptyingWholeColumnsLeavesNothingAndKeepsThemShown) {
    EmptyCells(design_, {Campo, Or, {0, 1}});
    for (const int column : {0, 1}) {
        EXPECT_TRUE(grid_.IsColumnEmpty(column));
        EXPECT_EQ(grid_.Caption(column), L"");
        EXPECT_TRUE(grid_.IsColumnShown(column));
    }
    EXPECT_TRUE(Ticks().empty());
}

TEST_F(Blocks, EmptyingATitleEmptiesTheCaption) {
    EmptyCells(design_, {Titulo, Titulo, {1}});
    EXPECT_EQ(grid_.Caption(1), L"");
    EXPECT_EQ(Cell(Campo, 1), L"Clientes.País");
}

TEST_F(Blocks, EmptyingAFieldTakesItsMark) {
    EmptyCells(design_, {Campo, Campo, {0}});
    EXPECT_EQ(Ticks(), (std::set<std::wstring>{L"País"}));
}

TEST_F(Blocks, AMovedColumnKeepsEveryCellItsCaptionAndItsWidth) {
    grid_.SetColumnWidth(1, 222);
    const CellBlock moved = ColumnBlock(1);
    const CellBlock other = ColumnBlock(0);
    ASSERT_TRUE(grid_.MoveColumn(1, 0));
    EXPECT_EQ(ColumnBlock(0), moved);
    EXPECT_EQ(grid_.Caption(0), L"Tierra");
    EXPECT_EQ(grid_.ColumnWidth(0), 222);
    EXPECT_EQ(ColumnBlock(1), other);
    ASSERT_TRUE(grid_.MoveColumn(0, 59));
    EXPECT_EQ(ColumnBlock(59), moved);
    EXPECT_EQ(ColumnBlock(0), other);
}

TEST_F(Blocks, ThereAreOnlyPlacesInTheGridToMoveTo) {
    EXPECT_FALSE(grid_.MoveColumn(0, 60));
    EXPECT_FALSE(grid_.MoveColumn(-1, 0));
    EXPECT_TRUE(grid_.MoveColumn(3, 3));
    EXPECT_EQ(Cell(Campo, 0), L"Clientes.nombre");
}

TEST_F(Blocks, AColumnPutInMovesTheOthersToTheRightUpToTheNextEmptyOne) {
    ASSERT_EQ(InsertColumn(design_, 0), 0);
    EXPECT_TRUE(grid_.IsColumnEmpty(0));
    EXPECT_EQ(Cell(Campo, 1), L"Clientes.nombre");
    EXPECT_EQ(Cell(Campo, 2), L"Clientes.País");
    EXPECT_EQ(Cell(Condicion, 2), L"='ES'");
    EXPECT_EQ(grid_.Caption(2), L"Tierra");
}

TEST_F(Blocks, ARemovedColumnIsTheFirstToBePutIn) {
    DelField(design_, L"Clientes.País");
    ASSERT_FALSE(grid_.IsColumnShown(1));
    ASSERT_EQ(InsertColumn(design_, 0), 0);
    EXPECT_TRUE(grid_.IsColumnShown(0));
    EXPECT_EQ(Cell(Campo, 1), L"Clientes.nombre");
    EXPECT_TRUE(grid_.IsColumnShown(1));
}

TEST_F(Blocks, RoomIsMadeOnTheLeftWhenThereIsNoneOnTheRight) {
    for (int column = 2; column < 60; ++column) {
        if (column == 5) continue;
        EXPECT_TRUE(grid_.SetCell(Campo, column, L"x" + std::to_wstring(column)));
    }
    ASSERT_EQ(InsertColumn(design_, 59), 58);
    EXPECT_EQ(Cell(Campo, 59), L"x59");
    EXPECT_TRUE(grid_.IsColumnEmpty(58));
    EXPECT_EQ(Cell(Campo, 5), L"x6");
    EXPECT_EQ(InsertColumn(design_, 0), 0);
    // The column put in is empty itself, and serves again.
    EXPECT_EQ(InsertColumn(design_, 1), 0);
}

TEST_F(Blocks, NoColumnCanBePutInWhenAllAreUsed) {
    for (int column = 0; column < 60; ++column) EXPECT_TRUE(grid_.SetCell(Campo, column, L"1"));
    EXPECT_EQ(InsertColumn(design_, 10), -1);
}

}  // namespace
}  // namespace tessel::model
