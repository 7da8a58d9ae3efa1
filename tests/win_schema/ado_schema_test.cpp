// The schema of a connection, read from fakes that fail in every way that providers do.
#include "schema/win32/ado_schema_source.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/win32/fake_ado.h"

namespace tessel::schema {
namespace {

using tests::Cell;
using tests::FakeConnection;
using tests::FakeDatabase;
using tests::FakeTable;
using tests::MakeConnection;

const Cell kNull;

FakeTable Tables() {
    return {{L"TABLE_CATALOG", L"TABLE_SCHEMA", L"TABLE_NAME", L"TABLE_TYPE"},
            {{kNull, kNull, L"Pedidos", L"TABLE"},
             {kNull, kNull, L"MSysObjects", L"SYSTEM TABLE"},
             {kNull, kNull, L"Detalle de pedidos", L"TABLE"},
             {kNull, kNull, L"VentasPorMes", L"VIEW"},
             {kNull, kNull, L"Clientes", L"TABLE"},
             {kNull, kNull, L"Tarifas", L"LINK"},
             {kNull, kNull, L"Existencias", L"PASS-THROUGH"},
             {kNull, kNull, L"Alias", L"SYNONYM"},
             {kNull, kNull, L"Indice", L"INDEX"},
             {kNull, kNull, L"MSysACEs", L"TABLE"}}};
}

FakeTable Columns() {
    return {{L"TABLE_NAME", L"COLUMN_NAME", L"ORDINAL_POSITION", L"IS_NULLABLE", L"DATA_TYPE",
             L"CHARACTER_MAXIMUM_LENGTH", L"NUMERIC_PRECISION", L"NUMERIC_SCALE"},
            {{L"Clientes", L"Nombre", L"2", L"True", L"202", L"40", kNull, kNull},
             {L"Clientes", L"IdCliente", L"1", L"False", L"3", kNull, L"10", kNull},
             {L"Clientes", L"C\u00f3digo postal", L"3", L"True", L"202", L"10", kNull, kNull},
             {L"Pedidos", L"IdPedido", L"1", L"False", L"3", kNull, L"10", kNull},
             {L"Pedidos", L"Importe", L"2", L"True", L"131", kNull, L"12", L"2"}}};
}

FakeTable PrimaryKeys() {
    return {{L"TABLE_NAME", L"COLUMN_NAME", L"ORDINAL"},
            {{L"Clientes", L"IdCliente", L"1"}, {L"Pedidos", L"IdPedido", L"1"}}};
}

FakeTable ForeignKeys() {
    return {
        {L"PK_TABLE_NAME", L"PK_COLUMN_NAME", L"FK_TABLE_NAME", L"FK_COLUMN_NAME", L"ORDINAL", L"FK_NAME"},
        {{L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente", L"1", L"fk_pedidos"},
         {L"Detalle de pedidos", L"IdPedido", L"Tarifas", L"IdPedido", L"1", L"fk_tarifas"},
         {L"Detalle de pedidos", L"L\u00ednea", L"Tarifas", L"L\u00ednea", L"2", L"fk_tarifas"}}};
}

FakeDatabase FullDatabase() {
    FakeDatabase database;
    database.rowsets = {{20, Tables()}, {4, Columns()}, {28, PrimaryKeys()}, {27, ForeignKeys()}};
    return database;
}

std::wstring NamesOf(const std::vector<Object>& objects) {
    std::wstring names;
    for (const Object& object : objects) {
        if (!names.empty()) names += L", ";
        names += object.name + (object.kind == ObjectKind::View ? L" (vista)" : L"");
    }
    return names;
}

std::wstring NamesOf(const std::vector<Field>& fields) {
    std::wstring names;
    for (const Field& field : fields) {
        if (!names.empty()) names += L", ";
        names += field.name + (field.primary_key ? L"*" : L"");
    }
    return names;
}

const Object kClientes{L"Clientes", L"Clientes", ObjectKind::Table};
constexpr wchar_t kClientesFields[] = L"IdCliente*, Nombre, [C\u00f3digo postal]";

TEST(AdoSchemaObjects, TablesThenViewsWithoutTheSystemsOwn) {
    const FakeConnection connection = MakeConnection(FullDatabase());
    AdoSchemaSource source(connection.object.Get());
    const auto objects = source.LoadObjects();
    ASSERT_TRUE(objects) << objects.Reason().message.size();
    EXPECT_EQ(NamesOf(*objects),
              L"Alias, Clientes, [Detalle de pedidos], Existencias, Pedidos, Tarifas, VentasPorMes (vista)");
    EXPECT_EQ(objects->at(2).raw_name, L"Detalle de pedidos");
}

TEST(AdoSchemaObjects, NothingClosedAndWrongObjectsFail) {
    AdoSchemaSource nothing(nullptr);
    EXPECT_FALSE(nothing.LoadObjects());

    FakeDatabase closed = FullDatabase();
    closed.state = 0;
    const FakeConnection connection = MakeConnection(closed);
    AdoSchemaSource from_closed(connection.object.Get());
    EXPECT_FALSE(from_closed.LoadObjects());
    EXPECT_TRUE(connection.log->empty()) << "a closed connection is not asked";

    const tests::FakePtr other = tests::MakeFake();
    other->Set(L"Name", L"no es una conexi\u00f3n");
    AdoSchemaSource from_other(other.Get());
    EXPECT_FALSE(from_other.LoadObjects());
}

TEST(AdoSchemaObjects, ADeadLineFailsWithTheProvidersText) {
    const FakeConnection connection = MakeConnection(FullDatabase());
    connection.line->calls_left = 0;
    AdoSchemaSource source(connection.object.Get());
    const auto objects = source.LoadObjects();
    ASSERT_FALSE(objects);
    EXPECT_NE(objects.Reason().message.find(L"Se perdi\u00f3 la conexi\u00f3n"), std::wstring::npos);
}

TEST(AdoSchemaObjects, EveryCallMayBeTheLastAndWhatWasReadStays) {
    const FakeConnection whole = MakeConnection(FullDatabase());
    AdoSchemaSource all(whole.object.Get());
    const std::size_t expected = all.LoadObjects()->size();
    const long calls = whole.line->calls_made;
    std::size_t last = 0;
    for (long left = 0; left <= calls; ++left) {
        const FakeConnection connection = MakeConnection(FullDatabase());
        connection.line->calls_left = left;
        AdoSchemaSource source(connection.object.Get());
        const auto objects = source.LoadObjects();
        const std::size_t count = objects ? objects->size() : 0;
        EXPECT_GE(count, last) << "after " << left << " calls";
        last = count;
        const auto fields = source.LoadFields(kClientes);
        const auto keys = source.LoadForeignKeys();
        EXPECT_TRUE(keys) << "foreign keys never fail";
        if (left == 0) {
            EXPECT_FALSE(fields);
        }
    }
    EXPECT_EQ(last, expected);
}

TEST(AdoSchemaObjects, ARowsetWithoutEndStopsAtTheLimit) {
    FakeDatabase database = FullDatabase();
    database.rowsets[20].never_ends = true;
    const FakeConnection connection = MakeConnection(database);
    AdoSchemaSource source(connection.object.Get(), 50);
    const auto objects = source.LoadObjects();
    ASSERT_TRUE(objects);
    EXPECT_EQ(NamesOf(*objects), L"Pedidos");
    EXPECT_LT(connection.line->calls_made, 1000);
}

TEST(AdoSchemaObjects, FallsBackOnTheInformationSchema) {
    FakeDatabase database;
    database.statements[L"information_schema.tables"] = {
        {L"TABLE_CATALOG", L"TABLE_SCHEMA", L"TABLE_NAME", L"TABLE_TYPE"},
        {{L"ventas", L"public", L"clientes", L"BASE TABLE"},
         {L"ventas", L"pg_catalog", L"pg_class", L"BASE TABLE"},
         {L"ventas", L"public", L"resumen", L"VIEW"}}};
    const FakeConnection connection = MakeConnection(database);
    AdoSchemaSource source(connection.object.Get());
    const auto objects = source.LoadObjects();
    ASSERT_TRUE(objects);
    EXPECT_EQ(NamesOf(*objects), L"clientes, resumen (vista)");
}

TEST(AdoSchemaObjects, FallsBackOnTheSqliteCatalogue) {
    FakeDatabase database;
    database.statements[L"sqlite_master"] = {
        {L"TABLE_NAME", L"TABLE_TYPE"},
        {{L"Clientes", L"table"}, {L"sqlite_sequence", L"table"}, {L"Resumen", L"view"}}};
    const FakeConnection connection = MakeConnection(database);
    AdoSchemaSource source(connection.object.Get());
    const auto objects = source.LoadObjects();
    ASSERT_TRUE(objects);
    EXPECT_EQ(NamesOf(*objects), L"Clientes, Resumen (vista)");
}

TEST(AdoSchemaObjects, AnEmptyDatabaseIsNoFailure) {
    FakeDatabase database;
    database.rowsets[20] = {{L"TABLE_NAME", L"TABLE_TYPE"}, {}};
    const FakeConnection connection = MakeConnection(database);
    AdoSchemaSource source(connection.object.Get());
    const auto objects = source.LoadObjects();
    ASSERT_TRUE(objects);
    EXPECT_TRUE(objects->empty());
}

TEST(AdoSchemaObjects, OtherDatabasesOfTheServerStayOut) {
    FakeDatabase database;
    database.default_database = L"ventas";
    database.rowsets[20] = {{L"TABLE_CATALOG", L"TABLE_SCHEMA", L"TABLE_NAME", L"TABLE_TYPE"},
                            {{L"ventas", kNull, L"Clientes", L"TABLE"},
                             {L"personal", kNull, L"Nominas", L"TABLE"},
                             {L"performance_schema", kNull, L"threads", L"TABLE"}}};
    const FakeConnection connection = MakeConnection(database);
    AdoSchemaSource source(connection.object.Get());
    EXPECT_EQ(NamesOf(*source.LoadObjects()), L"Clientes");
}

TEST(AdoSchemaObjects, SeveralSchemasAreToldApart) {
    FakeDatabase database;
    database.rowsets[20] = {{L"TABLE_SCHEMA", L"TABLE_NAME", L"TABLE_TYPE"},
                            {{L"dbo", L"Clientes", L"TABLE"},
                             {L"Archivo viejo", L"Clientes", L"TABLE"},
                             {L"sys", L"objects", L"TABLE"}}};
    database.rowsets[4] = {
        {L"TABLE_SCHEMA", L"TABLE_NAME", L"COLUMN_NAME", L"ORDINAL_POSITION"},
        {{L"dbo", L"Clientes", L"Nuevo", L"1"}, {L"Archivo viejo", L"Clientes", L"Antiguo", L"1"}}};
    for (const bool accepts_criteria : {true, false}) {
        database.accepts_criteria = accepts_criteria;
        const FakeConnection connection = MakeConnection(database);
        AdoSchemaSource source(connection.object.Get());
        const auto objects = source.LoadObjects();
        ASSERT_TRUE(objects);
        EXPECT_EQ(NamesOf(*objects), L"[Archivo viejo].Clientes, Clientes");
        EXPECT_EQ(NamesOf(*source.LoadFields(objects->at(0))), L"Antiguo");
        EXPECT_EQ(NamesOf(*source.LoadFields(objects->at(1))), L"Nuevo");
    }
}

TEST(AdoSchemaFields, InTheirOrderWithTypesSizesAndKeys) {
    const FakeConnection connection = MakeConnection(FullDatabase());
    AdoSchemaSource source(connection.object.Get());
    const auto fields = source.LoadFields(kClientes);
    ASSERT_TRUE(fields);
    EXPECT_EQ(NamesOf(*fields), kClientesFields);
    const Field& id = fields->at(0);
    EXPECT_EQ(id.ado_type, 3);
    EXPECT_FALSE(id.nullable);
    EXPECT_EQ(id.precision, 10);
    const Field& postcode = fields->at(2);
    EXPECT_EQ(postcode.raw_name, L"C\u00f3digo postal");
    EXPECT_EQ(postcode.ado_type, 202);
    EXPECT_EQ(postcode.size, 10);
    EXPECT_TRUE(postcode.nullable);
    const auto orders = source.LoadFields({L"Pedidos", L"Pedidos", ObjectKind::Table});
    EXPECT_EQ(orders->at(1).precision, 12);
    EXPECT_EQ(orders->at(1).scale, 2);
}

TEST(AdoSchemaFields, AProviderWithoutCriteriaIsReadOnce) {
    FakeDatabase database = FullDatabase();
    database.accepts_criteria = false;
    const FakeConnection connection = MakeConnection(database);
    AdoSchemaSource source(connection.object.Get());
    EXPECT_EQ(NamesOf(*source.LoadFields(kClientes)), kClientesFields);
    EXPECT_EQ(NamesOf(*source.LoadFields({L"Pedidos", L"Pedidos", ObjectKind::Table})),
              L"IdPedido*, Importe");
    const auto& log = *connection.log;
    EXPECT_EQ(std::count(log.begin(), log.end(), L"4"), 1);
    EXPECT_EQ(std::count(log.begin(), log.end(), L"28"), 1);
}

TEST(AdoSchemaFields, FromTheInformationSchema) {
    FakeDatabase database;
    database.statements[L"information_schema.columns"] = {
        {L"TABLE_NAME", L"COLUMN_NAME", L"ORDINAL_POSITION", L"IS_NULLABLE", L"TYPE_NAME",
         L"CHARACTER_MAXIMUM_LENGTH"},
        {{L"clientes", L"idcliente", L"1", L"NO", L"integer", kNull},
         {L"clientes", L"nombre", L"2", L"YES", L"character varying", L"40"}}};
    database.statements[L"information_schema.table_constraints"] = {
        {L"TABLE_NAME", L"COLUMN_NAME", L"ORDINAL"}, {{L"clientes", L"idcliente", L"1"}}};
    const FakeConnection connection = MakeConnection(database);
    AdoSchemaSource source(connection.object.Get());
    const auto fields = source.LoadFields({L"clientes", L"clientes", ObjectKind::Table});
    ASSERT_TRUE(fields);
    EXPECT_EQ(NamesOf(*fields), L"idcliente*, nombre");
    EXPECT_EQ(fields->at(0).ado_type, 3);
    EXPECT_FALSE(fields->at(0).nullable);
    EXPECT_EQ(fields->at(1).ado_type, 202);
    EXPECT_EQ(fields->at(1).size, 40);
}

TEST(AdoSchemaFields, FromTheSqliteCatalogueWithQuotesInTheName) {
    FakeDatabase database;
    database.statements[L"pragma_table_info('L''Avi')"] = {
        {L"COLUMN_NAME", L"ORDINAL_POSITION", L"TYPE_NAME", L"IS_NULLABLE", L"ORDINAL"},
        {{L"id", L"1", L"INTEGER", L"NO", L"1"}, {L"texto", L"2", L"varchar(25)", L"YES", L"2"}}};
    const FakeConnection connection = MakeConnection(database);
    AdoSchemaSource source(connection.object.Get());
    const auto fields = source.LoadFields({L"[L'Avi]", L"L'Avi", ObjectKind::View});
    ASSERT_TRUE(fields);
    EXPECT_EQ(NamesOf(*fields), L"id, texto");
    EXPECT_EQ(fields->at(1).ado_type, 202);
    EXPECT_EQ(fields->at(1).size, 25);
}

TEST(AdoSchemaFields, AtLastFromAnEmptySelect) {
    FakeDatabase database;
    database.statements[L"SELECT * FROM [Mis datos] WHERE 1 = 0"] = {{L"Uno", L"Dos"}, {}};
    const FakeConnection connection = MakeConnection(database);
    AdoSchemaSource source(connection.object.Get());
    const auto fields = source.LoadFields({L"[Mis datos]", L"Mis datos", ObjectKind::Table});
    ASSERT_TRUE(fields);
    EXPECT_EQ(NamesOf(*fields), L"Uno, Dos");
    EXPECT_EQ(fields->at(0).ado_type, 202);
    EXPECT_EQ(fields->at(0).size, 30);
}

TEST(AdoSchemaFields, MissingColumnsOfTheRowsetDoNotMatter) {
    FakeDatabase database;
    database.rowsets[4] = {{L"TABLE_NAME", L"COLUMN_NAME"}, {{L"Clientes", L"Uno"}, {L"Clientes", L"Dos"}}};
    const FakeConnection connection = MakeConnection(database);
    AdoSchemaSource source(connection.object.Get());
    const auto fields = source.LoadFields(kClientes);
    ASSERT_TRUE(fields);
    EXPECT_EQ(NamesOf(*fields), L"Uno, Dos");
    EXPECT_EQ(fields->at(0).ado_type, 0);
    EXPECT_TRUE(fields->at(0).nullable);
}

TEST(AdoSchemaFields, WithoutAnyWayThereIsAReason) {
    const FakeConnection connection = MakeConnection(FakeDatabase());
    AdoSchemaSource source(connection.object.Get());
    const auto fields = source.LoadFields(kClientes);
    ASSERT_FALSE(fields);
    EXPECT_EQ(fields.Reason().message, L"No se pudieron leer los campos de Clientes.");
}

TEST(AdoSchemaForeignKeys, RowsOfOneKeyBelongTogether) {
    const FakeConnection connection = MakeConnection(FullDatabase());
    AdoSchemaSource source(connection.object.Get());
    ASSERT_TRUE(source.LoadObjects());
    const auto keys = source.LoadForeignKeys();
    ASSERT_TRUE(keys);
    ASSERT_EQ(keys->size(), 2u);
    EXPECT_EQ(keys->at(0).table, L"Pedidos");
    EXPECT_EQ(keys->at(0).referenced_table, L"Clientes");
    const ForeignKey& composite = keys->at(1);
    EXPECT_EQ(composite.referenced_table, L"[Detalle de pedidos]");
    EXPECT_EQ(composite.fields, (std::vector<std::wstring>{L"IdPedido", L"L\u00ednea"}));
    EXPECT_EQ(composite.referenced_fields, (std::vector<std::wstring>{L"IdPedido", L"L\u00ednea"}));
}

TEST(AdoSchemaForeignKeys, KeysWithoutANameAreToldApartByTheirNumbers) {
    FakeDatabase database = FullDatabase();
    database.rowsets[27] = {
        {L"PK_TABLE_NAME", L"PK_COLUMN_NAME", L"FK_TABLE_NAME", L"FK_COLUMN_NAME", L"ORDINAL"},
        {{L"Clientes", L"IdCliente", L"Pedidos", L"Comprador", L"1"},
         {L"Clientes", L"IdCliente", L"Pedidos", L"Pagador", L"1"}}};
    const FakeConnection connection = MakeConnection(database);
    AdoSchemaSource source(connection.object.Get());
    ASSERT_EQ(source.LoadForeignKeys()->size(), 2u);
}

TEST(AdoSchemaForeignKeys, TableByTableWhereTheProviderWantsCriteria) {
    FakeDatabase database = FullDatabase();
    database.rowsets.erase(27);
    const FakeConnection connection = MakeConnection(database);
    AdoSchemaSource source(connection.object.Get());
    ASSERT_TRUE(source.LoadObjects());
    EXPECT_TRUE(source.LoadForeignKeys()->empty());
    const auto& log = *connection.log;
    EXPECT_EQ(
        std::count_if(log.begin(), log.end(), [](const auto& line) { return line.starts_with(L"27 "); }), 1)
        << "one refusal is enough";
}

TEST(AdoSchemaForeignKeys, AReferenceWithoutColumnsMeansThePrimaryKey) {
    FakeDatabase database = FullDatabase();
    database.rowsets[27] = {
        {L"PK_TABLE_NAME", L"PK_COLUMN_NAME", L"FK_TABLE_NAME", L"FK_COLUMN_NAME", L"ORDINAL"},
        {{L"Clientes", kNull, L"Pedidos", L"IdCliente", L"1"},
         {L"Fantasma", kNull, L"Pedidos", L"IdFantasma", L"1"}}};
    const FakeConnection connection = MakeConnection(database);
    AdoSchemaSource source(connection.object.Get());
    ASSERT_TRUE(source.LoadObjects());
    const auto keys = source.LoadForeignKeys();
    ASSERT_EQ(keys->size(), 1u);
    EXPECT_EQ(keys->at(0).referenced_fields, std::vector<std::wstring>{L"IdCliente"});
}

TEST(AdoSchema, OneMissingRowsetNeverFailsTheWhole) {
    for (const long missing : {4L, 27L, 28L}) {
        FakeDatabase database = FullDatabase();
        database.rowsets.erase(missing);
        const FakeConnection connection = MakeConnection(database);
        const Schema schema(std::make_unique<AdoSchemaSource>(connection.object.Get()));
        EXPECT_FALSE(schema.Failed()) << missing;
        EXPECT_EQ(schema.Objects().size(), 7u) << missing;
        EXPECT_EQ(schema.Fields(L"Clientes").size(), missing == 4 ? 0u : 3u) << missing;
        EXPECT_EQ(schema.ForeignKeys().size(), missing == 27 ? 0u : 2u) << missing;
    }
}

TEST(AdoSchema, FieldsAreAskedForOnlyWhenNeeded) {
    const FakeConnection connection = MakeConnection(FullDatabase());
    const Schema schema(std::make_unique<AdoSchemaSource>(connection.object.Get()));
    EXPECT_EQ(*connection.log, std::vector<std::wstring>{L"20"});
}

}  // namespace
}  // namespace tessel::schema
