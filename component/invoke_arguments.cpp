#include "component/invoke_arguments.h"

#include "common/win32/dispatch.h"
#include "component/function_description.h"

namespace tessel::component {

using win32::ComPtr;
using win32::UniqueVariant;

namespace {

constexpr WORD kAnyPut = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

bool IsObjectType(VARTYPE type) {
    return type == VT_DISPATCH || type == VT_UNKNOWN;
}

bool IsLeftOut(const VARIANTARG& argument) {
    return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

/// The argument after following a reference to a Variant.
const VARIANTARG& Followed(const VARIANTARG& argument) {
    return argument.vt == (VT_BYREF | VT_VARIANT) && argument.pvarVal ? *argument.pvarVal : argument;
}

/// Which kinds of member the call may reach. Languages without a "Set" statement assign objects by
/// PROPERTYPUT, also to a property that can only be set by reference.
WORD KindsOf(ITypeInfo* type, DISPID member, WORD flags, const DISPPARAMS& call) {
    if (!(flags & kAnyPut) || call.cArgs == 0) return flags;
    const VARTYPE value_type = Followed(call.rgvarg[0]).vt;
    const bool is_object = IsObjectType(value_type & ~VT_BYREF);
    const WORD wanted = is_object && (flags & DISPATCH_PROPERTYPUTREF) ? DISPATCH_PROPERTYPUTREF
                        : (flags & DISPATCH_PROPERTYPUT)               ? DISPATCH_PROPERTYPUT
                                                                       : DISPATCH_PROPERTYPUTREF;
    FunctionDescription found;
    found.Find(type, member, wanted);
    if (found) return wanted;
    const bool empties = value_type == VT_EMPTY || value_type == VT_NULL;
    if (wanted == DISPATCH_PROPERTYPUT && (is_object || empties)) return DISPATCH_PROPERTYPUTREF;
    return wanted;
}

bool SameValue(const VARIANT& a, const VARIANT& b) {
    if (a.vt != b.vt) return false;
    if (a.vt == VT_BSTR) return win32::TextOf(a.bstrVal) == win32::TextOf(b.bstrVal);
    return a.llVal == b.llVal;
}

/// Moves a value into the variable that an argument refers to, converted to the variable's type.
void Store(const VARIANTARG& reference, UniqueVariant& value) {
    if (!(reference.vt & VT_BYREF) || !reference.byref) return;
    if (reference.vt == (VT_BYREF | VT_VARIANT)) {
        VARIANT& variable = *reference.pvarVal;
        if (variable.vt & VT_BYREF) return Store(variable, value);
        VariantClear(&variable);
        variable = value.Detach();
        return;
    }
    const VARTYPE type = reference.vt & ~VT_BYREF;
    UniqueVariant converted;
    if (FAILED(win32::ChangePlain(value, type, &converted))) return;
    switch (type) {
        case VT_I1:
        case VT_UI1:
            *reference.pbVal = converted.Get().bVal;
            break;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            *reference.piVal = converted.Get().iVal;
            break;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            *reference.plVal = converted.Get().lVal;
            break;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_DATE:
        case VT_CY:
            *reference.pllVal = converted.Get().llVal;
            break;
        case VT_BSTR:
            SysFreeString(*reference.pbstrVal);
            *reference.pbstrVal = converted.Detach().bstrVal;
            break;
        case VT_DISPATCH:
        case VT_UNKNOWN:
            if (*reference.ppunkVal) (*reference.ppunkVal)->Release();
            *reference.ppunkVal = converted.Detach().punkVal;
            break;
        default:
            break;
    }
}

}  // namespace

InvokeArguments::Parameter InvokeArguments::Describe(ITypeInfo* type, const TYPEDESC& description) {
    Parameter parameter;
    parameter.type = description.vt;
    if (description.vt == VT_PTR) {
        parameter = Describe(type, *description.lptdesc);
        // A pointer to an interface is that interface as a value; any other pointer is a reference.
        const bool interface_itself =
            description.lptdesc->vt == VT_USERDEFINED && IsObjectType(parameter.type);
        parameter.by_reference = !interface_itself;
        return parameter;
    }
    if (description.vt == VT_INT) parameter.type = VT_I4;
    if (description.vt == VT_UINT) parameter.type = VT_UI4;
    if (description.vt != VT_USERDEFINED) return parameter;
    ComPtr<ITypeInfo> referenced;
    TYPEATTR* attributes = nullptr;
    if (FAILED(type->GetRefTypeInfo(description.hreftype, referenced.Put()))) return parameter;
    if (FAILED(referenced->GetTypeAttr(&attributes))) return parameter;
    if (attributes->typekind == TKIND_ENUM) parameter.type = VT_I4;
    if (attributes->typekind == TKIND_ALIAS) parameter = Describe(referenced.Get(), attributes->tdescAlias);
    if (attributes->typekind == TKIND_DISPATCH || attributes->typekind == TKIND_COCLASS)
        parameter.type = VT_DISPATCH;
    if (attributes->typekind == TKIND_INTERFACE)
        parameter.type = (attributes->wTypeFlags & TYPEFLAG_FDISPATCHABLE) ? VT_DISPATCH : VT_UNKNOWN;
    referenced->ReleaseTypeAttr(attributes);
    return parameter;
}

InvokeArguments::Parameter InvokeArguments::Describe(ITypeInfo* type, const ELEMDESC& element) {
    Parameter parameter = Describe(type, element.tdesc);
    parameter.is_out = (element.paramdesc.wParamFlags & PARAMFLAG_FOUT) != 0;
    parameter.is_optional = (element.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
    return parameter;
}

HRESULT InvokeArguments::Fill(const Parameter& parameter, const VARIANTARG* from, VARIANTARG* target) {
    if (!from && !parameter.is_optional) return DISP_E_PARAMNOTOPTIONAL;
    const bool is_object = IsObjectType(parameter.type);
    if (from && parameter.by_reference && from->vt == (parameter.type | VT_BYREF)) {
        *target = *from;
        return S_OK;
    }
    if (from && !parameter.by_reference && !(from->vt & VT_BYREF) && !is_object) {
        *target = *from;
        return S_OK;
    }
    Slot& slot = slots_.emplace_back();
    slot.from = from;
    const UniqueVariant source = from ? UniqueVariant::CopyOf(*from) : UniqueVariant();
    VARIANT& value = *slot.value.Address();
    if (parameter.type == VT_VARIANT || (!parameter.by_reference && !is_object)) {
        slot.value = UniqueVariant::CopyOf(source.Get());
    } else if (source.IsNothing()) {
        value.vt = parameter.type;
        value.llVal = 0;
    } else {
        const HRESULT changed = win32::ChangePlain(source, parameter.type, &slot.value);
        if (FAILED(changed) && !(is_object && parameter.by_reference)) return changed;
        if (FAILED(changed)) {
            value.vt = parameter.type;
            value.llVal = 0;
        }
    }
    if (!parameter.by_reference) {
        *target = value;
        return S_OK;
    }
    slot.writes_back = parameter.is_out && from && (from->vt & VT_BYREF);
    if (slot.writes_back) slot.before = UniqueVariant::CopyOf(value);
    target->vt = static_cast<VARTYPE>(parameter.type | VT_BYREF);
    target->byref =
        parameter.type == VT_VARIANT ? static_cast<void*>(&value) : static_cast<void*>(&value.llVal);
    return S_OK;
}

HRESULT InvokeArguments::Prepare(ITypeInfo* type, DISPID member, WORD flags, const DISPPARAMS& call,
                                 UINT* bad_argument) {
    flags_ = KindsOf(type, member, flags, call);
    FunctionDescription function;
    function.Find(type, member, flags_);
    if (!function) return DISP_E_MEMBERNOTFOUND;

    std::vector<Parameter> wanted;
    for (SHORT i = 0; i < function->cParams; ++i) {
        const ELEMDESC& element = function->lprgelemdescParam[i];
        if (!(element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL)) wanted.push_back(Describe(type, element));
    }
    const UINT count = static_cast<UINT>(wanted.size());
    if (call.cArgs > count) return DISP_E_BADPARAMCOUNT;

    // Named arguments stand first, the others follow in reverse order.
    std::vector<UINT> position(count, call.cArgs);
    for (UINT i = 0; i < call.cArgs; ++i) {
        UINT parameter = call.cArgs - 1 - i;
        if (i < call.cNamedArgs) {
            const DISPID name = call.rgdispidNamedArgs[i];
            parameter = name == DISPID_PROPERTYPUT ? count - 1 : static_cast<UINT>(name);
        }
        if (parameter >= count || position[parameter] != call.cArgs) {
            if (bad_argument) *bad_argument = i;
            return DISP_E_PARAMNOTFOUND;
        }
        position[parameter] = i;
    }

    slots_.reserve(count);
    arguments_.assign(count, VARIANTARG{});
    for (UINT parameter = 0; parameter < count; ++parameter) {
        const UINT i = position[parameter];
        const VARIANTARG* from =
            i < call.cArgs && !IsLeftOut(Followed(call.rgvarg[i])) ? &call.rgvarg[i] : nullptr;
        const HRESULT filled = Fill(wanted[parameter], from, &arguments_[count - 1 - parameter]);
        if (FAILED(filled)) {
            if (bad_argument && i < call.cArgs) *bad_argument = i;
            return filled;
        }
    }
    parameters_.rgvarg = arguments_.data();
    parameters_.cArgs = count;
    if (flags_ & kAnyPut) {
        parameters_.rgdispidNamedArgs = &put_;
        parameters_.cNamedArgs = 1;
    }
    return S_OK;
}

void InvokeArguments::WriteBack() {
    for (Slot& slot : slots_)
        if (slot.writes_back && !SameValue(slot.value.Get(), slot.before.Get()))
            Store(*slot.from, slot.value);
}

}  // namespace tessel::component
