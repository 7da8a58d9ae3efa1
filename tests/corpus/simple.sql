SELECT Clientes.* FROM Clientes;
---
SELECT * FROM Productos;
---
SELECT Clientes.IdCliente, Clientes.Nombre, Clientes.Ciudad FROM Clientes ORDER BY Clientes.Nombre;
---
SELECT [Nombre], [Apellidos] FROM Empleados;
---
SELECT Empleados.[Fecha de alta], Empleados.[Nº Seguro], Empleados.[¿Activo?] FROM Empleados;
---
SELECT [Parts List].[Part #], [Parts List].[Cost/Unit], [Parts List].[Mark-up %] FROM [Parts List];
---
SELECT DISTINCT Clientes.Pais FROM Clientes ORDER BY Clientes.Pais;
---
SELECT DISTINCTROW Proveedores.Compañía, Proveedores.Contacto FROM Proveedores;
---
SELECT DISTINCTROW Orders.* FROM Orders ORDER BY Orders.OrderDate DESC;
---
SELECT tblVeículos.Matrícula, tblVeículos.Ano, tblVeículos.[Preço de compra] FROM tblVeículos ORDER BY tblVeículos.Ano DESC;
---
SELECT Kunder.Förnamn, Kunder.Efternamn, Kunder.Ålder FROM Kunder ORDER BY Kunder.Efternamn, Kunder.Förnamn;
---
SELECT Πελάτες.Επώνυμο, Πελάτες.[Αριθμός Τηλεφώνου] FROM Πελάτες ORDER BY Πελάτες.Επώνυμο;
---
SELECT Klanten.Naam, Klanten.Straat & " " & Klanten.Huisnummer AS Adres FROM Klanten;
---
SELECT p.Codigo, p.Descripcion FROM Productos AS p;
---
SELECT p.Codigo, p.Descripcion FROM Productos p ORDER BY p.Codigo;
---
SELECT Productos.Codigo AS Código, Productos.Precio AS [Precio de venta] FROM Productos;
---
SELECT Ventas.Importe AS 2009, Ventas.Media AS 90DaysAvg FROM Ventas;
---
SELECT 87089_Items.ItemNo, 87089_Items.Qty FROM 87089_Items;
---
SELECT Sales.Year, Sales.Month, Sales.Value AS Year2 FROM Sales;
---
SELECT Sales.Amount AS Year FROM Sales;
---
SELECT `Sales Reps`.`Rep Name` FROM `Sales Reps`;
---
SELECT Documentos.Adjuntos.Value FROM Documentos;
---
SELECT Temas.Tema, Temas.Autor
FROM Temas
ORDER BY Temas.Tema;
---
select nombre,apellidos
  from   empleados
 order by apellidos , nombre ;
---
SELECT Empleados.Nombre -- nombre de pila
FROM Empleados /* tabla principal */;
---
SELECT Id FROM Registro ORDER BY Id DESC;
---
SELECT First([Nombre Campo]) AS [Nombre Campo], Count([Nombre Campo]) AS Veces FROM Lista GROUP BY [Nombre Campo] HAVING Count([Nombre Campo])>1;
---
SELECT Switchboard.ItemNumber, Switchboard.ItemText FROM Switchboard ORDER BY ItemNumber;
---
SELECT Null AS Vacio, Tabla1.Id FROM Tabla1;
---
SELECT "Todos" AS Texto, 0 AS Id FROM Opciones;
