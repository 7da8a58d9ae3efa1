#include "component/foreign_parameter.h"

#include "component/errors.h"
#include "component/literal.h"

namespace tessel::component {

using win32::CallResult;
using win32::Dispatch;
using win32::Guarded;
using win32::UniqueVariant;

namespace {

/// A failed call as an error of the parameter, in the object's own words.
HRESULT Raise(const CallResult& failure) {
    const std::wstring& source = failure.Source();
    return win32::RaiseError(failure.Code(), __uuidof(::_cParameter),
                             source.empty() ? kParameterProgId : source, failure.Message());
}

HRESULT RaiseConversion(HRESULT result) {
    return win32::RaiseError(result, __uuidof(::_cParameter), kParameterProgId, ConversionMessage(result));
}

HRESULT ReturnTextOf(const CallResult& read, BSTR* target) {
    if (!read) return Raise(read);
    const auto text = read.Text();
    return text ? win32::ReturnText(*text, target) : RaiseConversion(DISP_E_TYPEMISMATCH);
}

HRESULT ReadText(const Dispatch& object, const wchar_t* member, BSTR* target) {
    if (!target) return E_POINTER;
    *target = nullptr;
    return Guarded([&] { return ReturnTextOf(object.Get(member), target); });
}

/// A text property that the object may lack or hold Null in: it is empty then.
HRESULT ReadOptionalText(const Dispatch& object, const wchar_t* member, BSTR* target) {
    if (!target) return E_POINTER;
    *target = nullptr;
    if (!object.Has(member)) return S_OK;
    return Guarded([&] {
        const CallResult read = object.Get(member);
        return read && read.Value().IsNothing() ? S_OK : ReturnTextOf(read, target);
    });
}

HRESULT WriteText(const Dispatch& object, const wchar_t* member, BSTR text) {
    return Guarded([&] {
        const CallResult written = object.Put(member, win32::TextOf(text));
        return written ? S_OK : Raise(written);
    });
}

HRESULT ReturnLiteral(const Dispatch& object, const wchar_t* member, LiteralSyntax syntax, BSTR* target) {
    if (!target) return E_POINTER;
    *target = nullptr;
    if (object.Has(member)) return ReadText(object, member, target);
    return Guarded([&] {
        win32::Bstr type_name;
        if (const HRESULT read = ReadOptionalText(object, L"eType", type_name.Put()); FAILED(read))
            return read;
        const CallResult value = object.Get(L"Value");
        if (!value) return Raise(value);
        std::wstring literal;
        const HRESULT rendered = RenderLiteral(value.Value().Get(), type_name.View(), syntax, &literal);
        return SUCCEEDED(rendered) ? win32::ReturnText(literal, target) : RaiseConversion(rendered);
    });
}

}  // namespace

STDMETHODIMP ForeignParameter::get_Name(BSTR* Name) {
    return ReadText(object_, L"Name", Name);
}
STDMETHODIMP ForeignParameter::put_Name(BSTR Name) {
    return WriteText(object_, L"Name", Name);
}
STDMETHODIMP ForeignParameter::get_Predef(BSTR* Predef) {
    return ReadOptionalText(object_, L"Predef", Predef);
}
STDMETHODIMP ForeignParameter::put_Predef(BSTR Predef) {
    return WriteText(object_, L"Predef", Predef);
}
STDMETHODIMP ForeignParameter::get_eType(BSTR* eType) {
    return ReadOptionalText(object_, L"eType", eType);
}
STDMETHODIMP ForeignParameter::put_eType(BSTR eType) {
    return WriteText(object_, L"eType", eType);
}

STDMETHODIMP ForeignParameter::get_Value(VARIANT* Value) {
    if (!Value) return E_POINTER;
    VariantInit(Value);
    return Guarded([&] {
        const CallResult read = object_.Get(L"Value");
        return read ? VariantCopy(Value, const_cast<VARIANT*>(&read.Value().Get())) : Raise(read);
    });
}

STDMETHODIMP ForeignParameter::put_Value(VARIANT Value) {
    return Guarded([&] {
        const CallResult written = object_.Put(L"Value", UniqueVariant::CopyOf(Value));
        return written ? S_OK : Raise(written);
    });
}

STDMETHODIMP ForeignParameter::putref_Value(VARIANT Value) {
    return Guarded([&] {
        const CallResult written = object_.PutRef(L"Value", UniqueVariant::CopyOf(Value));
        return written ? S_OK : Raise(written);
    });
}

STDMETHODIMP ForeignParameter::SQLExpresion(BSTR* Expresion) {
    return ReturnLiteral(object_, L"SQLExpresion", LiteralSyntax::Sql, Expresion);
}
STDMETHODIMP ForeignParameter::VBExpresion(BSTR* Expresion) {
    return ReturnLiteral(object_, L"VBExpresion", LiteralSyntax::Vb, Expresion);
}

win32::ComPtr<::_cParameter> AsParameter(const win32::ComPtr<IDispatch>& object) {
    if (win32::ComPtr<::_cParameter> parameter = object.As<::_cParameter>()) return parameter;
    win32::ComPtr<::_cParameter> seen;
    const win32::ComPtr<ForeignParameter> foreign = win32::MakeObject<ForeignParameter>(object);
    if (foreign) seen = win32::ComPtr<::_cParameter>(foreign.Get());
    return seen;
}

}  // namespace tessel::component
