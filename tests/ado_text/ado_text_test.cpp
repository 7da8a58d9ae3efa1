// The text functions of the ADO objects: DISTINCTROW for other engines, connection strings for ODBC.
#include <gtest/gtest.h>

#include "hostkit/ado/connection_string.h"
#include "hostkit/ado/sql_dialect.h"

namespace tessel::ado {
namespace {

struct DialectCase {
    const wchar_t* sql;
    const wchar_t* sent;
};

TEST(StatementForEngine, DistinctRowBecomesDistinctOnlyWhereItIsAKeyword) {
    const DialectCase cases[] = {
        {L"SELECT DISTINCTROW * FROM t", L"SELECT DISTINCT * FROM t"},
        {L"select distinctrow a", L"select distinct a"},
        {L"SELECT\r\nDistinctRow\ta", L"SELECT\r\nDistinct\ta"},
        {L"SELECT 'DISTINCTROW' AS a", L"SELECT 'DISTINCTROW' AS a"},
        {L"SELECT 'it''s DISTINCTROW' , DISTINCTROW", L"SELECT 'it''s DISTINCTROW' , DISTINCT"},
        {L"SELECT \"DISTINCTROW\"", L"SELECT \"DISTINCTROW\""},
        {L"SELECT `DISTINCTROW`", L"SELECT `DISTINCTROW`"},
        {L"SELECT [DISTINCTROW] FROM [a DISTINCTROW b]", L"SELECT [DISTINCTROW] FROM [a DISTINCTROW b]"},
        {L"SELECT t.DISTINCTROW", L"SELECT t.DISTINCTROW"},
        {L"SELECT DISTINCTROWS, ADISTINCTROW, DISTINCTROW_1",
         L"SELECT DISTINCTROWS, ADISTINCTROW, DISTINCTROW_1"},
        {L"-- DISTINCTROW\nSELECT DISTINCTROW", L"-- DISTINCTROW\nSELECT DISTINCT"},
        {L"/* DISTINCTROW */ SELECT DISTINCTROW", L"/* DISTINCTROW */ SELECT DISTINCT"},
        {L"SELECT (SELECT DISTINCTROW a FROM b)", L"SELECT (SELECT DISTINCT a FROM b)"},
        {L"SELECT 'never closed DISTINCTROW", L"SELECT 'never closed DISTINCTROW"},
        {L"/* never closed DISTINCTROW", L"/* never closed DISTINCTROW"},
        {L"DISTINCTROWñ", L"DISTINCTROWñ"},
        {L"", L""},
    };
    for (const DialectCase& entry : cases) EXPECT_EQ(StatementForEngine(entry.sql), entry.sent);
}

TEST(StatementForEngine, EverythingElseStaysAsItIs) {
    const std::wstring sql =
        L"SELECT TOP 5 [Año], \"x\"\"y\" FROM t WHERE f = #1/2/2020# AND s Like 'A*' -- fin";
    EXPECT_EQ(StatementForEngine(sql), sql);
}

struct ConnectionCase {
    const wchar_t* text;
    const wchar_t* user;
    const wchar_t* password;
    const wchar_t* odbc;
};

TEST(OdbcConnectionString, WordsOfOleDbBecomeThoseOfOdbc) {
    const ConnectionCase cases[] = {
        {L"Driver=SQLite3;Database=/a/b.db", L"", L"", L"Driver=SQLite3;Database=/a/b.db;"},
        {L"Driver={MariaDB Unicode};Pwd={a;b}", L"", L"", L"Driver={MariaDB Unicode};Pwd={a;b};"},
        {L"Provider=MSDASQL;DSN=ventas", L"", L"", L"DSN=ventas;"},
        {L"Provider=MSDASQL.1;Persist Security Info=False;Data Source=ventas;User ID=ana;Password=x", L"",
         L"", L"DSN=ventas;UID=ana;PWD=x;"},
        {L"Provider=MSDASQL;Extended Properties=\"Driver=SQLite3;Database=/x\"", L"", L"",
         L"Driver=SQLite3;Database=/x;"},
        {L"DSN=a;UID=ana;PWD=x", L"eva", L"y", L"DSN=a;UID=eva;PWD=y;"},
        {L"ventas", L"", L"", L"DSN=ventas;"},
        {L" ; ;", L"", L"", L""},
    };
    for (const ConnectionCase& entry : cases)
        EXPECT_EQ(OdbcConnectionString(entry.text, entry.user, entry.password), entry.odbc);
}

TEST(ConnectionAttribute, IsFoundInAnyCaseWithoutItsQuotes) {
    EXPECT_EQ(ConnectionAttribute(L"Driver=SQLite3; database = {/a b/v.db};", L"DATABASE"), L"/a b/v.db");
    EXPECT_EQ(ConnectionAttribute(L"Driver=SQLite3", L"DATABASE"), L"");
}

TEST(FileStem, DropsFolderAndExtension) {
    EXPECT_EQ(FileStem(L"/datos/ventas.db"), L"ventas");
    EXPECT_EQ(FileStem(L"Z:\\datos\\ventas.2024.db"), L"ventas.2024");
    EXPECT_EQ(FileStem(L"ventas"), L"ventas");
    EXPECT_EQ(FileStem(L"/datos/.oculto"), L".oculto");
    EXPECT_EQ(FileStem(L""), L"");
}

}  // namespace
}  // namespace tessel::ado
