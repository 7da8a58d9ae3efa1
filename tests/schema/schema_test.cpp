#include "schema/schema.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>

namespace tessel::schema {
namespace {

struct Calls {
    int objects = 0;
    int foreign_keys = 0;
    std::map<std::wstring, int> fields;
};

/// Three tables and a view; counts how often it is asked.
class CountingSource : public SchemaSource {
public:
    explicit CountingSource(Calls& calls) : calls_(calls) {}

    bool objects_fail = false;
    bool keys_fail = false;
    std::wstring failing_object;

    Result<std::vector<Object>> LoadObjects() override {
        ++calls_.objects;
        if (objects_fail) return Error{L"sin objetos"};
        return std::vector<Object>{{L"Clientes", L"Clientes", ObjectKind::Table},
                                   {L"", L"Detalle de pedidos", ObjectKind::Table},
                                   {L"Pedidos", L"", ObjectKind::Table},
                                   {L"Ventas", L"Ventas", ObjectKind::View}};
    }

    Result<std::vector<Field>> LoadFields(const Object& object) override {
        ++calls_.fields[object.raw_name];
        if (object.raw_name == failing_object) return Error{L"sin campos"};
        std::vector<Field> fields(2);
        fields[0].raw_name = L"IdCliente";
        fields[1].raw_name = L"Precio unidad";
        return fields;
    }

    Result<std::vector<ForeignKey>> LoadForeignKeys() override {
        ++calls_.foreign_keys;
        if (keys_fail) return Error{L"sin claves"};
        return std::vector<ForeignKey>{
            {L"fk", L"pedidos", {L"idcliente"}, L"Clientes", {L"IdCliente"}},
            {L"fk2", L"[Detalle de Pedidos]", {L"IdCliente", L"[Precio unidad]"}, L"Pedidos", {L"a", L"b"}}};
    }

private:
    Calls& calls_;
};

class SchemaTest : public testing::Test {
protected:
    Schema Make() { return Schema(std::move(source)); }

    Calls calls;
    std::unique_ptr<CountingSource> source = std::make_unique<CountingSource>(calls);
};

TEST(EmptySchema, KnowsNothingAndHasNotFailed) {
    const Schema schema;
    EXPECT_FALSE(schema.Failed());
    EXPECT_TRUE(schema.Objects().empty());
    EXPECT_EQ(schema.Find(L"Clientes"), nullptr);
    EXPECT_TRUE(schema.Fields(L"Clientes").empty());
    EXPECT_TRUE(schema.ForeignKeys().empty());
}

TEST_F(SchemaTest, ReadsObjectsAtOnceAndFieldsOnFirstUse) {
    const Schema schema = Make();
    EXPECT_EQ(calls.objects, 1);
    EXPECT_TRUE(calls.fields.empty());
    EXPECT_EQ(calls.foreign_keys, 0);
    EXPECT_EQ(schema.Fields(L"Clientes").size(), 2u);
    EXPECT_EQ(schema.Fields(L" [CLIENTES] ").size(), 2u);
    EXPECT_EQ(calls.fields, (std::map<std::wstring, int>{{L"Clientes", 1}}));
    EXPECT_EQ(calls.foreign_keys, 1);
}

TEST_F(SchemaTest, CompletesTheFormOfANameThatTheSourceLeftOut) {
    const Schema schema = Make();
    EXPECT_EQ(schema.Objects()[1].name, L"[Detalle de pedidos]");
    EXPECT_EQ(schema.Objects()[2].RawName(), L"Pedidos");
    EXPECT_EQ(schema.Fields(L"Clientes")[1].name, L"[Precio unidad]");
}

TEST_F(SchemaTest, FindsByNameWithoutRegardToCaseBlanksAndBrackets) {
    const Schema schema = Make();
    for (const wchar_t* name : {L"Detalle de pedidos", L"[DETALLE DE PEDIDOS]", L"  detalle de pedidos "}) {
        ASSERT_NE(schema.Find(name), nullptr) << name;
        EXPECT_EQ(schema.Find(name)->RawName(), L"Detalle de pedidos");
    }
    EXPECT_EQ(schema.Find(L"Detalle"), nullptr);
    ASSERT_NE(schema.FindField(L"clientes", L"PRECIO UNIDAD"), nullptr);
    EXPECT_EQ(schema.FindField(L"clientes", L"Precio"), nullptr);
    EXPECT_EQ(schema.FindField(L"nada", L"Precio"), nullptr);
}

TEST_F(SchemaTest, MarksForeignKeyFieldsWithTheTableTheyReferTo) {
    const Schema schema = Make();
    const Field* field = schema.FindField(L"Pedidos", L"IdCliente");
    ASSERT_NE(field, nullptr);
    EXPECT_TRUE(field->foreign_key);
    EXPECT_EQ(field->referenced_table, L"Clientes");
    EXPECT_FALSE(schema.FindField(L"Pedidos", L"Precio unidad")->foreign_key);
    EXPECT_TRUE(schema.FindField(L"Detalle de pedidos", L"Precio unidad")->foreign_key);
    EXPECT_FALSE(schema.FindField(L"Clientes", L"IdCliente")->foreign_key);
}

TEST_F(SchemaTest, ForeignKeysOfATableAreThoseAtEitherEnd) {
    const Schema schema = Make();
    EXPECT_EQ(schema.ForeignKeysOf(L"PEDIDOS").size(), 2u);
    EXPECT_EQ(schema.ForeignKeysOf(L"Clientes").size(), 1u);
    EXPECT_TRUE(schema.ForeignKeysOf(L"Ventas").empty());
}

TEST_F(SchemaTest, UnreadableObjectsFailTheSchemaButNothingElseDoes) {
    source->objects_fail = true;
    const Schema failed = Make();
    EXPECT_TRUE(failed.Failed());
    EXPECT_TRUE(failed.Fields(L"Clientes").empty());
    EXPECT_TRUE(failed.ForeignKeys().empty());
    EXPECT_EQ(calls.foreign_keys, 0);
}

TEST_F(SchemaTest, UnreadableFieldsOfOneTableSpareTheOthersAndAreNotAskedAgain) {
    source->failing_object = L"Pedidos";
    const Schema schema = Make();
    EXPECT_TRUE(schema.Fields(L"Pedidos").empty());
    EXPECT_TRUE(schema.Fields(L"Pedidos").empty());
    EXPECT_EQ(calls.fields[L"Pedidos"], 1);
    EXPECT_EQ(schema.Fields(L"Clientes").size(), 2u);
    EXPECT_FALSE(schema.Failed());
}

TEST_F(SchemaTest, UnreadableForeignKeysLeaveTheFields) {
    source->keys_fail = true;
    const Schema schema = Make();
    EXPECT_EQ(schema.Fields(L"Pedidos").size(), 2u);
    EXPECT_TRUE(schema.ForeignKeys().empty());
    EXPECT_EQ(calls.foreign_keys, 1);
}

TEST_F(SchemaTest, FieldsStayWhereTheyAreWhenOthersAreRead) {
    const Schema schema = Make();
    const std::vector<Field>* first = &schema.Fields(L"Clientes");
    for (const Object& object : schema.Objects()) (void)schema.Fields(object.name);
    EXPECT_EQ(first, &schema.Fields(L"Clientes"));
}

}  // namespace
}  // namespace tessel::schema
