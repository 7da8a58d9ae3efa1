SELECT Orders.OrderID, [Order Details].Quantity FROM Orders INNER JOIN [Order Details] ON Orders.OrderID = [Order Details].OrderID;
---
SELECT Clientes.Nombre, Pedidos.Fecha FROM Clientes LEFT JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente;
---
SELECT Clientes.Nombre, Pedidos.Fecha FROM Clientes RIGHT JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente;
---
SELECT Clientes.Nombre, Pedidos.Fecha FROM Clientes INNER JOIN Pedidos ON Pedidos.IdCliente = Clientes.IdCliente WHERE (((Pedidos.Fecha)>#1/1/2020#));
---
SELECT Customers.CompanyName, Orders.OrderDate, [Order Details].UnitPrice FROM (Customers INNER JOIN Orders ON Customers.CustomerID = Orders.CustomerID) INNER JOIN [Order Details] ON Orders.OrderID = [Order Details].OrderID;
---
SELECT Customers.CompanyName, Products.ProductName FROM Customers INNER JOIN (Products INNER JOIN (Orders INNER JOIN [Order Details] ON Orders.OrderID = [Order Details].OrderID) ON Products.ProductID = [Order Details].ProductID) ON Customers.CustomerID = Orders.CustomerID;
---
SELECT A.x, B.y, C.z FROM A INNER JOIN (B INNER JOIN C ON B.c = C.c) ON A.b = B.b;
---
SELECT A.x FROM (A LEFT JOIN B ON A.b = B.b) LEFT JOIN C ON B.c = C.c;
---
SELECT A.x FROM (A LEFT JOIN B ON A.b = B.b) LEFT JOIN C ON A.c = C.c;
---
SELECT A.x FROM A LEFT JOIN (B LEFT JOIN C ON B.c = C.c) ON A.b = B.b;
---
SELECT A.x FROM A LEFT JOIN (B INNER JOIN C ON B.c = C.c) ON A.b = B.b;
---
SELECT A.x FROM (B INNER JOIN C ON B.c = C.c) RIGHT JOIN A ON B.b = A.b;
---
SELECT A.x FROM (A INNER JOIN B ON A.b = B.b) LEFT JOIN C ON B.c = C.c;
---
SELECT A.x FROM C RIGHT JOIN (A INNER JOIN B ON A.b = B.b) ON C.c = B.c;
---
SELECT A.x FROM (A LEFT JOIN B ON A.b = B.b) INNER JOIN C ON A.c = C.c;
---
SELECT A.x FROM C INNER JOIN (A LEFT JOIN B ON A.b = B.b) ON C.c = A.c;
---
SELECT A.x FROM (A RIGHT JOIN B ON A.b = B.b) RIGHT JOIN C ON B.c = C.c;
---
SELECT A.x FROM (A RIGHT JOIN B ON A.b = B.b) LEFT JOIN C ON B.c = C.c;
---
SELECT A.x FROM (A INNER JOIN B ON A.b = B.b) LEFT JOIN (C INNER JOIN D ON C.d = D.d) ON B.c = C.c;
---
SELECT A.x FROM (A LEFT JOIN B ON A.b = B.b) INNER JOIN (C LEFT JOIN D ON C.d = D.d) ON A.c = C.c;
---
SELECT A.x FROM (A LEFT JOIN (B INNER JOIN C ON B.c = C.c) ON A.b = B.b) LEFT JOIN D ON A.d = D.d;
---
SELECT A.x FROM (A LEFT JOIN (B INNER JOIN C ON B.c = C.c) ON A.b = B.b) LEFT JOIN (D INNER JOIN E ON D.e = E.e) ON A.d = D.d;
---
SELECT A.x FROM A INNER JOIN B ON (A.k1 = B.k1) AND (A.k2 = B.k2);
---
SELECT A.x FROM A INNER JOIN B ON (A.k2 = B.k2) AND (A.k1 = B.k1) WHERE (((B.y)>5));
---
SELECT A.x FROM (A INNER JOIN B ON (A.k1 = B.k1) AND (A.k2 = B.k2)) INNER JOIN C ON (B.c1 = C.c1) AND (B.c2 = C.c2);
---
SELECT A.x FROM A LEFT JOIN B ON (A.k1 = B.k1) AND (A.k2 = B.k2);
---
SELECT A.x FROM A RIGHT JOIN B ON (A.k1 = B.k1) AND (A.k2 = B.k2) WHERE (((A.k1) Is Null));
---
SELECT A.x FROM A INNER JOIN B ON A.b = B.b AND B.tipo = "N";
---
SELECT A.x FROM A LEFT JOIN B ON (A.b = B.b AND B.tipo = "N");
---
SELECT A.x FROM A INNER JOIN B ON A.desde <= B.fecha;
---
SELECT A.x FROM A INNER JOIN B ON A.b = B.b OR A.c = B.c;
---
SELECT A.x FROM A INNER JOIN B ON Val(A.codigo) = B.codigo;
---
SELECT A.x FROM A INNER JOIN B ON A.nombre Like B.patron;
---
SELECT Clientes.Nombre, Pedidos.Fecha FROM Clientes, Pedidos WHERE Clientes.IdCliente = Pedidos.IdCliente;
---
SELECT c.Nombre, p.Fecha FROM Clientes c, Pedidos p WHERE c.IdCliente = p.IdCliente AND p.Total > 100;
---
SELECT A.x, B.y FROM A, B;
---
SELECT A.x, C.z FROM A, B INNER JOIN C ON B.c = C.c;
---
SELECT A.x, C.z FROM A, B LEFT JOIN C ON B.c = C.c WHERE A.b = B.b;
---
SELECT A.x FROM A INNER JOIN B ON A.b = B.b, C INNER JOIN D ON C.d = D.d;
---
SELECT A.x FROM A, B RIGHT JOIN C ON B.c = C.c;
---
SELECT * FROM Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente;
---
SELECT * FROM A LEFT JOIN (B INNER JOIN C ON B.c = C.c) ON A.b = B.b;
---
SELECT A.*, B.y FROM A LEFT JOIN B ON A.b = B.b WHERE (((B.b) Is Null));
---
SELECT [Kunder].[Namn], [Beställningar].[Belopp] FROM [Kunder] INNER JOIN [Beställningar] ON [Kunder].[KundID]=[Beställningar].[KundID];
---
SELECT Funcionários.Nome, Departamentos.Descrição FROM Departamentos RIGHT JOIN Funcionários ON Departamentos.Código = Funcionários.[Código do departamento];
---
SELECT o.Numero, d.Linea, p.Nombre FROM (Ordenes AS o INNER JOIN Detalle AS d ON o.Numero = d.Numero) LEFT JOIN Productos AS p ON d.IdProducto = p.IdProducto;
---
SELECT t1.a, t2.b FROM [Tabla uno] AS t1 INNER JOIN [Tabla dos] AS t2 ON t1.[Código #] = t2.[Código #];
---
SELECT Clientes!Nombre, Pedidos!Fecha FROM Clientes INNER JOIN Pedidos ON Clientes!IdCliente = Pedidos!IdCliente;
---
SELECT T0.a, T5.b FROM ((((T0 INNER JOIN T1 ON T0.k = T1.k) INNER JOIN T2 ON T1.k = T2.k) LEFT JOIN T3 ON T2.k = T3.k) LEFT JOIN T4 ON T2.j = T4.j) LEFT JOIN T5 ON T4.k = T5.k;
---
SELECT T0.a FROM T5 RIGHT JOIN (T4 RIGHT JOIN (T3 RIGHT JOIN (T2 INNER JOIN (T0 INNER JOIN T1 ON T0.k = T1.k) ON T2.k = T1.k) ON T3.k = T2.k) ON T4.j = T2.j) ON T5.k = T0.k;
---
SELECT A.x FROM A INNER JOIN B ON (A.b = B.b);
---
SELECT A.x FROM A INNER JOIN B ON A.[b c] = B.[b c] WHERE A.x <> B.x ORDER BY B.[b c] DESC;
---
SELECT A.x FROM ((A INNER JOIN B ON A.b = B.b));
---
SELECT A.x FROM A INNER JOIN B ON A.b = B.b INNER JOIN C ON B.c = C.c;
---
SELECT A.x FROM A LEFT OUTER JOIN B ON A.b = B.b;
---
SELECT A.x FROM A JOIN B ON A.b = B.b;
---
SELECT A.x FROM A CROSS JOIN B;
---
SELECT A.x FROM A FULL JOIN B ON A.b = B.b;
---
SELECT e.Nombre, j.Nombre AS Jefe FROM Empleados AS e LEFT JOIN Empleados AS j ON e.IdJefe = j.IdEmpleado;
---
SELECT Empleados.Nombre, Empleados_1.Nombre FROM Empleados INNER JOIN Empleados AS Empleados_1 ON Empleados.IdJefe = Empleados_1.IdEmpleado;
---
SELECT Juegos.Fecha, Equipos.Nombre, Equipos_1.Nombre FROM (Juegos INNER JOIN Equipos ON Juegos.Local = Equipos.Id) INNER JOIN Equipos AS Equipos_1 ON Juegos.Visita = Equipos_1.Id;
---
SELECT Clientes.Nombre, Pedidos.Fecha FROM {oj Clientes LEFT OUTER JOIN Pedidos ON Clientes.Id = Pedidos.IdCliente} WHERE Clientes.Zona = 3;
---
SELECT P.Id, L.Cantidad, A.Nombre FROM {oj (Pedidos AS P INNER JOIN Lineas AS L ON P.Id = L.IdPedido) LEFT OUTER JOIN Articulos AS A ON L.IdArticulo = A.Id} ORDER BY P.Id;
---
SELECT Empleados.Apellidos, Sum(Lineas.Precio*Lineas.Cantidad) AS Ventas FROM Empleados INNER JOIN(Pedidos INNER JOIN Lineas ON Lineas.IdPedido = Pedidos.Id ) ON Pedidos.IdEmpleado = Empleados.Id GROUP BY Empleados.Apellidos;
