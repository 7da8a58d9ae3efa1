#include "model/diagram.h"

#include <gtest/gtest.h>

#include "tests/model/sample_schema.h"

namespace tessel::model {
namespace {

class DiagramTest : public testing::Test {
protected:
    DiagramTest() { diagram.Bind(&schema); }

    std::vector<std::wstring> RelationTexts() const {
        std::vector<std::wstring> texts;
        for (const DiagramRelation& relation : diagram.Relations()) {
            const RelInfo& info = relation.info;
            texts.push_back(info.LeftTable + L"." + info.LeftField + L" = " + info.RightTable + L"." +
                            info.RightField + L" " + std::to_wstring(info.JType));
        }
        return texts;
    }

    std::vector<std::wstring> TableNames() const {
        std::vector<std::wstring> names;
        for (const DiagramTable& table : diagram.Tables()) names.push_back(table.name);
        return names;
    }

    schema::Schema schema = testing_support::SampleSchema();
    Diagram diagram;
};

using Texts = std::vector<std::wstring>;

TEST_F(DiagramTest, TablesKeepTheirOrderAndTheNameOfTheSchema) {
    EXPECT_TRUE(diagram.AddTable(L"  PEDIDOS ", true));
    EXPECT_TRUE(diagram.AddTable(L"detalle de pedidos", true));
    EXPECT_TRUE(diagram.AddTable(L"Otra", true));
    EXPECT_EQ(TableNames(), (Texts{L"Pedidos", L"[Detalle de pedidos]", L"Otra"}));
    EXPECT_TRUE(diagram.Tables()[0].known);
    EXPECT_FALSE(diagram.Tables()[2].known);
    EXPECT_TRUE(diagram.Tables()[2].fields.empty());
}

TEST_F(DiagramTest, ATableIsNotAddedTwiceNorIsABlankName) {
    EXPECT_TRUE(diagram.AddTable(L"Detalle de pedidos", false));
    EXPECT_FALSE(diagram.AddTable(L"[DETALLE DE PEDIDOS]", false));
    EXPECT_FALSE(diagram.AddTable(L"  ", false));
    EXPECT_EQ(diagram.Tables().size(), 1u);
}

TEST_F(DiagramTest, FieldsCarryKeysAndTypes) {
    diagram.AddTable(L"Pedidos", true);
    const std::vector<DiagramField>& fields = diagram.Tables()[0].fields;
    ASSERT_EQ(fields.size(), 5u);
    EXPECT_TRUE(fields[0].primary_key);
    EXPECT_TRUE(fields[1].foreign_key);
    EXPECT_EQ(fields[0].type_text, L"adInteger");
    EXPECT_EQ(fields[3].type_text, L"adVarWChar(40)");
    EXPECT_EQ(fields[4].type_text, L"adNumeric(10, 2)");
}

TEST_F(DiagramTest, PlacingATableRelatesItByItsForeignKeys) {
    diagram.AddTable(L"Clientes", false);
    diagram.AddTable(L"Pedidos", false);
    diagram.AddTable(L"Detalle de pedidos", false);
    EXPECT_EQ(RelationTexts(), (Texts{L"Clientes.IdCliente = Pedidos.IdCliente 0",
                                      L"Pedidos.IdPedido = [Detalle de pedidos].IdPedido 0"}));
}

TEST_F(DiagramTest, TheAnalysisPlacesTablesWithoutRelations) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    EXPECT_TRUE(diagram.Relations().empty());
}

TEST_F(DiagramTest, SelfReferencesAndCompositeKeysRelateNothing) {
    diagram.AddTable(L"Empleados", false);
    diagram.AddTable(L"Almacén", false);
    diagram.AddTable(L"Existencias", false);
    EXPECT_TRUE(diagram.Relations().empty());
}

TEST_F(DiagramTest, AKeyThatWouldCloseARingIsLeftOut) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Empleados", true);
    ASSERT_NE(diagram.AddRelation({L"Clientes", L"nombre", L"Empleados", L"nombre"}), 0);
    diagram.AddTable(L"Pedidos", false);
    EXPECT_EQ(RelationTexts(),
              (Texts{L"Clientes.nombre = Empleados.nombre 0", L"Clientes.IdCliente = Pedidos.IdCliente 0"}));
}

TEST_F(DiagramTest, ATableThatJoinsTwoGroupsBringsTheirRelationsIntoOneWalk) {
    for (const wchar_t* table :
         {L"Clientes", L"Pedidos", L"Productos", L"Categorías", L"Detalle de pedidos"}) {
        diagram.AddTable(table, false);
    }
    EXPECT_EQ(RelationTexts(), (Texts{L"Clientes.IdCliente = Pedidos.IdCliente 0",
                                      L"Pedidos.IdPedido = [Detalle de pedidos].IdPedido 0",
                                      L"Productos.IdProducto = [Detalle de pedidos].IdProducto 0",
                                      L"Categorías.IdCategoría = Productos.IdCategoría 0"}));
}

TEST_F(DiagramTest, RelationsUseTheNamesShown) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    const int key = diagram.AddRelation({L"[clientes]", L"IDCLIENTE", L"PEDIDOS", L"otro", kRightJoin});
    ASSERT_NE(key, 0);
    EXPECT_EQ(RelationTexts(), Texts{L"Clientes.IdCliente = Pedidos.otro 2"});
}

TEST_F(DiagramTest, TheSamePairOfFieldsIsRelatedOnceInEitherDirection) {
    diagram.AddTable(L"A", true);
    diagram.AddTable(L"B", true);
    const int key = diagram.AddRelation({L"A", L"x", L"B", L"y"});
    EXPECT_EQ(diagram.AddRelation({L"b", L"[Y]", L"a", L"X"}), key);
    EXPECT_NE(diagram.AddRelation({L"A", L"y", L"B", L"x"}), key);
    EXPECT_EQ(diagram.Relations().size(), 2u);
}

TEST_F(DiagramTest, ARelationNeedsTwoDifferentTablesOfTheDiagram) {
    diagram.AddTable(L"A", true);
    EXPECT_EQ(diagram.AddRelation({L"A", L"x", L"B", L"y"}), 0);
    EXPECT_EQ(diagram.AddRelation({L"A", L"x", L"[a]", L"y"}), 0);
    EXPECT_TRUE(diagram.Relations().empty());
}

TEST_F(DiagramTest, RelationKeysAreNotUsedAgain) {
    diagram.AddTable(L"A", true);
    diagram.AddTable(L"B", true);
    const int first = diagram.AddRelation({L"A", L"x", L"B", L"y"});
    EXPECT_TRUE(diagram.RemoveRelation(first));
    EXPECT_FALSE(diagram.RemoveRelation(first));
    EXPECT_NE(diagram.AddRelation({L"A", L"x", L"B", L"y"}), first);
    Diagram::Contents contents = diagram.Save();
    contents.relations[0].key = 40;
    diagram.Restore(contents);
    EXPECT_EQ(diagram.AddRelation({L"A", L"z", L"B", L"z"}), 41);
}

TEST_F(DiagramTest, RemovingATableTakesItsRelationsAndTheSelectionAlong) {
    diagram.AddTable(L"Clientes", false);
    diagram.AddTable(L"Pedidos", false);
    diagram.SelectRelation(diagram.Relations()[0].key);
    EXPECT_EQ(diagram.SelectedElement(), DiagramElement::Relation);
    EXPECT_TRUE(diagram.RemoveTable(L"[PEDIDOS]"));
    EXPECT_FALSE(diagram.RemoveTable(L"Pedidos"));
    EXPECT_TRUE(diagram.Relations().empty());
    EXPECT_EQ(diagram.SelectedElement(), DiagramElement::None);
    EXPECT_EQ(diagram.SelectedRelation(), 0);
    EXPECT_EQ(TableNames(), Texts{L"Clientes"});
}

TEST_F(DiagramTest, SelectingWhatIsNotThereSelectsNothing) {
    diagram.AddTable(L"Clientes", false);
    diagram.SelectTable(L"clientes");
    EXPECT_EQ(diagram.SelectedTable(), L"Clientes");
    diagram.SelectTable(L"x");
    EXPECT_EQ(diagram.SelectedElement(), DiagramElement::None);
    EXPECT_EQ(diagram.SelectedTable(), L"");
    diagram.SelectRelation(7);
    EXPECT_EQ(diagram.SelectedElement(), DiagramElement::None);
}

TEST_F(DiagramTest, ResetRemovesRelationsAndMarksAndKeepsTables) {
    diagram.AddTable(L"Clientes", false);
    diagram.AddTable(L"Pedidos", false);
    EXPECT_TRUE(diagram.SetChecked(L"clientes", L"NOMBRE", true));
    EXPECT_FALSE(diagram.SetChecked(L"clientes", L"nada", true));
    EXPECT_FALSE(diagram.SetChecked(L"nada", L"nombre", true));
    EXPECT_TRUE(diagram.Tables()[0].fields[1].checked);
    diagram.Reset();
    EXPECT_FALSE(diagram.Tables()[0].fields[1].checked);
    EXPECT_TRUE(diagram.Relations().empty());
    EXPECT_EQ(TableNames(), (Texts{L"Clientes", L"Pedidos"}));
}

TEST_F(DiagramTest, AllFieldsHaveAMarkOfTheirOwn) {
    diagram.AddTable(L"Clientes", true);
    EXPECT_TRUE(diagram.SetChecked(L"CLIENTES", L"*", true));
    EXPECT_TRUE(diagram.Tables()[0].all_checked);
    for (const DiagramField& field : diagram.Tables()[0].fields) EXPECT_FALSE(field.checked);
    diagram.SetChecks({{L"Clientes", L"nombre"}});
    EXPECT_FALSE(diagram.Tables()[0].all_checked);
    diagram.SetChecks({{L"Clientes", L" * "}});
    EXPECT_TRUE(diagram.Tables()[0].all_checked);
    diagram.Reset();
    EXPECT_FALSE(diagram.Tables()[0].all_checked);
}

TEST_F(DiagramTest, ATableIsUnplacedUntilItsRectangleIsSet) {
    diagram.AddTable(L"Clientes", false);
    EXPECT_FALSE(diagram.Tables()[0].placed);
    diagram.SetTableRect(L"clientes", {1, 2, 3, 4});
    EXPECT_TRUE(diagram.Tables()[0].placed);
    EXPECT_EQ(diagram.Tables()[0].rect, (DiagramRect{1, 2, 3, 4}));
}

TEST_F(DiagramTest, BindingASchemaLaterFillsTheTablesAndKeepsMarks) {
    Diagram later;
    later.AddTable(L"clientes", true);
    EXPECT_TRUE(later.Tables()[0].fields.empty());
    later.Bind(&schema);
    EXPECT_EQ(later.Tables()[0].name, L"Clientes");
    EXPECT_EQ(later.Tables()[0].fields.size(), 4u);
    later.SetChecked(L"Clientes", L"País", true);
    later.Bind(&schema);
    EXPECT_TRUE(later.Tables()[0].fields[2].checked);
    later.Bind(nullptr);
    EXPECT_FALSE(later.Tables()[0].known);
    EXPECT_TRUE(later.Tables()[0].fields.empty());
}

TEST_F(DiagramTest, FurtherComparisonsOfARelationAreNoPartOfItsField) {
    EXPECT_EQ(FieldOfRelation(L"Id"), L"Id");
    EXPECT_EQ(FieldOfRelation(L"Id AND A.Linea = B.Linea AND A.n > B.n"), L"Id");
    EXPECT_EQ(FieldOfRelation(L"[ida AND vuelta]"), L"[ida AND vuelta]");
    EXPECT_EQ(FieldOfRelation(L"[ida AND vuelta] AND A.x = B.y"), L"[ida AND vuelta]");
    EXPECT_EQ(FieldOfRelation(L""), L"");
}

TEST_F(DiagramTest, FieldBeforeFurtherComparisonsIsShownAsTheSchemaDoes) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    diagram.AddRelation(
        {L"Clientes", L"IdCliente", L"Pedidos", L"[IDCLIENTE] AND Clientes.[País] = Pedidos.x", kLeftJoin});
    EXPECT_EQ(RelationTexts(),
              Texts{L"Clientes.IdCliente = Pedidos.IdCliente AND Clientes.[País] = Pedidos.x 1"});
}

TEST_F(DiagramTest, SameFieldsAreRelatedOnceWithOrWithoutFurtherComparisons) {
    diagram.AddTable(L"Clientes", true);
    diagram.AddTable(L"Pedidos", true);
    const int key = diagram.AddRelation(
        {L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente AND Clientes.País = Pedidos.País", kLeftJoin});
    EXPECT_EQ(diagram.AddRelation({L"Pedidos", L"IdCliente", L"Clientes", L"IdCliente"}), key);
}

TEST_F(DiagramTest, SaveAndRestoreGiveTheSameContents) {
    diagram.AddTable(L"Clientes", false);
    diagram.AddTable(L"Pedidos", false);
    diagram.SetRelationKind(diagram.Relations()[0].key, kLeftJoin);
    const Diagram::Contents contents = diagram.Save();
    diagram.Clear();
    EXPECT_TRUE(diagram.Tables().empty());
    diagram.Restore(contents);
    EXPECT_EQ(diagram.Save(), contents);
    EXPECT_EQ(RelationTexts(), Texts{L"Clientes.IdCliente = Pedidos.IdCliente 1"});
}

}  // namespace
}  // namespace tessel::model
