#include "tests/win_fault/tricks.h"

#include <cstring>
#include <limits>
#include <stdexcept>

namespace tessel::tests {

namespace {

using win32::UniqueVariant;

/// An answer whose Variant is filled in by hand.
template <class Fill>
Trick Answers(const char* name, Fill fill) {
    return {name, {}, [fill](UniqueVariant& answer, EXCEPINFO*) {
                answer = UniqueVariant();
                fill(*answer.Address());
                return S_OK;
            }};
}

Trick FailsWith(const char* name, HRESULT result) {
    return {name, {}, [result](UniqueVariant&, EXCEPINFO*) { return result; }};
}

template <class Fill>
Trick Raises(const char* name, Fill fill) {
    return {name, {}, [fill](UniqueVariant&, EXCEPINFO* exception) {
                if (exception) {
                    *exception = {};
                    fill(*exception);
                }
                return DISP_E_EXCEPTION;
            }};
}

HRESULT WINAPI FillInFails(EXCEPINFO*) {
    return E_FAIL;
}

HRESULT WINAPI FillInLate(EXCEPINFO* info) {
    MSG message{};
    for (int i = 0; i < 50 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i)
        DispatchMessageW(&message);
    info->bstrDescription = win32::Bstr(L"Por fin").Detach();
    info->scode = E_FAIL;
    return S_OK;
}

void ArrayOf(VARIANT& answer, VARTYPE type, LONG first, ULONG count) {
    answer.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    answer.parray = SafeArrayCreateVector(type, first, count);
}

/// Automation objects that are none: an IUnknown that answers to nothing else.
class MuteObject final : public win32::ComObject<IPersist> {
public:
    STDMETHODIMP GetClassID(CLSID*) override { return E_NOTIMPL; }
};

/// An object whose default property is itself.
class SelfDefault final : public win32::ComObject<IDispatch> {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override {
        *ids = 7;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        if (!result) return S_OK;
        result->vt = VT_DISPATCH;
        result->pdispVal = this;
        AddRef();
        return S_OK;
    }
};

VARIANT* SharedVariant() {
    static VARIANT shared{};
    shared.vt = VT_I4;
    shared.lVal = 5;
    return &shared;
}

}  // namespace

std::vector<Trick> AnswerTricks() {
    static LONG number = -3;
    static BSTR no_text = nullptr;
    return {
        FailsWith("a lost connection", RPC_E_DISCONNECTED),
        FailsWith("no memory", E_OUTOFMEMORY),
        FailsWith("a wrong number of arguments", DISP_E_BADPARAMCOUNT),
        FailsWith("a wrong type of argument", DISP_E_TYPEMISMATCH),
        FailsWith("a call that was rejected", RPC_E_CALL_REJECTED),
        FailsWith("another kind of success", S_FALSE),
        {"an answer and a failure",
         {},
         [](UniqueVariant& answer, EXCEPINFO*) {
             answer = UniqueVariant(L"y sin embargo");
             return E_FAIL;
         }},
#ifdef _WIN64  // The unwinder for x86 does not find its way from one module into another.
        {"an exception of the language", [] { throw std::runtime_error("excepción del programa"); }, {}},
#endif
        {"an exception that is none",
         {},
         [](UniqueVariant&, EXCEPINFO* exception) {
             if (exception) exception->bstrDescription = win32::Bstr(L"nada").Detach();
             return S_OK;
         }},
        Raises("an exception without texts", [](EXCEPINFO&) {}),
        Raises("an exception with a number only", [](EXCEPINFO& info) { info.wCode = 13; }),
        Raises("an exception whose texts cannot be had",
               [](EXCEPINFO& info) { info.pfnDeferredFillIn = FillInFails; }),
        Raises("an exception whose texts come late and let messages through",
               [](EXCEPINFO& info) { info.pfnDeferredFillIn = FillInLate; }),
        Raises("an exception with a code of success", [](EXCEPINFO& info) { info.scode = S_FALSE; }),
        Raises("an exception with a very long text",
               [](EXCEPINFO& info) {
                   info.scode = E_FAIL;
                   info.bstrDescription = win32::Bstr(std::wstring(300'000, L'%')).Detach();
               }),
        Answers("an error value",
                [](VARIANT& answer) {
                    answer.vt = VT_ERROR;
                    answer.scode = DISP_E_PARAMNOTFOUND;
                }),
        Answers("Null", [](VARIANT& answer) { answer.vt = VT_NULL; }),
        Answers("a text of no characters at no address", [](VARIANT& answer) { answer.vt = VT_BSTR; }),
        Answers("a very long text",
                [](VARIANT& answer) {
                    answer.vt = VT_BSTR;
                    answer.bstrVal = win32::Bstr(std::wstring(1'000'000, L'&')).Detach();
                }),
        Answers("a text with zeros",
                [](VARIANT& answer) {
                    answer.vt = VT_BSTR;
                    answer.bstrVal = win32::Bstr(std::wstring(L"a\0b\0", 4)).Detach();
                }),
        Answers("no number",
                [](VARIANT& answer) {
                    answer.vt = VT_R8;
                    answer.dblVal = std::numeric_limits<double>::quiet_NaN();
                }),
        Answers("more than any integer",
                [](VARIANT& answer) {
                    answer.vt = VT_UI8;
                    answer.ullVal = std::numeric_limits<ULONGLONG>::max();
                }),
        Answers("a date that is none",
                [](VARIANT& answer) {
                    answer.vt = VT_DATE;
                    answer.date = -1e300;
                }),
        Answers("an amount",
                [](VARIANT& answer) {
                    answer.vt = VT_CY;
                    answer.cyVal.int64 = std::numeric_limits<LONGLONG>::min();
                }),
        Answers("an object without automation",
                [](VARIANT& answer) {
                    answer.vt = VT_UNKNOWN;
                    answer.punkVal = win32::MakeObject<MuteObject>().Detach();
                }),
        Answers("an object that is its own default",
                [](VARIANT& answer) {
                    answer.vt = VT_DISPATCH;
                    answer.pdispVal = win32::MakeObject<SelfDefault>().Detach();
                }),
        Answers("no object", [](VARIANT& answer) { answer.vt = VT_UNKNOWN; }),
        Answers("a variant elsewhere",
                [](VARIANT& answer) {
                    answer.vt = VT_BYREF | VT_VARIANT;
                    answer.pvarVal = SharedVariant();
                }),
        Answers("a number elsewhere",
                [](VARIANT& answer) {
                    answer.vt = VT_BYREF | VT_I4;
                    answer.plVal = &number;
                }),
        Answers("no text elsewhere",
                [](VARIANT& answer) {
                    answer.vt = VT_BYREF | VT_BSTR;
                    answer.pbstrVal = &no_text;
                }),
        Answers("a variant nowhere", [](VARIANT& answer) { answer.vt = VT_BYREF | VT_VARIANT; }),
        Answers("a number nowhere", [](VARIANT& answer) { answer.vt = VT_BYREF | VT_I4; }),
        Answers("a decimal that is none",
                [](VARIANT& answer) {
                    std::memset(&answer, 0xFF, sizeof answer);
                    answer.vt = VT_DECIMAL;
                }),
        Answers("a date that is no number",
                [](VARIANT& answer) {
                    answer.vt = VT_DATE;
                    answer.date = std::numeric_limits<double>::quiet_NaN();
                }),
        Answers("an infinite number",
                [](VARIANT& answer) {
                    answer.vt = VT_R4;
                    answer.fltVal = -std::numeric_limits<float>::infinity();
                }),
        Answers("the smallest integer",
                [](VARIANT& answer) {
                    answer.vt = VT_I8;
                    answer.llVal = std::numeric_limits<LONGLONG>::min();
                }),
        Answers("a minus one",
                [](VARIANT& answer) {
                    answer.vt = VT_I2;
                    answer.iVal = -1;
                }),
        Answers("a text of a number",
                [](VARIANT& answer) {
                    answer.vt = VT_BSTR;
                    answer.bstrVal = win32::Bstr(L"99999999999").Detach();
                }),
        Answers("an array of nothing", [](VARIANT& answer) { ArrayOf(answer, VT_VARIANT, 0, 0); }),
        Answers("an array of empty values", [](VARIANT& answer) { ArrayOf(answer, VT_VARIANT, -5, 4); }),
        Answers("an array at the end of all numbers",
                [](VARIANT& answer) { ArrayOf(answer, VT_VARIANT, LONG_MAX - 1, 2); }),
        Answers("bytes", [](VARIANT& answer) { ArrayOf(answer, VT_UI1, 0, 100); }),
        Answers("an array that is not there", [](VARIANT& answer) { answer.vt = VT_ARRAY | VT_VARIANT; }),
        Answers("a type that does not exist", [](VARIANT& answer) { answer.vt = 0x0777; }),
    };
}

}  // namespace tessel::tests
