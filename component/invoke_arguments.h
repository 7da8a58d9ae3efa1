// The arguments of one late-bound call, brought into the exact form that the member's parameters have.
//
// Hosts pass the same argument by value, by reference, by reference to a Variant (VBScript, VBA), by name, or
// leave it out; the platform's own ITypeInfo::Invoke refuses several of these for [in, out] parameters.
// Prepare makes, for each parameter that is not matched exactly, a private value of the parameter's type and
// passes that; after a successful call WriteBack gives changed values back to the variables that came by
// reference.
//
// A private value, never a shallow copy of the caller's: the callee may free and replace an [in, out] text or
// object, and the caller frees its own afterwards.
//
// What is no object arrives as Nothing in an [in, out] object parameter, and the method decides; in every
// other case a value that cannot be converted is a type mismatch that names the argument.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <vector>

#include "common/win32/com.h"

namespace tessel::component {

class InvokeArguments {
public:
    /// Reads the call. `type` is the dispatch description of the interface. `bad_argument` may be null.
    HRESULT Prepare(ITypeInfo* type, DISPID member, WORD flags, const DISPPARAMS& call, UINT* bad_argument);

    /// What to invoke with instead; valid as long as this object and the caller's arguments.
    WORD Flags() const { return flags_; }
    DISPPARAMS* Parameters() { return &parameters_; }

    /// Stores changed values into the caller's variables.
    void WriteBack();

private:
    /// A private value that stands in for the caller's argument.
    struct Slot {
        const VARIANTARG* from = nullptr;  ///< the caller's argument; null when it was left out
        win32::UniqueVariant value;
        win32::UniqueVariant before;  ///< the value before the call; empty unless it is to be written back
        bool writes_back = false;
    };
    struct Parameter {
        VARTYPE type = VT_EMPTY;  ///< as a Variant would hold it
        bool by_reference = false;
        bool is_out = false;
        bool is_optional = false;
    };

    static Parameter Describe(ITypeInfo* type, const ELEMDESC& element);
    static Parameter Describe(ITypeInfo* type, const TYPEDESC& description);
    HRESULT Fill(const Parameter& parameter, const VARIANTARG* from, VARIANTARG* target);

    WORD flags_ = 0;
    DISPPARAMS parameters_{};
    DISPID put_ = DISPID_PROPERTYPUT;
    std::vector<VARIANTARG> arguments_;  ///< not owned: references into slots, or the caller's own
    std::vector<Slot> slots_;
};

}  // namespace tessel::component
