#include "controls/browser/schema_properties.h"

#include <gtest/gtest.h>

#include "tests/browser/sample_schema.h"

namespace tessel::controls {
namespace {

using Kind = BrowserItem::Kind;
using Properties = std::vector<SchemaProperty>;

class SchemaPropertiesTest : public testing::Test {
protected:
    SchemaPropertiesTest() : schema_(MakeRelatedSchema(&field_loads_)) { model_.Load(&schema_, L"ventas"); }

    int field_loads_ = 0;
    schema::Schema schema_;
    BrowserModel model_;
};

TEST_F(SchemaPropertiesTest, ATableShowsItsKindFieldsKeyAndRelations) {
    EXPECT_EQ(PropertiesOf(schema_, model_.ItemOfObject(0)),
              (Properties{{L"Nombre", L"Clientes"},
                          {L"Tipo", L"Tabla"},
                          {L"Campos", L"2"},
                          {L"Clave principal", L"IdCliente"},
                          {L"Relaciones", L"1"},
                          {L"Relación", L"IdCliente « Ventas del año.IdCliente"}}));
}

TEST_F(SchemaPropertiesTest, SelectingATableReadsItsFieldsAndNoOthers) {
    (void)PropertiesOf(schema_, model_.ItemOfObject(0));
    (void)PropertiesOf(schema_, model_.ItemOfObject(0));
    EXPECT_EQ(field_loads_, 1);
}

TEST_F(SchemaPropertiesTest, TheRootAndGroupsReadNothing) {
    EXPECT_EQ(PropertiesOf(schema_, {Kind::Root, L"ventas", L""}),
              (Properties{{L"Nombre", L"ventas"}, {L"Tablas", L"3"}, {L"Vistas", L"1"}}));
    EXPECT_EQ(PropertiesOf(schema_, {Kind::Group, L"Tablas (3)", L""}),
              (Properties{{L"Nombre", L"Tablas (3)"}}));
    EXPECT_EQ(field_loads_, 0);
}

TEST_F(SchemaPropertiesTest, AViewHasNoRelations) {
    EXPECT_EQ(PropertiesOf(schema_, model_.ItemOfObject(3)),
              (Properties{{L"Nombre", L"Resumen"},
                          {L"Tipo", L"Vista"},
                          {L"Campos", L"2"},
                          {L"Clave principal", L"IdCliente"}}));
}

TEST_F(SchemaPropertiesTest, AFieldShowsTypeSizeNullableKeyAndReferencedTable) {
    EXPECT_EQ(PropertiesOf(schema_, {Kind::Field, L"Nombre", L"Clientes"}),
              (Properties{{L"Nombre", L"Nombre"},
                          {L"Tabla", L"Clientes"},
                          {L"Tipo", L"Texto (40) – adVarWChar"},
                          {L"Tamaño", L"40"},
                          {L"Admite nulos", L"Sí"},
                          {L"Clave principal", L"No"},
                          {L"Clave externa", L"No"}}));
    EXPECT_EQ(PropertiesOf(schema_, {Kind::Field, L"IdCliente", L"[Ventas del año]"}),
              (Properties{{L"Nombre", L"IdCliente"},
                          {L"Tabla", L"Ventas del año"},
                          {L"Tipo", L"Entero largo – adInteger"},
                          {L"Admite nulos", L"Sí"},
                          {L"Clave principal", L"Sí"},
                          {L"Clave externa", L"Sí"},
                          {L"Tabla referenciada", L"Clientes"},
                          {L"Campo referenciado", L"IdCliente"}}));
}

TEST_F(SchemaPropertiesTest, ARelationShowsBothEnds) {
    EXPECT_EQ(PropertiesOf(schema_, model_.ItemOfRelation(1, 0)),
              (Properties{{L"Nombre", L"fk_cliente"},
                          {L"Tipo", L"Relación"},
                          {L"Tabla", L"Ventas del año"},
                          {L"Campo", L"IdCliente"},
                          {L"Tabla referenciada", L"Clientes"},
                          {L"Campo referenciado", L"IdCliente"}}));
    EXPECT_EQ(PropertiesOf(schema_, model_.ItemOfRelation(2, 0)),
              (Properties{{L"Tipo", L"Relación"},
                          {L"Tabla", L"Ventas del año"},
                          {L"Campos", L"Código, Zona"},
                          {L"Tabla referenciada", L"Almacén"},
                          {L"Campos referenciados", L"Código, Zona de envío"}}));
}

TEST_F(SchemaPropertiesTest, WhatTheSchemaDoesNotHaveHasNoProperties) {
    EXPECT_TRUE(PropertiesOf(schema_, {Kind::Table, L"Otra", L""}).empty());
    EXPECT_TRUE(PropertiesOf(schema_, {Kind::Field, L"Otro", L"Clientes"}).empty());
    EXPECT_TRUE(PropertiesOf(schema_, {Kind::Relation, L"Clientes", L"Resumen", 0}).empty());
}

TEST_F(SchemaPropertiesTest, RelationsAreListedAtBothTables) {
    EXPECT_EQ(model_.RelationsOf(1), (std::vector<std::wstring>{L"IdCliente » Clientes.IdCliente",
                                                                L"Código, Zona » Almacén.Código, "
                                                                L"Almacén.Zona de envío"}));
    EXPECT_EQ(model_.RelationsCaption(1), L"Relaciones (2)");
    EXPECT_EQ(model_.ItemOfRelation(0, 0),
              (BrowserItem{Kind::Relation, L"[Ventas del año]", L"Clientes", 0}));
    EXPECT_EQ(model_.ItemOfRelation(1, 1), (BrowserItem{Kind::Relation, L"Almacén", L"[Ventas del año]", 1}));
    EXPECT_EQ(model_.ItemOfRelation(0, 9), model_.ItemOfObject(0));
}

TEST(FieldSorts, EachSortOfValuesHasItsIcon) {
    const struct {
        int ado_type;
        FieldSort sort;
    } cases[] = {{202, FieldSort::Text},   {3, FieldSort::Number},   {6, FieldSort::Number},
                 {7, FieldSort::Date},     {135, FieldSort::Date},   {11, FieldSort::Boolean},
                 {205, FieldSort::Binary}, {72, FieldSort::Other},   {0, FieldSort::Other},
                 {203, FieldSort::Text},   {131, FieldSort::Number}, {12, FieldSort::Other}};
    for (const auto& c : cases) {
        schema::Field field;
        field.ado_type = c.ado_type;
        EXPECT_EQ(SortOf(field), c.sort) << c.ado_type;
    }
}

}  // namespace
}  // namespace tessel::controls
