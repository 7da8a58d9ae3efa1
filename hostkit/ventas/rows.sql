-- The rows. Every value follows from the row's number and five fixed sequences of pseudo-random numbers, so that
-- two builds hold the same data to the last cent and results can be compared between machines.
CREATE TEMP TABLE Azar (n INTEGER PRIMARY KEY, a INTEGER, b INTEGER, c INTEGER, d INTEGER, e INTEGER);
WITH RECURSIVE s(n, a, b, c, d, e) AS (
    SELECT 1, 20071, 31337, 411, 90001, 65537
    UNION ALL
    SELECT n + 1, a * 48271 % 2147483647, b * 16807 % 2147483647, c * 69621 % 2147483647,
           d * 39373 % 2147483647, e * 40692 % 2147483399
    FROM s WHERE n < 70000)
INSERT INTO Azar SELECT n, a / 7, b / 7, c / 7, d / 7, e / 7 FROM s;

-- Words from which names are put together.
CREATE TEMP TABLE Palabras (clase TEXT, n INTEGER, palabra TEXT, PRIMARY KEY (clase, n));
WITH listas(clase, lista) AS (VALUES
    ('nombre', '["Ana","José","María","Íñigo","Lucía","Óscar","Begoña","Raúl","Elena","Andrés","Inés","Nicolás","Sofía","Martín","Ángela","Joaquín","Belén","Héctor","Pilar","Ramón","Concepción","Agustín","Núria","Tomás"]'),
    ('apellido', '["Muñoz","García","Ibáñez","Pérez","Ñíguez","López","Vázquez","Rodríguez","Sáenz","Martínez","Peña","Gómez","Núñez","Hernández","Ordóñez","Jiménez","Castaño","Álvarez","Zúñiga","Domínguez","Úbeda","Gutiérrez","Échevarri"]'),
    ('empresa', '["Almacenes","Comercial","Ultramarinos","Distribuciones","Bodegas","Importaciones","Mercados","Abastos","Viuda de","Hermanos","Casa","Tienda de"]'),
    ('forma', '["S.A.","S.L.","e Hijos","y Cía.","Coop."]'),
    ('ciudad', '["Málaga","A Coruña","Bogotá","Córdoba","Lisboa","Ávila","México D.F.","Asunción","Logroño","Medellín","São Paulo","Cádiz","Valparaíso","León","Múnich","Mérida","Tucumán"]'),
    ('género', '["Aceite","Queso","Jamón","Café","Té","Piñones","Azafrán","Vino","Anís","Turrón","Miel","Arroz","Atún","Pimentón","Almendras","Bacalao","Mazapán","Orujo"]'),
    ('calidad', '["de montaña","extra","añejo","ecológico","de la abuela","sin sal","selección","del país","fino","artesano"]'),
    ('envase', '["caja de 12 latas","24 botellas de 75 cl","10 paquetes de 500 g","saco de 25 kg","6 frascos de ½ l","bandeja de 1 kg"]'),
    ('línea', '["Península 24 h","Baleares marítimo","Canarias aéreo","Europa por carretera","América contenedor","Frío controlado","Económico","Recogida en almacén"]'),
    ('motivo', '["Llegó roto","Caducado","No era lo pedido","Envío duplicado","El cliente cambió de opinión"]'))
INSERT INTO Palabras SELECT clase, key, value FROM listas, json_each(lista);

INSERT INTO Regiones VALUES (1, 'Península Ibérica'), (2, 'Europa'), (3, 'América del Norte'),
    (4, 'América del Sur'), (5, 'Centroamérica');
INSERT INTO Paises VALUES ('España', 'ES', 1), ('Portugal', 'PT', 1), ('Francia', 'FR', 2), ('Alemania', 'DE', 2),
    ('Italia', 'IT', 2), ('Bélgica', 'BE', 2), ('Reino Unido', 'GB', 2), ('México', 'MX', 3),
    ('Estados Unidos', 'US', 3), ('Canadá', 'CA', 3), ('Argentina', 'AR', 4), ('Perú', 'PE', 4), ('Chile', 'CL', 4),
    ('Brasil', 'BR', 4), ('Colombia', 'CO', 4), ('Panamá', 'PA', 5), ('Costa Rica', 'CR', 5);
INSERT INTO Territorios
    SELECT printf('T%03d', n), 'Zona ' || char(64 + (n + 4) / 5) || ' ' || ((n - 1) % 5 + 1), (n - 1) % 5 + 1
    FROM Azar WHERE n <= 40;
INSERT INTO [Categorías] VALUES
    (1, 'Bebidas', 'Refrescos, cafés, tés, cervezas y licores'), (2, 'Condimentos', 'Salsas, especias y aliños'),
    (3, 'Repostería', 'Postres, dulces y panes'), (4, 'Lácteos', 'Quesos y natas'),
    (5, 'Granos y cereales', NULL), (6, 'Carnes', 'Carnes preparadas y embutidos'),
    (7, 'Frutas y verduras', 'Frutas secas y encurtidos'), (8, 'Pescados y mariscos', NULL);
INSERT INTO Proveedores
    SELECT n, (SELECT palabra FROM Palabras WHERE clase = 'empresa' AND n = Azar.a % 12) || ' ' ||
              (SELECT palabra FROM Palabras WHERE clase = 'apellido' AND n = Azar.b % 23),
           (SELECT palabra FROM Palabras WHERE clase = 'ciudad' AND n = Azar.c % 17),
           CASE WHEN n % 11 = 0 THEN NULL ELSE (SELECT Pais FROM Paises WHERE rowid = Azar.d % 17 + 1) END,
           CASE WHEN n % 7 = 0 THEN NULL ELSE printf('9%02d %03d %03d', a % 100, b % 1000, c % 1000) END
    FROM Azar WHERE n <= 30;
INSERT INTO Productos
    SELECT n, (SELECT palabra FROM Palabras WHERE clase = 'género' AND n = (Azar.n - 1) % 18) || ' ' ||
              (SELECT palabra FROM Palabras WHERE clase = 'calidad' AND n = (Azar.n - 1) / 18),
           CASE WHEN n % 25 = 0 THEN NULL ELSE b % 30 + 1 END,
           CASE WHEN n % 40 = 0 THEN NULL ELSE c % 8 + 1 END,
           CASE WHEN n % 9 = 0 THEN NULL ELSE (SELECT palabra FROM Palabras WHERE clase = 'envase' AND n = Azar.d % 6) END,
           (e % 19900 + 95) / 100.0, d % 500, n % 13 = 0,
           CASE WHEN n % 10 = 0 THEN NULL ELSE (a % 4000 + 125) / 1000.0 END
    FROM Azar WHERE n <= 150;
INSERT INTO Empleados
    SELECT n, (SELECT palabra FROM Palabras WHERE clase = 'nombre' AND n = Azar.n - 1),
           (SELECT palabra FROM Palabras WHERE clase = 'apellido' AND n = Azar.b % 23) || ' ' ||
           (SELECT palabra FROM Palabras WHERE clase = 'apellido' AND n = Azar.c % 23),
           CASE WHEN n = 1 THEN 'Directora general' WHEN n <= 5 THEN 'Jefe de zona' ELSE 'Agente comercial' END,
           CASE WHEN n = 1 THEN NULL WHEN n <= 5 THEN 1 ELSE (n - 6) % 4 + 2 END,
           CASE WHEN n % 8 = 0 THEN NULL ELSE date('1955-01-01', (d % 13000) || ' days') END,
           datetime('1992-05-01 09:00:00', (e % 8000) || ' days'), (a % 250000 + 110000) / 100.0,
           CASE n % 3 WHEN 0 THEN NULL
                WHEN 1 THEN 'Habla inglés y francés.' || char(13, 10) || 'Disponible para viajar.'
                ELSE 'Lleva la cartera de la zona ' || n || '.' END
    FROM Azar WHERE n <= 24;
INSERT INTO [Empleados y territorios]
    SELECT e.IdEmpleado, printf('T%03d', (e.IdEmpleado * 7 + k.n * 11) % 40 + 1)
    FROM Empleados e JOIN (SELECT n FROM Azar WHERE n <= 3) k;
INSERT INTO Transportistas VALUES (1, 'Rápido del Sur', '955 010 203'), (2, 'Envíos Ñandú', NULL),
    (3, 'Naviera Atlántica', '928 445 566'), (4, 'Correo Aéreo', '914 778 899');
INSERT INTO [Líneas de envío]
    SELECT n, (n - 1) % 4 + 1, (SELECT palabra FROM Palabras WHERE clase = 'línea' AND n = Azar.n - 1), n * 3 % 11 + 1,
           CASE WHEN n = 8 THEN NULL ELSE (a % 4000 + 350) / 100.0 END
    FROM Azar WHERE n <= 8;
INSERT INTO Clientes
    SELECT n, (SELECT palabra FROM Palabras WHERE clase = 'empresa' AND n = Azar.a % 12) || ' ' ||
              (SELECT palabra FROM Palabras WHERE clase = 'apellido' AND n = Azar.b % 23) || ' ' ||
              (SELECT palabra FROM Palabras WHERE clase = 'forma' AND n = Azar.c % 5) ||
              CASE WHEN n > 200 THEN ' (' || n || ')' ELSE '' END,
           CASE WHEN n % 6 = 0 THEN NULL
                ELSE (SELECT palabra FROM Palabras WHERE clase = 'nombre' AND n = Azar.d % 24) || ' ' ||
                     (SELECT palabra FROM Palabras WHERE clase = 'apellido' AND n = Azar.e % 23) END,
           (SELECT palabra FROM Palabras WHERE clase = 'ciudad' AND n = Azar.e % 17),
           (SELECT Pais FROM Paises WHERE rowid = min(Azar.d % 17, Azar.a % 17) + 1),
           CASE WHEN n % 5 = 0 THEN NULL ELSE 'compras' || n || '@cliente.example' END,
           datetime('1998-01-07 08:30:00', (b % 6500) || ' days', (c % 32000) || ' seconds'),
           CASE WHEN n % 4 = 0 THEN NULL ELSE (c % 90 + 10) * 100 END, n % 17 <> 0
    FROM Azar WHERE n <= 400;
INSERT INTO Pedidos
    SELECT n, min(a % 400, b % 400) + 1, c % 24 + 1, CASE WHEN d % 20 = 0 THEN NULL ELSE d % 8 + 1 END,
           datetime('2015-01-02 08:00:00', (n / 4) || ' days', (e % 36000) || ' seconds'),
           CASE WHEN n > 15800 OR e % 50 = 0 THEN NULL
                ELSE datetime('2015-01-02 00:00:00', (n / 4 + e % 20 + 1) || ' days') END,
           0, b % 30 = 0,
           CASE WHEN c % 12 = 0 THEN 'Llamar al 95' || (a % 10) || ' antes de la entrega; preguntar por "Compras".'
                WHEN c % 500 = 1 THEN replace(printf('%.400c', 'x'), 'x', 'Condición pactada con el cliente. ') END
    FROM Azar WHERE n <= 16000;
-- One to four lines an order. 37 and 150 have no common divisor, so the products of an order differ.
INSERT INTO [Detalle de pedidos]
    SELECT p.IdPedido, x.IdProducto, x.PrecioUnitario, z.a % 40 + 1, (z.b % 5) * 0.05 * (z.c % 2)
    FROM Pedidos p JOIN Azar o ON o.n = p.IdPedido + 16000
         JOIN (SELECT n - 1 AS k FROM Azar WHERE n <= 4) l ON l.k <= o.d % 4
         JOIN Productos x ON x.IdProducto = (o.e + l.k * 37) % 150 + 1
         JOIN Azar z ON z.n = (p.IdPedido * 4 + l.k) % 70000 + 1
    ORDER BY p.IdPedido, x.IdProducto;
UPDATE Pedidos SET Importe = (SELECT round(sum(round(d.PrecioUnitario * d.Cantidad * (1 - d.Descuento), 2)), 2)
                              FROM [Detalle de pedidos] d WHERE d.IdPedido = Pedidos.IdPedido);
INSERT INTO Devoluciones
    SELECT row_number() OVER (ORDER BY d.IdPedido, d.IdProducto), d.IdPedido, d.IdProducto,
           datetime(p.Fecha, '+15 days'), max(1, d.Cantidad / 2), z.b % 3 > 0,
           CASE WHEN z.c % 6 = 5 THEN NULL ELSE (SELECT palabra FROM Palabras WHERE clase = 'motivo' AND n = z.c % 6) END
    FROM [Detalle de pedidos] d JOIN Pedidos p ON p.IdPedido = d.IdPedido JOIN Azar z ON z.n = d.IdPedido
    WHERE z.a % 60 = 0;
DROP TABLE Palabras;
DROP TABLE Azar;
