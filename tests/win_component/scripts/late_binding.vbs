' Every form in which VBScript passes arguments. There is no connection, so the statement comes back at once.
Option Explicit
Dim failures: failures = 0

Sub Check(what, actual, expected)
    If CStr(actual) <> CStr(expected) Then
        failures = failures + 1
        WScript.Echo what & ": [" & actual & "] instead of [" & expected & "]"
    End If
End Sub

Class Holder
    Public Text
End Class

Dim q, connection, sql, caption, list(2), held, other
Set q = CreateObject("Tessel.Quillon")
Set other = CreateObject("Tessel.cParameter")

On Error Resume Next
Set connection = Nothing
sql = "SELECT " & Chr(241) & " "
caption = ""
Check "variables", q.DesingQry(connection, sql, caption), sql
Check "sql stays", sql, "SELECT " & Chr(241) & " "
Check "caption stays", caption, ""
Check "literals", q.DesingQry(Nothing, "  x  ", ""), "  x  "
Check "in parentheses", q.DesingQry((connection), (sql), (caption)), sql
Check "two arguments", q.DesingQry(connection, sql), sql
connection = Empty
Check "empty connection", q.DesingQry(connection, sql), sql
connection = 12
Check "number for a connection", q.DesingQry(connection, sql), sql
Check "it stays a number", TypeName(connection), "Integer"
Check "wrong object", q.DesingQry(other, sql, caption), sql
sql = Empty
Check "empty sql", q.DesingQry(Nothing, sql), ""
Check "it stays empty", TypeName(sql), "Empty"
sql = 12
Check "number for sql", q.DesingQry(Nothing, sql), "12"
Check "it stays a number", TypeName(sql), "Integer"
list(1) = "elemento"
Check "array element", q.DesingQry(Nothing, list(1)), "elemento"
Set held = New Holder
held.Text = "miembro"
Check "object member", q.DesingQry(Nothing, held.Text), "miembro"
Check "no error so far", Err.Number, 0

Check "schema after a failure", q.CurrentSchema.Count, 0
Set q.CurrentSchema = other
Check "schema by the host", q.CurrentSchema Is other, True
Set q.CurrentSchema = Nothing
Check "schema set to nothing", q.CurrentSchema Is Nothing, True
Check "no error so far", Err.Number, 0

q.NoExiste
Check "unknown member", Err.Number <> 0, True

If failures = 0 Then WScript.Quit 42
WScript.Quit 1
