#include <gtest/gtest.h>

#include "common/text.h"
#include "sqlparser/sql_parser.h"

namespace tessel::sql {
namespace {

struct Case {
    const wchar_t* text;
    std::size_t line;
    std::size_t column;
    std::size_t length;
    const wchar_t* message;
};

std::string Describe(const Diagnostic& d) {
    return std::to_string(d.line) + ":" + std::to_string(d.column) + "+" + std::to_string(d.range.length) +
           " " + ToUtf8(d.message);
}

void Check(std::initializer_list<Case> cases) {
    for (const Case& c : cases) {
        SqlParser parser;
        EXPECT_TRUE(parser.Parse(c.text)) << ToUtf8(c.text);
        if (parser.Errors().empty()) continue;
        Diagnostic expected;
        expected.line = c.line;
        expected.column = c.column;
        expected.range.length = c.length;
        expected.message = c.message;
        EXPECT_EQ(Describe(parser.Errors()[0]), Describe(expected)) << ToUtf8(c.text);
    }
}

TEST(Errors, TextsThatAreNoSelect) {
    Check({
        {L"", 1, 1, 0, L"No hay ninguna instrucción SQL."},
        {L"  \r\n\t", 1, 1, 0, L"No hay ninguna instrucción SQL."},
        {L"-- nada", 1, 1, 0, L"No hay ninguna instrucción SQL."},
        {L"/* nada */", 1, 1, 0, L"No hay ninguna instrucción SQL."},
        {L";", 1, 1, 1, L"Se esperaba una instrucción SELECT."},
        {L"hola mundo", 1, 1, 4, L"Se esperaba una instrucción SELECT."},
        {L"INSERT INTO t VALUES (1)", 1, 1, 6,
         L"INSERT es una consulta de datos anexados; se esperaba una instrucción SELECT."},
        {L"\nUPDATE t SET a=1", 2, 1, 6,
         L"UPDATE es una consulta de actualización; se esperaba una instrucción SELECT."},
        {L"DELETE FROM t", 1, 1, 6,
         L"DELETE es una consulta de eliminación; se esperaba una instrucción SELECT."},
        {L"PARAMETERS p Long; delete * from t where a=p", 1, 20, 6,
         L"DELETE es una consulta de eliminación; se esperaba una instrucción SELECT."},
        {L"CREATE TABLE t (a INT)", 1, 1, 6,
         L"CREATE, ALTER y DROP son consultas de definición de datos; se esperaba una instrucción SELECT."},
        {L"ALTER TABLE t ADD COLUMN b TEXT(10)", 1, 1, 5,
         L"CREATE, ALTER y DROP son consultas de definición de datos; se esperaba una instrucción SELECT."},
        {L"DROP INDEX i ON t", 1, 1, 4,
         L"CREATE, ALTER y DROP son consultas de definición de datos; se esperaba una instrucción SELECT."},
        {L"EXEC consulta 1, 2", 1, 1, 4,
         L"EXECUTE es la llamada a un procedimiento; se esperaba una instrucción SELECT."},
        {L"{call consulta}", 1, 1, 1, L"Se esperaba una instrucción SELECT."},
        {L"TABLE", 1, 1, 5, L"Se esperaba una instrucción SELECT."},
        {L"(", 1, 2, 0, L"Se esperaba SELECT."},
        {L"(a)", 1, 2, 1, L"Se esperaba SELECT."},
        {L")", 1, 1, 1, L"Se esperaba una instrucción SELECT."},
    });
}

TEST(Errors, SelectList) {
    Check({
        {L"SELECT", 1, 7, 0, L"Se esperaba una expresión después de SELECT."},
        {L"SELECT ", 1, 7, 0, L"Se esperaba una expresión después de SELECT."},
        {L"select  -- fin", 1, 7, 0, L"Se esperaba una expresión después de SELECT."},
        {L"SELECT FROM t", 1, 8, 4, L"Se esperaba una expresión después de SELECT."},
        {L"SELECT a, FROM t", 1, 11, 4, L"Se esperaba una expresión después de la coma."},
        {L"SELECT ,a FROM t", 1, 8, 1, L"Se esperaba una expresión después de SELECT."},
        {L"SELECT DISTINCT FROM t", 1, 17, 4, L"Se esperaba una expresión después de DISTINCT."},
        {L"SELECT TOP 10 FROM t", 1, 15, 4, L"Se esperaba una expresión después de «10»."},
        {L"SELECT TOP (a) b FROM t", 1, 13, 1, L"Se esperaba un número después de TOP."},
        {L"SELECT TOP 5 WITH a FROM t", 1, 19, 1, L"Se esperaba TIES después de WITH."},
        {L"SELECT a AS FROM t", 1, 13, 4, L"Se esperaba un alias después de AS."},
        {L"SELECT a AS, b FROM t", 1, 12, 1, L"Se esperaba un alias después de AS."},
        {L"SELECT a b c FROM t", 1, 12, 1, L"Se esperaba una coma, FROM o el final de la instrucción."},
        {L"SELECT a 5 FROM t", 1, 10, 1, L"Se esperaba una coma, FROM o el final de la instrucción."},
        {L"SELECT a 'x' FROM t", 1, 10, 3, L"Se esperaba una coma, FROM o el final de la instrucción."},
        {L"SELECT a) FROM t", 1, 9, 1, L"Sobra un paréntesis de cierre."},
        {L"SELECT (a FROM t", 1, 11, 4, L"Falta el paréntesis de cierre."},
        {L"SELECT f(a, FROM t", 1, 13, 4, L"Se esperaba una expresión después de la coma."},
        {L"SELECT () FROM t", 1, 9, 1, L"Se esperaba una expresión después del paréntesis de apertura."},
        {L"SELECT a. FROM t", 1, 11, 4, L"Se esperaba un nombre."},
        {L"SELECT a., b FROM t", 1, 10, 1, L"Se esperaba un nombre."},
        {L"SELECT a +, b FROM t", 1, 11, 1, L"Se esperaba una expresión después de «+»."},
        {L"SELECT a + * b FROM t", 1, 12, 1, L"Se esperaba una expresión después de «+»."},
        {L"SELECT [] FROM t", 1, 8, 2, L"El nombre entre corchetes o comillas está vacío."},
        {L"SELECT a INTO FROM t", 1, 15, 4, L"Se esperaba el nombre de una tabla."},
    });
}

TEST(Errors, CrosstabsAndEscapes) {
    Check({
        {L"TRANSFORM Sum(a) FROM t PIVOT c", 1, 18, 4, L"Se esperaba SELECT."},
        {L"TRANSFORM SELECT a FROM t PIVOT c", 1, 11, 6, L"Se esperaba una expresión después de TRANSFORM."},
        {L"TRANSFORM Sum(a) SELECT b FROM t GROUP BY b", 1, 44, 0,
         L"Falta la cláusula PIVOT de la consulta de referencias cruzadas (TRANSFORM)."},
        {L"TRANSFORM Sum(a) SELECT b FROM t GROUP BY b PIVOT", 1, 50, 0,
         L"Se esperaba una expresión después de PIVOT."},
        {L"TRANSFORM Sum(a) SELECT b FROM t PIVOT c GROUP BY b", 1, 42, 5,
         L"La cláusula GROUP BY debe ir antes de PIVOT."},
        {L"SELECT b FROM t GROUP BY b PIVOT c", 1, 28, 5,
         L"No se esperaba «PIVOT»: falta un operador, una coma o una cláusula."},
        {L"SELECT {fn UCASE(a) FROM t", 1, 21, 4, L"Falta la llave de cierre."},
        {L"SELECT {fn} FROM t", 1, 11, 1, L"Se esperaba una expresión después de FN."},
        {L"SELECT a FROM {oj t LEFT JOIN u ON t.a=u.a", 1, 43, 0, L"Falta la llave de cierre."},
        {L"SELECT a FROM {t}", 1, 15, 1, L"Se esperaba el nombre de una tabla."},
        {L"SELECT a FROM t INNER JOIN u ON ON t.a=u.a", 1, 33, 2,
         L"Se esperaba una expresión después de ON."},
        {L"SELECT a FROM t WHERE a IN 'C:\\x.mdb'", 1, 28, 10,
         L"Se esperaba una lista entre paréntesis después de IN."},
    });
}

TEST(Errors, WhatIsNotClosed) {
    Check({
        {L"SELECT 'abc FROM t", 1, 8, 11, L"El texto entre comillas no está cerrado."},
        {L"SELECT \"abc FROM t", 1, 8, 11, L"El texto entre comillas no está cerrado."},
        {L"SELECT [abc FROM t", 1, 8, 11, L"Falta el corchete de cierre."},
        {L"SELECT `abc FROM t", 1, 8, 11, L"Falta la comilla invertida de cierre."},
        {L"SELECT a /* FROM t", 1, 10, 9, L"El comentario no está cerrado."},
        {L"SELECT #1/2/2020 FROM t", 1, 8, 9, L"La fecha no es válida o le falta el signo # de cierre."},
        {L"SELECT @{abc FROM t", 1, 8, 12, L"Falta la llave de cierre de la macro."},
        {L"SELECT @ FROM t", 1, 8, 1, L"Falta el nombre de la macro después de @."},
        {L"SELECT {d '2020-01-01' FROM t", 1, 30, 0, L"Falta la llave de cierre."},
        {L"'", 1, 1, 1, L"El texto entre comillas no está cerrado."},
        {L"/*", 1, 1, 2, L"El comentario no está cerrado."},
        {L"SELECT a FROM t WHERE b = 'x", 1, 27, 2, L"El texto entre comillas no está cerrado."},
    });
}

TEST(Errors, FromAndJoins) {
    Check({
        {L"SELECT a FROM", 1, 14, 0, L"Se esperaba el nombre de una tabla."},
        {L"SELECT a FROM WHERE b", 1, 15, 5, L"Se esperaba el nombre de una tabla."},
        {L"SELECT a FROM t,", 1, 17, 0, L"Se esperaba el nombre de una tabla."},
        {L"SELECT a FROM t INNER u", 1, 23, 1, L"Se esperaba JOIN."},
        {L"SELECT a FROM t INNER JOIN ON a=b", 1, 28, 2, L"Se esperaba el nombre de una tabla."},
        {L"SELECT a FROM t INNER JOIN u ON", 1, 32, 0, L"Se esperaba una expresión después de ON."},
        {L"SELECT a FROM t INNER JOIN u ON WHERE b", 1, 33, 5, L"Se esperaba una expresión después de ON."},
        {L"SELECT a FROM (t INNER JOIN u ON a=b WHERE c", 1, 38, 5, L"Falta el paréntesis de cierre."},
        {L"SELECT a FROM t u v", 1, 19, 1,
         L"Se esperaba una coma, una combinación, otra cláusula o el final de la instrucción."},
        {L"SELECT a FROM t ON a=b", 1, 17, 2,
         L"Se esperaba una coma, una combinación, otra cláusula o el final de la instrucción."},
        {L"SELECT a FROM t IN 5", 1, 20, 1,
         L"Se esperaba el nombre de un archivo entre comillas después de IN."},
        {L"SELECT a FROM (SELECT b FROM t", 1, 31, 0, L"Falta el paréntesis de cierre."},
        {L"SELECT a FROM t.", 1, 17, 0, L"Se esperaba el nombre de una tabla."},
        {L"SELECT a FROM 'x'", 1, 15, 3, L"Se esperaba el nombre de una tabla."},
    });
}

TEST(Errors, ConditionsAndClauses) {
    Check({
        {L"SELECT a FROM t WHERE", 1, 22, 0, L"Se esperaba una expresión después de WHERE."},
        {L"SELECT a\r\nFROM t\r\nWHERE b =", 3, 10, 0, L"Se esperaba una expresión después de «=»."},
        {L"SELECT a\rFROM t\nWHERE b = = c", 3, 11, 1, L"Se esperaba una expresión después de «=»."},
        {L"SELECT a FROM t WHERE b AND", 1, 28, 0, L"Se esperaba una expresión después de AND."},
        {L"SELECT a FROM t WHERE AND b", 1, 23, 3, L"Se esperaba una expresión después de WHERE."},
        {L"SELECT a FROM t WHERE b = 1 c = 2", 1, 29, 1,
         L"No se esperaba «c»: falta un operador, una coma o una cláusula."},
        {L"SELECT a FROM t WHERE (b = 1", 1, 29, 0, L"Falta el paréntesis de cierre."},
        {L"SELECT a FROM t WHERE b = 1)", 1, 28, 1, L"Sobra un paréntesis de cierre."},
        {L"SELECT a FROM t WHERE b BETWEEN 1", 1, 34, 0, L"Falta AND en la condición BETWEEN."},
        {L"SELECT a FROM t WHERE b BETWEEN 1 OR 2", 1, 35, 2, L"Falta AND en la condición BETWEEN."},
        {L"SELECT a FROM t WHERE b IS 5", 1, 28, 1, L"Se esperaba NULL o NOT NULL después de IS."},
        {L"SELECT a FROM t WHERE b IN 5", 1, 28, 1, L"Se esperaba una lista entre paréntesis después de IN."},
        {L"SELECT a FROM t WHERE b IN ()", 1, 29, 1,
         L"Se esperaba una expresión después del paréntesis de apertura."},
        {L"SELECT a FROM t WHERE b NOT 5", 1, 29, 1, L"Se esperaba LIKE, IN o BETWEEN después de NOT."},
        {L"SELECT a FROM t WHERE b NOT IS NULL", 1, 29, 2, L"Se esperaba LIKE, IN o BETWEEN después de NOT."},
        {L"SELECT a FROM t WHERE t.*", 1, 23, 3, L"El asterisco no puede formar parte de una expresión."},
        {L"SELECT t.* + 1", 1, 8, 3, L"El asterisco no puede formar parte de una expresión."},
        {L"SELECT a FROM t WHERE b LIKE", 1, 29, 0, L"Se esperaba una expresión después de LIKE."},
        {L"SELECT a FROM t WHERE EXISTS (b)", 1, 31, 1, L"Se esperaba SELECT."},
        {L"SELECT CASE a END FROM t", 1, 15, 3, L"Se esperaba WHEN."},
        {L"SELECT CASE WHEN a END FROM t", 1, 20, 3, L"Se esperaba THEN."},
        {L"SELECT CASE WHEN a THEN b FROM t", 1, 27, 4, L"Falta END al final de CASE."},
        {L"SELECT CAST(a) FROM t", 1, 14, 1, L"Se esperaba AS."},
        {L"SELECT CAST(a AS) FROM t", 1, 17, 1, L"Se esperaba un tipo de datos."},
        {L"SELECT a:: FROM t", 1, 12, 4, L"Se esperaba un tipo de datos."},
        {L"SELECT a FROM t GROUP a", 1, 23, 1, L"Se esperaba BY."},
        {L"SELECT a FROM t ORDER BY", 1, 25, 0, L"Se esperaba una expresión después de BY."},
        {L"SELECT a FROM t ORDER BY a b", 1, 28, 1,
         L"No se esperaba «b»: falta un operador, una coma o una cláusula."},
        {L"SELECT a FROM t WHERE b WHERE c", 1, 25, 5, L"La cláusula WHERE está repetida."},
        {L"SELECT a FROM t ORDER BY b WHERE c", 1, 28, 5, L"La cláusula WHERE debe ir antes de ORDER BY."},
        {L"SELECT a WHERE b FROM t", 1, 18, 4, L"La cláusula FROM debe ir antes de WHERE."},
        {L"SELECT a FROM t; SELECT b", 1, 18, 6, L"Hay texto después del final de la instrucción."},
        {L"SELECT a FROM t; )", 1, 18, 1, L"Sobra un paréntesis de cierre."},
        {L"SELECT a FROM t UNION", 1, 22, 0, L"Se esperaba SELECT."},
        {L"SELECT a FROM t UNION b", 1, 23, 1, L"Se esperaba SELECT."},
        {L"PARAMETERS p Text SELECT a FROM t", 1, 19, 6, L"Falta el punto y coma después de PARAMETERS."},
        {L"PARAMETERS ; SELECT a FROM t", 1, 12, 1, L"Se esperaba un nombre."},
        {L"WITH q (SELECT 1) SELECT a", 1, 19, 6, L"Se esperaba AS."},
        {L"SELECT a ¬ b FROM t", 1, 10, 1, L"El carácter no es válido en este lugar."},
        {L"SELECT a “b” FROM t", 1, 10, 1, L"El carácter no es válido en este lugar."},
        {L"SELECT a FROM t WITH x", 1, 22, 1, L"Se esperaba OWNERACCESS OPTION después de WITH."},
    });
}

TEST(Errors, SeveralClausesGiveSeveralErrors) {
    SqlParser parser;
    ASSERT_TRUE(parser.Parse(L"SELECT a +\nFROM t INNER\nWHERE b =\nORDER a"));
    std::string all;
    for (const Diagnostic& error : parser.Errors()) all += Describe(error) + "\n";
    EXPECT_EQ(all,
              "2:1+4 Se esperaba una expresión después de «+».\n"
              "3:1+5 Se esperaba JOIN.\n"
              "4:1+5 Se esperaba una expresión después de «=».\n"
              "4:7+1 Se esperaba BY.\n");
    ASSERT_NE(parser.GetStatement(), nullptr);
}

TEST(Errors, InASubselectDoNotHideThoseAfterIt) {
    SqlParser parser;
    ASSERT_TRUE(parser.Parse(L"SELECT a FROM t WHERE b IN (SELECT FROM u WHERE) AND c = ORDER BY d"));
    std::string all;
    for (const Diagnostic& error : parser.Errors()) all += Describe(error) + "\n";
    EXPECT_EQ(all,
              "1:36+4 Se esperaba una expresión después de SELECT.\n"
              "1:48+1 Se esperaba una expresión después de WHERE.\n"
              "1:58+5 Se esperaba una expresión después de «=».\n");
}

TEST(Errors, AreNoMoreThanAHundred) {
    std::wstring text = L"SELECT a";
    for (int i = 0; i < 1000; ++i) text += L" WHERE =";
    SqlParser parser;
    EXPECT_TRUE(parser.Parse(text));
    EXPECT_EQ(parser.Errors().size(), 100u);
}

TEST(Errors, TheStatementSurvivesAsFarAsItWasUnderstood) {
    SqlParser parser;
    ASSERT_TRUE(parser.Parse(L"SELECT a, b FROM t WHERE ORDER BY a"));
    ASSERT_NE(parser.GetStatement(), nullptr);
    EXPECT_EQ(parser.GetStatement()->Columns.size(), 2u);
    EXPECT_EQ(parser.GetStatement()->Tables.size(), 1u);
    EXPECT_EQ(parser.GetStatement()->OrderItems.size(), 1u);
    EXPECT_TRUE(parser.Parse(L"hola"));
    EXPECT_EQ(parser.GetStatement(), nullptr);
}

TEST(Errors, AreForgottenByTheNextParse) {
    SqlParser parser;
    EXPECT_TRUE(parser.Parse(L"SELECT"));
    EXPECT_FALSE(parser.Parse(L"SELECT a"));
    EXPECT_TRUE(parser.Errors().empty());
}

}  // namespace
}  // namespace tessel::sql
