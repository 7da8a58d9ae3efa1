SELECT Clientes.Nombre FROM Clientes WHERE Clientes.Pais = 'Chile';
---
SELECT Clientes.Nombre FROM Clientes WHERE (((Clientes.Pais)="Chile"));
---
SELECT Clientes.Nombre FROM Clientes WHERE (((Clientes.Pais)="Chile") AND ((Clientes.Activo)=True));
---
SELECT Clientes.Nombre FROM Clientes WHERE (((Clientes.Nombre) Like "A*"));
---
SELECT Clientes.Nombre FROM Clientes WHERE (((Clientes.Nombre) Not Like "*S.A."));
---
SELECT Clientes.Nombre FROM Clientes WHERE (((Clientes.Telefono) Is Null));
---
SELECT Clientes.Nombre FROM Clientes WHERE (((Clientes.Telefono) Is Not Null) AND ((Clientes.Pais)<>"Peru"));
---
SELECT Clientes.Nombre FROM Clientes WHERE ((Not (Clientes.Telefono) Is Null));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Pedidos.Fecha) Between #1/1/2019# And #12/31/2019#));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Pedidos.Fecha)>=#6/1/2020#) AND ((Pedidos.Estado) In ("A","B","C")));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Pedidos.Fecha)<Date()-30));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Pedidos.Fecha)>=DateAdd("m",-1,Date())));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Year([Fecha]))=Year(Date())) AND ((Month([Fecha]))=Month(Date())));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Pedidos.IdCliente)=[Forms]![frmClientes]![IdCliente]));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE Pedidos.IdCliente=Forms!frmClientes!IdCliente;
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Pedidos.Fecha) Between [Forms]![frmFechas]![txtDesde] And [Forms]![frmFechas]![txtHasta]));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Pedidos.Zona) Like "*" & [Escriba la zona:] & "*"));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Pedidos.IdPedido)=[¿Qué pedido?]));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE Pedidos.Usuario = @winuser AND Pedidos.Fecha >= @desde;
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE Pedidos.Fecha <= @{Fecha límite};
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE Not Pedidos.Cerrado;
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE Pedidos.Cerrado;
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Pedidos.Cerrado)=No));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((IsNull([Enviado]))=True));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE IsNull(Pedidos.Enviado);
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Nz([Descuento],0))>0));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Len([Notas] & ""))=0));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE Left$([Codigo],2)="ES" AND Right$([Codigo],1)<>"X";
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE InStr(1,[Notas],"urgente")>0;
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE InStr(,[Notas],"urgente")<>0;
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Pedidos.Importe)>(SELECT Avg(Importe) FROM Pedidos)));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE Pedidos.IdCliente In (SELECT IdCliente FROM Clientes WHERE Pais="Chile");
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Pedidos.IdPedido) Not In (SELECT IdPedido FROM Facturas)));
---
SELECT Clientes.Nombre FROM Clientes WHERE Exists (SELECT * FROM Pedidos WHERE Pedidos.IdCliente=Clientes.IdCliente);
---
SELECT Clientes.Nombre FROM Clientes WHERE NOT EXISTS (SELECT IdPedido FROM Pedidos WHERE Pedidos.IdCliente=Clientes.IdCliente);
---
SELECT c.Nombre FROM Clientes AS c WHERE c.Saldo > 1000 AND c.Zona = 'N';
---
SELECT Clientes.Nombre FROM Clientes WHERE 1000 < Clientes.Saldo;
---
SELECT Clientes.Nombre FROM Clientes WHERE Clientes!Saldo > 0 AND Clientes!Zona = "S";
---
SELECT Clientes.Nombre FROM Clientes WHERE Clientes.[Límite de crédito] >= Clientes.Saldo * 1.21;
---
SELECT Clientes.Nombre FROM Clientes WHERE NOT (Clientes.Saldo > 1000);
---
SELECT Clientes.Nombre FROM Clientes WHERE NOT (Clientes.Saldo > 1000 AND Clientes.Zona = 'N');
---
SELECT Clientes.Nombre FROM Clientes WHERE Clientes.Nombre = "O'Brien" OR Clientes.Nombre = 'D''Arcy';
---
SELECT Clientes.Nombre FROM Clientes WHERE Clientes.Nombre = "El ""Rápido""";
---
SELECT Clientes.Nombre FROM Clientes WHERE True;
---
SELECT Clientes.Nombre FROM Clientes WHERE 1=0;
---
SELECT Clientes.Nombre FROM Clientes WHERE Clientes.Saldo = Null;
---
SELECT Clientes.Nombre FROM Clientes WHERE Clientes.Codigo ALike "A%";
---
SELECT Clientes.Nombre FROM Clientes WHERE (((Clientes.Saldo) Not Between 10 And 20));
---
SELECT Clientes.Nombre FROM Clientes WHERE (((Clientes.Zona) Not In ("N","S")));
---
SELECT Clientes.Nombre FROM Clientes WHERE (Clientes.Grupo Mod 2)=1 AND Clientes.Saldo\100>5;
---
SELECT Clientes.Nombre FROM Clientes WHERE DCount("*","Pedidos","IdCliente=" & [IdCliente])>0;
---
SELECT Clientes.Nombre FROM Clientes WHERE Clientes.Id = :id AND Clientes.Zona = ?;
