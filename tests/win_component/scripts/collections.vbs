' ParamCol in the shapes that VBScript has: a dictionary and classes of the host's own.
Option Explicit
Dim failures: failures = 0

Sub Check(what, actual, expected)
    If CStr(actual) <> CStr(expected) Then
        failures = failures + 1
        WScript.Echo what & ": [" & actual & "] instead of [" & expected & "]"
    End If
End Sub

Function NewParameter(name, typeName, value)
    Set NewParameter = CreateObject("Tessel.cParameter")
    NewParameter.Name = name
    NewParameter.eType = typeName
    NewParameter.Value = value
End Function

' A collection numbered from 0 whose default member is Item.
Class FromZero
    Private one
    Private another
    Public Sub Fill(first, second)
        Set one = first
        Set another = second
    End Sub
    Public Property Get Count
        Count = 2
    End Property
    Public Default Function Item(index)
        If index = 0 Then Set Item = one
        If index = 1 Then Set Item = another
        If index < 0 Or index > 1 Then Err.Raise 9
    End Function
End Class

' A parameter of the host's own: the members of a cParameter, but not its class.
Class OwnParameter
    Public Name
    Public Predef
    Public eType
    Public Value
End Class

Class LiteralParameter
    Public Name
    Public Value
    Public Function SQLExpresion()
        SQLExpresion = "#" & Value & "#"
    End Function
End Class

Dim q, list, first, second, own, literal
Set q = CreateObject("Tessel.Quillon")
Set first = NewParameter("desde", "adInteger", 1)
Set second = NewParameter("hasta", "adInteger", 2)

On Error Resume Next
Set list = CreateObject("Scripting.Dictionary")
list.Add "una clave", first
list.Add "hasta", second
Set q.ParamCol = list
Check "item of a dictionary", q.GetParameter("DESDE") Is first, True
Check "its key is no name", q.GetParameter("una clave") Is Nothing, True
Check "nothing was added", list.Count, 2
Check "default member by key", q.ParamCol("hasta").Value, 2

Set list = New FromZero
list.Fill first, second
Set q.ParamCol = list
Check "first from zero", q.GetParameter("desde") Is first, True
Check "second from zero", q.GetParameter("hasta") Is second, True
Check "default member by number", q.ParamCol(1).Name, "hasta"

Set own = New OwnParameter
own.Name = "Pais"
own.eType = "adVarChar"
own.Value = "Chile"
Set literal = New LiteralParameter
literal.Name = "fecha"
literal.Value = "2024-03-05"
list.Fill own, literal
Check "own parameter", q.GetParameter(" PAIS ").SQLExpresion, "'Chile'"
Check "own literal", q.GetParameter("fecha").SQLExpresion, "#2024-03-05#"
Check "member that it lacks", q.GetParameter("fecha").eType, ""
q.GetParameter("pais").Value = 7
Check "written through", own.Value, 7
Check "no error so far", Err.Number, 0

q.GetParameter("fecha").Predef = "x"
Check "writing a member that it lacks", Err.Number <> 0, True
Err.Clear
Set q.ParamCol = Nothing
Check "argument without a collection", q.ParamCol(1), ""
Check "it is an error", Err.Number <> 0, True

If failures = 0 Then WScript.Quit 42
WScript.Quit 1
