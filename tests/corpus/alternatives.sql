SELECT t.a FROM t WHERE (((t.a)=1)) OR (((t.a)=3));
---
SELECT t.a FROM t WHERE (((t.a)=1 Or (t.a)=3));
---
SELECT t.a FROM t WHERE (((t.a)=1)) OR (((t.b)=2));
---
SELECT t.a FROM t WHERE (((t.a)=1) AND ((t.b) Like "x*")) OR (((t.a)=3));
---
SELECT t.a FROM t WHERE (((t.a)=1) AND ((t.b)=2)) OR (((t.a)=3) AND ((t.b)=4));
---
SELECT t.a FROM t WHERE (((t.a)=1)) OR (((t.a)=2)) OR (((t.a)=3));
---
SELECT t.a FROM t WHERE (((t.a) Is Null)) OR (((t.a)=""));
---
SELECT t.a FROM t WHERE (((t.a) Is Null Or (t.a)=""));
---
SELECT t.a FROM t WHERE (((t.a) Like "A*" Or (t.a) Like "B*"));
---
SELECT t.a FROM t WHERE t.a=1 OR t.b=2 AND t.c=3;
---
SELECT t.a FROM t WHERE t.a>10 OR t.a<-10;
---
SELECT Clientes.Nombre FROM Clientes WHERE (((Clientes.Nombre) Like "*" & [Forms]![frmBuscar]![txtTexto] & "*")) OR (((Clientes.Ciudad) Like "*" & [Forms]![frmBuscar]![txtTexto] & "*"));
---
SELECT Pedidos.IdPedido FROM Pedidos WHERE (((Pedidos.Zona)=[Forms]![f]![cboZona])) OR ((([Forms]![f]![cboZona]) Is Null));
---
SELECT t.a FROM t WHERE (((t.a)=1 Or (t.a)=3) AND ((t.b)=2));
---
SELECT t.a FROM t WHERE (t.a=1 OR t.b=2) AND t.c=3;
---
SELECT t.a FROM t WHERE t.c=3 AND (t.a Is Null OR t.a=0);
---
SELECT t.a FROM t WHERE (((t.a)>=1 And (t.a)<=5));
---
SELECT t.a FROM t WHERE t.a>=#1/1/2020# AND t.a<#1/1/2021#;
---
SELECT t.a FROM t WHERE (((t.a)>1 And (t.a)<5)) OR (((t.b)=2));
---
SELECT t.a FROM t WHERE t.a=1 XOR t.b=2;
---
SELECT t.a FROM t WHERE t.a=1 EQV t.b=2;
---
SELECT t.a FROM t WHERE t.a=1 IMP t.b=2;
---
SELECT t.a FROM t WHERE NOT (t.a=1 OR t.b=2);
---
SELECT t.a FROM t WHERE (t.a Like "x*" OR t.b Is Null) AND t.c>0;
---
SELECT t.a FROM t WHERE (t.a=1 XOR t.b=2) AND t.c=3;
---
SELECT t.a FROM t WHERE t.a Or t.b;
---
SELECT t.a FROM t WHERE (((t.a)="una descripción bastante larga de verdad")) OR (((t.a)="otra descripción igual de larga o más")) OR (((t.a)="y una tercera para que no quepa en la celda de ninguna manera")) OR (((t.a)="y la cuarta y última de la lista de descripciones largas de esta consulta"));
