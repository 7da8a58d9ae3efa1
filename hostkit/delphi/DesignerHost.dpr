program DesignerHost;
{ The designer from Delphi, late bound through OleVariant.

    DesignerHost "DSN=ventas"
    DesignerHost "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=C:\datos\ventas.accdb"
    DesignerHost "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\datos\ventas.mdb"        (32 bits only)
    DesignerHost "Provider=MSOLEDBSQL;Server=.;Database=ventas;Trusted_Connection=yes"

  Late-bound calls pass variables by reference, so that Caption is filled in. With the type library imported
  (Component, Import Component, Tessel 1.1) the classes can be used early bound as CoQuillon and CocParameter.
  This sample has not been run or compiled: there is no Delphi here. }

uses
  System.SysUtils, System.Variants, Winapi.ActiveX, System.Win.ComObj;

{$APPTYPE CONSOLE}

function NewParameter(const Name, TypeName: string; const Value: OleVariant): OleVariant;
begin
  Result := CreateOleObject('Tessel.cParameter');
  Result.Name := Name;
  Result.eType := TypeName;
  Result.Value := Value;
end;

{ A dictionary of Windows' scripting library as the collection: its items count, not its keys. Any automation object
  with Count and Item, or with an enumerator, does as well. }
function Parameters: OleVariant;
begin
  Result := CreateOleObject('Scripting.Dictionary');
  Result.Add('desde', NewParameter('desde', 'adDBDate', VarFromDateTime(EncodeDate(2024, 3, 5))));
  Result.Add('pais', NewParameter('pais', 'adVarChar', 'Chile'));
end;

var
  Connection, Designer, Statement, Caption, Answer: OleVariant;
begin
  if ParamCount < 1 then
  begin
    Writeln('uso: DesignerHost CONEXIÓN [SENTENCIA]');
    Halt(2);
  end;
  OleCheck(CoInitialize(nil));
  try
    Connection := CreateOleObject('ADODB.Connection');
    Connection.Open(ParamStr(1));
    Designer := CreateOleObject('Tessel.Quillon');
    Designer.ParamCol := Parameters;
    Statement := 'SELECT Clientes.Nombre FROM Clientes';
    if ParamCount > 1 then
      Statement := ParamStr(2);
    Caption := '';
    Answer := Designer.DesingQry(Connection, Statement, Caption);
    Writeln('Esquema: ', string(Caption));
    Writeln(string(Answer));
    Connection.Close;
    Connection := Unassigned;
    Designer := Unassigned;
  except
    on E: Exception do
    begin
      Writeln('error: ', E.Message);
      Halt(1);
    end;
  end;
  CoUninitialize;
end.
