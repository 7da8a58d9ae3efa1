' A host in a few lines: opens a connection, lets the user design a query, and prints the statement that came back.
' usage: cscript demo.vbs [CONNECTION [STATEMENT]]    or the same in TESSEL_CONNECTION and TESSEL_SQL
' Ends with 42 when the designer answered, with 1 after an error, which it prints.
Option Explicit
Dim connection, quillon, caption, statement, before, environment, source

Set environment = CreateObject("WScript.Shell").Environment("PROCESS")
source = environment("TESSEL_CONNECTION")
statement = environment("TESSEL_SQL")
If WScript.Arguments.Count > 0 Then source = WScript.Arguments(0)
If WScript.Arguments.Count > 1 Then statement = WScript.Arguments(1)
If source = "" Then
    WScript.Echo "uso: cscript demo.vbs CONEXIÓN [SENTENCIA]"
    WScript.Quit 2
End If
If statement = "" Then
    statement = "SELECT Clientes.Nombre, Sum(Pedidos.Importe) AS Total " & _
                "FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente) " & _
                "GROUP BY Clientes.Nombre ORDER BY Sum(Pedidos.Importe) DESC"
End If

On Error Resume Next
Set connection = CreateObject("ADODB.Connection")
StopOnError "ADODB.Connection"
connection.Open source
StopOnError "Open"
Set quillon = CreateObject("Tessel.Quillon")
StopOnError "Tessel.Quillon"

caption = ""
before = statement
statement = quillon.DesingQry(connection, statement, caption)
StopOnError "DesingQry"

WScript.Echo "Esquema: " & caption
If statement = before Then
    WScript.Echo "La sentencia no ha cambiado:"
Else
    WScript.Echo "La sentencia nueva:"
End If
WScript.Echo statement
connection.Close
WScript.Quit 42

Sub StopOnError(where)
    If Err.Number = 0 Then Exit Sub
    WScript.Echo "error en " & where & ": " & Hex(Err.Number) & " " & Err.Description
    WScript.Quit 1
End Sub
