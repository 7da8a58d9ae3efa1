-- Stored queries: a grouped one over three tables, a filter on one table, and one with blanks in its column names.
CREATE VIEW ProductosActivos AS
    SELECT IdProducto, Nombre, PrecioUnitario, Existencias FROM Productos WHERE Suspendido = 0;
CREATE VIEW [Ventas por país] AS
    SELECT Clientes.Pais AS Pais, count(*) AS Pedidos, round(sum(Pedidos.Importe), 2) AS Total
    FROM Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente
    GROUP BY Clientes.Pais;
CREATE VIEW [Pedidos pendientes] AS
    SELECT Pedidos.IdPedido AS [Número de pedido], Clientes.Nombre AS Cliente, Pedidos.Fecha AS Fecha,
           Pedidos.Importe AS Importe
    FROM Pedidos INNER JOIN Clientes ON Pedidos.IdCliente = Clientes.IdCliente
    WHERE Pedidos.[Fecha de entrega] IS NULL;
