#include <gtest/gtest.h>

#include "compose/compose.h"
#include "tests/compose/design_builder.h"
#include "tests/ui/fakes.h"
#include "ui/designer_presenter.h"

namespace tessel::ui {
namespace {

using model::GridRow;
using test::Calls;
using Texts = std::vector<std::wstring>;

constexpr std::wstring_view kPlain = L"SELECT Clientes.Nombre FROM Clientes";
constexpr std::wstring_view kPlainComposed = L"SELECT Clientes.Nombre AS Nombre \r\nFROM Clientes;";
constexpr std::wstring_view kBroken = L"  SELECT FROM\twhere ((  ";
constexpr std::wstring_view kTop = L"SELECT TOP 5 Clientes.Nombre FROM Clientes";

class Presenter : public ::testing::Test {
protected:
    Presenter() : editor_(calls_), window_(calls_), presenter_(window_, editor_, &owner_) {
        presenter_.Load();
        calls_.clear();
    }

    const std::wstring& Cell(GridRow row, int column) const {
        return presenter_.Design().grid.Cell(row, column);
    }

    Calls calls_;
    test::FakeEditor editor_;
    test::FakeWindow window_;
    test::FakeOwner owner_;
    DesignerPresenter presenter_;
};

using Loading = Presenter;
using SetDsn = Presenter;
using TabSwitch = Presenter;
using Accepting = Presenter;
using Gestures = Presenter;
using Clearing = Presenter;

TEST_F(Loading, SixtyColumnsOnTheDesignTab) {
    EXPECT_EQ(presenter_.Design().grid.ColumnCount(), 60);
    EXPECT_EQ(presenter_.CurrentTab(), Tab::Design);
    EXPECT_TRUE(presenter_.IsGridShown());
    EXPECT_TRUE(window_.grid_shown);
    EXPECT_TRUE(window_.reason_shown);
    EXPECT_FALSE(presenter_.Accepted());
    EXPECT_EQ(presenter_.ResultSQL(), L"");
}

TEST_F(SetDsn, BlankStatementDoesNothing) {
    presenter_.SetDsn(L"   ");
    presenter_.SetDsn(L"");
    EXPECT_TRUE(calls_.empty());
    EXPECT_EQ(presenter_.CurrentTab(), Tab::Design);
    EXPECT_TRUE(presenter_.IsGridShown());
}

TEST_F(SetDsn, StatementFillsEditorAndDesign) {
    presenter_.SetDsn(kPlain);
    EXPECT_EQ(calls_, Calls({L"hourglass", L"editor text", L"default pointer"}));
    EXPECT_EQ(editor_.text, kPlain);
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.Nombre");
    EXPECT_EQ(presenter_.CurrentTab(), Tab::Design);
    EXPECT_FALSE(presenter_.Reason());
}

TEST_F(SetDsn, FailureOpensTheSqlTabWithTheTextByteForByte) {
    presenter_.SetDsn(kBroken);
    EXPECT_EQ(calls_, Calls({L"hourglass", L"editor text", L"grid off", L"tab sql", L"events", L"focus",
                             L"events", L"editor refresh", L"grid on", L"default pointer"}));
    EXPECT_EQ(editor_.text, kBroken);
    EXPECT_EQ(presenter_.CurrentTab(), Tab::Sql);
    EXPECT_TRUE(presenter_.Reason());
    EXPECT_EQ(window_.pointer, Pointer::Default);
}

TEST_F(SetDsn, TopCountIsAFailureThatKeepsTheDesignReadSoFar) {
    presenter_.SetDsn(kTop);
    EXPECT_EQ(presenter_.CurrentTab(), Tab::Sql);
    EXPECT_EQ(editor_.text, kTop);
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.Nombre");
    EXPECT_TRUE(window_.messages.empty());
}

TEST_F(SetDsn, AnalysisMessagesAreShownAndTheDesignStays) {
    presenter_.SetDsn(L"SELECT t.a FROM t WHERE (t.a = 1 OR t.b = 2) AND t.c = 3");
    EXPECT_EQ(window_.messages,
              Texts({L"La cláusula Where es demasiado compleja para poder ser representada"}));
    EXPECT_EQ(presenter_.CurrentTab(), Tab::Design);
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"t.a");
}

TEST_F(SetDsn, DistinctFollowsTheStatement) {
    presenter_.SetDsn(L"SELECT DISTINCT t.a FROM t");
    EXPECT_TRUE(window_.distinct);
    presenter_.SetDsn(kPlain);
    EXPECT_FALSE(window_.distinct);
}

TEST_F(TabSwitch, ToSqlComposesTheDesignInForce) {
    presenter_.SetDsn(kPlain);
    calls_.clear();
    presenter_.TabClicked(Tab::Sql);
    EXPECT_EQ(calls_, Calls({L"hourglass", L"tab sql", L"events", L"focus", L"events", L"editor refresh",
                             L"editor empty", L"events", L"editor text", L"grid on", L"default pointer"}));
    EXPECT_EQ(editor_.text, kPlainComposed);
}

TEST_F(TabSwitch, ToSqlCommitsTheCellBeingEdited) {
    presenter_.SetDsn(kPlain);
    window_.on_focus_lost = [this] { presenter_.GridCellCommitted(GridRow::Titulo, 0, L"Cliente"); };
    presenter_.TabClicked(Tab::Sql);
    EXPECT_EQ(editor_.text, L"SELECT Clientes.Nombre AS Cliente \r\nFROM Clientes;");
}

TEST_F(TabSwitch, ToDesignAnalysesTheText) {
    presenter_.TabClicked(Tab::Sql);
    editor_.text = kPlain;
    calls_.clear();
    presenter_.TabClicked(Tab::Design);
    EXPECT_EQ(calls_, Calls({L"hourglass", L"tab design", L"grid on", L"reason off", L"events", L"reason on",
                             L"default pointer"}));
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.Nombre");
    EXPECT_EQ(editor_.text, kPlain);
}

TEST_F(TabSwitch, ToDesignWithATextThatCannotBeShownHidesTheGrid) {
    presenter_.TabClicked(Tab::Sql);
    editor_.text = kBroken;
    calls_.clear();
    presenter_.TabClicked(Tab::Design);
    EXPECT_EQ(calls_, Calls({L"hourglass", L"tab design", L"grid on", L"reason off", L"events", L"grid off",
                             L"editor text", L"reason on", L"default pointer"}));
    EXPECT_EQ(editor_.text, kBroken);
    EXPECT_FALSE(presenter_.IsGridShown());
    EXPECT_TRUE(presenter_.Reason());
    EXPECT_TRUE(window_.reason_shown);
}

TEST_F(TabSwitch, TextOnlySurvivesEverySwitch) {
    presenter_.SetDsn(kBroken);
    presenter_.TabClicked(Tab::Design);
    EXPECT_FALSE(window_.grid_shown);
    presenter_.TabClicked(Tab::Sql);
    EXPECT_EQ(editor_.text, kBroken);
    EXPECT_TRUE(window_.grid_shown);
    presenter_.TabClicked(Tab::Sql);
    EXPECT_EQ(editor_.text, kBroken) << "a click on the current tab composes nothing";
    presenter_.TabClicked(Tab::Design);
    EXPECT_EQ(editor_.text, kBroken);
    EXPECT_FALSE(window_.grid_shown);
}

TEST_F(TabSwitch, TopCountStaysTextOnly) {
    presenter_.SetDsn(kTop);
    presenter_.TabClicked(Tab::Design);
    EXPECT_FALSE(presenter_.IsGridShown());
    presenter_.TabClicked(Tab::Sql);
    EXPECT_EQ(editor_.text, kTop);
}

TEST_F(TabSwitch, TextOnlyEndsWithTheNextTextThatCanBeShown) {
    presenter_.SetDsn(kBroken);
    presenter_.TabClicked(Tab::Design);
    presenter_.TabClicked(Tab::Sql);
    editor_.text = kPlain;
    presenter_.TabClicked(Tab::Design);
    EXPECT_TRUE(presenter_.IsGridShown());
    EXPECT_FALSE(presenter_.Reason());
    presenter_.TabClicked(Tab::Sql);
    EXPECT_EQ(editor_.text, kPlainComposed);
}

TEST_F(TabSwitch, ToDesignWithAnEmptyTextClearsEverythingUnasked) {
    presenter_.SetDsn(L"SELECT DISTINCT a.x, b.y FROM a INNER JOIN b ON a.id = b.id");
    presenter_.TabClicked(Tab::Sql);
    editor_.text = L" \t\r\n ";
    calls_.clear();
    presenter_.TabClicked(Tab::Design);
    EXPECT_EQ(calls_, Calls({L"hourglass", L"tab design", L"grid on", L"hourglass", L"events", L"hourglass",
                             L"reason off", L"redraw", L"reason on", L"default pointer"}));
    for (int column = 0; column < 60; ++column) EXPECT_FALSE(presenter_.Design().grid.IsColumnUsed(column));
    EXPECT_TRUE(presenter_.Design().diagram.Tables().empty());
    EXPECT_TRUE(presenter_.Design().diagram.Relations().empty());
    EXPECT_FALSE(presenter_.Design().distinct);
    EXPECT_FALSE(window_.distinct);
    EXPECT_TRUE(window_.questions.empty());
    EXPECT_TRUE(presenter_.IsGridShown());
}

TEST_F(TabSwitch, EmptyTextEndsTextOnly) {
    presenter_.SetDsn(kBroken);
    editor_.text = L"";
    presenter_.TabClicked(Tab::Design);
    EXPECT_TRUE(presenter_.IsGridShown());
    EXPECT_FALSE(presenter_.Reason());
}

TEST_F(TabSwitch, ClicksArrivingDuringASwitchAreRefused) {
    presenter_.SetDsn(kPlain);
    window_.pending_input = {[this] { presenter_.TabClicked(Tab::Design); }};
    presenter_.TabClicked(Tab::Sql);
    EXPECT_EQ(presenter_.CurrentTab(), Tab::Sql);
    EXPECT_EQ(window_.tab, Tab::Sql);
    EXPECT_EQ(editor_.text, kPlainComposed);
}

TEST_F(TabSwitch, AcceptArrivingDuringASwitchWaitsForTheText) {
    presenter_.SetDsn(kPlain);
    window_.pending_input = {nullptr, nullptr, [this] { presenter_.Accept(); }};
    presenter_.TabClicked(Tab::Sql);
    EXPECT_TRUE(presenter_.Accepted());
    EXPECT_EQ(presenter_.ResultSQL(), kPlainComposed);
    EXPECT_EQ(calls_.back(), L"hide");
}

TEST_F(TabSwitch, CancelArrivingDuringASwitchCancelsAWaitingAccept) {
    presenter_.SetDsn(kPlain);
    window_.pending_input = {[this] { presenter_.Accept(); }, [this] { presenter_.Cancel(); }};
    presenter_.TabClicked(Tab::Sql);
    EXPECT_FALSE(presenter_.Accepted());
    EXPECT_TRUE(window_.hidden);
}

TEST_F(Accepting, OnTheDesignTabComposes) {
    presenter_.SetDsn(kPlain);
    presenter_.Accept();
    EXPECT_TRUE(presenter_.Accepted());
    EXPECT_EQ(presenter_.ResultSQL(), kPlainComposed);
    EXPECT_TRUE(window_.hidden);
}

TEST_F(Accepting, OnTheDesignTabCommitsTheCellBeingEdited) {
    presenter_.SetDsn(kPlain);
    window_.on_focus_lost = [this] { presenter_.GridCellCommitted(GridRow::Orden, 0, L"Ascendente"); };
    presenter_.Accept();
    EXPECT_EQ(presenter_.ResultSQL(),
              L"SELECT Clientes.Nombre AS Nombre \r\nFROM Clientes \r\nORDER BY Clientes.Nombre;");
}

TEST_F(Accepting, ARefusedCellEditKeepsTheWindowOpen) {
    presenter_.SetDsn(kPlain);
    window_.on_focus_lost = [this] {
        presenter_.GridCellCommitted(GridRow::Campo, 0, std::wstring(300, L'x'));
    };
    presenter_.Accept();
    EXPECT_FALSE(window_.hidden);
    EXPECT_FALSE(presenter_.Accepted());
    window_.on_focus_lost = nullptr;
    presenter_.Accept();
    EXPECT_TRUE(presenter_.Accepted());
    EXPECT_EQ(presenter_.ResultSQL(), kPlainComposed);
}

TEST_F(Accepting, OnTheSqlTabReturnsTheTextAsTyped) {
    presenter_.SetDsn(kPlain);
    presenter_.TabClicked(Tab::Sql);
    editor_.text = L" select  1 ";
    presenter_.Accept();
    EXPECT_EQ(presenter_.ResultSQL(), L" select  1 ");
}

TEST_F(Accepting, InTextOnlyReturnsTheTextOnEitherTab) {
    presenter_.SetDsn(kBroken);
    presenter_.Accept();
    EXPECT_EQ(presenter_.ResultSQL(), kBroken);
    presenter_.TabClicked(Tab::Design);
    presenter_.Accept();
    EXPECT_EQ(presenter_.ResultSQL(), kBroken);
}

TEST_F(Accepting, AnEmptyDesignGivesAnEmptyText) {
    presenter_.Accept();
    EXPECT_TRUE(presenter_.Accepted());
    EXPECT_EQ(presenter_.ResultSQL(), L"");
}

TEST_F(Accepting, CancelKeepsTheResult) {
    presenter_.SetResultSQL(L"como estaba");
    presenter_.SetDsn(kPlain);
    presenter_.Cancel();
    EXPECT_FALSE(presenter_.Accepted());
    EXPECT_EQ(presenter_.ResultSQL(), L"como estaba");
    EXPECT_TRUE(window_.hidden);
}

TEST_F(Accepting, CancelAfterAcceptIsACancel) {
    presenter_.Accept();
    presenter_.Cancel();
    EXPECT_FALSE(presenter_.Accepted());
}

TEST_F(Gestures, TheTextOnTheDesignTabIsComposedIntoTheEditor) {
    presenter_.SetDsn(kPlain);
    EXPECT_EQ(presenter_.GetSQLText(), kPlainComposed);
    EXPECT_EQ(editor_.text, kPlainComposed);
}

TEST_F(Gestures, TheTextOnTheSqlTabIsReturnedAsEdited) {
    presenter_.SetDsn(kPlain);
    presenter_.TabClicked(Tab::Sql);
    editor_.text = L"select 1";
    EXPECT_EQ(presenter_.GetSQLText(), L"select 1");
}

TEST_F(Gestures, TheTextInTextOnlyIsNeverComposedOver) {
    presenter_.SetDsn(kBroken);
    presenter_.TabClicked(Tab::Design);
    EXPECT_EQ(presenter_.GetSQLText(), kBroken);
    EXPECT_EQ(editor_.text, kBroken);
}

TEST_F(Gestures, ACellOver255UnitsIsRefusedWithAMessage) {
    presenter_.GridCellCommitted(GridRow::Condicion, 0, L"= 1");
    presenter_.GridCellCommitted(GridRow::Condicion, 0, std::wstring(256, L'9'));
    EXPECT_EQ(window_.messages, Texts({L"El texto de una celda no puede tener más de 255 caracteres."}));
    EXPECT_EQ(Cell(GridRow::Condicion, 0), L"= 1");
    presenter_.GridCellCommitted(GridRow::Condicion, 0, std::wstring(255, L'9'));
    EXPECT_EQ(Cell(GridRow::Condicion, 0), std::wstring(255, L'9'));
}

TEST_F(Gestures, CellTextIsCountedInUtf16Units) {
    std::wstring clefs;
    for (int count = 0; count < 128; ++count) clefs += L"\U0001D11E";
    presenter_.GridCellCommitted(GridRow::Titulo, 0, clefs);
    EXPECT_EQ(window_.messages.size(), 1u);
    EXPECT_EQ(Cell(GridRow::Titulo, 0), L"");
}

TEST_F(Gestures, ACommittedFieldIsCompleted) {
    presenter_.TableChosen(L"Clientes");
    presenter_.GridCellCommitted(GridRow::Campo, 0, L"Clientes.Nombre");
    EXPECT_EQ(Cell(GridRow::Titulo, 0), L"Nombre");
    EXPECT_EQ(Cell(GridRow::Tabla, 0), L"Clientes");
    EXPECT_EQ(Cell(GridRow::Visible, 0), L"Si");
}

TEST_F(Gestures, TickingAFieldFillsAndEmptiesTheGrid) {
    presenter_.TableChosen(L"Clientes");
    presenter_.DiagramFieldChecked(L"Clientes", L"Nombre", true);
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.Nombre");
    presenter_.DiagramFieldChecked(L"Clientes", L"Nombre", true);
    EXPECT_FALSE(presenter_.Design().grid.IsColumnUsed(1));
    presenter_.DiagramFieldChecked(L"Clientes", L"Nombre", false);
    EXPECT_FALSE(presenter_.Design().grid.IsColumnUsed(0));
}

TEST_F(Gestures, ARelationDrawnBetweenTwoGroupsMakesOneChain) {
    for (const wchar_t* table : {L"A", L"B", L"C", L"D"}) presenter_.TableChosen(table);
    presenter_.RelationDrawn(L"A", L"x", L"B", L"x");
    presenter_.RelationDrawn(L"C", L"y", L"D", L"y");
    presenter_.RelationDrawn(L"B", L"z", L"C", L"z");
    EXPECT_EQ(compose::JoinClause(presenter_.Design().diagram),
              L"(((A INNER JOIN B ON A.x = B.x)  INNER JOIN C ON B.z = C.z)  INNER JOIN D ON C.y = D.y) ");
}

TEST_F(Gestures, ADrawnRelationIsAnInnerJoin) {
    presenter_.TableChosen(L"A");
    presenter_.TableChosen(L"B");
    presenter_.RelationDrawn(L"A", L"x", L"B", L"y");
    presenter_.GridCellCommitted(GridRow::Campo, 0, L"A.x");
    EXPECT_EQ(presenter_.BuildSQL(), L"SELECT A.x AS x \r\nFROM (A INNER JOIN B ON A.x = B.y) ;");
}

TEST_F(Gestures, DistinctFollowsTheCheckBox) {
    presenter_.SetDsn(kPlain);
    presenter_.DistinctClicked(true);
    EXPECT_EQ(presenter_.BuildSQL(), L"SELECT DISTINCTROW Clientes.Nombre AS Nombre \r\nFROM Clientes;");
}

TEST_F(Gestures, CriteriaRowsOfferTheHostsParameters) {
    owner_.names = {L"desde", L"hasta"};
    presenter_.GridFocusMoved(GridRow::Condicion, 0);
    EXPECT_EQ(presenter_.Design().grid.PickList(0), Texts({L"@desde", L"@hasta"}));
}

TEST_F(Gestures, FieldListFollowsTheDiagramWhileTheFocusStays) {
    presenter_.TableChosen(L"A");
    EXPECT_EQ(presenter_.Design().grid.PickList(0), Texts({L"A.*"}));
    presenter_.GridFocusMoved(GridRow::Visible, 0);
    presenter_.SetDsn(kPlain);
    EXPECT_EQ(presenter_.Design().grid.FocusedRow(), GridRow::Campo);
    EXPECT_EQ(presenter_.Design().grid.PickList(0), Texts({L"Clientes.*"}));
}

TEST_F(Gestures, WithoutParametersTheCriteriaRowsKeepTheListBefore) {
    presenter_.GridFocusMoved(GridRow::Orden, 0);
    presenter_.GridFocusMoved(GridRow::Condicion, 0);
    EXPECT_EQ(presenter_.Design().grid.PickList(0), Texts({L"Ascendente", L"Descendente"}));
}

TEST_F(Gestures, RemovingTheFocusedColumnEmptiesAndHidesIt) {
    presenter_.SetDsn(L"SELECT t.a, t.b FROM t WHERE t.b > 3");
    presenter_.GridFocusMoved(GridRow::Visible, 1);
    presenter_.RemoveFocusedColumn();
    EXPECT_FALSE(presenter_.Design().grid.IsColumnUsed(1));
    EXPECT_EQ(Cell(GridRow::Condicion, 1), L"");
    EXPECT_EQ(presenter_.Design().grid.Caption(1), L"");
    EXPECT_FALSE(presenter_.Design().grid.IsColumnShown(1));
    EXPECT_EQ(presenter_.Design().grid.FocusedColumn(), 2);
    EXPECT_EQ(presenter_.Design().grid.FocusedRow(), GridRow::Campo);
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"t.a");
    presenter_.DiagramFieldChecked(L"t", L"c", true);
    EXPECT_EQ(Cell(GridRow::Campo, 1), L"t.c");
    EXPECT_TRUE(presenter_.Design().grid.IsColumnShown(1));
}

TEST_F(Gestures, RemovingAnEmptyColumnDoesNothing) {
    presenter_.GridFocusMoved(GridRow::Campo, 3);
    presenter_.RemoveFocusedColumn();
    EXPECT_TRUE(presenter_.Design().grid.IsColumnShown(3));
}

TEST_F(Clearing, AsksWithTheExactTextAndNoKeepsTheDesign) {
    presenter_.SetDsn(kPlain);
    calls_.clear();
    window_.answer = false;
    presenter_.ClearDesign(true);
    EXPECT_EQ(calls_, Calls({L"question"}));
    EXPECT_EQ(window_.questions, Texts({L"¿Seguro desea eliminar todas las columnas definidas?"}));
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.Nombre");
}

TEST_F(Clearing, YesEmptiesTheColumnsAndKeepsTheTables) {
    presenter_.SetDsn(kPlain);
    calls_.clear();
    window_.answer = true;
    presenter_.ClearDesign(true);
    EXPECT_EQ(calls_, Calls({L"question", L"hourglass", L"events", L"default pointer"}));
    EXPECT_FALSE(presenter_.Design().grid.IsColumnUsed(0));
    EXPECT_EQ(presenter_.Design().diagram.Tables().size(), 1u);
}

}  // namespace
}  // namespace tessel::ui
