' The installed classes as a script uses them. Ends with 42 when all was right, with another number when not: an
' uncaught error ends with 0.
Option Explicit
Dim designer, parameter, found, name

Set designer = CreateObject("Tessel.Quillon")
Set parameter = CreateObject("Tessel.cParameter")
parameter.Name = "limite"
parameter.eType = "adInteger"
parameter.Value = 42
If parameter.SQLExpresion() <> "42" Then WScript.Quit 1
If Not designer.ParamCol Is Nothing Then WScript.Quit 2
name = "limite"
Set found = designer.GetParameter(name)
If Not found Is Nothing Then WScript.Quit 3
WScript.Quit 42
