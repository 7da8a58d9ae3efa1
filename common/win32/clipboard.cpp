#include "common/win32/clipboard.h"

#include <algorithm>

namespace tessel::win32 {

namespace {

/// The clipboard, opened for a scope.
class OpenedClipboard {
public:
    explicit OpenedClipboard(HWND owner) : opened_(OpenClipboard(owner) != FALSE) {}
    ~OpenedClipboard() {
        if (opened_) CloseClipboard();
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    explicit operator bool() const { return opened_; }

private:
    bool opened_;
};

HGLOBAL MemoryOf(std::wstring_view text) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, (text.size() + 1) * sizeof(wchar_t));
    if (!memory) return nullptr;
    void* target = GlobalLock(memory);
    if (!target) {
        GlobalFree(memory);
        return nullptr;
    }
    // A zero inside would end the text for whoever pastes it.
    std::replace_copy(text.begin(), text.end(), static_cast<wchar_t*>(target), L'\0', L' ');
    GlobalUnlock(memory);
    return memory;
}

}  // namespace

bool CopyToClipboard(HWND owner, std::wstring_view text) {
    const HGLOBAL memory = MemoryOf(text);
    if (!memory) return false;
    const OpenedClipboard clipboard(owner);
    // The clipboard owns the memory once it took it.
    if (clipboard && EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory)) return true;
    GlobalFree(memory);
    return false;
}

std::optional<std::wstring> TextFromClipboard(HWND owner) {
    const OpenedClipboard clipboard(owner);
    if (!clipboard) return std::nullopt;
    const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
    const auto* text = memory ? static_cast<const wchar_t*>(GlobalLock(memory)) : nullptr;
    if (!text) return std::nullopt;
    // Another program may have left out the closing zero.
    std::size_t length = GlobalSize(memory) / sizeof(wchar_t);
    for (std::size_t i = 0; i < length; ++i) {
        if (text[i] == L'\0') length = i;
    }
    std::wstring copy(text, length);
    GlobalUnlock(memory);
    return copy;
}

bool CopyToClipboard(HWND owner, HGLOBAL dib, HENHMETAFILE metafile) {
    const OpenedClipboard clipboard(owner);
    const bool open = clipboard && EmptyClipboard();
    // The clipboard owns each form once it took it.
    const bool took_metafile = open && metafile && SetClipboardData(CF_ENHMETAFILE, metafile);
    const bool took_dib = open && dib && SetClipboardData(CF_DIB, dib);
    if (metafile && !took_metafile) DeleteEnhMetaFile(metafile);
    if (dib && !took_dib) GlobalFree(dib);
    return took_metafile || took_dib;
}

}  // namespace tessel::win32
