SELECT
---
SELECT FROM t
---
SELECT a, FROM t
---
SELECT a FROM
---
SELECT a FROM t WHERE
---
SELECT a FROM t WHERE a =
---
SELECT a FROM t WHERE (a = 1
---
SELECT a FROM t WHERE a = 1)
---
SELECT a FROM t GROUP a
---
SELECT a FROM t ORDER a
---
SELECT a FROM t INNER JOIN
---
SELECT a FROM t INNER u ON t.k = u.k
---
SELECT a FROM (t INNER JOIN u ON t.k = u.k
---
SELECT 'sin cerrar FROM t
---
SELECT [sin cerrar FROM t
---
SELECT a FROM t WHERE f BETWEEN 1
---
SELECT a FROM t WHERE f IN ()
---
SELECT a FROM t WHERE f IS 3
---
SELECT a b c FROM t
---
UPDATE t SET a = 1
---
DELETE FROM t
---
INSERT INTO t (a) VALUES (1)
---
TRANSFORM Sum(a) SELECT b FROM t GROUP BY b
---
hola
---
CREATE TABLE Copia (Id LONG, Nombre TEXT(40))
---
ALTER TABLE Socios ADD COLUMN Correo TEXT(60);
---
DROP INDEX Indice1 ON Socios
---
EXEC [Ventas por zona] 5
---
PARAMETERS [Zona] Text(20); DELETE Socios.* FROM Socios WHERE Socios.Zona=[Zona];
---
SELECT {fn UCASE(Nombre) FROM Socios
---
SELECT a FROM {oj t LEFT JOIN u ON t.k = u.k WHERE a = 1
---
SELECT a FROM t WHERE a IN 'C:\datos.mdb'
---
TRANSFORM Count(*) FROM t PIVOT a
---
SELECT a FROM t PIVOT b
