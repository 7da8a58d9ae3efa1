Attribute VB_Name = "DesignerHost"
' The designer from Access, Excel or Word. Import this file and ParameterList.cls into the project (File, Import).
' No reference is needed; with one to "Tessel 1.1" the objects may be declared As Tessel.Quillon and As
' Tessel.cParameter. Office of 64 bits takes the 64-bit component and providers, Office of 32 bits the others.
' This sample has not been run: there is no Office here.
Option Explicit

' Other connections:
'   DSN=ventas
'   Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\datos\ventas.mdb             (32 bits only)
'   Provider=MSOLEDBSQL;Server=.;Database=ventas;Trusted_Connection=yes
Private Const kConnection As String = "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=C:\datos\ventas.accdb"

' Lets the user design a query and shows the statement that came back.
Public Sub DesignAQuery()
    Dim cn As Object, sStatement As String
    Set cn = CreateObject("ADODB.Connection")
    cn.Open kConnection
    sStatement = "SELECT Clientes.Nombre FROM Clientes"
    If Designed(cn, sStatement, ParametersInACollection()) Then MsgBox sStatement
    cn.Close
End Sub

' In Access, over the database that is open: the row source of a list becomes what the user designs.
' Call it from a form: DesignRowSource Me.lstClientes, CurrentProject.Connection
Public Sub DesignRowSource(ByVal ctlList As Object, ByVal cn As Object)
    Dim sStatement As String
    sStatement = ctlList.RowSource
    If Designed(cn, sStatement, ParametersOfOurOwn()) Then ctlList.RowSource = sStatement
End Sub

' Opens the designer; True when the statement changed. A cancelled designer leaves it byte for byte.
Public Function Designed(ByVal cn As Object, ByRef sStatement As String, ByVal oParameters As Object) As Boolean
    Dim oQuillon As Object, sCaption As String, sAnswer As String
    Set oQuillon = CreateObject("Tessel.Quillon")
    Set oQuillon.ParamCol = oParameters
    sAnswer = oQuillon.DesingQry(cn, sStatement, sCaption)
    Designed = (sAnswer <> sStatement)
    sStatement = sAnswer
End Function

' Parameters in a Collection.
Private Function ParametersInACollection() As Collection
    Dim oParameter As Object
    Set ParametersInACollection = New Collection
    Set oParameter = CreateObject("Tessel.cParameter")
    oParameter.Name = "desde"
    oParameter.eType = "adDBDate"
    oParameter.Value = DateSerial(2024, 3, 5)
    ParametersInACollection.Add oParameter
End Function

' Parameters in a dictionary: its items count, not its keys.
Public Function ParametersInADictionary() As Object
    Dim oParameter As Object
    Set ParametersInADictionary = CreateObject("Scripting.Dictionary")
    Set oParameter = CreateObject("Tessel.cParameter")
    oParameter.Name = "pais"
    oParameter.eType = "adVarChar"
    oParameter.Value = "Chile"
    ParametersInADictionary.Add "pais", oParameter
End Function

' Parameters in a class of our own.
Private Function ParametersOfOurOwn() As ParameterList
    Set ParametersOfOurOwn = New ParameterList
    ParametersOfOurOwn.Add "pais", "adVarChar", "Chile"
    ParametersOfOurOwn.Add "minimo", "adCurrency", 1000
End Function
