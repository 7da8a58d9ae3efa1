// Base of our window classes: ties a C++ object to an HWND and guards its window procedure, so that no
// exception ever leaves into Windows and the host.
//
//   class Splitter final : public win32::Window {
//   public:
//       bool Create(HWND parent, int id);              // calls CreateWindowOf(...)
//   private:
//       LRESULT OnMessage(UINT message, WPARAM w, LPARAM l) override;   // default: DefWindowProc
//   };
//
// The object owns the window: destroying the object destroys the window. A window destroyed from outside (its
// parent went away) leaves an object with a null handle, on which every call is harmless.
#pragma once

#include <windows.h>

namespace tessel::win32 {

/// How a class is registered. Classes are registered on first use, by name, and unregistered together before
/// the library may be unloaded.
struct WindowClass {
    const wchar_t* name = nullptr;
    UINT style = 0;  ///< CS_… flags
    HBRUSH background = nullptr;
    LPCWSTR cursor = IDC_ARROW;
};

class Window {
public:
    Window() = default;
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    HWND Handle() const { return hwnd_; }
    bool IsCreated() const { return hwnd_ != nullptr; }
    void Destroy();

protected:
    /// Registers the class if needed and creates the window. False when Windows refuses.
    bool CreateWindowOf(const WindowClass& window_class, const wchar_t* text, DWORD style, DWORD ex_style,
                        HWND parent, int id, const RECT& position = {0, 0, 0, 0});

    /// Handles a message; the base answers with DefWindowProc. May throw: the procedure then answers with 0
    /// after DefWindowProc had no part in it.
    virtual LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam);

private:
    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam);

    HWND hwnd_ = nullptr;
};

/// Unregisters every class that CreateWindowOf registered. No window of them may exist.
void UnregisterClasses();

}  // namespace tessel::win32
