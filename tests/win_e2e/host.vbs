' A host as programs have them: opens the designer from a script and looks at what comes back.
' Arguments: the connection string of the database. Ends with status 42 when everything was as it should be.
Option Explicit

Const kTotals = "SELECT Clientes.Nombre, Sum(Pedidos.Importe) AS Total FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente) GROUP BY Clientes.Nombre ORDER BY Sum(Pedidos.Importe) DESC"

Dim failures
failures = 0

Sub Check(what, isTrue)
  If isTrue Then
    WScript.Echo "ok   " & what
  Else
    WScript.Echo "FAIL " & what
    failures = failures + 1
  End If
End Sub

' Every row of a statement as one text, in the order in which the rows come.
Function Rows(cn, sql)
  Dim rs, text, i
  Set rs = CreateObject("ADODB.Recordset")
  rs.CursorLocation = 3
  rs.Open sql, cn
  Do While Not rs.EOF
    For i = 0 To rs.Fields.Count - 1
      text = text & rs.Fields(i).Value & "|"
    Next
    text = text & vbLf
    rs.MoveNext
  Loop
  rs.Close
  Rows = text
End Function

Dim cn, designer, sql, caption, answer, expected
Set cn = CreateObject("ADODB.Connection")
cn.Open WScript.Arguments(0)
Set designer = CreateObject("Tessel.Quillon")

' 1. Accepted untouched.
sql = kTotals
caption = ""
answer = designer.DesingQry(cn, sql, caption)
WScript.Echo answer
expected = Rows(cn, kTotals)
Check "the accepted statement is a composed one", Right(answer, 1) = ";"
Check "the accepted statement gives the same rows", Rows(cn, answer) = expected
Check "there are rows to compare", Len(expected) > 100
Check "CName reads the database's name", caption = "ventas"
Check "the argument is as it was", sql = kTotals

' 2. Cancelled: byte for byte, blanks included.
sql = "  " & kTotals & vbTab & vbCrLf & "  "
caption = "Mis datos"
answer = designer.DesingQry(cn, sql, caption)
Check "a cancelled call returns the argument", answer = sql
Check "a caption that was given stays", caption = "Mis datos"

' 3. Changed: a column ticked in the meantime stays in the answer.
caption = ""
answer = designer.DesingQry(cn, "SELECT Clientes.Nombre FROM Clientes", caption)
WScript.Echo answer
Check "the changed statement has a condition", InStr(answer, "WHERE (Clientes.Nombre > 'C')") > 0

' 4. A statement that is no design comes back as it was typed.
sql = "SELECT Nombre FROM Clientes UNION SELECT Nombre FROM Proveedores"
answer = designer.DesingQry(cn, sql)
Check "a text that is no design is accepted as it is", answer = sql

' 5. Without a usable connection the text comes back at once.
Dim started
cn.Close
caption = ""
answer = designer.DesingQry(cn, kTotals, caption)
Check "a closed connection returns the text", answer = kTotals
Check "a closed connection leaves the caption", caption = ""
answer = designer.DesingQry(CreateObject("Tessel.cParameter"), kTotals, caption)
Check "an object that is no connection returns the text", answer = kTotals
answer = designer.DesingQry(Nothing, kTotals, caption)
Check "no connection returns the text", answer = kTotals

If failures = 0 Then WScript.Quit 42
WScript.Quit 1
