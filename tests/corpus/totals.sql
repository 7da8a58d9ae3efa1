SELECT Pedidos.IdCliente, Sum(Pedidos.Importe) AS SumaDeImporte FROM Pedidos GROUP BY Pedidos.IdCliente;
---
SELECT Pedidos.IdCliente, Count(*) AS Total FROM Pedidos GROUP BY Pedidos.IdCliente ORDER BY Count(*) DESC;
---
SELECT Pedidos.IdCliente, Count(Pedidos.IdPedido) AS CuentaDeIdPedido FROM Pedidos GROUP BY Pedidos.IdCliente HAVING (((Count(Pedidos.IdPedido))>5));
---
SELECT Pedidos.Zona, Sum(Pedidos.Importe) AS Suma FROM Pedidos GROUP BY Pedidos.Zona HAVING (((Pedidos.Zona)="Norte"));
---
SELECT Pedidos.Zona, Pedidos.Estado, Sum(Pedidos.Importe) AS Suma FROM Pedidos GROUP BY Pedidos.Zona, Pedidos.Estado HAVING (((Pedidos.Zona)="Norte") AND ((Pedidos.Estado) Is Not Null) AND ((Sum(Pedidos.Importe))>100));
---
SELECT Pedidos.Zona, Sum(Pedidos.Importe) AS Suma FROM Pedidos GROUP BY Pedidos.Zona HAVING (((Pedidos.Zona)=[Forms]![frmZona]![cboZona]));
---
SELECT Pedidos.Zona, Sum(Pedidos.Importe) AS Suma FROM Pedidos GROUP BY Pedidos.Zona HAVING (((Pedidos.Zona)="Norte")) OR (((Pedidos.Zona)="Sur"));
---
SELECT Pedidos.Zona, Sum(Pedidos.Importe) AS Suma FROM Pedidos GROUP BY Pedidos.Zona HAVING (((Pedidos.Zona)="Norte")) OR (((Sum(Pedidos.Importe))>100));
---
SELECT Pedidos.Zona, Sum(Pedidos.Importe) AS Suma FROM Pedidos WHERE (((Pedidos.Estado)="A")) GROUP BY Pedidos.Zona;
---
SELECT Pedidos.Zona, Sum(Pedidos.Importe) AS Suma FROM Pedidos WHERE (((Pedidos.Fecha) Between [Desde] And [Hasta])) GROUP BY Pedidos.Zona ORDER BY Pedidos.Zona;
---
SELECT Year([Fecha]) AS Año, Format([Fecha],"mmmm") AS Mes, Sum(Pedidos.Importe) AS Suma FROM Pedidos GROUP BY Year([Fecha]), Format([Fecha],"mmmm"), Month([Fecha]) ORDER BY Year([Fecha]), Month([Fecha]);
---
SELECT Year([Fecha]) AS Año, Sum(Pedidos.Importe) AS Suma FROM Pedidos GROUP BY Year([Fecha]) HAVING (((Year([Fecha]))=2020));
---
SELECT Count(*) AS Total FROM Pedidos;
---
SELECT Sum(Pedidos.Importe) AS Total FROM Pedidos WHERE (((Pedidos.Estado)="A"));
---
SELECT Max(Pedidos.Fecha) AS Ultima, Min(Pedidos.Fecha) AS Primera FROM Pedidos WHERE Pedidos.IdCliente=[Forms]![f]![Id];
---
SELECT Sum([Cantidad]*[Precio]) AS Total FROM Pedidos INNER JOIN Detalle ON Pedidos.IdPedido = Detalle.IdPedido WHERE (((Pedidos.IdPedido)=7));
---
SELECT DMax("Id","Pedidos")+1 AS Siguiente FROM Numeros;
---
SELECT Max([Id])+1 AS Siguiente FROM Pedidos;
---
SELECT Clientes.Nombre, Last(Pedidos.Fecha) AS Ultimo FROM Clientes INNER JOIN Pedidos ON Clientes.Id = Pedidos.Id GROUP BY Clientes.Nombre;
---
SELECT Clientes.Nombre, Sum(IIf([Estado]="A",1,0)) AS Abiertos, Sum(IIf([Estado]="C",1,0)) AS Cerrados FROM Clientes LEFT JOIN Pedidos ON Clientes.Id = Pedidos.IdCliente GROUP BY Clientes.Nombre;
---
SELECT Clientes.Nombre, Nz(Sum([Importe]),0) AS Total FROM Clientes LEFT JOIN Pedidos ON Clientes.Id = Pedidos.IdCliente GROUP BY Clientes.Nombre;
---
SELECT Clientes.Nombre FROM Clientes GROUP BY Clientes.Nombre;
---
SELECT Clientes.Nombre FROM Clientes GROUP BY Clientes.Nombre HAVING (((Clientes.Nombre) Like "A*"));
---
SELECT StDev(Notas.Valor) AS Desviación, Avg(Notas.Valor) AS Media FROM Notas GROUP BY Notas.Curso;
---
SELECT Notas.Curso, Avg(Notas.Valor) AS Media FROM Notas GROUP BY Notas.Curso HAVING (((Avg(Notas.Valor))>=5 And (Avg(Notas.Valor))<=9));
---
SELECT Notas.Curso, Avg(Notas.Valor) AS Media FROM Notas GROUP BY Notas.Curso HAVING (((Notas.Curso)="1º" Or (Notas.Curso)="2º") AND ((Avg(Notas.Valor))>5));
---
SELECT Notas.Curso, Round(Avg([Valor]),2) AS Media FROM Notas GROUP BY Notas.Curso ORDER BY Round(Avg([Valor]),2) DESC;
---
SELECT Notas.Curso, Avg(Notas.Valor) AS Media FROM Notas GROUP BY Notas.Curso, Notas.Grupo ORDER BY Notas.Grupo, Notas.Curso;
---
SELECT Notas.Curso, Count(DISTINCT Notas.Alumno) AS Alumnos FROM Notas GROUP BY Notas.Curso;
---
SELECT Notas.Curso FROM Notas HAVING Count(*)>1;
---
SELECT Notas.Curso, Count(*) FROM Notas GROUP BY Notas.Curso HAVING Notas.Grupo="A";
---
SELECT Notas.Curso, Count(*) FROM Notas GROUP BY 1;
---
SELECT DISTINCT Notas.Curso, Max(Notas.Valor) AS Mejor FROM Notas GROUP BY Notas.Curso;
---
SELECT DISTINCTROW Facturas.Cliente, Sum(Facturas.Total) AS [Sum Of Total] FROM Facturas GROUP BY Facturas.Cliente;
---
SELECT Sum(Facturas.Total) AS T, Sum(Facturas.Total) AS T2 FROM Facturas;
---
SELECT Facturas.Cliente, Sum(Facturas.Total)/Count(*) AS Media FROM Facturas WHERE (((Facturas.Año)>2010) AND ((Facturas.Tipo) In ("A","B"))) GROUP BY Facturas.Cliente HAVING (((Sum([Total])/Count(*))>10));
---
SELECT "Total" AS Concepto, Sum(Facturas.Total) AS Importe FROM Facturas GROUP BY "Total";
---
SELECT Count(*) AS N FROM Facturas WHERE Facturas.Pagada=0 AND (Facturas.Tipo="A" OR Facturas.Tipo="B");
---
SELECT Facturas.Cliente, Count(*) AS N FROM Facturas WHERE Facturas.Pagada=0 OR Facturas.Tipo="X" GROUP BY Facturas.Cliente;
---
SELECT Sum(Total) AS S FROM Facturas WHERE Tipo="A" HAVING Sum(Total)>0;
---
SELECT Facturas.Cliente, Sum(Facturas.Total) AS S FROM Facturas WHERE Count(*)>1 GROUP BY Facturas.Cliente;
---
SELECT Facturas.Cliente, Sum(Facturas.Total)/Count(*) AS Media FROM Facturas WHERE (((Facturas.Total/Count(*))>10));
