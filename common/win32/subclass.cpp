#include "common/win32/subclass.h"

#include <map>
#include <vector>

namespace tessel::win32 {

namespace {

/// A procedure that was taken away stays as an empty entry, since a message may be on its way through it.
struct Entry {
    SubclassProcedure procedure = nullptr;
    void* data = nullptr;
};

struct Subclassed {
    WNDPROC own = nullptr;
    std::vector<Entry> entries;  ///< the last one is asked first
};

std::map<HWND, Subclassed>& Windows() {
    static std::map<HWND, Subclassed> windows;
    return windows;
}

Entry* FindEntry(HWND hwnd, SubclassProcedure procedure) {
    const auto found = Windows().find(hwnd);
    if (found == Windows().end()) return nullptr;
    for (Entry& entry : found->second.entries)
        if (entry.procedure == procedure) return &entry;
    return nullptr;
}

LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    const auto found = Windows().find(hwnd);
    if (found == Windows().end()) return DefWindowProcW(hwnd, message, wparam, lparam);
    const SubclassChain chain(found->second.own, static_cast<int>(found->second.entries.size()));
    const LRESULT result = chain(hwnd, message, wparam, lparam);
    if (message == WM_NCDESTROY) Windows().erase(hwnd);
    return result;
}

}  // namespace

// A message that is handled inside another one may change the entries, so that they are looked up at each
// step.
LRESULT SubclassChain::operator()(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) const {
    const auto found = Windows().find(hwnd);
    for (int i = waiting_ - 1; i >= 0 && found != Windows().end(); --i) {
        if (i >= static_cast<int>(found->second.entries.size())) continue;
        const Entry entry = found->second.entries[static_cast<std::size_t>(i)];
        if (entry.procedure)
            return entry.procedure(hwnd, message, wparam, lparam, entry.data, SubclassChain(own_, i));
    }
    return CallWindowProcW(own_, hwnd, message, wparam, lparam);
}

bool Subclass(HWND hwnd, SubclassProcedure procedure, void* data) {
    if (Entry* entry = FindEntry(hwnd, procedure)) {
        entry->data = data;
        return true;
    }
    Subclassed& window = Windows()[hwnd];
    if (!window.own) {
        window.own = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(hwnd, GWLP_WNDPROC));
        if (!window.own || !SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure))) {
            Windows().erase(hwnd);
            return false;
        }
    }
    window.entries.push_back({procedure, data});
    return true;
}

void Unsubclass(HWND hwnd, SubclassProcedure procedure) {
    if (Entry* entry = FindEntry(hwnd, procedure)) *entry = {};
}

}  // namespace tessel::win32
