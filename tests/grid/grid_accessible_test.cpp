// What the design grid and the splitters tell assistive programs.
#include "controls/grid/grid_accessible.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

#include "common/text.h"
#include "controls/grid/grid_accessible_texts.h"
#include "controls/splitter/splitter_accessible.h"

namespace tessel::controls {
namespace {

using model::GridRow;
namespace states = accessible_state;

class RecordingHost final : public GridAccessibleHost {
public:
    bool IsListShownOn(GridRow row, int column) const override {
        return row == list_row && column == list_column;
    }
    void GoToCell(GridRow row, int column, bool extend) override {
        done = (extend ? L"extend " : L"go ") + Place(row, column);
    }
    void GoToColumn(int column) override { done = L"column " + std::to_wstring(column); }
    void EditCell(GridRow row, int column) override { done = L"edit " + Place(row, column); }
    void WriteCell(GridRow row, int column, const std::wstring& text) override {
        done = L"write " + Place(row, column) + L" " + text;
    }

    GridRow list_row = GridRow::Campo;
    int list_column = -1;
    std::wstring done;

private:
    static std::wstring Place(GridRow row, int column) {
        return std::to_wstring(static_cast<int>(row)) + L"," + std::to_wstring(column);
    }
};

class GridAccessibleTest : public ::testing::Test {
protected:
    GridAccessibleTest() {
        GridMetrics metrics;
        metrics.captions_width = 100;
        metrics.header_height = 30;
        metrics.row_height = 20;
        state_.Layout().SetMetrics(metrics);
        state_.Layout().SetClient(100 + 240, 30 + 160);
        Fill(0, L"Clientes.Nombre", L"Si", L"");
        Fill(2, L" Clientes.Pais ", L"No", L"= 'España'");
        grid_.SetCaption(0, L"Cliente");
        state_.TakeColumns(grid_, 96);
        tree_.Bind(&grid_);
    }
    void Fill(int column, std::wstring_view field, std::wstring_view visible, std::wstring_view condition) {
        EXPECT_TRUE(grid_.SetCell(GridRow::Campo, column, field));
        EXPECT_TRUE(grid_.SetCell(GridRow::Visible, column, visible));
        EXPECT_TRUE(grid_.SetCell(GridRow::Condicion, column, condition));
    }
    AccessibleElement Cell(GridRow row, int column) const {
        return tree_.Describe(GridAccessible::CellId(row, column));
    }
    bool HasState(AccessibleId id, unsigned state) const { return (tree_.Describe(id).states & state) != 0; }
    void Hide(int column) {
        grid_.ShowColumn(column, false);
        state_.TakeColumns(grid_, 96);
    }

    model::DesignGrid grid_;
    GridState state_;
    RecordingHost host_;
    GridAccessible tree_{state_, host_};
};

TEST_F(GridAccessibleTest, CellsAreNamedByRowColumnAndField) {
    struct Case {
        GridRow row;
        int column;
        const wchar_t* name;
    };
    const Case cases[] = {
        {GridRow::Condicion, 2, L"Condición, columna 3, Clientes.Pais"},
        {GridRow::Condicion, 0, L"Condición, columna 1, Clientes.Nombre"},
        {GridRow::Or, 1, L"OR, columna 2"},
        {GridRow::Titulo, 0, L"Título (Alias), columna 1, Clientes.Nombre"},
        {GridRow::Agrupacion, 9, L"Agrupación, columna 10"},
        {GridRow::Campo, 2, L"Campo, columna 3"},
    };
    for (const Case& one : cases) EXPECT_EQ(Cell(one.row, one.column).name, one.name);
    EXPECT_EQ(tree_.Describe(GridAccessible::HeaderId(0)).name, L"Columna 1, Cliente");
    EXPECT_EQ(tree_.Describe(GridAccessible::HeaderId(1)).name, L"Columna 2");
    EXPECT_EQ(tree_.Describe(GridAccessible::CaptionId(GridRow::Orden)).name, L"Orden");
}

TEST_F(GridAccessibleTest, AValueIsTheTextOfItsCell) {
    EXPECT_EQ(tree_.ValueOf(GridAccessible::CellId(GridRow::Condicion, 2)), L"= 'España'");
    EXPECT_EQ(tree_.ValueOf(GridAccessible::CellId(GridRow::Campo, 2)), L" Clientes.Pais ");
    EXPECT_EQ(tree_.ValueOf(GridAccessible::RowId(GridRow::Campo)), L"");
}

TEST_F(GridAccessibleTest, ARowIsItsCaptionAndTheCellsOfTheShownColumns) {
    Hide(1);
    const std::vector<AccessibleId> rows = tree_.ChildrenOf(kAccessibleSelf);
    ASSERT_EQ(rows.size(), 9u);
    EXPECT_EQ(rows[0], GridAccessible::kHeadersId);
    EXPECT_EQ(rows[7], GridAccessible::RowId(GridRow::Condicion));
    const std::vector<AccessibleId> cells = tree_.ChildrenOf(rows[7]);
    ASSERT_EQ(cells.size(), 10u);
    EXPECT_EQ(cells[0], GridAccessible::CaptionId(GridRow::Condicion));
    EXPECT_EQ(cells[1], GridAccessible::CellId(GridRow::Condicion, 0));
    EXPECT_EQ(cells[2], GridAccessible::CellId(GridRow::Condicion, 2));
    EXPECT_EQ(tree_.ChildrenOf(rows[0]).size(), 9u);
    EXPECT_FALSE(tree_.Has(GridAccessible::CellId(GridRow::Condicion, 1)));
    EXPECT_FALSE(tree_.Has(GridAccessible::HeaderId(1)));
}

TEST_F(GridAccessibleTest, EveryElementHasItsOwnNumberAndKnowsItsParent) {
    grid_.LoadColumns();
    state_.TakeColumns(grid_, 96);
    std::set<AccessibleId> numbers;
    const auto walk = [&](const auto& again, AccessibleId parent) -> void {
        for (const AccessibleId child : tree_.ChildrenOf(parent)) {
            EXPECT_LT(child, 0);
            EXPECT_TRUE(numbers.insert(child).second) << child;
            EXPECT_TRUE(tree_.Has(child));
            EXPECT_EQ(tree_.ParentOf(child), parent);
            EXPECT_FALSE(tree_.Describe(child).name.empty());
            again(again, child);
        }
    };
    walk(walk, kAccessibleSelf);
    EXPECT_EQ(numbers.size(), 9u + 60u + 8u * 61u);
}

TEST_F(GridAccessibleTest, NumbersOfNothingAreNotThere) {
    for (const AccessibleId id : {1, 7, -2, -10, -19, -99, -160, -999, -1000, -1060, -1170, -2000, -1 << 30,
                                  std::numeric_limits<AccessibleId>::min()})
        EXPECT_FALSE(tree_.Has(id)) << id;
    EXPECT_TRUE(tree_.Has(kAccessibleSelf));
    tree_.Bind(nullptr);
    EXPECT_TRUE(tree_.Has(kAccessibleSelf));
    EXPECT_FALSE(tree_.Has(GridAccessible::CellId(GridRow::Campo, 0)));
    EXPECT_TRUE(tree_.ChildrenOf(kAccessibleSelf).empty());
    EXPECT_EQ(tree_.Focused(), kAccessibleSelf);
    EXPECT_TRUE(tree_.Selected().empty());
    EXPECT_EQ(tree_.ElementAt(120, 40), kAccessibleSelf);
}

TEST_F(GridAccessibleTest, VisibleIsARowOfCheckBoxes) {
    EXPECT_EQ(Cell(GridRow::Visible, 0).role, AccessibleRole::CheckButton);
    EXPECT_EQ(Cell(GridRow::Condicion, 0).role, AccessibleRole::Cell);
    struct Case {
        const wchar_t* field;
        const wchar_t* text;
        bool checked;
    };
    for (const Case& one : {Case{L"A.B", L"Si", true}, Case{L"A.B", L" si ", true}, Case{L"A.B", L"", true},
                            Case{L"A.B", L"No", false}, Case{L"A.B", L"no", false}, Case{L"", L"", false},
                            Case{L"", L"Si", true}}) {
        Fill(4, one.field, one.text, L"");
        EXPECT_EQ(HasState(GridAccessible::CellId(GridRow::Visible, 4), states::kChecked), one.checked)
            << ToUtf8(one.field) << "/" << ToUtf8(one.text);
        EXPECT_EQ(Cell(GridRow::Visible, 4).action, one.checked ? L"Desmarcar" : L"Marcar");
    }
}

TEST_F(GridAccessibleTest, ListsOfTheFocusedRowAreClosedOrOpen) {
    grid_.SetPickLists({L"Clientes.*"});
    const AccessibleId cell = GridAccessible::CellId(GridRow::Campo, 1);
    EXPECT_TRUE(HasState(cell, states::kHasPopup));
    EXPECT_TRUE(HasState(cell, states::kCollapsed));
    EXPECT_FALSE(HasState(GridAccessible::CellId(GridRow::Orden, 1), states::kHasPopup));
    host_.list_column = 1;
    EXPECT_TRUE(HasState(cell, states::kExpanded));
    EXPECT_FALSE(HasState(cell, states::kCollapsed));
    grid_.SetPickLists({});
    EXPECT_FALSE(HasState(cell, states::kHasPopup | states::kExpanded | states::kCollapsed));
}

TEST_F(GridAccessibleTest, SelectionIsOneCellABlockOrWholeColumns) {
    state_.SetFocus(GridRow::Tabla, 1);
    EXPECT_EQ(tree_.Focused(), GridAccessible::CellId(GridRow::Tabla, 1));
    EXPECT_EQ(tree_.Selected(), (std::vector<AccessibleId>{GridAccessible::CellId(GridRow::Tabla, 1)}));
    state_.ExtendTo(GridRow::Agrupacion, 2);
    EXPECT_EQ(tree_.Selected().size(), 4u);
    EXPECT_TRUE(HasState(GridAccessible::CellId(GridRow::Tabla, 2), states::kSelected));
    EXPECT_FALSE(HasState(GridAccessible::CellId(GridRow::Tabla, 3), states::kSelected));
    EXPECT_FALSE(HasState(GridAccessible::HeaderId(2), states::kSelected));
    state_.SelectColumns(2, false);
    EXPECT_EQ(tree_.Selected().size(), 8u);
    EXPECT_TRUE(HasState(GridAccessible::HeaderId(2), states::kSelected));
}

TEST_F(GridAccessibleTest, WhatIsInViewIsFoundAtItsPlaceAndTheRestIsOffscreen) {
    int found = 0;
    for (const AccessibleId row : tree_.ChildrenOf(kAccessibleSelf))
        for (const AccessibleId id : tree_.ChildrenOf(row)) {
            const AccessibleElement element = tree_.Describe(id);
            const AccessiblePlace& place = element.place;
            if (element.states & states::kOffscreen) continue;
            EXPECT_EQ(tree_.ElementAt((place.left + place.right) / 2, (place.top + place.bottom) / 2), id);
            EXPECT_LE(place.right, 340);
            EXPECT_LE(place.bottom, 190);
            ++found;
        }
    // Three columns of 80 pixels fit: their headers, the captions and the cells.
    EXPECT_EQ(found, 3 + 8 + 24);
    EXPECT_TRUE(HasState(GridAccessible::CellId(GridRow::Campo, 3), states::kOffscreen));
    state_.Layout().ScrollTo(40, 0);
    EXPECT_EQ(Cell(GridRow::Campo, 0).place, (AccessiblePlace{100, 30, 140, 50}));
    EXPECT_EQ(tree_.ElementAt(5, 5), kAccessibleSelf);
}

TEST_F(GridAccessibleTest, NeighboursAreThoseOfTheArrowKeys) {
    using enum AccessibleDirection;
    const auto cell = GridAccessible::CellId;
    EXPECT_EQ(tree_.Beside(cell(GridRow::Tabla, 1), Down), cell(GridRow::Agrupacion, 1));
    EXPECT_EQ(tree_.Beside(cell(GridRow::Tabla, 1), Right), cell(GridRow::Tabla, 2));
    EXPECT_EQ(tree_.Beside(cell(GridRow::Tabla, 0), Left), GridAccessible::CaptionId(GridRow::Tabla));
    EXPECT_EQ(tree_.Beside(GridAccessible::CaptionId(GridRow::Tabla), Left),
              GridAccessible::CaptionId(GridRow::Tabla));
    EXPECT_EQ(tree_.Beside(cell(GridRow::Campo, 1), Up), GridAccessible::HeaderId(1));
    EXPECT_EQ(tree_.Beside(GridAccessible::HeaderId(1), Down), cell(GridRow::Campo, 1));
    EXPECT_EQ(tree_.Beside(GridAccessible::HeaderId(1), Up), GridAccessible::HeaderId(1));
    EXPECT_EQ(tree_.Beside(cell(GridRow::Or, 1), Down), cell(GridRow::Or, 1));
    EXPECT_EQ(tree_.Beside(cell(GridRow::Or, 9), Right), cell(GridRow::Or, 9));
    EXPECT_EQ(tree_.Beside(GridAccessible::RowId(GridRow::Campo), Up), GridAccessible::kHeadersId);
    EXPECT_EQ(tree_.Beside(GridAccessible::CaptionId(GridRow::Campo), Up),
              GridAccessible::CaptionId(GridRow::Campo));
    EXPECT_EQ(tree_.Beside(kAccessibleSelf, Right), kAccessibleSelf);
    Hide(2);
    EXPECT_EQ(tree_.Beside(cell(GridRow::Tabla, 1), Right), cell(GridRow::Tabla, 3));
}

TEST_F(GridAccessibleTest, WhatIsAskedForIsLeftToTheView) {
    const auto done = [&](AccessibleId id) {
        host_.done.clear();
        tree_.Act(id);
        return host_.done;
    };
    EXPECT_EQ(done(GridAccessible::CellId(GridRow::Condicion, 2)), L"edit 7,2");
    EXPECT_EQ(done(GridAccessible::CellId(GridRow::Visible, 0)), L"write 5,0 No");
    EXPECT_EQ(done(GridAccessible::CellId(GridRow::Visible, 2)), L"write 5,2 Si");
    EXPECT_EQ(done(GridAccessible::HeaderId(1)), L"column 1");
    EXPECT_EQ(done(GridAccessible::RowId(GridRow::Campo)), L"");
    EXPECT_TRUE(tree_.Select(GridAccessible::CellId(GridRow::Or, 1), true));
    EXPECT_EQ(host_.done, L"extend 8,1");
    EXPECT_TRUE(tree_.Select(GridAccessible::HeaderId(0), false));
    EXPECT_EQ(host_.done, L"column 0");
    EXPECT_FALSE(tree_.Select(GridAccessible::CaptionId(GridRow::Or), false));
}

TEST(SplitterAccessible, TellsTheShareOfItsFirstPane) {
    SplitterState state;
    state.SetMetrics(6, 10, 10);
    SplitterAccessible tree(state);
    EXPECT_EQ(tree.ValueOf(kAccessibleSelf), L"");
    state.SetLength(206);
    state.SetPosition(71);
    tree.SetName(L"Divisor entre esto y aquello");
    EXPECT_EQ(tree.ValueOf(kAccessibleSelf), L"36 %");
    EXPECT_EQ(tree.Describe(kAccessibleSelf).name, L"Divisor entre esto y aquello");
    EXPECT_EQ(tree.Describe(kAccessibleSelf).role, AccessibleRole::Separator);
    EXPECT_TRUE(tree.Has(kAccessibleSelf));
    EXPECT_FALSE(tree.Has(-1));
}

}  // namespace
}  // namespace tessel::controls
