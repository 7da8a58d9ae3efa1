#include "model/design_grid.h"

#include <gtest/gtest.h>

namespace tessel::model {
namespace {

class CountingListener : public ChangeListener {
public:
    int count = 0;
    void OnChanged() override { ++count; }
};

TEST(DesignGrid, HasTenColumnsAndSixtyOnceLoaded) {
    DesignGrid grid;
    EXPECT_EQ(grid.ColumnCount(), 10);
    grid.LoadColumns();
    EXPECT_EQ(grid.ColumnCount(), 60);
    grid.LoadColumns();
    EXPECT_EQ(grid.ColumnCount(), 60);
    EXPECT_EQ(DesignGrid::FieldName(0), L"C1");
    EXPECT_EQ(DesignGrid::FieldName(59), L"C60");
}

TEST(DesignGrid, AppendedColumnsAreEightyWideWithoutACaption) {
    DesignGrid grid;
    grid.LoadColumns();
    for (int column = kInitialColumnCount; column < kGridColumnCount; ++column) {
        EXPECT_EQ(grid.ColumnWidth(column), 80);
        EXPECT_EQ(grid.Caption(column), L"");
        EXPECT_TRUE(grid.IsColumnShown(column));
    }
}

TEST(DesignGrid, ASixtyFirstColumnCannotBeWritten) {
    DesignGrid grid;
    grid.LoadColumns();
    EXPECT_TRUE(grid.SetCell(GridRow::Campo, 59, L"a"));
    EXPECT_FALSE(grid.SetCell(GridRow::Campo, 60, L"a"));
    EXPECT_FALSE(grid.SetCell(GridRow::Campo, -1, L"a"));
    EXPECT_EQ(grid.Cell(GridRow::Campo, 60), L"");
}

TEST(DesignGrid, RowsHaveTheirIdsAndCaptions) {
    const wchar_t* captions[] = {L"Campo:",   L"Título (Alias):", L"Tabla:",     L"Agrupación:",
                                 L"Visible:", L"Orden:",          L"Condición:", L"OR:"};
    for (int id = 1; id <= 8; ++id) {
        EXPECT_EQ(static_cast<int>(kGridRows[static_cast<std::size_t>(id - 1)]), id);
        EXPECT_EQ(RowCaption(static_cast<GridRow>(id)), captions[id - 1]);
    }
}

TEST(DesignGrid, ACellHoldsUpTo255Utf16Units) {
    DesignGrid grid;
    const std::wstring longest(255, L'a');
    EXPECT_TRUE(grid.SetCell(GridRow::Condicion, 0, longest));
    EXPECT_FALSE(grid.SetCell(GridRow::Condicion, 0, std::wstring(256, L'b')));
    EXPECT_EQ(grid.Cell(GridRow::Condicion, 0), longest);
}

TEST(DesignGrid, AColumnIsUsedWhenItsFieldIsMoreThanBlanks) {
    DesignGrid grid;
    EXPECT_TRUE(grid.SetCell(GridRow::Campo, 0, L"  "));
    EXPECT_TRUE(grid.SetCell(GridRow::Titulo, 1, L"x"));
    EXPECT_TRUE(grid.SetCell(GridRow::Campo, 2, L"x"));
    EXPECT_FALSE(grid.IsColumnUsed(0));
    EXPECT_FALSE(grid.IsColumnUsed(1));
    EXPECT_TRUE(grid.IsColumnUsed(2));
}

TEST(DesignGrid, ClearingEmptiesCellsAndResetTheRest) {
    DesignGrid grid;
    EXPECT_TRUE(grid.SetCell(GridRow::Campo, 3, L"x"));
    grid.SetCaption(3, L"x");
    grid.ShowColumn(3, false);
    grid.SetColumnWidth(3, 120);
    grid.SetFocus(GridRow::Orden, 3);
    grid.ClearCells();
    EXPECT_EQ(grid.Cell(GridRow::Campo, 3), L"");
    EXPECT_EQ(grid.Caption(3), L"x");
    EXPECT_TRUE(grid.SetCell(GridRow::Campo, 3, L"y"));
    grid.Reset();
    EXPECT_EQ(grid.Cell(GridRow::Campo, 3), L"y");
    EXPECT_EQ(grid.Caption(3), L"");
    EXPECT_TRUE(grid.IsColumnShown(3));
    EXPECT_EQ(grid.ColumnWidth(3), 120);
    EXPECT_EQ(grid.FocusedRow(), GridRow::Campo);
    EXPECT_EQ(grid.FocusedColumn(), 0);
}

TEST(DesignGrid, AnnouncesChangesAndOnlyChanges) {
    DesignGrid grid;
    CountingListener listener;
    grid.AddListener(&listener);
    EXPECT_TRUE(grid.SetCell(GridRow::Campo, 0, L"x"));
    EXPECT_EQ(listener.count, 1);
    EXPECT_TRUE(grid.SetCell(GridRow::Campo, 0, L"x"));
    EXPECT_FALSE(grid.SetCell(GridRow::Campo, 0, std::wstring(256, L'x')));
    EXPECT_EQ(listener.count, 1);
    grid.RemoveListener(&listener);
    EXPECT_TRUE(grid.SetCell(GridRow::Campo, 0, L"y"));
    EXPECT_EQ(listener.count, 1);
}

TEST(DesignGrid, ACopyHasNoListenersAndAnAssignmentKeepsThoseOfItsTarget) {
    DesignGrid grid;
    CountingListener listener;
    grid.AddListener(&listener);
    DesignGrid copy = grid;
    EXPECT_TRUE(copy.SetCell(GridRow::Campo, 0, L"x"));
    EXPECT_EQ(listener.count, 0);
    grid = copy;
    grid.SetCaption(0, L"x");
    EXPECT_EQ(listener.count, 1);
}

}  // namespace
}  // namespace tessel::model
