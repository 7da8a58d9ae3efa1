// The designer from C#, late bound: no reference and no interop assembly is needed.
//
//   dotnet run -- "DSN=ventas"
//   dotnet run -- "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=C:\datos\ventas.accdb"
//   dotnet run -- "Provider=MSOLEDBSQL;Server=.;Database=ventas;Trusted_Connection=yes"
//
// A process of 64 bits takes the 64-bit component and providers; for Microsoft.Jet.OLEDB.4.0 build for x86.
// This sample has not been run, only compiled (by Mono's compiler): there is no .NET here.
using System;
using System.Collections;
using System.Collections.Generic;
using System.Runtime.InteropServices;

namespace TesselHost
{
    // A parameter of the program's own: members with the names of cParameter's are enough.
    [ComVisible(true), InterfaceType(ComInterfaceType.InterfaceIsDual)]
    [Guid("3f0d9c1e-5a52-4a0c-9d8a-6f6f3c1d7b01")]
    public interface IParameter
    {
        string Name { get; set; }
        string eType { get; set; }
        object Value { get; set; }
    }

    [ComVisible(true), ClassInterface(ClassInterfaceType.None), ComDefaultInterface(typeof(IParameter))]
    [Guid("3f0d9c1e-5a52-4a0c-9d8a-6f6f3c1d7b02")]
    public sealed class Parameter : IParameter
    {
        public string Name { get; set; } = "";
        public string eType { get; set; } = "";
        public object Value { get; set; }
    }

    // A collection of the program's own, numbered from 0 as .NET's are.
    [ComVisible(true), InterfaceType(ComInterfaceType.InterfaceIsDual)]
    [Guid("3f0d9c1e-5a52-4a0c-9d8a-6f6f3c1d7b03")]
    public interface IParameterList
    {
        [DispId(0)] object Item(int index);
        int Count { get; }
        [DispId(-4)] IEnumerator GetEnumerator();
    }

    [ComVisible(true), ClassInterface(ClassInterfaceType.None), ComDefaultInterface(typeof(IParameterList))]
    [Guid("3f0d9c1e-5a52-4a0c-9d8a-6f6f3c1d7b04")]
    public sealed class ParameterList : IParameterList
    {
        private readonly List<object> items = new List<object>();

        public void Add(string name, string type, object value) =>
            items.Add(new Parameter { Name = name, eType = type, Value = value });
        public object Item(int index) => items[index];
        public int Count => items.Count;
        public IEnumerator GetEnumerator() => items.GetEnumerator();
    }

    internal static class Program
    {
        private static object Create(string progId) =>
            Activator.CreateInstance(Type.GetTypeFromProgID(progId, throwOnError: true));

        // A dictionary of Windows' scripting library serves as well: its items count, not its keys.
        private static object ParametersInADictionary()
        {
            dynamic parameter = Create("Tessel.cParameter");
            parameter.Name = "minimo";
            parameter.eType = "adInteger";
            parameter.Value = 1000;
            dynamic dictionary = Create("Scripting.Dictionary");
            dictionary.Add("minimo", parameter);
            return dictionary;
        }

        private static object ParametersOfOurOwn()
        {
            var parameters = new ParameterList();
            parameters.Add("desde", "adDBDate", new DateTime(2024, 3, 5));
            parameters.Add("pais", "adVarChar", "Chile");
            return parameters;
        }

        // The designer is a window: its thread must be a single-threaded apartment.
        [STAThread]
        private static int Main(string[] arguments)
        {
            if (arguments.Length == 0)
            {
                Console.Error.WriteLine("uso: host CONEXIÓN [SENTENCIA]");
                return 2;
            }
            dynamic connection = Create("ADODB.Connection");
            connection.Open(arguments[0]);
            dynamic designer = Create("Tessel.Quillon");
            designer.ParamCol = arguments.Length > 2 ? ParametersInADictionary() : ParametersOfOurOwn();

            object cn = connection;
            string statement = arguments.Length > 1 ? arguments[1] : "SELECT Clientes.Nombre FROM Clientes";
            string caption = "";
            string answer = designer.DesingQry(ref cn, ref statement, ref caption);
            Console.WriteLine("Esquema: " + caption);
            Console.WriteLine(answer);
            connection.Close();
            return 0;
        }
    }
}
