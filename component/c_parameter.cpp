#include "component/c_parameter.h"

#include "common/win32/dispatch.h"
#include "component/errors.h"
#include "component/literal.h"

namespace tessel::component {

using win32::Guarded;
using win32::UniqueVariant;

namespace {

HRESULT ReturnLiteral(const UniqueVariant& value, const std::wstring& type_name, LiteralSyntax syntax,
                      BSTR* target) {
    if (!target) return E_POINTER;
    *target = nullptr;
    return Guarded([&] {
        std::wstring literal;
        const HRESULT rendered = RenderLiteral(value.Get(), type_name, syntax, &literal);
        if (SUCCEEDED(rendered)) return win32::ReturnText(literal, target);
        return win32::RaiseError(rendered, __uuidof(::_cParameter), kParameterProgId,
                                 ConversionMessage(rendered));
    });
}

HRESULT StoreText(BSTR text, std::wstring* target) {
    return Guarded([&] {
        *target = win32::TextOf(text);
        return S_OK;
    });
}

bool HoldsObject(const UniqueVariant& value) {
    return value.Type() == VT_DISPATCH || value.Type() == VT_UNKNOWN;
}

/// A deep copy that tells when it could not be made.
HRESULT CopyValue(const VARIANT& value, UniqueVariant* copy) {
    return VariantCopyInd(copy->Put(), const_cast<VARIANT*>(&value));
}

}  // namespace

STDMETHODIMP cParameter::get_Name(BSTR* Name) {
    return win32::ReturnText(name_, Name);
}
STDMETHODIMP cParameter::put_Name(BSTR Name) {
    return StoreText(Name, &name_);
}
STDMETHODIMP cParameter::get_Predef(BSTR* Predef) {
    return win32::ReturnText(predef_, Predef);
}
STDMETHODIMP cParameter::put_Predef(BSTR Predef) {
    return StoreText(Predef, &predef_);
}
STDMETHODIMP cParameter::get_eType(BSTR* eType) {
    return win32::ReturnText(type_name_, eType);
}
STDMETHODIMP cParameter::put_eType(BSTR eType) {
    return StoreText(eType, &type_name_);
}

STDMETHODIMP cParameter::get_Value(VARIANT* Value) {
    if (!Value) return E_POINTER;
    VariantInit(Value);
    return VariantCopy(Value, const_cast<VARIANT*>(&value_.Get()));
}

STDMETHODIMP cParameter::put_Value(VARIANT Value) {
    return Guarded([&] {
        UniqueVariant copy;
        if (const HRESULT copied = CopyValue(Value, &copy); FAILED(copied)) return copied;
        if (HoldsObject(copy) && copy.Object()) {
            const win32::CallResult read = win32::Dispatch(copy.Object()).DefaultValue();
            if (read) copy = UniqueVariant::CopyOf(read.Value().Get());
        }
        value_ = std::move(copy);
        return S_OK;
    });
}

STDMETHODIMP cParameter::putref_Value(VARIANT Value) {
    return Guarded([&] {
        UniqueVariant copy;
        if (const HRESULT copied = CopyValue(Value, &copy); FAILED(copied)) return copied;
        if (!HoldsObject(copy)) {
            return win32::RaiseError(DISP_E_TYPEMISMATCH, __uuidof(::_cParameter), kParameterProgId,
                                     ConversionMessage(DISP_E_TYPEMISMATCH));
        }
        value_ = std::move(copy);
        return S_OK;
    });
}

STDMETHODIMP cParameter::SQLExpresion(BSTR* Expresion) {
    return ReturnLiteral(value_, type_name_, LiteralSyntax::Sql, Expresion);
}

STDMETHODIMP cParameter::VBExpresion(BSTR* Expresion) {
    return ReturnLiteral(value_, type_name_, LiteralSyntax::Vb, Expresion);
}

}  // namespace tessel::component
