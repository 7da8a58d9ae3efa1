// The context menus and their commands.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/model/sample_schema.h"
#include "tests/ui/fakes.h"
#include "ui/designer_presenter.h"
#include "ui/relation_messages.h"
#include "ui/relation_texts.h"
#include "ui/table_mentions.h"

namespace tessel::ui {
namespace {

using model::testing_support::SampleSchema;
using Texts = std::vector<std::wstring>;

class DiagramCommands : public ::testing::Test {
protected:
    DiagramCommands() : editor_(calls_), window_(calls_), presenter_(window_, editor_, nullptr) {
        presenter_.Load();
        presenter_.BindSchema(&schema_);
    }

    model::Diagram& Diagram() { return presenter_.Design().diagram; }
    static Texts Captions(const Menu& menu) {
        Texts captions;
        for (const MenuEntry& entry : menu.entries)
            captions.push_back(entry.command == MenuCommand::None ? L"-" : entry.caption);
        return captions;
    }
    static std::vector<MenuCommand> Enabled(const Menu& menu) {
        std::vector<MenuCommand> enabled;
        for (const MenuEntry& entry : menu.entries)
            if (entry.enabled && entry.command != MenuCommand::None) enabled.push_back(entry.command);
        return enabled;
    }

    schema::Schema schema_ = SampleSchema();
    test::Calls calls_;
    test::FakeEditor editor_;
    test::FakeWindow window_;
    DesignerPresenter presenter_;
};

using ContextMenus = DiagramCommands;

TEST_F(ContextMenus, ARelationOffersItsRemovalAndItsPropertiesOnly) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Pedidos");
    Diagram().SelectRelation(Diagram().Relations()[0].key);
    EXPECT_EQ(presenter_.DiagramMenu().title, L"Enlaces");
    EXPECT_EQ(Captions(presenter_.DiagramMenu()),
              Texts({L"Quitar relación", L"-", L"Propiedades de la relación"}));
}

TEST_F(ContextMenus, ATableOfTheDiagramHasItsFourCommands) {
    presenter_.TableChosen(L"Clientes");
    Diagram().SelectTable(L"Clientes");
    EXPECT_EQ(presenter_.DiagramMenu().title, L"Tablas");
    EXPECT_EQ(Captions(presenter_.DiagramMenu()),
              Texts({L"Quitar tabla del diagrama", L"-", L"Agregar relación", L"-",
                     L"Agregar tabla relacionada al diagrama", L"-", L"Ver datos de la tabla"}));
}

TEST_F(ContextMenus, ATableOfTheBrowserHasItsTwoCommandsAndBecomesTheCurrentOne) {
    const Menu menu = presenter_.BrowserMenu(L"Pedidos");
    EXPECT_EQ(menu.title, L"Tabla");
    EXPECT_EQ(Captions(menu), Texts({L"Agregar tabla a diagrama", L"-", L"Ver los datos de la tabla"}));
    EXPECT_EQ(presenter_.CurrentTable(), L"Pedidos");
}

TEST_F(ContextMenus, ThePlaneHasNone) {
    EXPECT_TRUE(presenter_.DiagramMenu().entries.empty());
}

TEST_F(ContextMenus, AnEntryIsEnabledOnlyWhenItCanDoSomething) {
    using enum MenuCommand;
    presenter_.TableChosen(L"Clientes");
    Diagram().SelectTable(L"Clientes");
    EXPECT_EQ(Enabled(presenter_.DiagramMenu()), std::vector({mnuDelTable, mnuAddRelTable}));
    presenter_.TableChosen(L"Empleados");
    Diagram().SelectTable(L"Clientes");
    window_.has_connection = true;
    EXPECT_EQ(Enabled(presenter_.DiagramMenu()),
              std::vector({mnuDelTable, mnuRelacionar, mnuAddRelTable, mnuVista2}));
    EXPECT_EQ(Enabled(presenter_.BrowserMenu(L"Clientes")), std::vector({mnuAddTD, mnuVista}));
    presenter_.TabClicked(Tab::Sql);
    window_.has_connection = false;
    EXPECT_TRUE(Enabled(presenter_.BrowserMenu(L"Clientes")).empty());
}

TEST_F(DiagramCommands, AddTableTakesTheTableOfTheBrowsersMenu) {
    (void)presenter_.BrowserMenu(L"[Detalle de pedidos]");
    presenter_.MenuChosen(MenuCommand::mnuAddTD);
    ASSERT_EQ(Diagram().Tables().size(), 1u);
    EXPECT_EQ(Diagram().Tables()[0].name, L"[Detalle de pedidos]");
}

TEST_F(DiagramCommands, RemoveTableRemovesTheSelectedOneByItsName) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Pedidos");
    Diagram().SelectTable(L"Clientes");
    presenter_.MenuChosen(MenuCommand::mnuDelTable);
    ASSERT_EQ(Diagram().Tables().size(), 1u);
    EXPECT_EQ(Diagram().Tables()[0].name, L"Pedidos");
    EXPECT_TRUE(Diagram().Relations().empty());
}

TEST_F(DiagramCommands, RemovingATableTakesTheColumnsOfItsFieldsAlong) {
    using model::GridRow;
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Pedidos");
    presenter_.GridCellCommitted(GridRow::Campo, 0, L"[pedidos].Importe");
    presenter_.GridCellCommitted(GridRow::Campo, 1, L"Clientes.nombre");
    presenter_.GridCellCommitted(GridRow::Campo, 2, L"Pedidos.*");
    Diagram().SelectTable(L"Pedidos");
    presenter_.MenuChosen(MenuCommand::mnuDelTable);
    EXPECT_EQ(presenter_.BuildSQL(), L"SELECT Clientes.nombre AS nombre \r\nFROM Clientes;");
    EXPECT_TRUE(window_.messages.empty());
    presenter_.Undo();
    EXPECT_EQ(presenter_.Design().grid.Cell(GridRow::Campo, 0), L"[pedidos].Importe");
    EXPECT_EQ(Diagram().Tables().size(), 2u);
    EXPECT_EQ(Diagram().Relations().size(), 1u);
}

TEST_F(DiagramCommands, ExpressionsThatNameARemovedTableStayAndAreSaid) {
    using model::GridRow;
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Pedidos");
    presenter_.GridCellCommitted(GridRow::Campo, 0, L"Sum(Pedidos.Importe)");
    Diagram().SelectTable(L"Pedidos");
    presenter_.DeleteSelected();
    EXPECT_EQ(presenter_.Design().grid.Cell(GridRow::Campo, 0), L"Sum(Pedidos.Importe)");
    EXPECT_EQ(window_.messages, Texts({texts::kTableStillNamed}));
}

TEST(TableMentions, AQualifiedNameNamesItsTable) {
    struct Case {
        const wchar_t* text;
        bool names;
    };
    const Case cases[] = {{L"Pedidos.Importe", true},
                          {L"Sum([PEDIDOS] . Importe) * 2", true},
                          {L"pedidos!Importe", true},
                          {L"'Pedidos.Importe'", false},
                          {L"Pedidos", false},
                          {L"Importe", false},
                          {L"MisPedidos.Importe", false},
                          {L"Clientes.Pedidos", false},
                          {L"", false}};
    for (const Case& one : cases) EXPECT_EQ(NamesTable(one.text, L"Pedidos"), one.names) << one.text;
    EXPECT_TRUE(NamesTable(L"[Detalle de pedidos].Cantidad", L"[detalle de pedidos]"));
}

TEST_F(DiagramCommands, RemoveRelationLeavesItsTables) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Pedidos");
    Diagram().SelectRelation(Diagram().Relations()[0].key);
    presenter_.MenuChosen(MenuCommand::mnuQuitarRel);
    EXPECT_TRUE(Diagram().Relations().empty());
    EXPECT_EQ(Diagram().Tables().size(), 2u);
}

TEST_F(DiagramCommands, AddRelationBeginsAtTheSelectedTableAndAddsNothingYet) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Empleados");
    Diagram().SelectTable(L"Clientes");
    presenter_.MenuChosen(MenuCommand::mnuRelacionar);
    EXPECT_EQ(window_.relation_begun, L"Clientes");
    EXPECT_TRUE(Diagram().Relations().empty());
}

TEST_F(DiagramCommands, AddRelatedTableOpensTheDialogOnTheSelectedTable) {
    presenter_.TableChosen(L"Pedidos");
    Diagram().SelectTable(L"Pedidos");
    presenter_.MenuChosen(MenuCommand::mnuAddRelTable);
    EXPECT_EQ(window_.add_table_calls, Texts({L"Pedidos"}));
}

TEST_F(DiagramCommands, RowsOfADiagramTableMakeItTheCurrentTable) {
    presenter_.TableChosen(L"Pedidos");
    Diagram().SelectTable(L"Pedidos");
    presenter_.MenuChosen(MenuCommand::mnuVista2);
    EXPECT_EQ(presenter_.CurrentTable(), L"Pedidos");
    EXPECT_EQ(window_.previewed, Texts({L"Pedidos"}));
}

TEST_F(DiagramCommands, RowsOfABrowserTableAreThoseOfItsMenu) {
    (void)presenter_.BrowserMenu(L"Empleados");
    presenter_.MenuChosen(MenuCommand::mnuVista);
    EXPECT_EQ(window_.previewed, Texts({L"Empleados"}));
}

TEST_F(DiagramCommands, PropertiesShowTheSelectedRelationAndChangeItsKind) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Pedidos");
    const int key = Diagram().Relations()[0].key;
    Diagram().SelectRelation(key);
    window_.chosen_kind = model::kLeftJoin;
    presenter_.MenuChosen(MenuCommand::mnuPropRel);
    EXPECT_EQ(RelationFields(window_.asked_relation), L"Clientes.IdCliente = Pedidos.IdCliente");
    EXPECT_EQ(Diagram().FindRelation(key)->info.JType, model::kLeftJoin);
    presenter_.GridCellCommitted(model::GridRow::Campo, 0, L"Clientes.nombre");
    EXPECT_EQ(presenter_.BuildSQL(),
              L"SELECT Clientes.nombre AS nombre \r\n"
              L"FROM (Clientes LEFT JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente) ;");
}

TEST_F(DiagramCommands, PropertiesClosedWithoutAcceptingChangeNothing) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Pedidos");
    const int key = Diagram().Relations()[0].key;
    presenter_.RelationActivated(key);
    EXPECT_EQ(Diagram().FindRelation(key)->info.JType, model::kInnerJoin);
}

TEST_F(DiagramCommands, AKindThatWouldLoseKeptRowsIsRefusedWithAMessage) {
    for (const wchar_t* table : {L"A", L"B", L"C"}) presenter_.TableChosen(table);
    presenter_.RelationDrawn(L"A", L"x", L"B", L"x");
    presenter_.RelationDrawn(L"C", L"y", L"B", L"y");
    window_.chosen_kind = model::kLeftJoin;
    presenter_.RelationActivated(Diagram().Relations()[0].key);
    EXPECT_TRUE(window_.messages.empty());
    const auto before = Diagram().Save();
    for (const model::DiagramRelation& relation : before.relations)
        if (relation.info.JType == model::kInnerJoin) {
            window_.chosen_kind = relation.info.LeftTable == L"C" ? model::kLeftJoin : model::kRightJoin;
            presenter_.RelationActivated(relation.key);
        }
    EXPECT_EQ(window_.messages, Texts({texts::kRelationLosesRows}));
    EXPECT_EQ(Diagram().Save(), before);
}

TEST_F(DiagramCommands, AnOuterJoinDrawnTowardsAJoinedTableIsComposedAsItsArrowSays) {
    for (const wchar_t* table : {L"A", L"B", L"C"}) presenter_.TableChosen(table);
    presenter_.RelationDrawn(L"B", L"x", L"C", L"x");
    presenter_.RelationDrawn(L"A", L"y", L"B", L"y");
    window_.chosen_kind = model::kLeftJoin;  // every row of A
    presenter_.RelationActivated(Diagram().Relations()[1].key);
    presenter_.GridCellCommitted(model::GridRow::Campo, 0, L"A.z");
    EXPECT_EQ(presenter_.BuildSQL(),
              L"SELECT A.z AS z \r\nFROM ((B INNER JOIN C ON B.x = C.x)  RIGHT JOIN A ON B.y = A.y) ;");
}

TEST_F(DiagramCommands, ARelationThatIsThereIsSelectedAndSaidSo) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Pedidos");
    Diagram().SelectNothing();
    presenter_.RelationDrawn(L"Pedidos", L"IdCliente", L"Clientes", L"IdCliente");
    EXPECT_EQ(window_.messages, Texts({texts::kRelationAlreadyThere}));
    EXPECT_EQ(Diagram().SelectedRelation(), Diagram().Relations()[0].key);
    EXPECT_EQ(Diagram().Relations().size(), 1u);
}

TEST_F(DiagramCommands, ARelationThatWouldCloseARingIsRefusedWithAMessage) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Pedidos");
    presenter_.RelationDrawn(L"Pedidos", L"nombre", L"Clientes", L"nombre");
    EXPECT_EQ(window_.messages, Texts({texts::kRelationClosesRing}));
    EXPECT_EQ(Diagram().Relations().size(), 1u);
}

TEST_F(DiagramCommands, ADrawnRelationIsSelected) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Empleados");
    presenter_.RelationDrawn(L"Clientes", L"nombre", L"Empleados", L"nombre");
    EXPECT_EQ(Diagram().SelectedRelation(), Diagram().Relations()[0].key);
    EXPECT_TRUE(window_.messages.empty());
}

TEST_F(DiagramCommands, AddingATableTwiceShowsTheOneThatIsThere) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Pedidos");
    const auto before = Diagram().Save();
    presenter_.TableChosen(L"[clientes]");
    EXPECT_EQ(Diagram().Save(), before);
    EXPECT_EQ(Diagram().SelectedTable(), L"Clientes");
    EXPECT_EQ(window_.revealed, L"[clientes]");
    EXPECT_TRUE(window_.messages.empty());
}

TEST_F(DiagramCommands, AddingATableTicksTheFieldsThatTheGridHolds) {
    presenter_.GridCellCommitted(model::GridRow::Campo, 0, L"Pedidos.Importe");
    presenter_.TableChosen(L"Pedidos");
    const auto& fields = Diagram().FindTable(L"Pedidos")->fields;
    EXPECT_TRUE(std::ranges::find(fields, L"Importe", &model::DiagramField::name)->checked);
}

TEST_F(DiagramCommands, NoTableIsAddedToADiagramThatIsNotShown) {
    presenter_.TabClicked(Tab::Sql);
    presenter_.TableChosen(L"Pedidos");
    EXPECT_TRUE(Diagram().Tables().empty());
}

TEST_F(DiagramCommands, DelRemovesWhatIsSelected) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Pedidos");
    Diagram().SelectNothing();
    presenter_.DeleteSelected();
    EXPECT_EQ(Diagram().Tables().size(), 2u);
    Diagram().SelectRelation(Diagram().Relations()[0].key);
    presenter_.DeleteSelected();
    EXPECT_TRUE(Diagram().Relations().empty());
    Diagram().SelectTable(L"Pedidos");
    presenter_.DeleteSelected();
    ASSERT_EQ(Diagram().Tables().size(), 1u);
    EXPECT_EQ(Diagram().Tables()[0].name, L"Clientes");
}

TEST_F(DiagramCommands, NoneComposesTheText) {
    presenter_.TableChosen(L"Clientes");
    presenter_.TableChosen(L"Pedidos");
    calls_.clear();
    Diagram().SelectRelation(Diagram().Relations()[0].key);
    presenter_.DeleteSelected();
    Diagram().SelectTable(L"Pedidos");
    presenter_.DeleteSelected();
    EXPECT_TRUE(calls_.empty());
}

TEST(RelationTexts, EachKindIsOneSentenceWithBothTables) {
    const model::RelInfo relation{L"Clientes", L"Id", L"[Detalle de pedidos]", L"Id"};
    EXPECT_EQ(KindSentence(relation, model::kInnerJoin),
              L"&Interna: sólo las filas de «Clientes» y de «Detalle de pedidos» en las que los dos campos "
              L"coinciden.");
    EXPECT_EQ(
        KindSentence(relation, model::kLeftJoin),
        L"I&zquierda: todas las filas de «Clientes», y de «Detalle de pedidos» sólo las que coinciden.");
    EXPECT_EQ(KindSentence(relation, model::kRightJoin),
              L"&Derecha: todas las filas de «Detalle de pedidos», y de «Clientes» sólo las que coinciden.");
}

TEST(RelationTexts, AnAmpersandInANameIsNoMnemonic) {
    EXPECT_EQ(KindSentence({L"[A&B]", L"x", L"C", L"x"}, model::kRightJoin),
              L"&Derecha: todas las filas de «C», y de «A&&B» sólo las que coinciden.");
}

}  // namespace
}  // namespace tessel::ui
