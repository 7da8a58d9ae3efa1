// A parameter object that is not ours, seen through the interface of cParameter: a class of the host's own
// with members of the same names. Every property is read from and written to that object when it is asked
// for. `Name` and `Value` it must have. `Predef` and `eType` count as empty where it has none, so that its
// value is text; a literal is the object's own where it has the function, and is written from `Value` and
// `eType` as a cParameter's where it has not.
#pragma once

#include "common/win32/dispatch.h"
#include "component/dual_object.h"
#include "tessel_h.h"

namespace tessel::component {

class ForeignParameter final : public DualObject<::_cParameter, ::cParameter> {
public:
    explicit ForeignParameter(win32::ComPtr<IDispatch> object) : object_(std::move(object)) {}

    STDMETHODIMP get_Name(BSTR* Name) override;
    STDMETHODIMP put_Name(BSTR Name) override;
    STDMETHODIMP get_Predef(BSTR* Predef) override;
    STDMETHODIMP put_Predef(BSTR Predef) override;
    STDMETHODIMP get_Value(VARIANT* Value) override;
    STDMETHODIMP put_Value(VARIANT Value) override;
    STDMETHODIMP putref_Value(VARIANT Value) override;
    STDMETHODIMP get_eType(BSTR* eType) override;
    STDMETHODIMP put_eType(BSTR eType) override;
    STDMETHODIMP SQLExpresion(BSTR* Expresion) override;
    STDMETHODIMP VBExpresion(BSTR* Expresion) override;

private:
    const win32::Dispatch object_;
};

/// The object as a parameter: itself where it is a cParameter, else seen through ForeignParameter.
win32::ComPtr<::_cParameter> AsParameter(const win32::ComPtr<IDispatch>& object);

}  // namespace tessel::component
