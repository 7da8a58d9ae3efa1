// Calls into the editing component without the message queue: the component hands out a function and an
// object for its window, which are good on the window's own thread.
#pragma once

#include <windows.h>

#include <Scintilla.h>

#include <new>
#include <string_view>

namespace tessel::controls {

class ScintillaCalls {
public:
    ScintillaCalls() = default;
    explicit ScintillaCalls(HWND hwnd)
        : function_(reinterpret_cast<SciFnDirect>(SendMessageW(hwnd, SCI_GETDIRECTFUNCTION, 0, 0))),
          object_(static_cast<sptr_t>(SendMessageW(hwnd, SCI_GETDIRECTPOINTER, 0, 0))) {}

    explicit operator bool() const { return function_ != nullptr; }

    /// Any message; 0 when there is no window any more.
    sptr_t Send(unsigned message, uptr_t wparam = 0, sptr_t lparam = 0) const {
        return function_ ? function_(object_, message, wparam, lparam) : 0;
    }
    sptr_t Send(unsigned message, uptr_t wparam, const char* text) const {
        return Send(message, wparam, reinterpret_cast<sptr_t>(text));
    }

    /// The whole text as the component keeps it; good until the next change. Throws where the component has
    /// no memory to lay its text out in one piece: an empty one would be another statement.
    std::string_view Bytes() const {
        const auto length = static_cast<std::size_t>(Send(SCI_GETLENGTH));
        if (length == 0) return {};
        const auto* bytes = reinterpret_cast<const char*>(Send(SCI_GETCHARACTERPOINTER));
        if (!bytes) throw std::bad_alloc();
        return std::string_view(bytes, length);
    }
    /// A stretch of it, without moving anything.
    std::string_view Bytes(sptr_t begin, sptr_t end) const {
        const auto* bytes =
            reinterpret_cast<const char*>(Send(SCI_GETRANGEPOINTER, static_cast<uptr_t>(begin), end - begin));
        return bytes ? std::string_view(bytes, static_cast<std::size_t>(end - begin)) : std::string_view();
    }

private:
    SciFnDirect function_ = nullptr;
    sptr_t object_ = 0;
};

}  // namespace tessel::controls
