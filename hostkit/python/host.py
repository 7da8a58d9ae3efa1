"""The designer from Python with pywin32 (pip install pywin32).

    python host.py "DSN=ventas"
    python host.py "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=C:\\datos\\ventas.accdb"
    python host.py "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\datos\\ventas.mdb"
    python host.py "Provider=MSOLEDBSQL;Server=.;Database=ventas;Trusted_Connection=yes"

Python of 64 bits takes the 64-bit component and providers; Jet has only 32-bit ones.
This sample has not been run, only compiled: there is no pywin32 here.
"""

import datetime
import sys

import win32com.client
import win32com.server.util


class Parameter:
    """A parameter of the program's own: members with the names of cParameter's are enough."""

    _public_methods_ = []
    _public_attrs_ = ["Name", "eType", "Value"]

    def __init__(self, name, type_name, value):
        self.Name = name
        self.eType = type_name
        self.Value = value


def own_collection():
    """A Python list as a collection: Count, Item from 0 and an enumerator."""
    parameters = [
        Parameter("desde", "adDBDate", datetime.datetime(2024, 3, 5)),
        Parameter("pais", "adVarChar", "Chile"),
    ]
    return win32com.server.util.NewCollection([win32com.server.util.wrap(each) for each in parameters])


def dictionary():
    """A dictionary of Windows' scripting library: its items count, not its keys."""
    parameter = win32com.client.Dispatch("Tessel.cParameter")
    parameter.Name = "minimo"
    parameter.eType = "adInteger"
    parameter.Value = 1000
    result = win32com.client.Dispatch("Scripting.Dictionary")
    result.Add("minimo", parameter)
    return result


def design(source, statement):
    """Lets the user design a query; the statement that came back and the caption of the schema."""
    connection = win32com.client.Dispatch("ADODB.Connection")
    connection.Open(source)
    try:
        # Made from the type library, the method answers its result and then its three [in, out] arguments.
        designer = win32com.client.gencache.EnsureDispatch("Tessel.Quillon")
        designer.ParamCol = own_collection()
        answer, _, _, caption = designer.DesingQry(connection, statement, "")
        return answer, caption
    finally:
        connection.Close()


def main(arguments):
    if len(arguments) not in (2, 3):
        print("uso: python host.py CONEXIÓN [SENTENCIA]", file=sys.stderr)
        return 2
    statement = arguments[2] if len(arguments) == 3 else "SELECT Clientes.Nombre FROM Clientes"
    answer, caption = design(arguments[1], statement)
    print("Esquema: " + caption)
    print(answer)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
