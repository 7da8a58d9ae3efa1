// The schema of the sample database through real automation objects: by the provider's rowsets, and by the
// database's own catalogue where the provider has none. Both ways tell the same.
#include <gtest/gtest.h>

#include <algorithm>

#include "common/mdl_global.h"
#include "schema/win32/ado_schema_source.h"
#include "tests/support/win32/fake_dispatch.h"
#include "tests/win_ado/ado_fixture.h"

namespace tessel::schema {
namespace {

using tests::FakeCall;
using tests::FakePtr;

/// A connection that forwards statements to the real one and knows no rowset.
FakePtr WithoutRowsets(const win32::Dispatch& connection, bool knows_catalogue = true) {
    const FakePtr wrapper = tests::MakeFake();
    wrapper->On(L"State", [=](const FakeCall&) {
        return tests::Value(win32::UniqueVariant::CopyOf(connection.Get(L"State").Value().Get()));
    });
    wrapper->On(L"Execute", [=](const FakeCall& call) {
        const std::wstring sql = call.Text(0);
        const bool is_catalogue =
            sql.find(L"pragma") != sql.npos || sql.find(L"information_schema") != sql.npos;
        if (is_catalogue && !knows_catalogue) return tests::Raise(E_FAIL, L"Sin permiso");
        const win32::CallResult rows = connection.Call(L"Execute", sql);
        if (!rows) return tests::Raise(rows.Code(), rows.Message());
        return tests::Value(win32::UniqueVariant(rows.Object().Get()));
    });
    return wrapper;
}

std::wstring Describe(const Schema& schema) {
    std::wstring text;
    for (const Object& object : schema.Objects()) {
        text += object.name + (object.kind == ObjectKind::View ? L" (vista)\n" : L"\n");
        for (const Field& field : schema.Fields(object.name)) {
            text += L"  " + field.name;
            if (field.primary_key) text += L" PK";
            if (field.foreign_key) text += L" FK " + field.referenced_table;
            text += L"\n";
        }
    }
    return text;
}

std::wstring DescribeKeys(const Schema& schema) {
    std::vector<std::wstring> lines;
    for (const ForeignKey& key : schema.ForeignKeys()) {
        std::wstring line = key.table + L" -> " + key.referenced_table + L":";
        for (std::size_t i = 0; i < key.fields.size(); ++i)
            line += L" " + key.fields[i] + L"=" + key.referenced_fields[i];
        lines.push_back(line);
    }
    std::sort(lines.begin(), lines.end());
    std::wstring text;
    for (const std::wstring& line : lines) text += line + L"\n";
    return text;
}

const char kObjects[] =
    "Categor\u00edas\nClientes\n[Detalle de pedidos]\nDevoluciones\nEmpleados\n[Empleados y territorios]\n"
    "[L\u00edneas de "
    "env\u00edo]\nPaises\nPedidos\nProductos\nProveedores\nRegiones\nTerritorios\nTransportistas\n";

std::string TableNames(const Schema& schema) {
    std::wstring text;
    for (const Object& object : schema.Objects())
        if (object.kind == ObjectKind::Table) text += object.name + L"\n";
    return ToUtf8(text);
}

TEST(VentasSchema, ObjectsFieldsAndKeysByTheProvidersRowsets) {
    const win32::Dispatch connection = tests::OpenVentas();
    const Schema schema(std::make_unique<AdoSchemaSource>(connection.Get()));
    ASSERT_FALSE(schema.Failed());
    EXPECT_EQ(TableNames(schema), kObjects);
    EXPECT_EQ(schema.Objects().back().kind, ObjectKind::View);

    const std::vector<Field>& detail = schema.Fields(L"Detalle de pedidos");
    ASSERT_EQ(detail.size(), 5u);
    EXPECT_EQ(detail[0].name, L"IdPedido");
    EXPECT_TRUE(detail[0].primary_key && detail[1].primary_key) << "a composite key";
    EXPECT_FALSE(detail[2].primary_key);
    EXPECT_EQ(detail[0].referenced_table, L"Pedidos");

    const Field* chief = schema.FindField(L"Empleados", L"IdJefe");
    ASSERT_NE(chief, nullptr);
    EXPECT_TRUE(chief->foreign_key);
    EXPECT_EQ(chief->referenced_table, L"Empleados");
    EXPECT_TRUE(chief->nullable);
    const Field* name = schema.FindField(L"Clientes", L"Nombre");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(ADOTypeClass(ADOTypeName(name->ado_type)), ValueClass::Text);
    EXPECT_EQ(name->size, 60);
    EXPECT_FALSE(name->nullable);
    EXPECT_NE(schema.FindField(L"Devoluciones", L"\u00bfAbonada?"), nullptr);

    const std::wstring keys = DescribeKeys(schema);
    EXPECT_NE(keys.find(L"Devoluciones -> [Detalle de pedidos]: IdPedido=IdPedido IdProducto=IdProducto\n"),
              std::wstring::npos);
    EXPECT_NE(keys.find(L"Pedidos -> Clientes: IdCliente=IdCliente\n"), std::wstring::npos);
}

TEST(VentasSchema, TheCatalogueBySqlTellsTheSame) {
    const win32::Dispatch connection = tests::OpenVentas();
    const Schema by_rowsets(std::make_unique<AdoSchemaSource>(connection.Get()));
    const FakePtr wrapper = WithoutRowsets(connection);
    const Schema by_sql(std::make_unique<AdoSchemaSource>(wrapper.Get()));
    ASSERT_FALSE(by_sql.Failed());
    EXPECT_EQ(ToUtf8(Describe(by_sql)), ToUtf8(Describe(by_rowsets)));
    EXPECT_EQ(ToUtf8(DescribeKeys(by_sql)), ToUtf8(DescribeKeys(by_rowsets)));
    const Field* name = by_sql.FindField(L"Clientes", L"Nombre");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->ado_type, 202);
    EXPECT_EQ(name->size, 60);
    EXPECT_FALSE(name->nullable);
}

TEST(VentasSchema, AnEmptySelectTellsTheFieldsWhereTheCatalogueIsClosed) {
    const win32::Dispatch connection = tests::OpenVentas();
    const FakePtr wrapper = WithoutRowsets(connection, false);
    const Schema schema(std::make_unique<AdoSchemaSource>(wrapper.Get()));
    ASSERT_FALSE(schema.Failed());
    const std::vector<Field>& fields = schema.Fields(L"[Detalle de pedidos]");
    ASSERT_EQ(fields.size(), 5u);
    EXPECT_EQ(fields[3].name, L"Cantidad");
    EXPECT_NE(fields[3].ado_type, 0);
}

TEST(VentasSchema, AConnectionClosedAfterwardsKeepsWhatWasRead) {
    const win32::Dispatch connection = tests::OpenVentas();
    const Schema schema(std::make_unique<AdoSchemaSource>(connection.Get()));
    EXPECT_EQ(schema.Fields(L"Clientes").size(), 9u);
    EXPECT_TRUE(connection.Call(L"Close"));
    EXPECT_EQ(schema.Fields(L"Clientes").size(), 9u);
    EXPECT_TRUE(schema.Fields(L"Pedidos").empty());
    EXPECT_EQ(TableNames(schema), kObjects);
    AdoSchemaSource closed(connection.Get());
    EXPECT_FALSE(closed.LoadObjects());
}

}  // namespace
}  // namespace tessel::schema
