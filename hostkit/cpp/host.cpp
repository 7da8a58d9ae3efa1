// The designer from C++ through its type library: opens a connection, offers parameters, lets the user design
// a query and prints the statement that came back.
//
//   host "DSN=ventas" [STATEMENT]
//   host "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=C:\\datos\\ventas.accdb"
//   host "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\datos\\ventas.mdb"        (32 bits only)
//   host "Provider=MSOLEDBSQL;Server=.;Database=ventas;Trusted_Connection=yes"
//
// Visual C++ reads the type library out of the DLL: cl /std:c++17 /EHsc host.cpp with tesseldsn.dll beside
// the source. MinGW-w64 has no #import; there tessel_h.h is made from the library's source: widl -h -o
// tessel_h.h tessel.idl. The MinGW way is built and run here, the other has not been. Ends with 42 when
// everything went well.
#include <windows.h>
#include <oleauto.h>

#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <string>

#ifdef _MSC_VER
#import "tesseldsn.dll" raw_interfaces_only no_namespace
#pragma comment(lib, "ole32.lib")
#pragma comment(lib, "oleaut32.lib")
#else
#include "tessel_h.h"
#endif

namespace {

/// A failed call ends the program: its HRESULT and where it happened are printed.
void Check(HRESULT result, const char* what) {
    if (SUCCEEDED(result)) return;
    std::printf("error en %s: %08lX\n", what, static_cast<unsigned long>(result));
    std::exit(1);
}

/// An owned text; none, which is the same as an empty one, unless it is given.
class Text {
public:
    explicit Text(const wchar_t* text = nullptr) : text_(SysAllocString(text)) {}
    ~Text() { SysFreeString(text_); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    BSTR Get() const { return text_; }
    BSTR* Address() { return &text_; }
    /// For the console, in its code page.
    std::string ForConsole() const {
        const UINT page = GetConsoleOutputCP();
        const int length =
            WideCharToMultiByte(page, 0, text_, SysStringLen(text_), nullptr, 0, nullptr, nullptr);
        std::string bytes(static_cast<size_t>(length), '\0');
        WideCharToMultiByte(page, 0, text_, SysStringLen(text_), bytes.data(), length, nullptr, nullptr);
        return bytes;
    }

private:
    BSTR text_;
};

VARIANT TextArgument(const Text& text) {
    VARIANT argument;
    VariantInit(&argument);
    argument.vt = VT_BSTR;
    argument.bstrVal = text.Get();
    return argument;
}

VARIANT ObjectArgument(IDispatch* object) {
    VARIANT argument;
    VariantInit(&argument);
    argument.vt = VT_DISPATCH;
    argument.pdispVal = object;
    return argument;
}

/// An automation object by its ProgID.
IDispatch* Create(const wchar_t* prog_id) {
    CLSID id;
    IDispatch* object = nullptr;
    Check(CLSIDFromProgID(prog_id, &id), "CLSIDFromProgID");
    Check(
        CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, reinterpret_cast<void**>(&object)),
        "CoCreateInstance");
    return object;
}

/// Calls a method by name. The arguments stand in the order in which they are written.
void Call(IDispatch* object, const wchar_t* name, std::initializer_list<VARIANT> arguments) {
    LPOLESTR names = const_cast<LPOLESTR>(name);
    DISPID id;
    Check(object->GetIDsOfNames(IID{}, &names, 1, LOCALE_USER_DEFAULT, &id), "GetIDsOfNames");
    VARIANT reversed[4];
    UINT count = static_cast<UINT>(arguments.size());
    for (const VARIANT& argument : arguments) reversed[--count] = argument;
    DISPPARAMS parameters{reversed, nullptr, static_cast<UINT>(arguments.size()), 0};
    Check(object->Invoke(id, IID{}, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                         nullptr),
          "Invoke");
}

/// A parameter of the program, through the interface that the type library describes.
_cParameter* NewParameter(const wchar_t* name, const wchar_t* type, const wchar_t* value) {
    _cParameter* parameter = nullptr;
    Check(CoCreateInstance(__uuidof(cParameter), nullptr, CLSCTX_INPROC_SERVER, __uuidof(_cParameter),
                           reinterpret_cast<void**>(&parameter)),
          "Tessel.cParameter");
    const Text name_text(name), type_text(type), value_text(value);
    Check(parameter->put_Name(name_text.Get()), "Name");
    Check(parameter->put_eType(type_text.Get()), "eType");
    Check(parameter->put_Value(TextArgument(value_text)), "Value");
    return parameter;
}

/// A dictionary of Windows' scripting library as the collection: its items count, not its keys.
IDispatch* Parameters() {
    IDispatch* const dictionary = Create(L"Scripting.Dictionary");
    const wchar_t* const rows[][3] = {{L"desde", L"adDBDate", L"2024-03-05"},
                                      {L"pais", L"adVarChar", L"Chile"}};
    for (const auto& [name, type, value] : rows) {
        _cParameter* const parameter = NewParameter(name, type, value);
        const Text key(name);
        Call(dictionary, L"Add", {TextArgument(key), ObjectArgument(parameter)});
        parameter->Release();
    }
    return dictionary;
}

/// Prints a parameter as the preview will write it into the statement.
void PrintParameter(_Quillon* designer, const wchar_t* name) {
    Text wanted(name), literal;
    _cParameter* parameter = nullptr;
    Check(designer->GetParameter(wanted.Address(), &parameter), "GetParameter");
    if (!parameter) return;
    Check(parameter->SQLExpresion(literal.Address()), "SQLExpresion");
    std::printf("@%ls = %s\n", name, literal.ForConsole().c_str());
    parameter->Release();
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 2) {
        std::printf("uso: host CONNECTION [STATEMENT]\n");
        return 2;
    }
    // The designer is a window: its thread must be a single-threaded apartment.
    Check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), "CoInitializeEx");
    {
        IDispatch* connection = Create(L"ADODB.Connection");
        const Text source(arguments[1]);
        Call(connection, L"Open", {TextArgument(source)});

        _Quillon* designer = nullptr;
        Check(CoCreateInstance(__uuidof(Quillon), nullptr, CLSCTX_INPROC_SERVER, __uuidof(_Quillon),
                               reinterpret_cast<void**>(&designer)),
              "Tessel.Quillon");
        IDispatch* const parameters = Parameters();
        Check(designer->putref_ParamCol(parameters), "ParamCol");
        parameters->Release();
        PrintParameter(designer, L"desde");
        PrintParameter(designer, L"pais");

        Text statement(count > 2 ? arguments[2] : L"SELECT Clientes.Nombre FROM Clientes"), caption, answer;
        Check(designer->DesingQry(&connection, statement.Address(), caption.Address(), answer.Address()),
              "DesingQry");
        std::printf("Esquema: %s\n%s\n", caption.ForConsole().c_str(), answer.ForConsole().c_str());

        designer->Release();
        Call(connection, L"Close", {});
        connection->Release();
    }
    CoUninitialize();
    return 42;
}
