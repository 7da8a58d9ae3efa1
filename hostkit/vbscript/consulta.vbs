' Runs a statement through ADODB.Recordset and prints its rows: a line of field names, then one line a row.
' usage: cscript consulta.vbs CONNECTION STATEMENT [MOST_ROWS]
' Ends with 42 when everything went well, with 1 after an error, which it prints.
Option Explicit
Dim connection, rows, field, line, most, printed

If WScript.Arguments.Count < 2 Then
    WScript.Echo "uso: cscript consulta.vbs CONEXIÓN SENTENCIA [FILAS]"
    WScript.Quit 2
End If
most = 20
If WScript.Arguments.Count > 2 Then most = CLng(WScript.Arguments(2))

On Error Resume Next
Set connection = CreateObject("ADODB.Connection")
If Failed("ADODB.Connection") Then WScript.Quit 1
connection.Open WScript.Arguments(0)
If Failed("Open") Then WScript.Quit 1
Set rows = CreateObject("ADODB.Recordset")
rows.CursorLocation = 3
rows.Open WScript.Arguments(1), connection
If Failed("Recordset.Open") Then WScript.Quit 1

line = ""
For Each field In rows.Fields
    line = line & Separator(line) & field.Name
Next
WScript.Echo line
printed = 0
Do Until rows.EOF Or printed = most
    line = ""
    For Each field In rows.Fields
        If line <> "" Then line = line & " | "
        If IsNull(field.Value) Then line = line & "Null" Else line = line & field.Value
    Next
    WScript.Echo line
    printed = printed + 1
    rows.MoveNext
Loop
WScript.Echo "filas: " & rows.RecordCount
If Failed("lectura") Then WScript.Quit 1
rows.Close
connection.Close
WScript.Quit 42

Function Separator(text)
    Separator = ""
    If text <> "" Then Separator = " | "
End Function

' Prints the current error and the provider's own records, and tells whether there was one.
Function Failed(where)
    Dim number, description, item
    Failed = (Err.Number <> 0)
    If Err.Number = 0 Then Exit Function
    number = Err.Number
    description = Err.Description
    WScript.Echo "error en " & where & ": " & Hex(number) & " " & description
    Err.Clear
    If IsObject(connection) Then
        For Each item In connection.Errors
            WScript.Echo item.Source & " -> " & item.Description & " (" & item.Number & ") (" & item.nativeerror & ")"
        Next
    End If
    Err.Clear
End Function
