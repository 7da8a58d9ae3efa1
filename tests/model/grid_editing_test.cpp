#include "model/grid_editing.h"
#include "tests/support/seed.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "common/identifiers.h"
#include "common/text.h"
#include "tests/model/sample_schema.h"

namespace tessel::model {
namespace {

class GridEditingTest : public testing::Test {
protected:
    GridEditingTest() {
        design.grid.LoadColumns();
        design.diagram.Bind(&schema);
        for (const wchar_t* table : {L"Clientes", L"Pedidos", L"Empleados", L"Detalle de pedidos"}) {
            design.diagram.AddTable(table, true);
        }
    }

    const std::wstring& Cell(GridRow row, int column) const { return design.grid.Cell(row, column); }

    void Commit(GridRow row, int column, std::wstring_view text) {
        ASSERT_TRUE(design.grid.SetCell(row, column, text));
        CellCommitted(design, row, column);
    }

    int UsedColumns() const {
        int used = 0;
        for (int column = 0; column < design.grid.ColumnCount(); ++column)
            used += design.grid.IsColumnUsed(column);
        return used;
    }

    bool Checked(std::wstring_view table, std::wstring_view field) const {
        for (const DiagramField& one : design.diagram.FindTable(table)->fields) {
            if (SameIdentifier(one.name, field)) return one.checked;
        }
        ADD_FAILURE() << "no field " << std::wstring(field);
        return false;
    }

    void FillAllColumns() {
        for (int i = 0; i < kGridColumnCount; ++i) {
            ASSERT_EQ(AddField(design, L"x" + std::to_wstring(i), L"", kShow), i);
        }
    }

    schema::Schema schema = testing_support::SampleSchema();
    Design design;
};

using FieldColTest = GridEditingTest;
using AddFieldTest = GridEditingTest;
using DelFieldTest = GridEditingTest;
using SetColumnFieldTest = GridEditingTest;
using SetColumnTableTest = GridEditingTest;
using UniqueCaptionTest = GridEditingTest;
using CellCommittedTest = GridEditingTest;
using FieldCheckedTest = GridEditingTest;
using ClearGridTest = GridEditingTest;

TEST_F(FieldColTest, ComparesTheTrimmedCellWithTheArgumentAsItStands) {
    ASSERT_TRUE(design.grid.SetCell(GridRow::Campo, 2, L"  Clientes.NOMBRE "));
    EXPECT_EQ(FieldCol(design.grid, L"clientes.Nombre"), 2);
    EXPECT_EQ(FieldCol(design.grid, L" Clientes.nombre"), -1);
    EXPECT_EQ(FieldCol(design.grid, L"nombre"), -1);
}

TEST_F(FieldColTest, AnEmptyArgumentFindsTheFirstFreeColumnHiddenOrNot) {
    EXPECT_EQ(FieldCol(design.grid, L""), 0);
    AddField(design, L"a", L"", kShow);
    AddField(design, L"b", L"", kShow);
    EXPECT_EQ(FieldCol(design.grid, L""), 2);
    DelField(design, L"a");
    EXPECT_FALSE(design.grid.IsColumnShown(0));
    EXPECT_EQ(FieldCol(design.grid, L""), 0);
}

TEST_F(AddFieldTest, TheSameFieldTwiceGivesOneColumn) {
    EXPECT_EQ(AddField(design, L"Clientes.nombre", L"", kShow), 0);
    EXPECT_EQ(AddField(design, L"Clientes.nombre", L"", kShow), 0);
    EXPECT_EQ(UsedColumns(), 1);
    EXPECT_EQ(Cell(GridRow::Visible, 0), L"Si");
    EXPECT_EQ(Cell(GridRow::Tabla, 0), L"Clientes");
    EXPECT_EQ(Cell(GridRow::Titulo, 0), L"nombre");
    EXPECT_EQ(design.grid.Caption(0), L"nombre");
    EXPECT_TRUE(Checked(L"Clientes", L"nombre"));
}

TEST_F(AddFieldTest, AnAliasIsTitleAndCaptionAndAnyOtherRequestHides) {
    for (const int request : {2, 3, -1}) {
        ClearGrid(design);
        EXPECT_EQ(AddField(design, L"Clientes.nombre", L"Nombre del cliente", request), 0);
        EXPECT_EQ(Cell(GridRow::Titulo, 0), L"Nombre del cliente");
        EXPECT_EQ(design.grid.Caption(0), L"Nombre del cliente");
        EXPECT_EQ(Cell(GridRow::Visible, 0), L"No");
    }
}

TEST_F(AddFieldTest, KeepingTheVisibilityMeansShownWhenThereIsNone) {
    AddField(design, L"Clientes.nombre", L"", kKeepVisibility);
    EXPECT_EQ(Cell(GridRow::Visible, 0), L"Si");
    ASSERT_TRUE(design.grid.SetCell(GridRow::Visible, 1, L"No"));
    AddField(design, L"Pedidos.nombre", L"", kKeepVisibility);
    EXPECT_EQ(Cell(GridRow::Visible, 1), L"No");
}

TEST_F(AddFieldTest, WithAllColumnsUsedNothingHappens) {
    FillAllColumns();
    const std::vector<DesignGrid::Column> before = design.grid.Columns();
    EXPECT_EQ(AddField(design, L"Clientes.nombre", L"", kShow), -1);
    EXPECT_EQ(design.grid.Columns(), before);
    EXPECT_EQ(AddField(design, L"X59", L"", kShow), 59);
}

TEST_F(AddFieldTest, BlankFieldsAndTextsThatDoNotFitDoNothing) {
    const std::vector<DesignGrid::Column> before = design.grid.Columns();
    EXPECT_EQ(AddField(design, L"", L"x", kShow), -1);
    EXPECT_EQ(AddField(design, L"   ", L"x", kShow), -1);
    EXPECT_EQ(AddField(design, std::wstring(256, L'a'), L"", kShow), -1);
    EXPECT_EQ(AddField(design, L"a", std::wstring(256, L'a'), kShow), -1);
    EXPECT_EQ(design.grid.Columns(), before);
    EXPECT_EQ(AddField(design, std::wstring(255, L'a'), L"", kShow), 0);
}

TEST_F(AddFieldTest, BlanksAroundAFieldDoNotMakeItAnother) {
    AddField(design, L"Clientes.nombre", L"", kShow);
    EXPECT_EQ(AddField(design, L" clientes.NOMBRE ", L"", kShow), 0);
    EXPECT_EQ(UsedColumns(), 1);
}

TEST_F(AddFieldTest, ShowsAColumnThatWasHidden) {
    AddField(design, L"a", L"", kShow);
    DelField(design, L"a");
    AddField(design, L"b", L"", kShow);
    EXPECT_TRUE(design.grid.IsColumnShown(0));
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"b");
}

TEST_F(DelFieldTest, ClearsTheWholeColumnIgnoringCaseAndHidesIt) {
    AddField(design, L"Clientes.nombre", L"x", kShow);
    ASSERT_TRUE(design.grid.SetCell(GridRow::Condicion, 0, L"'a'"));
    ASSERT_TRUE(design.grid.SetCell(GridRow::Or, 0, L"'b'"));
    DelField(design, L"CLIENTES.NOMBRE");
    for (const GridRow row : kGridRows) EXPECT_EQ(Cell(row, 0), L"");
    EXPECT_EQ(design.grid.Caption(0), L"");
    EXPECT_FALSE(design.grid.IsColumnShown(0));
    EXPECT_FALSE(Checked(L"Clientes", L"nombre"));
}

TEST_F(DelFieldTest, AnUnknownOrBlankFieldChangesNothing) {
    AddField(design, L"Clientes.nombre", L"x", kShow);
    const std::vector<DesignGrid::Column> before = design.grid.Columns();
    DelField(design, L"Clientes.otro");
    DelField(design, L" Clientes.nombre");
    DelField(design, L"");
    EXPECT_EQ(design.grid.Columns(), before);
}

struct CompletionCase {
    const wchar_t* field;
    const wchar_t* alias;
    const wchar_t* title;
    const wchar_t* table;
    const wchar_t* grouping;
};

TEST_F(SetColumnFieldTest, CompletesTheColumnByTheKindOfItsField) {
    const CompletionCase cases[] = {
        {L"Clientes.nombre", L"", L"nombre", L"Clientes", L""},
        {L"clientes.NOMBRE", L"", L"NOMBRE", L"Clientes", L""},
        {L"[clientes].[Nombre completo]", L"", L"[Nombre completo]", L"Clientes", L""},
        {L"Detalle de pedidos", L"", L"", L"", L""},
        {L"[Detalle de pedidos].Cantidad", L"", L"Cantidad", L"[Detalle de pedidos]", L""},
        {L"Clientes.*", L"", L"", L"Clientes", L""},
        {L"*", L"", L"", L"", L""},
        {L"nombre", L"", L"", L"", L""},
        {L"nombre", L"n", L"n", L"", L""},
        {L"Otra.campo", L"", L"campo", L"", L""},
        {L"dbo.Clientes.nombre", L"", L"nombre", L"Clientes", L""},
        {L"Sum(Pedidos.Importe)", L"", L"", L"", L"Expresión"},
        {L"Sum(Pedidos.Importe)", L"Total", L"Total", L"", L"Expresión"},
        {L"1 + Avg(x)", L"", L"", L"", L"Expresión"},
        {L"1+Avg(x)", L"", L"", L"", L"Expresión"},
        {L"Clientes.a + Clientes.b", L"", L"", L"", L""},
        {L"1.5", L"", L"", L"", L""},
        {L"'a.b'", L"", L"", L"", L""},
    };
    for (const CompletionCase& c : cases) {
        ClearGrid(design);
        ASSERT_EQ(AddField(design, c.field, c.alias, kShow), 0);
        EXPECT_EQ(Cell(GridRow::Campo, 0), c.field);
        EXPECT_EQ(Cell(GridRow::Titulo, 0), c.title) << c.field;
        EXPECT_EQ(design.grid.Caption(0), c.title) << c.field;
        EXPECT_EQ(Cell(GridRow::Tabla, 0), c.table) << c.field;
        EXPECT_EQ(Cell(GridRow::Agrupacion, 0), c.grouping) << c.field;
    }
}

TEST_F(SetColumnFieldTest, ATitleThatStandsIsKept) {
    Commit(GridRow::Titulo, 0, L"Cliente");
    Commit(GridRow::Campo, 0, L"Clientes.nombre");
    EXPECT_EQ(Cell(GridRow::Titulo, 0), L"Cliente");
    EXPECT_EQ(design.grid.Caption(0), L"Cliente");
}

TEST_F(SetColumnFieldTest, AnotherFieldChangesTheTableAndTheMarks) {
    Commit(GridRow::Campo, 0, L"Clientes.nombre");
    Commit(GridRow::Campo, 0, L"Pedidos.Importe");
    EXPECT_EQ(Cell(GridRow::Tabla, 0), L"Pedidos");
    EXPECT_FALSE(Checked(L"Clientes", L"nombre"));
    EXPECT_TRUE(Checked(L"Pedidos", L"Importe"));
    Commit(GridRow::Campo, 0, L"1+2");
    EXPECT_EQ(Cell(GridRow::Tabla, 0), L"");
    EXPECT_FALSE(Checked(L"Pedidos", L"Importe"));
}

TEST_F(SetColumnFieldTest, AnUnqualifiedFieldKeepsTheChosenTable) {
    Commit(GridRow::Tabla, 0, L"Clientes");
    Commit(GridRow::Campo, 0, L"nombre");
    EXPECT_EQ(Cell(GridRow::Tabla, 0), L"Clientes");
}

TEST_F(SetColumnTableTest, DropsAFieldOfAnotherTableWithItsTitleOnly) {
    Commit(GridRow::Campo, 0, L"Clientes.nombre");
    ASSERT_TRUE(design.grid.SetCell(GridRow::Condicion, 0, L"'a'"));
    ASSERT_TRUE(design.grid.SetCell(GridRow::Orden, 0, L"Ascendente"));
    ASSERT_TRUE(design.grid.SetCell(GridRow::Agrupacion, 0, L"Suma"));
    ASSERT_TRUE(design.grid.SetCell(GridRow::Visible, 0, L"No"));
    Commit(GridRow::Tabla, 0, L"Pedidos");
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"");
    EXPECT_EQ(Cell(GridRow::Titulo, 0), L"");
    EXPECT_EQ(design.grid.Caption(0), L"");
    EXPECT_EQ(Cell(GridRow::Tabla, 0), L"Pedidos");
    EXPECT_EQ(Cell(GridRow::Condicion, 0), L"'a'");
    EXPECT_EQ(Cell(GridRow::Orden, 0), L"Ascendente");
    EXPECT_EQ(Cell(GridRow::Agrupacion, 0), L"Suma");
    EXPECT_EQ(Cell(GridRow::Visible, 0), L"No");
    EXPECT_FALSE(Checked(L"Clientes", L"nombre"));
}

TEST_F(SetColumnTableTest, KeepsAFieldThatNamesTheTable) {
    for (const wchar_t* field : {L"CLIENTES.nombre", L"[Clientes].nombre", L"Left(clientes.nombre, 3)"}) {
        ClearGrid(design);
        Commit(GridRow::Campo, 0, field);
        Commit(GridRow::Tabla, 0, L"Clientes");
        EXPECT_EQ(Cell(GridRow::Campo, 0), field);
    }
}

TEST_F(SetColumnTableTest, AnEmptiedTableDropsNothing) {
    Commit(GridRow::Campo, 0, L"1+2");
    Commit(GridRow::Tabla, 0, L"");
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"1+2");
}

TEST_F(UniqueCaptionTest, CountsTheOtherColumnsOfThatCaption) {
    AddField(design, L"Clientes.nombre", L"", kShow);
    AddField(design, L"Pedidos.NOMBRE", L"", kShow);
    AddField(design, L"Empleados.nombre", L"", kShow);
    EXPECT_EQ(design.grid.Caption(0), L"nombre");
    EXPECT_EQ(design.grid.Caption(1), L"NOMBRE1");
    EXPECT_EQ(design.grid.Caption(2), L"nombre2");
    EXPECT_EQ(Cell(GridRow::Titulo, 1), L"NOMBRE1");
    EXPECT_EQ(UniqueCaption(design.grid, 0, L"nombre"), L"nombre");
}

TEST_F(UniqueCaptionTest, PutsTheNumberInsideBrackets) {
    AddField(design, L"Clientes.[Nombre completo]", L"", kShow);
    AddField(design, L"Empleados.[Nombre completo]", L"", kShow);
    EXPECT_EQ(Cell(GridRow::Titulo, 0), L"[Nombre completo]");
    EXPECT_EQ(Cell(GridRow::Titulo, 1), L"[Nombre completo1]");
}

TEST_F(UniqueCaptionTest, AStarHasNone) {
    EXPECT_EQ(UniqueCaption(design.grid, 0, L" * "), L"");
    AddField(design, L"Clientes.*", L"", kShow);
    AddField(design, L"Pedidos.*", L"", kShow);
    EXPECT_EQ(design.grid.Caption(1), L"");
}

TEST_F(CellCommittedTest, TheTitleBecomesTheCaption) {
    Commit(GridRow::Titulo, 4, L"Total");
    EXPECT_EQ(design.grid.Caption(4), L"Total");
    Commit(GridRow::Titulo, 4, L"");
    EXPECT_EQ(design.grid.Caption(4), L"");
}

TEST_F(CellCommittedTest, OtherRowsAndOtherColumnsSetOffNothing) {
    for (const GridRow row :
         {GridRow::Agrupacion, GridRow::Visible, GridRow::Orden, GridRow::Condicion, GridRow::Or}) {
        Commit(row, 0, L"x");
    }
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"");
    EXPECT_EQ(design.grid.Caption(0), L"");
    const std::vector<DesignGrid::Column> before = design.grid.Columns();
    CellCommitted(design, GridRow::Campo, -1);
    CellCommitted(design, GridRow::Campo, 60);
    EXPECT_EQ(design.grid.Columns(), before);
}

TEST_F(FieldCheckedTest, TickingFillsTheFirstFreeColumnAndUntickingEmptiesIt) {
    FieldChecked(design, L"Clientes", L"nombre", true);
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.nombre");
    EXPECT_TRUE(Checked(L"Clientes", L"nombre"));
    FieldChecked(design, L"Clientes", L"nombre", false);
    EXPECT_EQ(UsedColumns(), 0);
    EXPECT_FALSE(Checked(L"Clientes", L"nombre"));
}

TEST_F(FieldCheckedTest, TickingWhatAnotherColumnHoldsAddsNothing) {
    Commit(GridRow::Campo, 3, L"clientes.NOMBRE");
    FieldChecked(design, L"Clientes", L"nombre", true);
    EXPECT_EQ(UsedColumns(), 1);
    FieldChecked(design, L"Clientes", L"nombre", false);
    EXPECT_EQ(UsedColumns(), 0);
}

TEST_F(FieldCheckedTest, BracketsDoNotHideAColumnFromItsTick) {
    Commit(GridRow::Campo, 0, L"[clientes].[nombre]");
    EXPECT_TRUE(Checked(L"Clientes", L"nombre"));
    FieldChecked(design, L"Clientes", L"nombre", false);
    EXPECT_EQ(UsedColumns(), 0);
    EXPECT_FALSE(Checked(L"Clientes", L"nombre"));
}

TEST_F(FieldCheckedTest, ATickThatFindsNoFreeColumnDoesNotStay) {
    FillAllColumns();
    design.diagram.SetChecked(L"Clientes", L"nombre", true);
    FieldChecked(design, L"Clientes", L"nombre", true);
    EXPECT_FALSE(Checked(L"Clientes", L"nombre"));
}

TEST_F(ClearGridTest, EmptiesEveryColumnAndTheMarks) {
    AddField(design, L"Clientes.nombre", L"x", kHide);
    DelField(design, L"Clientes.nombre");
    AddField(design, L"Pedidos.Importe", L"x", kHide);
    ASSERT_TRUE(design.grid.SetCell(GridRow::Or, 59, L"1"));
    design.grid.SetFocus(GridRow::Orden, 7);
    ClearGrid(design);
    for (int column = 0; column < kGridColumnCount; ++column) {
        for (const GridRow row : kGridRows) EXPECT_EQ(Cell(row, column), L"");
        EXPECT_EQ(design.grid.Caption(column), L"");
        EXPECT_TRUE(design.grid.IsColumnShown(column));
    }
    EXPECT_FALSE(Checked(L"Pedidos", L"Importe"));
    EXPECT_EQ(design.grid.FocusedRow(), GridRow::Campo);
    EXPECT_EQ(design.grid.FocusedColumn(), 0);
    EXPECT_EQ(design.diagram.Tables().size(), 4u);
}

/// What the marks must be, worked out from the cells alone.
std::set<std::wstring> MarksByCells(const Design& design) {
    std::set<std::wstring> marks;
    for (int column = 0; column < design.grid.ColumnCount(); ++column) {
        const std::vector<std::wstring> pieces = SplitQualified(design.grid.Cell(GridRow::Campo, column));
        if (pieces.size() != 2) continue;
        const DiagramTable* table = design.diagram.FindTable(pieces[0]);
        if (!table) continue;
        for (const DiagramField& field : table->fields) {
            if (SameIdentifier(field.name, pieces[1])) marks.insert(table->name + L"." + field.name);
        }
    }
    return marks;
}

std::set<std::wstring> MarksOfDiagram(const Design& design) {
    std::set<std::wstring> marks;
    for (const DiagramTable& table : design.diagram.Tables()) {
        for (const DiagramField& field : table.fields) {
            if (field.checked) marks.insert(table.name + L"." + field.name);
        }
    }
    return marks;
}

TEST(RandomEditing, MarksAlwaysEqualTheGridsFieldsAndNoFieldStandsTwice) {
    const auto seed = static_cast<unsigned>(tests::Seed());
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };
    const schema::Schema schema = testing_support::SampleSchema();
    const std::vector<std::wstring> fields = {L"Clientes.nombre",
                                              L"clientes.NOMBRE",
                                              L" Clientes.nombre ",
                                              L"Clientes.País",
                                              L"Clientes.*",
                                              L"Pedidos.nombre",
                                              L"PEDIDOS.Importe",
                                              L"[Detalle de pedidos].Cantidad",
                                              L"Sum(Pedidos.Importe)",
                                              L"1+2",
                                              L"nombre",
                                              L"Otra.campo",
                                              L"Empleados.[Nombre completo]"};
    const std::vector<std::wstring> tables = {L"Clientes", L"Pedidos", L"Empleados", L"[Detalle de pedidos]"};

    for (int round = 0; round < 60; ++round) {
        Design design;
        design.grid.LoadColumns();
        design.diagram.Bind(&schema);
        for (const std::wstring& table : tables) design.diagram.AddTable(table, true);
        for (int step = 0; step < 60; ++step) {
            const std::wstring& field = fields[below(fields.size())];
            const DiagramTable& table = design.diagram.Tables()[below(design.diagram.Tables().size())];
            const std::wstring table_name = table.name;
            const std::wstring field_name = table.fields[below(table.fields.size())].name;
            const int column = static_cast<int>(below(8));
            switch (below(7)) {
                case 0:
                    AddField(design, field, L"", static_cast<int>(below(3)));
                    break;
                case 1:
                    DelField(design, field);
                    break;
                case 2:
                    FieldChecked(design, table_name, field_name, true);
                    break;
                case 3:
                    FieldChecked(design, table_name, field_name, false);
                    break;
                case 4:
                    ASSERT_TRUE(design.grid.SetCell(GridRow::Tabla, column, table_name));
                    CellCommitted(design, GridRow::Tabla, column);
                    break;
                case 5:
                    ASSERT_TRUE(design.grid.SetCell(GridRow::Titulo, column, L"título"));
                    CellCommitted(design, GridRow::Titulo, column);
                    break;
                default:
                    SyncDiagramChecks(design);
            }
            ASSERT_EQ(MarksOfDiagram(design), MarksByCells(design)) << "round " << round << " step " << step;
            std::set<std::wstring> seen;
            for (int c = 0; c < design.grid.ColumnCount(); ++c) {
                const std::wstring text = Folded(design.grid.Cell(GridRow::Campo, c));
                ASSERT_TRUE(text.empty() || seen.insert(text).second)
                    << "round " << round << " step " << step;
            }
        }
    }
}

}  // namespace
}  // namespace tessel::model
