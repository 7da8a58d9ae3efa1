// Arguments given to a property that takes none, as in `quillon.ParamCol(1)`: host languages mean the default
// member of the object that the property holds, and pass the whole as one call of the property.
#pragma once

#include <windows.h>
#include <oaidl.h>

namespace tessel::component {

/// Whether a call gives arguments to a property that takes none and holds an object.
bool IsForDefaultMember(ITypeInfo* type, DISPID member, WORD flags, const DISPPARAMS& call);

/// Passes such a call on to the default member of the object in the property of `instance`. A bad parameter
/// count when the property holds no object.
HRESULT InvokeDefaultMember(ITypeInfo* type, void* instance, DISPID member, WORD flags, LCID locale,
                            DISPPARAMS* call, VARIANT* result, EXCEPINFO* exception, UINT* bad_argument);

}  // namespace tessel::component
