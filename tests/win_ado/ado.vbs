' Late binding as script hosts do it: default members, For Each, arguments of every form, errors under Resume Next.
' Prints what is wrong; ends with 42 when nothing is.
Option Explicit
Dim connection, rows, field, affected, failures, names, table, n, total, cells, item

failures = 0
Sub Check(what, isRight)
    If isRight Then Exit Sub
    failures = failures + 1
    WScript.Echo "mal: " & what
End Sub

Set connection = CreateObject("ADODB.Connection")
connection.ConnectionString = WScript.Arguments(0)
connection.CommandTimeout = 60
connection.Open
Check "State", connection.State = 1
Check "DefaultDatabase", connection.DefaultDatabase = "ventas"

Set rows = CreateObject("ADODB.Recordset")
rows.CursorLocation = 3
Set rows.ActiveConnection = connection
rows.Open "SELECT IdCliente, Nombre, Contacto, Alta, [Límite de crédito], Activo FROM Clientes ORDER BY IdCliente"
Check "RecordCount", rows.RecordCount = 400
Check "rs(nombre)", rows("IdCliente") = 1
Check "rs(número)", rows(1) = rows.Fields("Nombre").Value
Check "Fields(número)", rows.Fields(0) = 1
n = "nombre"
Check "Fields(variable)", rows.Fields(n).Name = "Nombre"
Check "fecha", VarType(rows("Alta").Value) = 7
Check "lógico", VarType(rows("Activo").Value) = 11
Check "límite", rows("Límite de crédito") > 0
names = ""
For Each field In rows.Fields
    names = names & field.Name & ","
Next
Check "For Each", names = "IdCliente,Nombre,Contacto,Alta,Límite de crédito,Activo,"
rows.AbsolutePosition = 6
Check "Null", IsNull(rows("Contacto").Value)
rows.MoveLast
Check "MoveLast", rows("IdCliente") = 400
rows.MoveNext
Check "EOF", rows.EOF
rows.MoveFirst
cells = rows.GetRows(2)
Check "GetRows", UBound(cells, 1) = 5 And UBound(cells, 2) = 1 And cells(0, 1) = 2
rows.Close
Check "cerrado", rows.State = 0

Set rows = connection.Execute("SELECT Region FROM Regiones ORDER BY IdRegion")
total = 0
Do Until rows.EOF
    total = total + 1
    rows.MoveNext
Loop
Check "Execute", total = 5

connection.BeginTrans
connection.Execute "UPDATE Regiones SET Region = Region WHERE IdRegion < 4", affected
connection.RollbackTrans
Check "RecordsAffected", affected = 3

Set rows = connection.OpenSchema(28, Array(Empty, Empty, "Detalle de pedidos"))
Check "claves", rows.RecordCount = 2
table = "Pedidos"
Set rows = connection.OpenSchema(27, Array(Empty, Empty, Empty, Empty, Empty, table))
Check "relaciones", rows.RecordCount = 3

On Error Resume Next
connection.Execute "SELEC nada"
Check "Err.Number", Err.Number = &H80004005
Check "Err.Description", InStr(Err.Description, "syntax error") > 0
Check "Err.Source", Err.Source = "Tessel ADO para ODBC"
Err.Clear
Check "Errors.Count", connection.Errors.Count = 1
Check "Errors(0)", InStr(connection.Errors(0).Description, "syntax error") > 0
For Each item In connection.Errors
    Check "nativeerror", item.nativeerror = 1
Next
Err.Clear
n = rows.Fields("NoHay").Value
Check "3265", (Err.Number And &HFFFF&) = 3265
Err.Clear
connection.Close
connection.Close
Check "3704", (Err.Number And &HFFFF&) = 3704
Check "texto de 3704", Err.Description = "La operación no está permitida si el objeto está cerrado."
Err.Clear

If failures > 0 Then WScript.Quit 1
WScript.Echo "bien"
WScript.Quit 42
