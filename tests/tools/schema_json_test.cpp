#include "tools/schema_json.h"

#include <gtest/gtest.h>

#include "common/text.h"

namespace tessel::tools {
namespace {

std::shared_ptr<schema::Schema> Read(const std::string& json) {
    const auto schema = ReadSchema(Json::parse(json));
    EXPECT_TRUE(schema) << (schema ? "" : ToUtf8(schema.Reason().message));
    return schema ? *schema : nullptr;
}

TEST(SchemaJson, ReadsTheFullShape) {
    const auto schema = Read(R"({"tables":[
        {"name":"Clientes","kind":1,"fields":["IdCliente",{"name":"Nombre completo","type":"adVarWChar","size":40}]},
        {"name":"[Ventas por año]","kind":2,"columns":[{"name":"Año","type":3,"key":true}]}],
        "relations":[{"LeftTable":"Clientes","LeftField":"IdCliente","RightTable":"Ventas por año",
                      "RightField":"Año"}]})");
    ASSERT_EQ(schema->Objects().size(), 2u);
    EXPECT_EQ(schema->Objects()[0].kind, schema::ObjectKind::Table);
    EXPECT_EQ(schema->Objects()[1].kind, schema::ObjectKind::View);
    EXPECT_EQ(schema->Objects()[1].name, L"[Ventas por año]");
    EXPECT_EQ(schema->Objects()[1].raw_name, L"Ventas por año");
    const schema::Field* name = schema->FindField(L"clientes", L"nombre completo");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->name, L"[Nombre completo]");
    EXPECT_EQ(name->ado_type, 202);
    EXPECT_EQ(name->size, 40);
    const schema::Field* year = schema->FindField(L"Ventas por año", L"Año");
    ASSERT_NE(year, nullptr);
    EXPECT_EQ(year->ado_type, 3);
    EXPECT_TRUE(year->primary_key);
    EXPECT_TRUE(year->foreign_key);
    EXPECT_EQ(year->referenced_table, L"Clientes");
    ASSERT_EQ(schema->ForeignKeys().size(), 1u);
    EXPECT_EQ(schema->ForeignKeys()[0].table, L"[Ventas por año]");
}

TEST(SchemaJson, ReadsTheShortShapes) {
    for (const char* json :
         {R"({"tables":{"Clientes":["IdCliente","Nombre"]}})", R"({"Clientes":["IdCliente","Nombre"]})",
          R"({"tables":{"Clientes":{"fields":["IdCliente","Nombre"]}}})",
          R"({"tables":[{"name":"Clientes","fields":["IdCliente","Nombre"]}]})"}) {
        const auto schema = Read(json);
        ASSERT_NE(schema, nullptr) << json;
        ASSERT_EQ(schema->Objects().size(), 1u) << json;
        ASSERT_EQ(schema->Fields(L"Clientes").size(), 2u) << json;
        EXPECT_EQ(schema->Fields(L"Clientes")[1].name, L"Nombre") << json;
    }
}

TEST(SchemaJson, ATableMayBeANameAlone) {
    const auto schema = Read(R"({"tables":["Clientes",{"name":"Pedidos"}]})");
    EXPECT_EQ(schema->Objects().size(), 2u);
    EXPECT_TRUE(schema->Fields(L"Clientes").empty());
}

TEST(SchemaJson, RefusesWhatIsNoSchema) {
    const std::pair<const char*, const wchar_t*> cases[] = {
        {"[]", L"el esquema no es un objeto JSON"},
        {R"({"Clientes":"x"})", L"los campos de Clientes no son una lista"},
        {R"({"tables":[{"fields":[]}]})", L"una tabla del esquema no tiene nombre"},
        {R"({"tables":[1]})", L"una tabla del esquema no es un objeto"},
        {R"({"Clientes":[1]})", L"un campo de Clientes no tiene nombre"},
        {R"({"tables":[],"relations":[1]})", L"una relación del esquema no es un objeto"},
    };
    for (const auto& [json, message] : cases) {
        const auto schema = ReadSchema(Json::parse(json));
        ASSERT_FALSE(schema) << json;
        EXPECT_EQ(schema.Reason().message, message) << json;
    }
}

}  // namespace
}  // namespace tessel::tools
