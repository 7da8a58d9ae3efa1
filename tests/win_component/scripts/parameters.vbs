' Parameters and their collection from VBScript.
Option Explicit
Dim failures: failures = 0

Sub Check(what, actual, expected)
    If CStr(actual) <> CStr(expected) Then
        failures = failures + 1
        WScript.Echo what & ": [" & actual & "] instead of [" & expected & "]"
    End If
End Sub

Dim items(2)

Class Collection
    Public Property Get Count
        Count = 3
    End Property
    Public Function Item(index)
        If index < 1 Or index > 3 Then Err.Raise 9
        Set Item = items(index - 1)
    End Function
End Class

Function NewParameter(name, typeName, value)
    Set NewParameter = CreateObject("Tessel.cParameter")
    NewParameter.Name = name
    NewParameter.eType = typeName
    NewParameter.Value = value
End Function

Dim q, p, name
Set q = CreateObject("Tessel.Quillon")
Set items(0) = NewParameter("desde", "adDBTimeStamp", DateSerial(2024, 3, 5) + TimeSerial(14, 7, 9))
Set items(1) = NewParameter("fecha", "ADVARCHAR ", "O'Brien")
Set items(2) = NewParameter(" FECHA", "adInteger", 42)

On Error Resume Next
Check "before ParamCol", q.GetParameter("fecha") Is Nothing, True
Set q.ParamCol = New Collection
Check "first of two", q.GetParameter(" FECHA ") Is items(1), True
name = "Desde"
Set p = q.GetParameter(name)
Check "name in a variable", p Is items(0), True
Check "name stays", name, "Desde"
Check "no match", q.GetParameter("hasta") Is Nothing, True
Check "timestamp sql", p.SQLExpresion, "'2024-03-05 14:07:09'"
Check "timestamp vb", p.VBExpresion(), """2024-03-05 14:07:09"""
p.eType = "adDBTime": Check "time", p.SQLExpresion, "'14:07:09'"
p.eType = "adDBDate": Check "date", p.SQLExpresion, "'2024-03-05'"
Check "text", items(1).SQLExpresion, "'O'Brien'"
Check "number", items(2).SQLExpresion & items(2).VBExpresion, "4242"
p.eType = "adBoolean"
p.Value = True: Check "true", p.SQLExpresion & p.VBExpresion, "-1TRUE"
p.Value = False: Check "false", p.SQLExpresion & p.VBExpresion, "0FALSE"
p.eType = "adBinary": Check "binary", p.SQLExpresion & p.VBExpresion, ""
p.eType = "nonsense": p.Value = "x": Check "unknown type", p.SQLExpresion, "'x'"
Check "no error so far", Err.Number, 0

p.eType = "adDate": p.Value = "no es fecha"
name = p.SQLExpresion
Check "conversion error", Err.Number <> 0, True
Check "its text", Err.Description, "No coinciden los tipos"
Err.Clear

Set p.Value = items(2)
Check "object by reference", p.Value Is items(2), True
Set items(0) = Nothing
name = q.GetParameter("hasta") Is Nothing
Check "error in the walk", Err.Number <> 0, True

If failures = 0 Then WScript.Quit 42
WScript.Quit 1
