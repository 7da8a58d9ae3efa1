SELECT a FROM t UNION SELECT b FROM u;
---
SELECT a FROM t UNION ALL SELECT b FROM u ORDER BY a;
---
SELECT a FROM t; UNION SELECT b FROM u;
---
SELECT "(Todos)" AS Nombre FROM t UNION SELECT Nombre FROM Clientes;
---
(SELECT a FROM t) UNION (SELECT b FROM u);
---
SELECT a FROM t INTERSECT SELECT b FROM u;
---
SELECT q.a FROM (SELECT a FROM t) AS q;
---
SELECT q.a FROM [SELECT a FROM t]. AS q;
---
SELECT t.a, q.n FROM t INNER JOIN (SELECT k, Count(*) AS n FROM u GROUP BY k) AS q ON t.k = q.k;
---
WITH q AS (SELECT a FROM t) SELECT a FROM q;
---
PARAMETERS [Desde] DateTime, [Hasta] DateTime; SELECT Pedidos.Id FROM Pedidos WHERE Pedidos.Fecha Between [Desde] And [Hasta];
---
PARAMETERS [Forms]![frmX]![txt] Text ( 255 ); SELECT t.a FROM t WHERE (((t.a)=[Forms]![frmX]![txt]));
---
SELECT Clientes.Nombre INTO Copia FROM Clientes;
---
SELECT a FROM t IN "C:\datos\otra.mdb";
---
SELECT * FROM [Hoja1$] IN "C:\datos\libro.xls" "EXCEL 5.0;";
---
SELECT a FROM t IN '' [ODBC;DSN=ventas];
---
SELECT a FROM dbo.t;
---
SELECT a FROM [C:\datos\otra.mdb].t;
---
SELECT a FROM otra.dbo.t;
---
SELECT Row_Number() OVER (ORDER BY a) AS n FROM t;
---
SELECT a FROM t WITH OWNERACCESS OPTION;
---
SELECT a, a FROM t;
---
SELECT t.a, t.a AS otra FROM t;
---
SELECT 1;
---
SELECT Date() AS Hoy;
---
SELECT a FROM t FOR UPDATE;
---
SELECT A.x FROM A NATURAL JOIN B;
---
SELECT A.x FROM A INNER JOIN B USING (k);
---
SELECT a FROM f(1);
---
VALUES (1, 2);
---
SELECT t.a, "una constante de texto muy larga que se repite una y otra vez hasta que no cabe en la celda, una constante de texto muy larga que se repite una y otra vez hasta que no cabe en la celda, una constante de texto muy larga que se repite una y otra vez hasta que no cabe" AS Largo FROM t;
---
SELECT c.Nombre FROM Clientes AS c WHERE c.Saldo > (SELECT Avg(Clientes.Saldo) FROM Clientes WHERE Clientes.Zona = c.Zona);
---
SELECT c1, c2, c3, c4, c5, c6, c7, c8, c9, c10, c11, c12, c13, c14, c15, c16, c17, c18, c19, c20, c21, c22, c23, c24, c25, c26, c27, c28, c29, c30, c31, c32, c33, c34, c35, c36, c37, c38, c39, c40, c41, c42, c43, c44, c45, c46, c47, c48, c49, c50, c51, c52, c53, c54, c55, c56, c57, c58, c59, c60, c61 FROM Ancha;
---
TRANSFORM Sum(Ventas.Importe) AS SumaDeImporte
SELECT Ventas.Zona, Sum(Ventas.Importe) AS [Total de Importe]
FROM Ventas
GROUP BY Ventas.Zona
PIVOT Format([Fecha],"mmm") In ("ene","feb","mar");
---
PARAMETERS [Forms]![frmAños]![Año] Short;
TRANSFORM First(Notas.Nota)
SELECT Alumnos.Apellidos, Alumnos.Nombre
FROM Alumnos INNER JOIN Notas ON Alumnos.Id = Notas.IdAlumno
WHERE Year([Notas].[Fecha])=[Forms]![frmAños]![Año]
GROUP BY Alumnos.Apellidos, Alumnos.Nombre
ORDER BY Alumnos.Apellidos
PIVOT Notas.Materia;
---
TABLE Socios;
---
SELECT Nombre, Zona FROM Socios UNION ALL TABLE [Socios antiguos] ORDER BY Nombre;
---
SELECT Pedidos.Id, Clientes.Nombre
FROM Pedidos INNER JOIN Clientes ON Pedidos.IdCliente = Clientes.Id IN '' [MS Access;DATABASE=D:\datos\antiguo.mdb;PWD=clave]
WHERE (((Pedidos.Fecha)>#1/1/2019#));
---
SELECT Hoja.* FROM [Hoja1$] AS Hoja IN "" [Excel 8.0;HDR=YES;IMEX=2;DATABASE=D:\datos\precios.xls];
