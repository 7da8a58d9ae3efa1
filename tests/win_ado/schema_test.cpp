// Connection.OpenSchema: the five rowsets, their columns and their criteria.
#include <initializer_list>
#include <vector>

#include "tests/win_ado/ado_fixture.h"

namespace tessel::tests {
namespace {

/// The optional criteria of OpenSchema; an empty text leaves its place open.
UniqueVariant Criteria(std::initializer_list<const wchar_t*> texts) {
    UniqueVariant criteria;
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(texts.size()));
    criteria.Address()->vt = VT_ARRAY | VT_VARIANT;
    criteria.Address()->parray = array;
    LONG index = 0;
    for (const wchar_t* text : texts) {
        UniqueVariant element;
        if (*text) element = UniqueVariant(text);
        EXPECT_EQ(SafeArrayPutElement(array, &index, element.Address()), S_OK);
        ++index;
    }
    return criteria;
}

/// One text a row: the named columns with "|" between them.
std::vector<std::string> Read(const CallResult& opened, std::initializer_list<const wchar_t*> columns) {
    EXPECT_TRUE(opened) << ToUtf8(opened.Message());
    const Dispatch rows = opened.Object();
    std::vector<std::string> lines;
    for (; rows.Get(L"EOF").Boolean() == false; static_cast<void>(rows.Call(L"MoveNext"))) {
        std::string line;
        for (const wchar_t* column : columns) {
            const CallResult value = ValueOf(rows, column);
            EXPECT_TRUE(value) << ToUtf8(column);
            if (!line.empty()) line += '|';
            line += ToUtf8(value.Text().value_or(L"-"));
        }
        lines.push_back(line);
    }
    return lines;
}

bool Contains(const std::vector<std::string>& lines, const char* line) {
    for (const std::string& each : lines)
        if (each == line) return true;
    return false;
}

std::wstring NamesOf(const Dispatch& rows) {
    std::wstring names;
    EXPECT_TRUE(win32::WalkCollection(rows.Get(L"Fields").Object(), [&](const UniqueVariant& item) {
        names += TextOf(Dispatch(item.Object()).Get(L"Name")) + L" ";
        return true;
    }));
    return names;
}

TEST(OpenSchema, TablesListsTablesAndViews) {
    const Dispatch connection = OpenVentas();
    const auto lines = Read(connection.Call(L"OpenSchema", 20), {L"TABLE_NAME", L"TABLE_TYPE"});
    for (const char* line : {"Clientes|TABLE", "Pedidos|TABLE", "Detalle de pedidos|TABLE",
                             "Categorías|TABLE", "Empleados|TABLE", "Proveedores|TABLE",
                             "Líneas de envío|TABLE", "Ventas por país|VIEW", "ProductosActivos|VIEW"})
        EXPECT_TRUE(Contains(lines, line)) << line;
    EXPECT_EQ(lines.size(), 17u);
}

TEST(OpenSchema, CriteriaAreExactButForCase) {
    const Dispatch connection = OpenVentas();
    EXPECT_EQ(
        Read(connection.Call(L"OpenSchema", 20, Criteria({L"", L"", L"", L"view"})), {L"TABLE_NAME"}).size(),
        3u);
    const auto one =
        Read(connection.Call(L"OpenSchema", 20, Criteria({L"", L"", L"líneas de envío"})), {L"TABLE_NAME"});
    EXPECT_EQ(one, std::vector<std::string>{"Líneas de envío"});
    // A pattern of ODBC is only a name here.
    EXPECT_TRUE(
        Read(connection.Call(L"OpenSchema", 20, Criteria({L"", L"", L"Client%"})), {L"TABLE_NAME"}).empty());
    EXPECT_TRUE(
        Read(connection.Call(L"OpenSchema", 4, Criteria({L"", L"", L"Client_s"})), {L"TABLE_NAME"}).empty());
    EXPECT_EQ(connection.Call(L"OpenSchema", 20, L"Clientes").Code(), kBadArgument);
}

TEST(OpenSchema, CriteriaComeByReferenceToo) {
    const Dispatch connection = OpenVentas();
    UniqueVariant variable = Criteria({L"", L"", L"Pedidos"});
    const CallResult opened =
        connection.Call(L"OpenSchema", 20, UniqueVariant::ReferenceTo(variable.Address()));
    EXPECT_EQ(Read(opened, {L"TABLE_NAME"}), std::vector<std::string>{"Pedidos"});
}

TEST(OpenSchema, ViewsListsViewsAlone) {
    const auto lines = Read(OpenVentas().Call(L"OpenSchema", 23), {L"TABLE_NAME"});
    EXPECT_EQ(lines, (std::vector<std::string>{"ProductosActivos", "Ventas por país", "Pedidos pendientes"}));
}

TEST(OpenSchema, ColumnsTellTypeSizePrecisionAndNullability) {
    const Dispatch connection = OpenVentas();
    const auto lines = Read(connection.Call(L"OpenSchema", 4, Criteria({L"", L"", L"Productos"})),
                            {L"ORDINAL_POSITION", L"COLUMN_NAME", L"DATA_TYPE", L"CHARACTER_MAXIMUM_LENGTH",
                             L"NUMERIC_PRECISION", L"NUMERIC_SCALE"});
    EXPECT_EQ(lines,
              (std::vector<std::string>{
                  "1|IdProducto|3|-|10|-", "2|Nombre|129|60|-|-", "3|IdProveedor|3|-|10|-",
                  "4|IdCategoría|3|-|10|-", "5|Cantidad por unidad|129|30|-|-", "6|PrecioUnitario|131|-|10|2",
                  "7|Existencias|2|-|5|-", "8|Suspendido|11|-|-|-", "9|Peso|5|-|15|-"}));
    const Dispatch rows =
        connection.Call(L"OpenSchema", 4, Criteria({L"", L"", L"Pedidos", L"Observaciones"})).Object();
    EXPECT_EQ(NumberOf(rows.Get(L"RecordCount")), 1);
    EXPECT_TRUE(IsTrue(ValueOf(rows, L"IS_NULLABLE")));
    EXPECT_EQ(NumberOf(ValueOf(rows, L"COLUMN_FLAGS")) & 0x80, 0x80);
    EXPECT_FALSE(IsTrue(ValueOf(rows, L"COLUMN_HASDEFAULT")));
    const Dispatch key =
        connection.Call(L"OpenSchema", 4, Criteria({L"", L"", L"Pedidos", L"IdPedido"})).Object();
    EXPECT_EQ(ValueOf(key, L"IS_NULLABLE").Boolean(), false);
}

TEST(OpenSchema, PrimaryKeysOfOneTableOrOfAll) {
    const Dispatch connection = OpenVentas();
    const auto composite =
        Read(connection.Call(L"OpenSchema", 28, Criteria({L"", L"", L"Detalle de pedidos"})),
             {L"TABLE_NAME", L"COLUMN_NAME", L"ORDINAL"});
    EXPECT_EQ(composite,
              (std::vector<std::string>{"Detalle de pedidos|IdPedido|1", "Detalle de pedidos|IdProducto|2"}));
    EXPECT_EQ(Read(connection.Call(L"OpenSchema", 28), {L"COLUMN_NAME"}).size(), 16u);
}

TEST(OpenSchema, ForeignKeysInBothDirections) {
    const Dispatch connection = OpenVentas();
    const auto columns = {L"FK_TABLE_NAME", L"FK_COLUMN_NAME", L"PK_TABLE_NAME", L"PK_COLUMN_NAME",
                          L"ORDINAL"};
    const auto all = Read(connection.Call(L"OpenSchema", 27), columns);
    for (const char* line :
         {"Pedidos|IdCliente|Clientes|IdCliente|1", "Empleados|IdJefe|Empleados|IdEmpleado|1",
          "Productos|IdCategoría|Categorías|IdCategoría|1",
          "Devoluciones|IdPedido|Detalle de pedidos|IdPedido|1",
          "Devoluciones|IdProducto|Detalle de pedidos|IdProducto|2"})
        EXPECT_TRUE(Contains(all, line)) << line;
    EXPECT_EQ(all.size(), 17u);
    const auto to = Read(connection.Call(L"OpenSchema", 27, Criteria({L"", L"", L"Clientes"})), columns);
    EXPECT_EQ(to, std::vector<std::string>{"Pedidos|IdCliente|Clientes|IdCliente|1"});
    const auto from = Read(
        connection.Call(L"OpenSchema", 27, Criteria({L"", L"", L"", L"", L"", L"Territorios"})), columns);
    EXPECT_EQ(from, std::vector<std::string>{"Territorios|IdRegion|Regiones|IdRegion|1"});
}

TEST(OpenSchema, RowsetsHaveTheColumnsOfOleDb) {
    const Dispatch connection = OpenVentas();
    EXPECT_EQ(
        NamesOf(connection.Call(L"OpenSchema", 20).Object()),
        L"TABLE_CATALOG TABLE_SCHEMA TABLE_NAME TABLE_TYPE TABLE_GUID DESCRIPTION TABLE_PROPID DATE_CREATED "
        L"DATE_MODIFIED ");
    EXPECT_EQ(
        NamesOf(connection.Call(L"OpenSchema", 28).Object()),
        L"TABLE_CATALOG TABLE_SCHEMA TABLE_NAME COLUMN_NAME COLUMN_GUID COLUMN_PROPID ORDINAL PK_NAME ");
    EXPECT_EQ(
        NamesOf(connection.Call(L"OpenSchema", 27).Object()),
        L"PK_TABLE_CATALOG PK_TABLE_SCHEMA PK_TABLE_NAME PK_COLUMN_NAME PK_COLUMN_GUID PK_COLUMN_PROPID "
        L"FK_TABLE_CATALOG FK_TABLE_SCHEMA FK_TABLE_NAME FK_COLUMN_NAME FK_COLUMN_GUID FK_COLUMN_PROPID "
        L"ORDINAL "
        L"UPDATE_RULE DELETE_RULE PK_NAME FK_NAME DEFERRABILITY ");
}

TEST(OpenSchema, OtherRowsetsAreNotSupported) {
    EXPECT_EQ(OpenVentas().Call(L"OpenSchema", 12).Code(), static_cast<HRESULT>(0x800A0CB3));
}

}  // namespace
}  // namespace tessel::tests
