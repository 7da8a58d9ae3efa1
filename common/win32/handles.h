// Owners for Windows handles: one template, one alias a kind. An owner holds at most one handle and releases
// it on every path.
#pragma once

#include <windows.h>

#include <utility>

namespace tessel::win32 {

template <class Handle, auto Release>
class Unique {
public:
    Unique() = default;
    explicit Unique(Handle handle) : handle_(handle) {}
    ~Unique() { reset(); }
    Unique(const Unique&) = delete;
    Unique& operator=(const Unique&) = delete;
    Unique(Unique&& other) noexcept : handle_(other.release()) {}
    Unique& operator=(Unique&& other) noexcept {
        if (this != &other) reset(other.release());
        return *this;
    }

    Handle get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }
    Handle release() { return std::exchange(handle_, nullptr); }
    void reset(Handle handle = nullptr) {
        if (Handle old = std::exchange(handle_, handle)) Release(old);
    }

private:
    Handle handle_ = nullptr;
};

inline void ReleaseGdiObject(HGDIOBJ object) {
    DeleteObject(object);
}
inline void ReleaseFont(HFONT font) {
    DeleteObject(font);
}
inline void ReleaseBrush(HBRUSH brush) {
    DeleteObject(brush);
}
inline void ReleasePen(HPEN pen) {
    DeleteObject(pen);
}
inline void ReleaseBitmap(HBITMAP bitmap) {
    DeleteObject(bitmap);
}
inline void ReleaseMemoryDc(HDC dc) {
    DeleteDC(dc);
}
inline void ReleaseMenu(HMENU menu) {
    DestroyMenu(menu);
}
inline void ReleaseIcon(HICON icon) {
    DestroyIcon(icon);
}
inline void ReleaseLibrary(HMODULE module) {
    FreeLibrary(module);
}

using UniqueFont = Unique<HFONT, ReleaseFont>;
using UniqueBrush = Unique<HBRUSH, ReleaseBrush>;
using UniquePen = Unique<HPEN, ReleasePen>;
using UniqueBitmap = Unique<HBITMAP, ReleaseBitmap>;
using UniqueMemoryDc = Unique<HDC, ReleaseMemoryDc>;
using UniqueMenu = Unique<HMENU, ReleaseMenu>;
using UniqueIcon = Unique<HICON, ReleaseIcon>;
using UniqueLibrary = Unique<HMODULE, ReleaseLibrary>;

}  // namespace tessel::win32
