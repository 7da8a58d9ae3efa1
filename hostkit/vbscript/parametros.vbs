' Parameters of a program offered to the designer, from a dictionary and from a collection of the program's own.
' In the designer the criteria cells offer @desde and @pais; the preview writes their values in their place.
' usage: cscript parametros.vbs CONNECTION
'   ODBC            DSN=ventas
'   Access 2007 on  Provider=Microsoft.ACE.OLEDB.12.0;Data Source=C:\datos\ventas.accdb
'   Access 97-2003  Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\datos\ventas.mdb    (32-bit cscript only)
'   SQL Server      Provider=MSOLEDBSQL;Server=.;Database=ventas;Trusted_Connection=yes
' Ends with 42 when everything went well, with 1 after an error, which it prints.
Option Explicit
Dim connection, quillon, parameters, caption, statement, number

' A parameter of the program's own: members with the names of cParameter's are enough.
Class CountryParameter
    Public Name
    Public eType
    Public Value
End Class

' A collection of the program's own: Count and Item are enough, numbered from 1 or from 0.
Class ParameterList
    Private country
    Private Sub Class_Initialize
        Set country = New CountryParameter
        country.Name = "pais"
        country.eType = "adVarChar"
        country.Value = "Chile"
    End Sub
    Public Property Get Count
        Count = 1
    End Property
    Public Default Function Item(index)
        If index <> 1 Then Err.Raise 9
        Set Item = country
    End Function
End Class

Function NewParameter(name, typeName, value)
    Set NewParameter = CreateObject("Tessel.cParameter")
    NewParameter.Name = name
    NewParameter.eType = typeName
    NewParameter.Value = value
End Function

If WScript.Arguments.Count <> 1 Then
    WScript.Echo "uso: cscript parametros.vbs CONEXIÓN"
    WScript.Quit 2
End If

On Error Resume Next
Set connection = CreateObject("ADODB.Connection")
connection.Open WScript.Arguments(0)
Set quillon = CreateObject("Tessel.Quillon")
StopOnError

' First the collection of our own.
Set quillon.ParamCol = New ParameterList
WScript.Echo "@pais = " & quillon.GetParameter("pais").SQLExpresion
StopOnError

' Then a dictionary: its items count, not its keys.
Set parameters = CreateObject("Scripting.Dictionary")
parameters.Add "1", NewParameter("desde", "adDBDate", DateSerial(2024, 3, 5))
parameters.Add "2", NewParameter("pais", "adVarChar", "Chile")
Set quillon.ParamCol = parameters
WScript.Echo "@desde = " & quillon.GetParameter("desde").SQLExpresion
StopOnError

statement = "SELECT Clientes.Nombre FROM Clientes WHERE (Clientes.Pais = @pais)"
caption = ""
statement = quillon.DesingQry(connection, statement, caption)
StopOnError
WScript.Echo "Esquema: " & caption
WScript.Echo statement
connection.Close
WScript.Quit 42

Sub StopOnError
    If Err.Number = 0 Then Exit Sub
    WScript.Echo "error: " & Hex(Err.Number) & " " & Err.Description
    WScript.Quit 1
End Sub
