// Both classes from JScript, which has no arguments by reference and no "Set".
var failures = 0;

function check(what, actual, expected) {
    if (String(actual) !== String(expected)) {
        failures++;
        WScript.Echo(what + ": [" + actual + "] instead of [" + expected + "]");
    }
}

function raises(action) {
    try {
        action();
    } catch (error) {
        return true;
    }
    return false;
}

try {
    var quillon = new ActiveXObject("Tessel.Quillon");
    var parameter = new ActiveXObject("Tessel.cParameter");
    var sql = "SELECT \u00f1 ";
    check("null connection", quillon.DesingQry(null, sql, ""), sql);
    check("undefined connection", quillon.DesingQry(undefined, sql), sql);
    check("wrong object", quillon.DesingQry(parameter, sql, "x"), sql);
    check("a number", quillon.DesingQry(5, 12), "12");

    parameter.Name = "a\u00f1o";
    parameter.eType = "adInteger";
    parameter.Value = 42;
    check("literals", parameter.SQLExpresion() + parameter.VBExpresion(), "4242");
    parameter.eType = "adBoolean";
    parameter.Value = true;
    check("truth", parameter.SQLExpresion() + parameter.VBExpresion(), "-1TRUE");
    parameter.eType = "adVarChar";
    parameter.Value = "O'Brien";
    check("text", parameter.SQLExpresion(), "'O'Brien'");

    check("no collection", quillon.ParamCol === null, true);
    check("no parameter", quillon.GetParameter("a\u00f1o") === null, true);
    quillon.ParamCol = { Count: 1, Item: function (index) {
        if (index !== 1) throw new Error("no hay tal elemento");
        return parameter;
    } };
    check("found", quillon.GetParameter(" A\u00d1O ").SQLExpresion(), "'O'Brien'");
    quillon.ParamCol = { Count: 1, Item: function () { throw new Error("roto"); } };
    check("error in the walk", raises(function () { quillon.GetParameter("x"); }), true);
    quillon.ParamCol = null;
    check("collection taken away", quillon.ParamCol === null, true);

    parameter.eType = "adDate";
    parameter.Value = "no es fecha";
    check("conversion error", raises(function () { parameter.SQLExpresion(); }), true);
    check("unknown member", raises(function () { quillon.NoExiste(); }), true);
} catch (error) {
    failures++;
    WScript.Echo("error: " + error.message);
}
WScript.Quit(failures === 0 ? 42 : 1);
