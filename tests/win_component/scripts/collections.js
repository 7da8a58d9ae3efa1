// ParamCol in the shapes that JScript has: arrays, plain objects, a dictionary.
var failures = 0;

function check(what, actual, expected) {
    if (String(actual) !== String(expected)) {
        failures++;
        WScript.Echo(what + ": [" + actual + "] instead of [" + expected + "]");
    }
}

function parameter(name, value) {
    var made = new ActiveXObject("Tessel.cParameter");
    made.Name = name;
    made.eType = "adInteger";
    made.Value = value;
    return made;
}

try {
    var quillon = new ActiveXObject("Tessel.Quillon");
    quillon.ParamCol = [parameter("desde", 1), parameter("hasta", 2)];
    check("array, first", quillon.GetParameter("desde").SQLExpresion(), "1");
    check("array, last", quillon.GetParameter(" HASTA ").SQLExpresion(), "2");
    check("array, none", quillon.GetParameter("otro") === null, true);
    quillon.ParamCol = [];
    check("empty array", quillon.GetParameter("desde") === null, true);

    quillon.ParamCol = [{ Name: "pais", eType: "adVarChar", Value: "Chile" },
        { Name: "fecha", Value: 0, SQLExpresion: function () { return "#2024-03-05#"; } }];
    check("plain object", quillon.GetParameter("PAIS").SQLExpresion(), "'Chile'");
    check("plain object, VB", quillon.GetParameter("PAIS").VBExpresion(), "\"Chile\"");
    check("own literal", quillon.GetParameter("fecha").SQLExpresion(), "#2024-03-05#");

    quillon.ParamCol = { Count: 2, Item: function (index) {
        if (index < 0 || index > 1) return null;
        return parameter("p" + index, index);
    } };
    check("from zero, first", quillon.GetParameter("p0").SQLExpresion(), "0");
    check("from zero, last", quillon.GetParameter("p1").SQLExpresion(), "1");

    var dictionary = new ActiveXObject("Scripting.Dictionary");
    dictionary.Add("clave", parameter("fecha", 5));
    quillon.ParamCol = dictionary;
    check("dictionary", quillon.GetParameter("fecha").SQLExpresion(), "5");
    check("its key", quillon.GetParameter("clave") === null, true);
    check("default member", quillon.ParamCol("clave").SQLExpresion(), "5");
} catch (error) {
    failures++;
    WScript.Echo("error: " + error.message);
}
WScript.Quit(failures === 0 ? 42 : 1);
