// The designer from JScript: opens a connection, lets the user design a query, prints the statement that came back.
// usage: cscript consulta.js CONNECTION [STATEMENT]
//   ODBC            DSN=ventas
//   Access 2007 on  Provider=Microsoft.ACE.OLEDB.12.0;Data Source=C:\datos\ventas.accdb
//   Access 97-2003  Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\datos\ventas.mdb    (32-bit cscript only)
//   SQL Server      Provider=MSOLEDBSQL;Server=.;Database=ventas;Trusted_Connection=yes
// JScript passes nothing by reference: give the caption of the schema yourself, since it cannot be written back.
// Ends with 42 when everything went well, with 1 after an error, which it prints.

function newParameter(name, type, value) {
    var parameter = new ActiveXObject("Tessel.cParameter");
    parameter.Name = name;
    parameter.eType = type;
    parameter.Value = value;
    return parameter;
}

function main() {
    var connection = new ActiveXObject("ADODB.Connection");
    connection.Open(WScript.Arguments(0));
    var quillon = new ActiveXObject("Tessel.Quillon");

    // An array serves as the collection, and plain objects as parameters, beside those of the component.
    quillon.ParamCol = [newParameter("desde", "adInteger", 1990), { Name: "pais", eType: "adVarChar", Value: "Chile" }];
    WScript.Echo("@desde = " + quillon.GetParameter("desde").SQLExpresion());
    WScript.Echo("@pais = " + quillon.GetParameter("pais").SQLExpresion());

    var statement = WScript.Arguments.length > 1 ? WScript.Arguments(1) : "SELECT Clientes.Nombre FROM Clientes";
    WScript.Echo(quillon.DesingQry(connection, statement, "Ventas"));
    connection.Close();
}

if (WScript.Arguments.length < 1) {
    WScript.Echo("uso: cscript consulta.js CONEXI\u00d3N [SENTENCIA]");
    WScript.Quit(2);
}
try {
    main();
    WScript.Quit(42);
} catch (error) {
    WScript.Echo("error: " + error.message);
    WScript.Quit(1);
}
