#include "component/type_library.h"

#include "common/win32/module.h"

namespace tessel::component {

using win32::ComPtr;

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD room = static_cast<DWORD>(path.size());
        const DWORD length = GetModuleFileNameW(win32::ThisModule(), path.data(), room);
        if (length == 0) return {};
        if (length < room) {
            path.resize(length);
            return path;
        }
        if (room >= 32768) return {};
        path.resize(path.size() * 2);
    }
}

HRESULT LoadOwnTypeLibrary(ComPtr<ITypeLib>* library) {
    const std::wstring path = ModulePath();
    if (path.empty()) return HRESULT_FROM_WIN32(GetLastError());
    return LoadTypeLibEx(path.c_str(), REGKIND_NONE, library->Put());
}

HRESULT LoadTypeInfo(REFGUID guid, ComPtr<ITypeInfo>* type) {
    ComPtr<ITypeLib> library;
    const HRESULT loaded = LoadOwnTypeLibrary(&library);
    return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(guid, type->Put());
}

}  // namespace tessel::component
