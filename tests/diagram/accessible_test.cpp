// What the table diagram tells assistive programs.
#include "controls/diagram/diagram_accessible.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

#include "common/identifiers.h"
#include "controls/diagram/diagram_accessible_texts.h"
#include "tests/diagram/fixed_measurer.h"
#include "tests/model/sample_schema.h"

namespace tessel::controls::diagram {
namespace {

namespace states = accessible_state;

class SilentHost final : public DiagramHost {
public:
    void Repaint() override {}
    void FieldChecked(std::wstring_view, std::wstring_view, bool) override {}
    void RelationDrawn(std::wstring_view, std::wstring_view, std::wstring_view, std::wstring_view) override {}
    void ContextMenu(model::DiagramElement, Point) override {}
    void DeleteWanted(model::DiagramElement) override {}
    void RelationActivated(int) override {}
};

class RecordingHost final : public DiagramAccessibleHost {
public:
    void CheckField(const std::wstring& table, const std::wstring& field, bool checked) override {
        done = table + L"." + field + (checked ? L" on" : L" off");
    }
    void OpenRelation(int key) override { done = L"relation " + std::to_wstring(key); }
    AccessiblePlace HintPlace() const override { return {0, 570, 900, 600}; }

    std::wstring done;
};

class DiagramAccessibleTest : public ::testing::Test, private ChangeListener {
protected:
    DiagramAccessibleTest() {
        diagram_.Bind(&schema_);
        diagram_.AddListener(this);
        state_.SetMetrics(BoxMetrics(), &measurer_);
        state_.SetClient({900, 600});
        state_.Bind(&diagram_);
        for (const wchar_t* table : {L"Clientes", L"Pedidos", L"Productos"}) diagram_.AddTable(table, true);
        relation_ = diagram_.AddRelation(
            {L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente", model::kLeftJoin, false});
        state_.Update();
    }
    ~DiagramAccessibleTest() override { diagram_.RemoveListener(this); }
    void OnChanged() override { state_.ModelChanged(); }

    AccessibleId Field(std::wstring_view table, std::wstring_view field) const {
        return tree_.FieldId(table, RowOf(*diagram_.FindTable(table), field));
    }
    std::wstring Done(AccessibleId id) {
        host_.done.clear();
        tree_.Act(id);
        return host_.done;
    }

    schema::Schema schema_ = model::testing_support::SampleSchema();
    model::Diagram diagram_;
    FixedMeasurer measurer_;
    SilentHost silent_;
    DiagramState state_{silent_};
    RecordingHost host_;
    DiagramAccessible tree_{state_, host_};
    int relation_ = 0;
};

TEST_F(DiagramAccessibleTest, ChildrenAreTablesThenRelations) {
    EXPECT_EQ(
        tree_.ChildrenOf(kAccessibleSelf),
        (std::vector<AccessibleId>{tree_.TableId(L"Clientes"), tree_.TableId(L"Pedidos"),
                                   tree_.TableId(L"Productos"), DiagramAccessible::RelationId(relation_)}));
    const AccessibleElement root = tree_.Describe(kAccessibleSelf);
    EXPECT_EQ(root.name, L"Diagrama de tablas");
    EXPECT_EQ(root.role, AccessibleRole::Diagram);
}

TEST_F(DiagramAccessibleTest, ATableIsAListOfCheckBoxesThatBeginsWithAllFields) {
    const AccessibleElement table = tree_.Describe(tree_.TableId(L"Clientes"));
    EXPECT_EQ(table.name, L"Clientes");
    EXPECT_EQ(table.role, AccessibleRole::List);
    const auto& fields = diagram_.FindTable(L"Clientes")->fields;
    const std::vector<AccessibleId> rows = tree_.ChildrenOf(tree_.TableId(L"Clientes"));
    ASSERT_EQ(rows.size(), fields.size() + 1);
    EXPECT_EQ(tree_.Describe(rows[0]).name, L"* (todos los campos)");
    for (std::size_t i = 0; i < fields.size(); ++i) {
        EXPECT_EQ(tree_.Describe(rows[i + 1]).name, Unbracketed(fields[i].name));
        EXPECT_EQ(tree_.Describe(rows[i + 1]).role, AccessibleRole::CheckButton);
        EXPECT_EQ(tree_.ParentOf(rows[i + 1]), tree_.TableId(L"Clientes"));
    }
}

TEST_F(DiagramAccessibleTest, MarksAndKeysAreTold) {
    model::DiagramField field;
    field.name = L"IdCliente";
    EXPECT_EQ(FieldDetails(field), L"");
    field.primary_key = true;
    EXPECT_EQ(FieldDetails(field), L"clave principal");
    field.type_text = L"adInteger";
    field.foreign_key = true;
    EXPECT_EQ(FieldDetails(field), L"adInteger, clave principal, clave externa");

    const AccessibleId id = Field(L"Clientes", L"IdCliente");
    EXPECT_FALSE(tree_.Describe(id).states & states::kChecked);
    EXPECT_EQ(tree_.Describe(id).action, L"Marcar");
    ASSERT_TRUE(diagram_.SetChecked(L"Clientes", L"IdCliente", true));
    EXPECT_TRUE(tree_.Describe(id).states & states::kChecked);
    EXPECT_EQ(tree_.Describe(id).action, L"Desmarcar");
}

TEST_F(DiagramAccessibleTest, ATableTellsItsKindAndHowMuchOfItIsTaken) {
    model::DiagramTable table;
    table.name = L"Clientes";
    EXPECT_EQ(TableDetails(table), L"no está en el esquema, 0 campos");
    table.known = true;
    table.fields.resize(1);
    EXPECT_EQ(TableDetails(table), L"tabla, 1 campo");
    table.fields.resize(3);
    table.fields[0].checked = true;
    table.kind = schema::ObjectKind::View;
    EXPECT_EQ(TableDetails(table), L"vista, 3 campos, 1 marcado");
    table.fields[2].checked = true;
    EXPECT_EQ(TableDetails(table), L"vista, 3 campos, 2 marcados");
    table.all_checked = true;
    EXPECT_EQ(TableDetails(table), L"vista, 3 campos, todos los campos marcados");
}

TEST_F(DiagramAccessibleTest, RelationsAreNamedByTheirFieldsAndTheirKind) {
    struct Case {
        model::JoinKind kind;
        const wchar_t* name;
    };
    for (const Case& one : {Case{model::kInnerJoin, L"Relación: A.Id = B.IdA, combinación interna"},
                            Case{model::kLeftJoin, L"Relación: A.Id = B.IdA, combinación izquierda"},
                            Case{model::kRightJoin, L"Relación: A.Id = B.IdA, combinación derecha"}})
        EXPECT_EQ(RelationName({L"A", L"Id", L"B", L"IdA", one.kind, false}), one.name);
    const AccessibleElement line = tree_.Describe(DiagramAccessible::RelationId(relation_));
    EXPECT_EQ(line.name, L"Relación: Clientes.IdCliente = Pedidos.IdCliente, combinación izquierda");
    EXPECT_EQ(line.role, AccessibleRole::Graphic);
    EXPECT_GT(line.place.right, line.place.left);
    EXPECT_GT(line.place.bottom, line.place.top);
}

TEST_F(DiagramAccessibleTest, TheKeyboardIsWhereTheSelectionIs) {
    EXPECT_EQ(tree_.Focused(), kAccessibleSelf);
    diagram_.SelectTable(L"Pedidos");
    EXPECT_EQ(tree_.Focused(), tree_.TableId(L"Pedidos"));
    state_.KeyDown(Key::Down, {});
    EXPECT_EQ(tree_.Focused(), tree_.FieldId(L"Pedidos", 0));
    EXPECT_EQ(tree_.Selected(), (std::vector<AccessibleId>{tree_.FieldId(L"Pedidos", 0)}));
    EXPECT_TRUE(tree_.Describe(tree_.FieldId(L"Pedidos", 0)).states & states::kSelected);
    EXPECT_FALSE(tree_.Describe(tree_.TableId(L"Pedidos")).states & states::kSelected);
    diagram_.SelectRelation(relation_);
    EXPECT_EQ(tree_.Focused(), DiagramAccessible::RelationId(relation_));
}

TEST_F(DiagramAccessibleTest, ElementsCanBeSelectedAndTicked) {
    EXPECT_TRUE(tree_.Select(Field(L"Productos", L"IdProducto"), false));
    EXPECT_EQ(tree_.Focused(), Field(L"Productos", L"IdProducto"));
    EXPECT_TRUE(tree_.Select(tree_.TableId(L"Clientes"), false));
    EXPECT_EQ(tree_.Focused(), tree_.TableId(L"Clientes"));
    EXPECT_TRUE(tree_.Select(DiagramAccessible::RelationId(relation_), false));
    EXPECT_EQ(diagram_.SelectedRelation(), relation_);
    EXPECT_FALSE(tree_.Select(kAccessibleSelf, false));
    EXPECT_EQ(Done(Field(L"Clientes", L"IdCliente")), L"Clientes.IdCliente on");
    EXPECT_EQ(Done(tree_.FieldId(L"Clientes", 0)), L"Clientes.* on");
    EXPECT_EQ(Done(DiagramAccessible::RelationId(relation_)), L"relation " + std::to_wstring(relation_));
    EXPECT_EQ(Done(tree_.TableId(L"Clientes")), L"");
}

TEST_F(DiagramAccessibleTest, NumbersFollowTheTableNotItsPlace) {
    const AccessibleId products = tree_.TableId(L"Productos");
    const AccessibleId orders = tree_.TableId(L"Pedidos");
    ASSERT_TRUE(diagram_.RemoveTable(L"Pedidos"));
    EXPECT_FALSE(tree_.Has(orders));
    EXPECT_FALSE(tree_.Has(orders - 1));
    EXPECT_FALSE(tree_.Has(DiagramAccessible::RelationId(relation_)));
    EXPECT_EQ(tree_.Describe(products).name, L"Productos");
    diagram_.AddTable(L"[PEDIDOS]", true);
    EXPECT_EQ(tree_.TableId(L"pedidos"), orders);
    EXPECT_TRUE(tree_.Has(orders));
}

TEST_F(DiagramAccessibleTest, NumbersOfNothingAreNotThere) {
    for (const AccessibleId id :
         {1, -1, -2, -(1 << 14) + 1, -(1 << 20), -(1 << 30) - 999, std::numeric_limits<AccessibleId>::min()})
        EXPECT_FALSE(tree_.Has(id)) << id;
    const int rows = RowCount(*diagram_.FindTable(L"Clientes"));
    EXPECT_TRUE(tree_.Has(tree_.FieldId(L"Clientes", rows - 1)));
    EXPECT_FALSE(tree_.Has(tree_.FieldId(L"Clientes", rows)));
    state_.Bind(nullptr);
    EXPECT_TRUE(tree_.ChildrenOf(kAccessibleSelf).empty());
    EXPECT_FALSE(tree_.Has(tree_.TableId(L"Clientes")));
    EXPECT_EQ(tree_.Focused(), kAccessibleSelf);
    EXPECT_EQ(tree_.ElementAt(10, 10), kAccessibleSelf);
}

TEST_F(DiagramAccessibleTest, WhatIsInViewIsFoundAtItsPlace) {
    std::set<AccessibleId> seen;
    for (const AccessibleId table : tree_.ChildrenOf(kAccessibleSelf))
        for (const AccessibleId id : tree_.ChildrenOf(table)) {
            const AccessibleElement element = tree_.Describe(id);
            EXPECT_FALSE(element.states & states::kOffscreen);
            EXPECT_EQ(tree_.ElementAt((element.place.left + element.place.right) / 2,
                                      (element.place.top + element.place.bottom) / 2),
                      id);
            EXPECT_TRUE(seen.insert(id).second);
        }
    diagram_.SetTableRect(L"Productos", {2000, 2000, 160, 120});
    EXPECT_TRUE(tree_.Describe(tree_.TableId(L"Productos")).states & states::kOffscreen);
    EXPECT_TRUE(tree_.Describe(tree_.FieldId(L"Productos", 1)).states & states::kOffscreen);
}

TEST_F(DiagramAccessibleTest, ARowThatItsBoxHasScrolledAwayIsOffscreen) {
    diagram_.SetTableRect(L"Clientes", {10, 10, 160, 70});
    state_.Update();
    const int last = RowCount(*diagram_.FindTable(L"Clientes")) - 1;
    EXPECT_TRUE(tree_.Describe(tree_.FieldId(L"Clientes", last)).states & states::kOffscreen);
    EXPECT_FALSE(tree_.Describe(tree_.FieldId(L"Clientes", 0)).states & states::kOffscreen);
}

TEST_F(DiagramAccessibleTest, WhatToDoForARelationIsAnAlert) {
    EXPECT_FALSE(tree_.Has(DiagramAccessible::kHintId));
    state_.BeginRelation(L"Clientes");
    ASSERT_TRUE(tree_.Has(DiagramAccessible::kHintId));
    EXPECT_EQ(tree_.ChildrenOf(kAccessibleSelf).back(), DiagramAccessible::kHintId);
    const AccessibleElement hint = tree_.Describe(DiagramAccessible::kHintId);
    EXPECT_EQ(hint.role, AccessibleRole::Alert);
    EXPECT_EQ(hint.name, state_.RelatingHint());
    EXPECT_EQ(tree_.ElementAt(450, 585), DiagramAccessible::kHintId);
    state_.CancelRelation();
    EXPECT_FALSE(tree_.Has(DiagramAccessible::kHintId));
}

TEST_F(DiagramAccessibleTest, NeighboursAreRowsOfATableAndTablesBesideIt) {
    using enum AccessibleDirection;
    diagram_.SetTableRect(L"Clientes", {10, 10, 160, 200});
    diagram_.SetTableRect(L"Pedidos", {300, 10, 160, 200});
    diagram_.SetTableRect(L"Productos", {10, 300, 160, 200});
    EXPECT_EQ(tree_.Beside(tree_.TableId(L"Clientes"), Right), tree_.TableId(L"Pedidos"));
    EXPECT_EQ(tree_.Beside(tree_.TableId(L"Clientes"), Down), tree_.TableId(L"Productos"));
    EXPECT_EQ(tree_.Beside(tree_.FieldId(L"Clientes", 0), Right), tree_.TableId(L"Pedidos"));
    EXPECT_EQ(tree_.Beside(tree_.FieldId(L"Clientes", 0), Down), tree_.FieldId(L"Clientes", 1));
    EXPECT_EQ(tree_.Beside(tree_.FieldId(L"Clientes", 0), Up), tree_.FieldId(L"Clientes", 0));
    EXPECT_EQ(tree_.Beside(tree_.TableId(L"Clientes"), Left), tree_.TableId(L"Clientes"));
    EXPECT_EQ(tree_.Beside(kAccessibleSelf, Down), kAccessibleSelf);
}

}  // namespace
}  // namespace tessel::controls::diagram
