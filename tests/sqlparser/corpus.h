// Statements of every shape the grammar knows, for the laws that hold for all of them.
#pragma once

#include <string>
#include <vector>

namespace tessel::sql::test {

inline const std::vector<std::wstring>& Corpus() {
    static const std::vector<std::wstring> statements = {
        L"SELECT a",
        L"SELECT *, t.*, [a].[b].* FROM t",
        L"SELECT DISTINCTROW TOP 10 PERCENT WITH TIES a AS b, c d FROM t x, u AS y ORDER BY 1 DESC",
        L"SELECT DISTINCT Clientes.Nombre, Sum(Pedidos.Importe) AS Total FROM (Clientes INNER JOIN Pedidos "
        L"ON "
        L"Clientes.IdCliente = Pedidos.IdCliente) GROUP BY Clientes.Nombre HAVING Sum(Pedidos.Importe)>=100 "
        L"ORDER BY "
        L"Sum(Pedidos.Importe) DESC;",
        L"SELECT Orders.OrderID FROM Orders INNER JOIN [Order Details] ON Orders.OrderID = [Order "
        L"Details].OrderID "
        L"WHERE (((Orders.a)=1) AND ((Orders.b) Like \"x*\")) OR (((Orders.a)=3));",
        L"SELECT 1 FROM A LEFT JOIN (B INNER JOIN C ON B.y = C.y) ON A.x = B.x",
        L"SELECT 1 FROM ((A INNER JOIN B ON (A.x = B.x) AND (A.y = B.y)) LEFT JOIN C ON B.z = C.z) RIGHT "
        L"JOIN D ON "
        L"C.w = D.w",
        L"SELECT 1 FROM A INNER JOIN B INNER JOIN C ON B.y=C.y ON A.x=B.x",
        L"SELECT 1 FROM a, b INNER JOIN c ON b.x=c.x, (d CROSS JOIN e), f NATURAL LEFT JOIN g, h JOIN i "
        L"USING (j, k)",
        L"SELECT 1 FROM (a, b) FULL OUTER JOIN c ON a.x = c.x",
        L"SELECT X.a FROM X INNER JOIN X AS X_1 ON X.a = X_1.b WHERE Not (X.a) Is Null And (X.b) Is Not Null",
        L"SELECT 1 FROM 87089_Items AS 2009, t IN \"f\" \"EXCEL 5.0;\" AS q, db..t, a.b.c d, @tabla, ? p",
        L"SELECT a FROM [SELECT b FROM t;]. AS q INNER JOIN (SELECT c FROM u) AS r ON q.b=r.c",
        L"SELECT - - a, -(-a), 2 ^ -3 ^ 2, a - -b, ~a, +a, a Mod b \\ c * d / e, a % b, a || b & c, a | b",
        L"SELECT a OR b AND NOT c XOR d EQV e IMP f, NOT NOT a, a = NOT b = c",
        L"SELECT a LIKE 'x' ESCAPE '!', a NOT ALIKE 'y%', a BETWEEN 1 AND 2 AND c, a NOT BETWEEN (1) AND 2 + "
        L"3",
        L"SELECT a IN (1, (2)), a NOT IN (SELECT 1), a IN @lista, a IN (@lista), (a, b) IN ((1, 2)), a IN "
        L"((1))",
        L"SELECT EXISTS (SELECT * FROM t WHERE t.x = u.x), a > ANY (SELECT 1), a = ALL (SELECT 1), a = SOME "
        L"(SELECT 1)",
        L"SELECT IIf(a>1,'x',\"y\"), Left$(a, 2), Left(a,1), count(*), COUNT(DISTINCT x), Sum(ALL x), Now(), "
        L"f((1))",
        L"SELECT CASE WHEN a THEN b WHEN c THEN d ELSE e END, CASE a WHEN 1 THEN 2 END, CAST(a AS "
        L"decimal(10,2)), "
        L"TRY_CAST(a AS int), a::varchar(10)::text, a COLLATE x",
        L"SELECT EXTRACT(YEAR FROM d), SUBSTRING(a FROM 1 FOR 2), CONVERT(a USING utf8), TRIM(a)",
        L"SELECT row_number() OVER (PARTITION BY a, b ORDER BY c DESC ROWS BETWEEN 1 PRECEDING AND CURRENT "
        L"ROW), "
        L"Sum(x) FILTER (WHERE y>1) OVER w FROM t",
        L"SELECT @fecha, @{un texto (x)}, :p, ?, Forms!f!c, [Forms]![f]![c].Value, \"t\".\"x\", `t`.`x`, "
        L"t.Order",
        L"SELECT 1, .5, 1e3, &HFF, 0x1F, #1/2/2020#, #January 1, 2020#, {d '2020-01-01'}, DATE '2020-01-01', "
        L"N'x'",
        L"SELECT Null, True, False, a Is True, a Is Not False, a Is Null",
        L"PARAMETERS [a b] Text(255), c DateTime; SELECT a INTO n FROM t WITH OWNERACCESS OPTION;",
        L"WITH RECURSIVE q (a, b) AS (SELECT 1, 2), r AS (SELECT 3) SELECT * FROM q, r",
        L"SELECT a FROM t UNION ALL SELECT b FROM u; UNION SELECT c FROM v ORDER BY 1",
        L"(SELECT a FROM t) UNION (SELECT b FROM u INTERSECT SELECT c FROM v) EXCEPT SELECT d ORDER BY 1",
        L"((SELECT a UNION SELECT b) INTERSECT SELECT c) ORDER BY 1 LIMIT 3",
        L"SELECT a FROM t GROUP BY a WITH ROLLUP HAVING a ORDER BY a NULLS LAST, b DESC NULLS FIRST LIMIT 10 "
        L"OFFSET 5",
        L"SELECT a FROM t ORDER BY a OFFSET 5 ROWS FETCH NEXT 10 ROWS ONLY",
        L"SELECT a FROM t LIMIT 5, 10 FOR UPDATE",
        L"SELECT a FROM t WITH (NOLOCK), generate_series(1, 10) AS g (n), (VALUES (1, 'a'), (2, 'b')) AS v "
        L"(x, y)",
        L"SELECT a FROM t WHERE a IN (SELECT b FROM (SELECT c FROM u WHERE EXISTS (SELECT 1 FROM v)) AS w) "
        L"AND NOT (b OR c)",
        L"SELECT Año, [Número de pedido], Σύνολο FROM [Pedidos/2020 #1 %-\"x\"]",
        L"PARAMETERS [Forms]![f]![c] DateTime; SELECT @{t}.campo, @t!c, @t.*, @f(1) FROM [Select uno].[t] "
        L"WINDOW w AS (ORDER BY a)",
        L"SELECT a FROM t FETCH FIRST 5 ROWS WITH TIES FOR UPDATE OF a WITH OWNERACCESS OPTION",
        L"PARAMETERS p Long; TRANSFORM Sum(v) AS s SELECT a FROM t GROUP BY a PIVOT b IN ('x', 'y') WITH "
        L"OWNERACCESS OPTION;",
        L"TABLE [t u] UNION ALL SELECT a FROM {oj t LEFT OUTER JOIN u ON t.k = u.k} UNION TABLE v ORDER BY a",
        L"SELECT {fn LEFT(a, {fn LENGTH(b)})}, a LIKE 'x!%' {escape '!'} FROM t INNER JOIN u ON t.k = u.k IN "
        L"'f' WHERE On AND a=1AND b=On",
        L"SELECT a AS Year, b Year, c AS Left, d AS Order, e AS 90DaysAvg, f AS 'x' FROM t",
    };
    return statements;
}

}  // namespace tessel::sql::test
