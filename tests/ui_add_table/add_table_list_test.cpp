#include "ui/add_table_list.h"

#include <gtest/gtest.h>

namespace tessel::ui {
namespace {

using Texts = std::vector<std::wstring>;

class Source final : public schema::SchemaSource {
public:
    Result<std::vector<schema::Object>> LoadObjects() override {
        return std::vector<schema::Object>{
            {L"Clientes", L"Clientes", schema::ObjectKind::Table},
            {L"Empleados", L"Empleados", schema::ObjectKind::Table},
            {L"[Líneas de envío]", L"Líneas de envío", schema::ObjectKind::Table},
            {L"[Ventas por país]", L"Ventas por país", schema::ObjectKind::View}};
    }
    Result<std::vector<schema::Field>> LoadFields(const schema::Object&) override {
        return std::vector<schema::Field>();
    }
    Result<std::vector<schema::ForeignKey>> LoadForeignKeys() override {
        return std::vector<schema::ForeignKey>{
            {L"", L"Clientes", {L"IdAgente"}, L"Empleados", {L"IdEmpleado"}},
            {L"", L"Empleados", {L"IdJefe"}, L"Empleados", {L"IdEmpleado"}},
            {L"", L"[Líneas de envío]", {L"a", L"b"}, L"Clientes", {L"c", L"d"}}};
    }
};

class AddTableList : public ::testing::Test {
protected:
    schema::Schema schema_{std::make_unique<Source>()};
};

TEST_F(AddTableList, FirstEntryIsEverythingAndViewsAreNoEntries) {
    EXPECT_EQ(AddTableEntries(schema_), (Texts{L"< Mostrar todas las tablas y vistas>", L"Clientes",
                                               L"Empleados", L"[Líneas de envío]"}));
}

TEST_F(AddTableList, EntryIsFoundByItsNameElseTheFirstOne) {
    const Texts entries = AddTableEntries(schema_);
    EXPECT_EQ(EntryOf(entries, L"empleados"), 2u);
    EXPECT_EQ(EntryOf(entries, L"Líneas de envío"), 3u);
    EXPECT_EQ(EntryOf(entries, L""), 0u);
    EXPECT_EQ(EntryOf(entries, L"Nadie"), 0u);
}

TEST_F(AddTableList, EverythingListsTablesAndViewsWithATab) {
    EXPECT_EQ(AddTableLines(schema_, kAllTablesEntry),
              (Texts{L"Clientes\t", L"Empleados\t", L"[Líneas de envío]\t", L"[Ventas por país]\t"}));
}

TEST_F(AddTableList, ATableListsItsRelationsReferencedSideFirst) {
    EXPECT_EQ(AddTableLines(schema_, L"Clientes"),
              (Texts{L"Empleados\t(Empleados.IdEmpleado<--Clientes.IdAgente)",
                     L"[Líneas de envío]\t(Clientes.c, d<--[Líneas de envío].a, b)"}));
}

TEST_F(AddTableList, ASelfReferenceNamesTheTableItself) {
    EXPECT_EQ(AddTableLines(schema_, L"Empleados"),
              (Texts{L"Clientes\t(Empleados.IdEmpleado<--Clientes.IdAgente)",
                     L"Empleados\t(Empleados.IdEmpleado<--Empleados.IdJefe)"}));
}

TEST_F(AddTableList, ATableWithoutRelationsHasAnEmptyList) {
    EXPECT_TRUE(AddTableLines(schema_, L"[Ventas por país]").empty());
}

TEST_F(AddTableList, FilterNarrowsByTheTablesName) {
    const Texts lines = AddTableLines(schema_, kAllTablesEntry);
    EXPECT_EQ(LinesHolding(lines, L" ENV "), (Texts{L"[Líneas de envío]\t"}));
    EXPECT_EQ(LinesHolding(lines, L"  "), lines);
    EXPECT_TRUE(LinesHolding(lines, L"zzz").empty());
}

TEST_F(AddTableList, TableOfALineIsItsFirstField) {
    EXPECT_EQ(TableOfLine(L"Empleados\t(Empleados.IdEmpleado<--Clientes.IdAgente)"), L"Empleados");
    EXPECT_EQ(TableOfLine(L"Solo"), L"Solo");
}

}  // namespace
}  // namespace tessel::ui
