// Statements as the engine's own query window and its users write them: all of them are understood, and
// nothing in them is beyond a design's single SELECT.
#include <gtest/gtest.h>

#include "common/text.h"
#include "sqlparser/dump.h"
#include "sqlparser/sql_parser.h"

namespace tessel::sql {
namespace {

class Dialect : public ::testing::TestWithParam<const wchar_t*> {};

TEST_P(Dialect, IsUnderstood) {
    SqlParser parser;
    const bool failed = parser.Parse(GetParam());
    ASSERT_FALSE(failed) << ToUtf8(GetParam()) << "\n"
                         << ToUtf8(parser.Errors()[0].message) << " at " << parser.Errors()[0].column;
    EXPECT_EQ(ToUtf8(DumpBeyond(*parser.GetStatement())), "");
    EXPECT_FALSE(parser.GetStatement()->Columns.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Statements, Dialect,
    ::testing::Values(
        L"SELECT Pedidos.IdPedido, Pedidos.Fecha FROM Pedidos WHERE (((Pedidos.Pagado)=True) AND "
        L"((Pedidos.Ciudad) Like "
        L"\"M*\")) OR (((Pedidos.Importe)>1000) AND ((Pedidos.Ciudad) Like \"M*\")) ORDER BY Pedidos.Fecha "
        L"DESC;",
        L"SELECT Socios.* FROM Socios WHERE (((Socios.Baja) Is Null) AND ((Socios.Cuota) Is Not Null));",
        L"SELECT Socios.Nombre FROM Socios WHERE (Not (Socios.Correo) Is Null);",
        L"SELECT Max(Lecturas.Valor) AS [MáxDeValor], Count(*) AS Total FROM Lecturas GROUP BY "
        L"Lecturas.Sonda HAVING "
        L"(((Max(Lecturas.Valor))>10) AND ((Count(*))<>0));",
        L"SELECT [Apellidos] & \", \" & [Nombre] AS [Nombre completo], IIf([Edad]>=18,\"adulto\",\"menor\") "
        L"AS Tipo, "
        L"Nz([Tel], \"-\"), Format([Alta],\"dd/mm/yyyy\") AS Alta1, Round([Saldo]/[Meses],2) FROM Socios;",
        L"SELECT A.Id FROM A WHERE A.Cliente=[Forms]![frmClientes]![cboCliente] AND A.Fecha Between "
        L"[Forms]![frmFechas]![Desde] And [Forms]![frmFechas]![Hasta];",
        L"SELECT Id FROM Facturas WHERE Numero = [Escriba el número de factura:] OR "
        L"Numero=Forms!Menu!Numero.Value",
        L"SELECT DISTINCTROW Zonas.Zona, Sum(Ventas.Importe) AS [Suma De Importe] FROM (Zonas INNER JOIN "
        L"Tiendas ON "
        L"Zonas.IdZona = Tiendas.IdZona) INNER JOIN Ventas ON Tiendas.IdTienda = Ventas.IdTienda GROUP BY "
        L"Zonas.Zona;",
        L"SELECT P.a FROM P LEFT JOIN (Q RIGHT JOIN (R INNER JOIN S ON (R.k1 = S.k1) AND (R.k2 = S.k2)) ON "
        L"Q.r = R.r) ON "
        L"P.q = Q.q;",
        L"SELECT E.Nombre, E_1.Nombre AS Jefe FROM Empleados AS E LEFT JOIN Empleados AS E_1 ON E.Jefe = "
        L"E_1.Id;",
        L"SELECT a.x, c.z FROM a, b INNER JOIN c ON b.k = c.k WHERE a.k=b.k;",
        L"SELECT Ventas.Importe AS 2009, Ventas.Media AS 90DaysAvg, Year(Ventas.Fecha) AS Year FROM Ventas;",
        L"SELECT [87089_Items].Código FROM 87089_Items AS x INNER JOIN 2020_Precios ON x.Código = "
        L"2020_Precios.Código;",
        L"SELECT [% IVA], [Nº/Ref], [A-B], [¿Activo?], [#Serie], [Texto \"libre\"] FROM [Datos (2020) - "
        L"copia];",
        L"SELECT Id FROM T WHERE Fecha Between #1/1/2020# And #12/31/2020 11:59:59 PM# AND Código In "
        L"(\"A\",\"B\",'C');",
        L"SELECT Id FROM T WHERE Id Not In (SELECT IdT FROM U WHERE U.Baja=False) AND Exists (SELECT * FROM "
        L"V WHERE "
        L"V.Id=T.Id);",
        L"SELECT Left$([Nombre],1) AS Inicial, Mid([Nombre],2), Right(Nombre, 3), InStr(1,[Nombre],\"a\",1) "
        L"FROM Socios "
        L"ORDER BY Left$([Nombre],1), 2;",
        L"SELECT T.Adjuntos.FileName, T.Varios.Value FROM T;",
        L"SELECT TOP 10 PERCENT Nombre FROM Socios ORDER BY Nombre;",
        L"SELECT DISTINCT Πελάτες.Όνομα, Endereço.Número, Över.Ålder FROM Πελάτες, Endereço, Över;",
        L"SELECT Count(IIf([Pagado],1,Null)) AS Pagados, Sum(-[Pagado]) AS S, -Sum([Importe]) AS I FROM "
        L"Pedidos;",
        L"SELECT \"Total\" AS Etiqueta, (SELECT Sum(Importe) FROM Pedidos) AS Todo, 10 Mod 3, 10\\3, 2^8 "
        L"FROM Uno;",
        L"SELECT DLookUp(\"[Precio]\",\"Tarifas\",\"[Id]=\" & [IdTarifa]) AS Precio FROM Líneas;",
        L"SELECT Switch([n]<0,\"-\",[n]>0,\"+\",True,\"0\"), Choose([n],'a','b'), IsNull([x]) Or [y]=0 FROM "
        L"T;",
        L"SELECT * FROM Pedidos WHERE Fecha = @fecha AND Cliente = @{cliente actual} AND Zona = @Zona;",
        L"SELECT Id\r\nFROM T\r\nWHERE (Id = 1 \r\nAND b = 2)\r\n ORDER BY Id;\r\n",
        L"SELECT ALL Id FROM T WHERE a Eqv b Or c Imp d Xor Not e;"));

}  // namespace
}  // namespace tessel::sql
