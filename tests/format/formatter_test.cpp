#include "sqlparser/formatter.h"

#include <gtest/gtest.h>

#include "common/text.h"

namespace tessel::sql {
namespace {

struct Case {
    const wchar_t* name;
    const wchar_t* text;
    const wchar_t* wanted;
};

std::wstring WithLineFeeds(std::wstring text) {
    std::erase(text, L'\r');
    return text;
}

class Layout : public testing::TestWithParam<Case> {};

TEST_P(Layout, IsAsShown) {
    const std::wstring formatted = Format(GetParam().text);
    EXPECT_EQ(ToUtf8(WithLineFeeds(formatted)), ToUtf8(GetParam().wanted));
    EXPECT_EQ(ToUtf8(Format(formatted)), ToUtf8(formatted));
}

INSTANTIATE_TEST_SUITE_P(
    All, Layout,
    testing::Values(
        Case{L"ClausesBeginLines",
             L"select a,b from t where x=1 group by a,b having sum(c)>1 order by a desc;",
             L"select a, b\nfrom t\nwhere x = 1\ngroup by a, b\nhaving sum(c) > 1\norder by a desc;"},
        Case{L"WhiteSpaceGoes", L"  SELECT\r\n\ta  ,  b \t FROM  t  ", L"SELECT a, b\nFROM t"},
        Case{L"ALongListHasOneEntryALine",
             L"SELECT Clientes.Nombre, Clientes.Apellidos AS A, Pedidos.Fecha, Sum(Pedidos.Importe) AS Total "
             L"FROM Clientes",
             L"SELECT\n    Clientes.Nombre,\n    Clientes.Apellidos AS A,\n    Pedidos.Fecha,\n"
             L"    Sum(Pedidos.Importe) AS Total\nFROM Clientes"},
        Case{L"AndAndOrBeginLines", L"SELECT a FROM t WHERE a = 1 AND b BETWEEN 2 AND 3 OR c = 4",
             L"SELECT a\nFROM t\nWHERE a = 1\n    AND b BETWEEN 2 AND 3\n    OR c = 4"},
        Case{L"ShortParenthesesStayTogether", L"SELECT a FROM t WHERE (a = 1 OR a = 2) AND b = 3",
             L"SELECT a\nFROM t\nWHERE (a = 1 OR a = 2)\n    AND b = 3"},
        Case{
            L"LongParenthesesAreBroken",
            L"SELECT a FROM t WHERE (Clientes.Pais = 'Alemania' OR Clientes.Pais = 'España' OR Clientes.Pais "
            L"= 'Francia') AND b = 3",
            L"SELECT a\nFROM t\nWHERE (Clientes.Pais = 'Alemania'\n        OR Clientes.Pais = 'España'\n"
            L"        OR Clientes.Pais = 'Francia')\n    AND b = 3"},
        Case{L"JoinsBeginLinesWhenTheyAreLong",
             L"SELECT a FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente) LEFT "
             L"JOIN "
             L"Empleados ON Pedidos.IdEmpleado = Empleados.IdEmpleado",
             L"SELECT a\nFROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente)\n"
             L"    LEFT JOIN Empleados ON Pedidos.IdEmpleado = Empleados.IdEmpleado"},
        Case{L"AShortFromStaysOnItsLine", L"SELECT a FROM t INNER JOIN u ON t.a=u.a, v",
             L"SELECT a\nFROM t INNER JOIN u ON t.a = u.a, v"},
        Case{L"ALongOnIsBroken",
             L"SELECT a FROM LineasDePedido INNER JOIN LineasDeFactura ON LineasDePedido.IdPedido = "
             L"LineasDeFactura.IdPedido AND LineasDePedido.Linea = LineasDeFactura.Linea",
             L"SELECT a\nFROM LineasDePedido\n    INNER JOIN LineasDeFactura\n        ON "
             L"LineasDePedido.IdPedido = LineasDeFactura.IdPedido\n            AND LineasDePedido.Linea = "
             L"LineasDeFactura.Linea"},
        Case{L"AShortSelectInParenthesesStays", L"SELECT a FROM t WHERE a IN(SELECT b FROM u)",
             L"SELECT a\nFROM t\nWHERE a IN (SELECT b FROM u)"},
        Case{
            L"ALongSelectInParenthesesIsIndented",
            L"SELECT a FROM t WHERE a IN (SELECT Pedidos.IdCliente FROM Pedidos WHERE Pedidos.Importe > 1000 "
            L"AND Pedidos.Fecha > #2024-01-01#) ORDER BY a",
            L"SELECT a\nFROM t\nWHERE a IN (\n        SELECT Pedidos.IdCliente\n        FROM Pedidos\n"
            L"        WHERE Pedidos.Importe > 1000\n            AND Pedidos.Fecha > #2024-01-01#\n    )\n"
            L"ORDER BY a"},
        Case{L"UnionsStandBetweenTheirOperands", L"SELECT a FROM t UNION ALL SELECT b FROM u",
             L"SELECT a\nFROM t\nUNION ALL\nSELECT b\nFROM u"},
        Case{L"CommentsKeepTheirLines",
             L"-- arriba\r\nSELECT a, -- la primera\r\n b /* la segunda */, c\r\n-- antes de FROM\r\nFROM t "
             L"-- fin",
             L"-- arriba\nSELECT\n    a, -- la primera\n    b /* la segunda */,\n    c\n-- antes de "
             L"FROM\nFROM t -- fin"},
        Case{L"NothingIsWrittenIntoAComment",
             L"SELECT a FROM t WHERE (x = 1 -- uno\r\n) AND f(a -- dos\r\n, b)",
             L"SELECT a\nFROM t\nWHERE (x = 1 -- uno\n        )\n    AND f(a -- dos\n            ,\n        "
             L"b)"},
        Case{L"CallsAndNamesKeepTheirShape",
             L"SELECT Sum (a), Left(b,1), t . c, [x y].[z] , N'a', -1, - 2, a-1 FROM t",
             L"SELECT Sum (a), Left(b, 1), t . c, [x y].[z], N'a', -1, - 2, a - 1\nFROM t"},
        Case{L"ABlankFollowsAMacroAtTheEndOfALine", L"SELECT a FROM t WHERE f=@fecha AND g=@{a b} AND h=(@c)",
             L"SELECT a\nFROM t\nWHERE f = @fecha \n    AND g = @{a b}\n    AND h = (@c)"},
        Case{L"TopAndDistinct", L"SELECT  DISTINCTROW  TOP 10 PERCENT WITH TIES a FROM t",
             L"SELECT DISTINCTROW TOP 10 PERCENT WITH TIES a\nFROM t"},
        Case{L"NamesThatAreWordsOfTheLanguage", L"SELECT t.[From], Top, Limit, First FROM t",
             L"SELECT t.[From], Top, Limit, First\nFROM t"},
        Case{L"ParametersStandAlone", L"PARAMETERS p Text; SELECT a FROM t WHERE b = p",
             L"PARAMETERS p Text;\nSELECT a\nFROM t\nWHERE b = p"},
        Case{L"ALongCaseHasAWhenALine",
             L"SELECT CASE WHEN Pedidos.Importe > 1000 AND Pedidos.Urgente THEN 'grande' WHEN "
             L"Pedidos.Importe > "
             L"100 THEN 'mediano' ELSE 'pequeño' END AS Clase FROM Pedidos",
             L"SELECT CASE\n    WHEN Pedidos.Importe > 1000 AND Pedidos.Urgente THEN 'grande'\n"
             L"    WHEN Pedidos.Importe > 100 THEN 'mediano'\n    ELSE 'pequeño'\nEND AS Clase\nFROM "
             L"Pedidos"}),
    [](const auto& test) { return ToUtf8(test.param.name); });

}  // namespace
}  // namespace tessel::sql
