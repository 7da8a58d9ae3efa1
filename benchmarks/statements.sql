SELECT Clientes.Nombre, Clientes.Ciudad, Clientes.Pais, Clientes.Correo, Clientes.Contacto
FROM Clientes
WHERE (((Clientes.Pais)='Chile') AND ((Clientes.Activo)=1) AND ((Clientes.[Límite de crédito])>1000))
ORDER BY Clientes.Nombre;
---
SELECT Pedidos.IdPedido, Pedidos.Fecha, Clientes.Nombre, Pedidos.Importe
FROM Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente
WHERE Pedidos.Importe > 500 AND Clientes.Pais IN ('Chile', 'Perú', 'España')
ORDER BY Pedidos.Fecha DESC, Clientes.Nombre;
---
SELECT Productos.Nombre, Productos.PrecioUnitario, [Categorías].[Categoría], Proveedores.Nombre AS Proveedor
FROM Proveedores INNER JOIN ([Categorías] INNER JOIN Productos ON [Categorías].[IdCategoría] = Productos.[IdCategoría]) ON Proveedores.IdProveedor = Productos.IdProveedor
WHERE (((Productos.Suspendido)=0) AND ((Productos.Existencias) BETWEEN 10 AND 100));
---
SELECT Clientes.Pais, Count(*) AS Pedidos, Sum(Pedidos.Importe) AS Total, Avg(Pedidos.Importe) AS Media, Max(Pedidos.Fecha) AS Ultimo
FROM Clientes LEFT JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente
WHERE Clientes.Activo = 1
GROUP BY Clientes.Pais
HAVING (((Sum(Pedidos.Importe))>1000))
ORDER BY Sum(Pedidos.Importe) DESC;
---
SELECT e.Nombre, e.Apellidos, e.Cargo, t.Territorio, r.Region, e.Sueldo * 14 AS Anual
FROM ((Empleados AS e INNER JOIN [Empleados y territorios] AS et ON e.IdEmpleado = et.IdEmpleado)
INNER JOIN Territorios AS t ON et.IdTerritorio = t.IdTerritorio)
INNER JOIN Regiones AS r ON t.IdRegion = r.IdRegion
WHERE e.Sueldo > 1500.50 AND (e.Cargo LIKE 'Jefe%' OR e.Cargo LIKE 'Director%') AND NOT (e.Notas IS NULL)
ORDER BY r.Region, e.Apellidos, e.Nombre;
---
SELECT Pedidos.IdPedido, Clientes.Nombre, Empleados.Apellidos, [Líneas de envío].[Descripción], Transportistas.Nombre AS Transportista, Sum([Detalle de pedidos].Cantidad * [Detalle de pedidos].PrecioUnitario * (1 - [Detalle de pedidos].Descuento)) AS Neto
FROM ((((Pedidos INNER JOIN Clientes ON Pedidos.IdCliente = Clientes.IdCliente)
INNER JOIN Empleados ON Pedidos.IdEmpleado = Empleados.IdEmpleado)
INNER JOIN [Detalle de pedidos] ON Pedidos.IdPedido = [Detalle de pedidos].IdPedido)
INNER JOIN [Líneas de envío] ON Pedidos.[IdLínea] = [Líneas de envío].[IdLínea])
INNER JOIN Transportistas ON [Líneas de envío].IdTransportista = Transportistas.IdTransportista
WHERE Pedidos.Urgente = 1 AND Clientes.Pais <> 'Francia'
GROUP BY Pedidos.IdPedido, Clientes.Nombre, Empleados.Apellidos, [Líneas de envío].[Descripción], Transportistas.Nombre
HAVING Sum([Detalle de pedidos].Cantidad) > 10
ORDER BY Clientes.Nombre, Pedidos.IdPedido;
---
SELECT Clientes.Nombre, IIf(Clientes.[Límite de crédito] IS NULL, 0, Clientes.[Límite de crédito]) AS Credito, Clientes.Ciudad || ' (' || Clientes.Pais || ')' AS Lugar
FROM Clientes
WHERE Clientes.IdCliente IN (SELECT Pedidos.IdCliente FROM Pedidos WHERE Pedidos.Importe > 2000)
AND EXISTS (SELECT * FROM Paises WHERE Paises.Pais = Clientes.Pais AND Paises.Codigo LIKE 'C%')
ORDER BY Clientes.Nombre;
---
SELECT Productos.Nombre, CASE WHEN Productos.Existencias = 0 THEN 'agotado' WHEN Productos.Existencias < 10 THEN 'bajo' ELSE 'normal' END AS Estado, Productos.PrecioUnitario * 1.21 AS ConImpuesto
FROM Productos LEFT JOIN [Categorías] ON Productos.[IdCategoría] = [Categorías].[IdCategoría]
WHERE ([Categorías].[Categoría] = 'Bebidas' OR [Categorías].[Categoría] = 'Quesos') AND Productos.Suspendido = 0
UNION ALL
SELECT Proveedores.Nombre, Proveedores.Ciudad, 0 FROM Proveedores WHERE Proveedores.Pais IS NOT NULL;
---
SELECT Pedidos.IdPedido, Pedidos.Fecha, Pedidos.[Fecha de entrega], Pedidos.Importe, Clientes.Nombre AS Cliente, Clientes.Contacto, Clientes.Ciudad, Clientes.Pais, Clientes.Correo, Empleados.Nombre AS Vendedor, Empleados.Apellidos, Empleados.Cargo, Productos.Nombre AS Producto, Productos.[Cantidad por unidad], [Detalle de pedidos].Cantidad, [Detalle de pedidos].PrecioUnitario AS Precio, [Detalle de pedidos].Descuento, [Detalle de pedidos].Cantidad * [Detalle de pedidos].PrecioUnitario AS Bruto, [Detalle de pedidos].Cantidad * [Detalle de pedidos].PrecioUnitario * (1 - [Detalle de pedidos].Descuento) AS Neto, [Categorías].[Categoría], Proveedores.Nombre AS Proveedor, Proveedores.[Teléfono], [Líneas de envío].[Descripción] AS Envio, [Líneas de envío].Tarifa, Transportistas.Nombre AS Transportista, IIf(Pedidos.Urgente = 1, 'sí', 'no') AS Urgencia, Pedidos.Observaciones
FROM (((((((Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente)
INNER JOIN Empleados ON Pedidos.IdEmpleado = Empleados.IdEmpleado)
INNER JOIN [Detalle de pedidos] ON Pedidos.IdPedido = [Detalle de pedidos].IdPedido)
INNER JOIN Productos ON [Detalle de pedidos].IdProducto = Productos.IdProducto)
LEFT JOIN [Categorías] ON Productos.[IdCategoría] = [Categorías].[IdCategoría])
LEFT JOIN Proveedores ON Productos.IdProveedor = Proveedores.IdProveedor)
LEFT JOIN [Líneas de envío] ON Pedidos.[IdLínea] = [Líneas de envío].[IdLínea])
LEFT JOIN Transportistas ON [Líneas de envío].IdTransportista = Transportistas.IdTransportista
WHERE (((Pedidos.Fecha)>='2024-01-01') AND ((Pedidos.Fecha)<'2025-01-01') AND ((Clientes.Pais) IN ('Chile', 'Perú', 'Argentina', 'España', 'México', 'Colombia')) AND ((Productos.Suspendido)=0) AND ((Empleados.Cargo) LIKE 'Vend%'))
ORDER BY Pedidos.Fecha DESC, Clientes.Nombre, Productos.Nombre;
---
SELECT Clientes.Pais, Clientes.Ciudad,
Count(IIf(strftime('%m', Pedidos.Fecha) = '01', Pedidos.IdPedido, NULL)) AS Pedidos01, Sum(IIf(strftime('%m', Pedidos.Fecha) = '01', Pedidos.Importe, 0)) AS Importe01,
Count(IIf(strftime('%m', Pedidos.Fecha) = '02', Pedidos.IdPedido, NULL)) AS Pedidos02, Sum(IIf(strftime('%m', Pedidos.Fecha) = '02', Pedidos.Importe, 0)) AS Importe02,
Count(IIf(strftime('%m', Pedidos.Fecha) = '03', Pedidos.IdPedido, NULL)) AS Pedidos03, Sum(IIf(strftime('%m', Pedidos.Fecha) = '03', Pedidos.Importe, 0)) AS Importe03,
Count(IIf(strftime('%m', Pedidos.Fecha) = '04', Pedidos.IdPedido, NULL)) AS Pedidos04, Sum(IIf(strftime('%m', Pedidos.Fecha) = '04', Pedidos.Importe, 0)) AS Importe04,
Count(IIf(strftime('%m', Pedidos.Fecha) = '05', Pedidos.IdPedido, NULL)) AS Pedidos05, Sum(IIf(strftime('%m', Pedidos.Fecha) = '05', Pedidos.Importe, 0)) AS Importe05,
Count(IIf(strftime('%m', Pedidos.Fecha) = '06', Pedidos.IdPedido, NULL)) AS Pedidos06, Sum(IIf(strftime('%m', Pedidos.Fecha) = '06', Pedidos.Importe, 0)) AS Importe06,
Count(IIf(strftime('%m', Pedidos.Fecha) = '07', Pedidos.IdPedido, NULL)) AS Pedidos07, Sum(IIf(strftime('%m', Pedidos.Fecha) = '07', Pedidos.Importe, 0)) AS Importe07,
Count(IIf(strftime('%m', Pedidos.Fecha) = '08', Pedidos.IdPedido, NULL)) AS Pedidos08, Sum(IIf(strftime('%m', Pedidos.Fecha) = '08', Pedidos.Importe, 0)) AS Importe08,
Count(IIf(strftime('%m', Pedidos.Fecha) = '09', Pedidos.IdPedido, NULL)) AS Pedidos09, Sum(IIf(strftime('%m', Pedidos.Fecha) = '09', Pedidos.Importe, 0)) AS Importe09,
Count(IIf(strftime('%m', Pedidos.Fecha) = '10', Pedidos.IdPedido, NULL)) AS Pedidos10, Sum(IIf(strftime('%m', Pedidos.Fecha) = '10', Pedidos.Importe, 0)) AS Importe10,
Count(IIf(strftime('%m', Pedidos.Fecha) = '11', Pedidos.IdPedido, NULL)) AS Pedidos11, Sum(IIf(strftime('%m', Pedidos.Fecha) = '11', Pedidos.Importe, 0)) AS Importe11,
Count(IIf(strftime('%m', Pedidos.Fecha) = '12', Pedidos.IdPedido, NULL)) AS Pedidos12, Sum(IIf(strftime('%m', Pedidos.Fecha) = '12', Pedidos.Importe, 0)) AS Importe12,
Sum(Pedidos.Importe) AS Total
FROM Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente
WHERE Clientes.Activo = 1
GROUP BY Clientes.Pais, Clientes.Ciudad
HAVING Sum(Pedidos.Importe) > 0
ORDER BY Sum(Pedidos.Importe) DESC;
---
SELECT Clientes.Nombre, Clientes.Ciudad, Pedidos.IdPedido, Pedidos.Fecha, Pedidos.Importe
FROM Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente
WHERE (Clientes.Pais = 'Chile' AND Clientes.Ciudad = 'Santiago' AND Pedidos.Importe BETWEEN 0 AND 450) OR
(Clientes.Pais = 'Perú' AND Clientes.Ciudad = 'Lima' AND Pedidos.Importe BETWEEN 100 AND 550) OR
(Clientes.Pais = 'España' AND Clientes.Ciudad = 'Sevilla' AND Pedidos.Importe BETWEEN 200 AND 650) OR
(Clientes.Pais = 'España' AND Clientes.Ciudad = 'Vigo' AND Pedidos.Importe BETWEEN 300 AND 750) OR
(Clientes.Pais = 'México' AND Clientes.Ciudad = 'Puebla' AND Pedidos.Importe BETWEEN 400 AND 850) OR
(Clientes.Pais = 'Argentina' AND Clientes.Ciudad = 'Rosario' AND Pedidos.Importe BETWEEN 500 AND 950) OR
(Clientes.Pais = 'Colombia' AND Clientes.Ciudad = 'Cali' AND Pedidos.Importe BETWEEN 600 AND 1050) OR
(Clientes.Pais = 'Uruguay' AND Clientes.Ciudad = 'Salto' AND Pedidos.Importe BETWEEN 700 AND 1150) OR
(Clientes.Pais = 'Ecuador' AND Clientes.Ciudad = 'Quito' AND Pedidos.Importe BETWEEN 800 AND 1250) OR
(Clientes.Pais = 'Bolivia' AND Clientes.Ciudad = 'Sucre' AND Pedidos.Importe BETWEEN 900 AND 1350) OR
(Clientes.Pais = 'Paraguay' AND Clientes.Ciudad = 'Luque' AND Pedidos.Importe BETWEEN 1000 AND 1450) OR
(Clientes.Pais = 'Cuba' AND Clientes.Ciudad = 'Holguín' AND Pedidos.Importe BETWEEN 1100 AND 1550)
ORDER BY Clientes.Nombre, Pedidos.Fecha;
---
SELECT Productos.IdProducto, Productos.Nombre, Productos.PrecioUnitario FROM Productos WHERE Productos.[Cantidad por unidad] IN ('C00037', 'C00074', 'C00111', 'C00148', 'C00185', 'C00222', 'C00259', 'C00296', 'C00333', 'C00370', 'C00407', 'C00444', 'C00481', 'C00518', 'C00555', 'C00592', 'C00629', 'C00666', 'C00703', 'C00740', 'C00777', 'C00814', 'C00851', 'C00888', 'C00925', 'C00962', 'C00999', 'C01036', 'C01073', 'C01110', 'C01147', 'C01184', 'C01221', 'C01258', 'C01295', 'C01332', 'C01369', 'C01406', 'C01443', 'C01480', 'C01517', 'C01554', 'C01591', 'C01628', 'C01665', 'C01702', 'C01739', 'C01776', 'C01813', 'C01850', 'C01887', 'C01924', 'C01961', 'C01998', 'C02035', 'C02072', 'C02109', 'C02146', 'C02183', 'C02220', 'C02257', 'C02294', 'C02331', 'C02368', 'C02405', 'C02442', 'C02479', 'C02516', 'C02553', 'C02590', 'C02627', 'C02664', 'C02701', 'C02738', 'C02775', 'C02812', 'C02849', 'C02886', 'C02923', 'C02960', 'C02997', 'C03034', 'C03071', 'C03108', 'C03145', 'C03182', 'C03219', 'C03256', 'C03293', 'C03330', 'C03367', 'C03404', 'C03441', 'C03478', 'C03515', 'C03552', 'C03589', 'C03626', 'C03663', 'C03700', 'C03737', 'C03774', 'C03811', 'C03848', 'C03885', 'C03922', 'C03959', 'C03996', 'C04033', 'C04070', 'C04107', 'C04144', 'C04181', 'C04218', 'C04255', 'C04292', 'C04329', 'C04366', 'C04403', 'C04440', 'C04477', 'C04514', 'C04551', 'C04588', 'C04625', 'C04662', 'C04699', 'C04736', 'C04773', 'C04810', 'C04847', 'C04884', 'C04921', 'C04958', 'C04995', 'C05032', 'C05069', 'C05106', 'C05143', 'C05180', 'C05217', 'C05254', 'C05291', 'C05328', 'C05365', 'C05402', 'C05439', 'C05476', 'C05513', 'C05550', 'C05587', 'C05624', 'C05661', 'C05698', 'C05735', 'C05772', 'C05809', 'C05846', 'C05883', 'C05920', 'C05957', 'C05994', 'C06031', 'C06068', 'C06105', 'C06142', 'C06179', 'C06216', 'C06253', 'C06290', 'C06327', 'C06364', 'C06401', 'C06438', 'C06475', 'C06512', 'C06549', 'C06586', 'C06623', 'C06660', 'C06697', 'C06734', 'C06771', 'C06808', 'C06845', 'C06882', 'C06919', 'C06956', 'C06993', 'C07030', 'C07067', 'C07104', 'C07141', 'C07178', 'C07215', 'C07252', 'C07289', 'C07326', 'C07363', 'C07400', 'C07437', 'C07474', 'C07511', 'C07548', 'C07585', 'C07622', 'C07659', 'C07696', 'C07733', 'C07770', 'C07807', 'C07844', 'C07881', 'C07918', 'C07955', 'C07992', 'C08029', 'C08066', 'C08103', 'C08140', 'C08177', 'C08214', 'C08251', 'C08288', 'C08325', 'C08362', 'C08399', 'C08436', 'C08473', 'C08510', 'C08547', 'C08584', 'C08621', 'C08658', 'C08695', 'C08732', 'C08769', 'C08806', 'C08843', 'C08880', 'C08917', 'C08954', 'C08991', 'C09028', 'C09065', 'C09102', 'C09139', 'C09176', 'C09213', 'C09250', 'C09287', 'C09324', 'C09361', 'C09398', 'C09435', 'C09472', 'C09509', 'C09546', 'C09583', 'C09620', 'C09657', 'C09694', 'C09731', 'C09768', 'C09805', 'C09842', 'C09879', 'C09916', 'C09953', 'C09990', 'C10027', 'C10064', 'C10101', 'C10138', 'C10175', 'C10212', 'C10249', 'C10286', 'C10323', 'C10360', 'C10397', 'C10434', 'C10471', 'C10508', 'C10545', 'C10582', 'C10619', 'C10656', 'C10693', 'C10730', 'C10767', 'C10804', 'C10841', 'C10878', 'C10915', 'C10952', 'C10989', 'C11026', 'C11063', 'C11100', 'C11137', 'C11174', 'C11211', 'C11248', 'C11285', 'C11322', 'C11359', 'C11396', 'C11433', 'C11470', 'C11507', 'C11544', 'C11581', 'C11618', 'C11655', 'C11692', 'C11729', 'C11766', 'C11803', 'C11840', 'C11877', 'C11914', 'C11951', 'C11988', 'C12025', 'C12062', 'C12099', 'C12136', 'C12173', 'C12210', 'C12247', 'C12284', 'C12321', 'C12358', 'C12395', 'C12432', 'C12469', 'C12506', 'C12543', 'C12580', 'C12617', 'C12654', 'C12691', 'C12728', 'C12765', 'C12802', 'C12839', 'C12876', 'C12913', 'C12950', 'C12987', 'C13024', 'C13061', 'C13098', 'C13135', 'C13172', 'C13209', 'C13246', 'C13283', 'C13320', 'C13357', 'C13394', 'C13431', 'C13468', 'C13505', 'C13542', 'C13579', 'C13616', 'C13653', 'C13690', 'C13727', 'C13764', 'C13801', 'C13838', 'C13875', 'C13912', 'C13949', 'C13986', 'C14023', 'C14060', 'C14097', 'C14134', 'C14171', 'C14208', 'C14245', 'C14282', 'C14319', 'C14356', 'C14393', 'C14430', 'C14467', 'C14504', 'C14541', 'C14578', 'C14615', 'C14652', 'C14689', 'C14726', 'C14763', 'C14800', 'C14837', 'C14874', 'C14911', 'C14948', 'C14985', 'C15022', 'C15059', 'C15096', 'C15133', 'C15170', 'C15207', 'C15244', 'C15281', 'C15318', 'C15355', 'C15392', 'C15429', 'C15466', 'C15503') ORDER BY Productos.Nombre;
