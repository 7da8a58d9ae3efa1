SELECT Movimientos.Id AS IdMovimiento, Movimientos.*, Tipos.*, IIf([Tipos].[Entrada/Salida]="Entrada",[Movimientos]!Cantidad,-([Movimientos]!Cantidad)) AS [Cantidad real]
FROM Articulos INNER JOIN (Movimientos LEFT JOIN Tipos ON Movimientos.[Tipo de movimiento] = Tipos.Id) ON Articulos.Id = Movimientos.[id articulo];
---
SELECT DISTINCT v.Parque, v.Ruta, v.Tramo, p.Posicion
FROM Visitas AS v LEFT JOIN Posiciones AS p ON (p.IdLugar = v.IdLugar) AND (p.IdVisita = v.IdVisita)
WHERE p.Cuadro = v.Cuadro
ORDER BY v.Ruta, v.Tramo;
---
SELECT [>Recursos].Id, [>Recursos].Clave
FROM [>Recursos]
WHERE ((([>Recursos].Categoria)=Forms!Compras.CategoriaDePago))
ORDER BY [>Recursos].Id;
---
SELECT Clientes.IdCliente, Clientes.Empresa, Unidades.Numero AS NumUnidad, CDbl([MáxDeKm]) AS Kilometros, CDate([MáxDeFecha]) AS UltimaFecha
FROM ((Clientes INNER JOIN Unidades ON Clientes.IdUnidad = Unidades.Id) INNER JOIN Sedes ON Unidades.RefSede = Sedes.Id) INNER JOIN UltimosKm ON Unidades.Id = UltimosKm.RefUnidad
WHERE (((Clientes.IdCliente)=4971) AND ((Unidades.Estado)="TR"));
---
SELECT MSysObjects.Name, Len([Name]) AS Largo
FROM MSysObjects
WHERE (((MSysObjects.Name) Like "dbo_*") AND ((Left([Name],1))<>"~") AND ((MSysObjects.Type) In (1,4,6)) AND ((Len([Name]))<>17))
ORDER BY MSysObjects.Name;
---
SELECT Grupos.Curso, Alumnos.[Fecha ingreso], Alumnos.Nombre
FROM Grupos INNER JOIN Alumnos ON Grupos.Clave=Alumnos.Grupo
WHERE (((Grupos.Curso)=[Nombre del curso]) AND ((Alumnos.[Fecha baja]) Is Null))
WITH OWNERACCESS OPTION;
---
SELECT Historial.Cusip, Sum(Historial.Saldo) AS SumaSaldo, Sum([Maestro].[Importe]*[Saldo])/[SumaSaldo]/1000 AS Medio
FROM Maestro INNER JOIN Historial ON Maestro.Prestamo = Historial.Prestamo
WHERE (((Historial.Fecha)=[fecha del historial]))
GROUP BY Historial.Cusip;
---
SELECT Articulos.Codigo, Compras.Precio, Ventas.Cantidad & ' ' &  Unidades.Unidad as CantidadVendida FROM (Ventas LEFT JOIN Articulos ON Ventas.IdArticulo = Articulos.Id) LEFT JOIN Unidades ON Articulos.IdUnidad = Unidades.Id WHERE (((Ventas.IdFactura)=12) AND ((Ventas.Borrado) = False))
---
SELECT Libros.Id, Libros.Existencias AS [Uds.], Round((1-[Libros]![Descuento])*[Libros]![Precio],2) AS Neto, [Tipos]![Orden] & "." & [Libros]![Codigo] AS Codigo2, Nz([Libros].[CodBarras],0) AS Barras
FROM (Tipos RIGHT JOIN Libros ON Tipos.IdTipo = Libros.Tipo) LEFT JOIN LibrosPorCategoria ON Libros.Id = LibrosPorCategoria.IdLibro
WHERE (((Libros.Titulo) Like "*" & [Forms]![Factura]![TituloBuscado] & "*") AND ((Nz([Libros].[CodBarras],0))=Nz([Forms]![Factura]![CodBarras],Nz([Libros].[CodBarras],0))) AND ((Tipos.Activo)=True))
ORDER BY Tipos.Orden, Libros.Codigo;
---
SELECT Partes.Id, Partes.Fecha FROM Partes
WHERE (Partes.Numero = [Forms]![Menu]![Lista].Form![numero]
     OR [Forms]![Menu]![Lista].Form![numero] Is Null)
AND (Partes.Tipo Like "*" & [Forms]![Menu]![Lista].Form![tipo] & "*"
     OR [Forms]![Menu]![Lista].Form![tipo] Is Null)
---
SELECT b.IdLibro, ROUND(CDBL((1 - b.Descuento) * b.Precio), 2)     AS PrecioMayorista,
    t.Orden & '.' & b.Codigo                AS CodigoLibro
FROM (
        Tipos t
        RIGHT JOIN Libros b ON t.IdTipo = b.Tipo
    )
LEFT JOIN LibrosPorCategoria c ON b.IdLibro = c.IdLibro
ORDER BY
    t.Orden,
    b.Codigo
---
SELECT Ordenes.*, Procesos.Operacion, Procesos.Diferencia AS PiezasPendientes, IIf([TiempoRestante_]=0,0,[TiempoRestante_]+[Preparacion]) AS TiempoRestante
FROM Operaciones INNER JOIN (((Clientes INNER JOIN Ordenes ON Clientes.Codigo = Ordenes.Cliente) INNER JOIN Tiempos ON Ordenes.Id = Tiempos.IdOrden) INNER JOIN Procesos ON (Tiempos.Operacion = Procesos.Operacion) AND (Tiempos.Grupo = Procesos.Grupo) AND (Ordenes.Id = Procesos.IdOrden)) ON Operaciones.Grupo = Procesos.Grupo
WHERE (((CStr([Ordenes].[Numero])) Like CStr(Nz([Forms]![Resumen]![DeNumero],"*"))) AND ((Ordenes.Alta) Between IIf(IsNull([Forms]![Resumen]![Desde]),#1/1/1991#,[Forms]![Resumen]![Desde]) And IIf(IsNull([Forms]![Resumen]![Hasta]),#12/31/2099#,[Forms]![Resumen]![Hasta])))
ORDER BY Procesos.Operacion, Ordenes.Numero;
---
SELECT [Albaranes lineas].[Codigo articulo], Sum([Albaranes lineas].Cantidad) AS CantidadReservada
FROM Albaranes INNER JOIN [Albaranes lineas] ON Albaranes.IdDoc = [Albaranes lineas].IdDoc
WHERE (((Albaranes.Entrada)=No) AND ((Albaranes.Reservar)=Yes))
GROUP BY [Albaranes lineas].[Codigo articulo];
---
SELECT Max(CLng(Eval([Numero]))) AS Mayor FROM Asuntos WHERE (((IsNumeric([Numero]))=True));
---
SELECT Pendientes.IdOrden, [Piezas]-Nz([Hechas],0) AS Diferencia
FROM (Pendientes LEFT JOIN Terminadas ON (Pendientes.Grupo = Terminadas.Grupo) AND (Pendientes.Operacion = Terminadas.Operacion)) INNER JOIN Operaciones ON Pendientes.Grupo = Operaciones.Grupo
WHERE (((Operaciones.Cierra)=True))
GROUP BY Pendientes.IdOrden, [Piezas]-Nz([Hechas],0)
HAVING (((Pendientes.IdOrden)<>0))
ORDER BY Pendientes.IdOrden;
---
SELECT d.Id AS IdPrincipal, d.Nombre AS Principal, r.Id AS IdReferencia, r.Peso
FROM Documentos AS d LEFT JOIN Documentos AS r ON d.Id = r.IdPadre
WHERE ((Not (r.Id) Is Null))
ORDER BY d.Id, r.Id;
---
SELECT Agenda.*
FROM Agenda
WHERE (((Agenda.Dia) Between Nz([Forms]![Plan]![Desde],Date()) And Nz([Forms]![Plan]![Hasta],Date())) AND ((Format([Hora],"Short Time"))>=Format([Forms]![Plan]![DesdeHora],"Short Time") And (Format([Hora],"Short Time"))<=Format([Forms]![Plan]![HastaHora],"Short Time")))
ORDER BY Agenda.Dia, Format([Hora],"Short Time");
---
SELECT Partes.Id, Day([Entrada])+Month([Entrada]) AS Expr1
FROM Partes
WHERE (((Day([Entrada])+Month([Entrada]))<>Day([Salida])+Month([Salida]))) OR (((Partes.Salida) Is Null));
---
SELECT Saldos.Nombre AS NNombre, IIf(Sum([Debe])>Sum([Haber]),Sum([Debe])-Sum([Haber]),0) AS SaldoDeudor, Sum(Saldos.Mes) AS SumaDeMes
FROM Saldos INNER JOIN Plantilla ON Saldos.Cuenta LIKE Plantilla.Mascara
GROUP BY Saldos.Nombre;
---
SELECT First(Cuentas.[Codigo]) AS [Codigo Campo], Count(Cuentas.[Codigo]) AS NumeroDeDuplicados
FROM Cuentas
GROUP BY Cuentas.[Codigo]
HAVING (((Count([Cuentas].[Codigo]))>1));
---
SELECT Clasificacion.Id AS Expr1, [capitulo] & '.' & [articulo] AS Partida, '02' AS Sector, 'E' AS Origen
FROM Clasificacion
GROUP BY Clasificacion.Id, [capitulo] & '.' & [articulo], '02', 'E';
---
SELECT Facturas.Id, Clientes.Nombre AS Cliente, Lineas.Concepto, Empresa.Nombre AS Emisor
FROM Empresa, (Facturas INNER JOIN Lineas ON Facturas.Id = Lineas.IdFactura) INNER JOIN Clientes ON Facturas.IdCliente = Clientes.Id;
---
SELECT Habitaciones.[Numero], "Habitación '" & [Tipos].Nombre & "'" AS Habitacion, 1+[Salida]-[Entrada] AS Noches
FROM Tipos
INNER JOIN (Habitaciones
INNER JOIN (Clientes
INNER JOIN Reservas ON Clientes.[Id] = Reservas.Cliente)
ON Habitaciones.[Id] = Reservas.Habitacion)
ON Tipos.[Id] = Habitaciones.[Tipo];
---
SELECT Donantes.Nombre, Max(Int(CDbl(DateValue([Donantes].[Fecha])))) AS UltimoNumero, DLookUp("Importe","Donantes","Fecha=""" & Format(CDate(Max(Int(CDbl(DateValue([Donantes].[Fecha]))))),"mm/dd/yyyy") & """ AND Nombre = """ & [Nombre] & """") AS UltimoImporte, IIf(Year(Max([Fecha]))>=Year(Now())-1,"Activo","Antiguo") AS Estado
FROM Donantes
GROUP BY Donantes.Nombre;
---
SELECT Sum(Diario.Debe) AS Pendiente, 1 AS Orden
FROM Diario
WHERE (((IIf([Cuenta]=201 And [Alta]<=Forms!Mayor.Hasta And [Pago]>Forms!Mayor.Hasta Or [Cuenta]=201 And [Alta]<=Forms!Mayor.Hasta And [Pagado]=False,True,False))=True))
GROUP BY Diario.Nulo, Diario.Asentado
HAVING (((Diario.Nulo)=False) AND ((Diario.Asentado)=True));
---
SELECT Asignaciones.IdContacto, Sum(IIf((41274>=[Asignaciones]![Inicio]) And (41274<=[Asignaciones].[Fin]),[Asignaciones]![Porcentaje],Null)) AS [31/12/12], Sum(IIf((41281>=[Asignaciones]![Inicio]) And (41281<=[Asignaciones].[Fin]),[Asignaciones]![Porcentaje],Null)) AS [7/1/13]
FROM Contactos INNER JOIN Asignaciones ON Contactos.Id = Asignaciones.IdContacto
GROUP BY Asignaciones.IdContacto;
---
SELECT A.Codigo, B.Nombre
FROM Consumos AS A, Articulos AS B
WHERE (((Exists (SELECT Hist.Codigo FROM Hist   WHERE DateSerial([Anio],[Mes],1)>=DateSerial([AnioF],[MesF],1) and A.Codigo = Hist.Codigo))=False))
AND B.Codigo = A.Codigo
ORDER BY A.Codigo;
---
SELECT count(Articulos.Codigo)
FROM Articulos
WHERE (((Articulos.Clase)='Rápida') And ((Articulos.Nivel)='A1') And Lote<>0);
---
SELECT s.Fecha, e.Estado, h.Valor
FROM (Salidas AS s LEFT JOIN Etiquetas AS e ON e.IdSalida = s.Id) LEFT JOIN Historia AS h ON h.IdEtiqueta = e.Id
WHERE h.Campo = 'Estado'
OR h.Campo IS NULL
AND s.Fecha IS NOT NULL
ORDER BY e.Id, s.Fecha;
---
SELECT Id AS IdA, Cuadro AS CuadroA, NULL AS IdB, NULL AS CuadroB, Planta
FROM Cuadros
WHERE Posicion = 0;
---
SELECT Salidas.Codigo, Salidas.Tipo, Salidas.Codigo, Salidas.Fecha
FROM Salidas
WHERE (((Salidas.Tipo) Not Like "*prueba*") And ((Salidas.Fecha)=Date()));
---
SELECT Unidades.Id, Unidades.Bastidor
FROM Unidades
WHERE Bastidor in(
 'VF1AB000123456789'
,'VF1AB000123456790'
,'VF1AB000123456791'
);
---
SELECT p.Id, (SELECT Min(Inicio)
		FROM Detecciones AS d2
		WHERE (((d2.IdLugar)=p.IdLugar) AND
			((d2.Inicio)>p.Inicio) AND ((d2.Borrado)=FALSE))) AS Siguiente
FROM Puestos AS p;
---
SELECT s.[Coste unitario] AS [Coste de la Sra. O'Hara], [s]![Coste unitario]/[c]![Cambio] AS [En dólares]
FROM CambioActual AS c, (Salidas AS s INNER JOIN Costes AS k ON s.Articulo = k.Articulo);
---
SELECT Articulos.Codigo, Articulos![Proveedor principal]=Proveedores![Codigo] AS EsPrincipal, IIf(Articulos![Plazo fijo]>0,Articulos![Plazo fijo] & " días",Null) AS Plazo
FROM Articulos INNER JOIN Proveedores ON Articulos.Codigo = Proveedores.Articulo;
---
SELECT Especies.Nombre AS Especie, Listas.Codigo
FROM Listas LEFT JOIN Especies ON Especies.Codigo = Listas.Codigo
WHERE Tramo = 1
AND
Temporada = Year(Now)
AND
Cubierta = "WCC"
ORDER BY Nombre;
---
SELECT Recibos.Id, [Numero] & "-" & [Plazos].[Id] AS [Recibo#], Recibos.For, Plazos.Importe, Recibos.Importe
FROM Recibos INNER JOIN Plazos ON Recibos.Id = Plazos.IdRecibo;
---
SELECT Proveedores.Nombre AS Proveedor, nz([Factura],"ninguna") AS NumFactura, Sum(Unidades.Coste) AS Total, CDbl(NZ([Anticipos].[Unidades],0)) AS Anticipo
FROM (Unidades LEFT JOIN Proveedores ON Unidades.IdProveedor=Proveedores.Id) LEFT JOIN Anticipos ON (Unidades.IdProveedor=Anticipos.IdProveedor) AND (Unidades.Factura=Anticipos.Factura)
GROUP BY Proveedores.Nombre, nz([Factura],"ninguna"), CDbl(NZ([Anticipos].[Unidades],0))
ORDER BY nz([Factura],"ninguna");
---
select * from caja where fecha >= '2020-01-01' And fecha <= '2020-02-01' and usuario ='x' And base =2 order by numero,fecha
---
Select*from Libros
---
select movimientos.cuenta,nombre,saldo from movimientos,cuentas where movimientos.cuenta=cuentas.cuenta order by movimientos.cuenta asc
---
select * from usuarios ua where not exists (select 1 from bajas where bajas.id = ua.id)
---
SELECT Etapas.Id, Etapas.Estado From Etapas WHERE (((Etapas.Id) <> 33 And (Etapas.Id) <> 34))ORDER BY Etapas.Estado;
---
SELECT T1.*, 1 AS Hoja FROM [Excel 8.0;HDR=YES;IMEX=1;Database=C:\datos\ventas.xls].[Enero$A2:U65536] as T1;
---
SELECT * FROM [text;HDR=Yes;FMT=Delimited(,);Database=C:\datos].ventas.csv
---
PROCEDURE [Ventas de una zona] [Zona] Text ( 20 );
SELECT Ventas.Id, Ventas.Importe FROM Ventas WHERE (((Ventas.Zona)=[Zona]));
