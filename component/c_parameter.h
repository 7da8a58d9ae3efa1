// cParameter, the public class of a named parameter that a host offers to the designer: four plain
// properties, and the value written as an SQL or a VB-style literal. Conversion errors reach the host.
#pragma once

#include <string>

#include "component/dual_object.h"
#include "tessel_h.h"

namespace tessel::component {

class cParameter final : public DualObject<::_cParameter, ::cParameter> {
public:
    STDMETHODIMP get_Name(BSTR* Name) override;
    STDMETHODIMP put_Name(BSTR Name) override;
    STDMETHODIMP get_Predef(BSTR* Predef) override;
    STDMETHODIMP put_Predef(BSTR Predef) override;
    STDMETHODIMP get_Value(VARIANT* Value) override;
    /// Stores a value; of an object its default property, or the object itself when it has none.
    STDMETHODIMP put_Value(VARIANT Value) override;
    /// Stores the object itself; its default property is read when a literal is asked for.
    STDMETHODIMP putref_Value(VARIANT Value) override;
    STDMETHODIMP get_eType(BSTR* eType) override;
    STDMETHODIMP put_eType(BSTR eType) override;
    STDMETHODIMP SQLExpresion(BSTR* Expresion) override;
    STDMETHODIMP VBExpresion(BSTR* Expresion) override;

private:
    std::wstring name_;
    std::wstring predef_;
    win32::UniqueVariant value_;
    std::wstring type_name_;
};

}  // namespace tessel::component
