// The embedded type library, as far as objects need it: the type information behind IDispatch and the class
// information behind IProvideClassInfo. Loaded from this module's own resource, so that objects work without
// any registration.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>

#include "common/win32/com.h"

namespace tessel::component {

/// The full path of this module; empty on failure.
std::wstring ModulePath();

/// The library in this module's resources.
HRESULT LoadOwnTypeLibrary(win32::ComPtr<ITypeLib>* library);

/// The description of one of its interfaces or classes.
HRESULT LoadTypeInfo(REFGUID guid, win32::ComPtr<ITypeInfo>* type);

}  // namespace tessel::component
