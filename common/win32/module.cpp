#include "common/win32/module.h"

namespace tessel::win32 {

HINSTANCE ThisModule() {
    HMODULE module = nullptr;
    static const char anchor = 0;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&anchor), &module);
    return module;
}

std::wstring ModuleFolder() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) return {};
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        if (path.size() >= 32768) return {};
        path.resize(path.size() * 2);
    }
    const std::size_t slash = path.find_last_of(L"\\/");
    return slash == std::wstring::npos ? std::wstring() : path.substr(0, slash + 1);
}

// Windows 7 without its updates does not know the flag, and takes the library's whole path.
HMODULE LoadSystemLibrary(const wchar_t* file_name) {
    const HMODULE library = LoadLibraryExW(file_name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library || GetLastError() != ERROR_INVALID_PARAMETER) return library;
    wchar_t folder[MAX_PATH];
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return nullptr;
    return LoadLibraryExW((std::wstring(folder, length) + L'\\' + file_name).c_str(), nullptr,
                          LOAD_WITH_ALTERED_SEARCH_PATH);
}

}  // namespace tessel::win32
