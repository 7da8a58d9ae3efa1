SELECT [Nombre] & " " & [Apellidos] AS Completo FROM Empleados;
---
SELECT Empleados.Nombre & ", " & Empleados.Apellidos AS Completo, Empleados.Id FROM Empleados ORDER BY Empleados.Apellidos;
---
SELECT IIf([Sexo]="M","Hombre","Mujer") AS Genero, Empleados.Id FROM Empleados;
---
SELECT IIf(IsNull([Baja]),"Activo",IIf([Baja]>Date(),"Preaviso","Baja")) AS Estado FROM Empleados;
---
SELECT Nz([Sueldo],0)*14 AS Anual FROM Empleados;
---
SELECT Format([Fecha],"dd/mm/yyyy") AS Día, Format([Importe],"#,##0.00") AS Valor FROM Pedidos;
---
SELECT Round([Precio]*1.21,2) AS PVP FROM Productos ORDER BY Round([Precio]*1.21,2);
---
SELECT DateDiff("d",[Inicio],[Fin]) AS Días FROM Proyectos WHERE (((DateDiff("d",[Inicio],[Fin]))>30));
---
SELECT Int((Date()-[Nacimiento])/365.25) AS Edad FROM Personas WHERE (((Int((Date()-[Nacimiento])/365.25))>=18));
---
SELECT Switch([Nota]<5,"Suspenso",[Nota]<7,"Aprobado",True,"Notable") AS Texto FROM Notas;
---
SELECT Choose([Dia],"lunes","martes","miércoles") AS NombreDia FROM Agenda;
---
SELECT Left$([Codigo],3) AS Prefijo, Mid$([Codigo],4) AS Resto FROM Piezas;
---
SELECT Trim(UCase([Nombre])) AS N FROM Piezas WHERE Trim(UCase([Nombre]))<>"";
---
SELECT DLookup("Nombre","Clientes","Id=" & [IdCliente]) AS Cliente FROM Pedidos;
---
SELECT Pedidos.*, [Cantidad]*[Precio] AS Importe FROM Pedidos;
---
SELECT Pedidos.Id, ([Cantidad]*[Precio])*(1-[Descuento]) AS Importe FROM Pedidos;
---
SELECT Pedidos.Id, -[Saldo] AS Debe, [Total]^2 AS Cuadrado, [Total]\2 AS Mitad, [Total] Mod 2 AS Resto FROM Pedidos;
---
SELECT Pedidos.Id, [Forms]![frmPedidos]![txtTitulo] AS Titulo FROM Pedidos;
---
SELECT Pedidos.Id, Forms!frmPedidos.Controles!txt AS Titulo FROM Pedidos;
---
SELECT Pedidos.Id, (SELECT Max(Fecha) FROM Visitas WHERE Visitas.IdPedido=Pedidos.Id) AS Ultima FROM Pedidos;
---
SELECT Pedidos.Id, (SELECT Count(*) FROM Lineas) AS N FROM Pedidos ORDER BY Pedidos.Id;
---
SELECT CDate([Texto]) AS Fecha, CInt([Num]) AS N, Val([Cod]) AS V FROM Importación;
---
SELECT Chr(13) & Chr(10) & [Dirección] AS Etiqueta FROM Clientes;
---
SELECT MiFuncion([a],,[b]) AS r, Otra(,[c]) AS s FROM Datos;
---
SELECT @fecha AS Hoy, @pagenumber AS Pagina, Datos.a FROM Datos;
---
SELECT @{Nombre del informe} AS Informe, Datos.a FROM Datos;
---
SELECT #12/31/2020# AS Cierre, #10:30:00# AS Hora, Datos.a FROM Datos;
---
SELECT CASE WHEN a > 0 THEN 'pos' ELSE 'neg' END AS signo FROM Datos;
---
SELECT CAST(a AS int) AS n, b::text AS c, COALESCE(d, 0) AS e FROM Datos;
---
SELECT Iif([a]=1 Or [b]=2, "x", "y") AS r FROM Datos WHERE (((Iif([a]=1 Or [b]=2, "x", "y"))="x"));
---
SELECT [Datos].[a]+[Datos].[b] AS suma, [Datos].[a] AS a FROM Datos ORDER BY [Datos].[a]+[Datos].[b] DESC;
---
SELECT Datos.a AS b, Datos.b AS a FROM Datos ORDER BY Datos.a;
---
SELECT Format(Nz([Fecha],Now()),"yyyy-mm-dd hh:nn") AS f FROM Datos;
---
SELECT "a" & "b" & 'c' AS abc, 1.5e3 AS mil, &HFF AS hex FROM Datos;
---
SELECT Eval("1+1") AS dos, Rnd([Id]) AS azar FROM Datos ORDER BY Rnd([Id]);
---
SELECT [Primero] + [Segundo] AS Total, Datos.[Primero] FROM Datos WHERE (((([Primero]+[Segundo]))>100));
---
SELECT {fn UCASE(Socios.Nombre)} AS Nombre1, {fn CONCAT(Socios.Nombre, {fn LEFT(Socios.Zona, 2)})} AS Clave FROM Socios WHERE Socios.Alta >= {d '2020-01-31'} AND {fn LENGTH(Socios.Nombre)} > 3 ORDER BY Socios.Nombre;
---
SELECT Facturas.Id FROM Facturas WHERE Facturas.Pagada = On AND Facturas.Anulada = Off;
---
SELECT Facturas.Id FROM Facturas WHERE Facturas.Zona=5AND Facturas.Serie='A';
---
SELECT Articulos.Codigo FROM Articulos WHERE Articulos.Codigo LIKE 'A!_%' {escape '!'};
---
SELECT c.Nombre, {fn YEAR(c.Alta)} AS Anio FROM Clientes AS c WHERE {fn MONTH(c.Alta)} = 5;
---
SELECT Permisos.Usuario, Permisos.Bits BAND 4 AS Escribe FROM Permisos WHERE (Permisos.Bits BAND 1) <> 0 ORDER BY Permisos.Bits BOR 2;
---
SELECT Discos.Titulo, Discos.Band FROM Discos WHERE Discos.Band = 'Los del Sur';
