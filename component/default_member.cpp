#include "component/default_member.h"

#include "common/win32/com.h"
#include "component/function_description.h"

namespace tessel::component {

namespace {

constexpr WORD kAnyPut = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

}  // namespace

bool IsForDefaultMember(ITypeInfo* type, DISPID member, WORD flags, const DISPPARAMS& call) {
    const bool puts = (flags & kAnyPut) != 0;
    if (!puts && !(flags & (DISPATCH_PROPERTYGET | DISPATCH_METHOD))) return false;
    // The last argument of an assignment is the value.
    if (call.cArgs <= (puts ? 1u : 0u)) return false;
    FunctionDescription getter;
    getter.Find(type, member, DISPATCH_PROPERTYGET);
    if (!getter || getter.ArgumentCount() != 0) return false;
    const TYPEDESC& answer = getter->elemdescFunc.tdesc;
    // A dual interface describes its functions either as automation or as the table of functions has them.
    if (answer.vt == VT_DISPATCH) return true;
    if (answer.vt != VT_HRESULT || getter->cParams != 1) return false;
    const TYPEDESC& result = getter->lprgelemdescParam[0].tdesc;
    return result.vt == VT_PTR && result.lptdesc->vt == VT_DISPATCH;
}

HRESULT InvokeDefaultMember(ITypeInfo* type, void* instance, DISPID member, WORD flags, LCID locale,
                            DISPPARAMS* call, VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) {
    DISPPARAMS none{};
    win32::UniqueVariant held;
    const HRESULT read =
        type->Invoke(instance, member, DISPATCH_PROPERTYGET, &none, held.Put(), exception, bad_argument);
    if (FAILED(read)) return read;
    const win32::ComPtr<IDispatch> object = held.Object();
    if (!object) return DISP_E_BADPARAMCOUNT;
    return object->Invoke(DISPID_VALUE, IID{}, locale, flags, call, result, exception, bad_argument);
}

}  // namespace tessel::component
