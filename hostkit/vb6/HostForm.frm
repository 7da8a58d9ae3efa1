VERSION 5.00
Begin VB.Form HostForm
   Caption         =   "Consulta"
   ClientHeight    =   4200
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   7200
   LinkTopic       =   "HostForm"
   ScaleHeight     =   4200
   ScaleWidth      =   7200
   StartUpPosition =   2  'CenterScreen
   Begin VB.TextBox txtConnection
      Height          =   315
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   6960
   End
   Begin VB.TextBox txtStatement
      Height          =   3015
      Left            =   120
      MultiLine       =   -1  'True
      ScrollBars      =   2  'Vertical
      TabIndex        =   1
      Top             =   540
      Width           =   6960
   End
   Begin VB.CommandButton cmdDesign
      Caption         =   "&Diseñar..."
      Height          =   375
      Left            =   5520
      TabIndex        =   2
      Top             =   3690
      Width           =   1560
   End
End
Attribute VB_Name = "HostForm"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
' The designer from a Visual Basic 6 program, early bound through the reference "Tessel 1.1". VB6 programs are of 32
' bits: they take the 32-bit component and providers.
' This sample has not been run: there is no Visual Basic 6 here.
Option Explicit

' Other connections:
'   DSN=ventas
'   Provider=Microsoft.ACE.OLEDB.12.0;Data Source=C:\datos\ventas.accdb
'   Provider=MSOLEDBSQL;Server=.;Database=ventas;Trusted_Connection=yes
Private Const kConnection As String = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\datos\ventas.mdb"

' A designer that the program keeps also keeps its parameters and the schema of the last connection.
Private mQuillon As Tessel.Quillon

Private Sub Form_Load()
    Dim oParameters As ParameterList
    txtConnection.Text = kConnection
    txtStatement.Text = "SELECT Clientes.Nombre FROM Clientes"
    Set oParameters = New ParameterList
    oParameters.Add "desde", "adDBDate", DateSerial(2024, 3, 5)
    oParameters.Add "pais", "adVarChar", "Chile"
    Set mQuillon = New Tessel.Quillon
    Set mQuillon.ParamCol = oParameters
End Sub

Private Sub cmdDesign_Click()
    Dim cn As Object, sStatement As String, sCaption As String
    On Error GoTo Failed
    Set cn = CreateObject("ADODB.Connection")
    cn.Open txtConnection.Text
    sStatement = txtStatement.Text
    txtStatement.Text = mQuillon.DesingQry(cn, sStatement, sCaption)
    Caption = sCaption
    cn.Close
    Exit Sub
Failed:
    MsgBox Err.Description, vbExclamation
End Sub
