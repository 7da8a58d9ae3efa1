// Drives real windows from a test: a dialog-like top-level window, its message loop, mouse and keyboard
// through the system's own input queue, and pictures of a window for the eye.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace tessel::testing {

/// A plain top-level window whose messages run through IsDialogMessage, as those of the designer's window do.
class TestFrame {
public:
    TestFrame(int width, int height);
    ~TestFrame();
    TestFrame(const TestFrame&) = delete;
    TestFrame& operator=(const TestFrame&) = delete;

    HWND Handle() const { return hwnd_; }
    /// A push button, for something that the focus can go to.
    HWND AddButton(const wchar_t* text, int id, const RECT& place, bool is_default = false);

    /// Handles every message that is waiting.
    void Pump();
    /// Pumps until the condition holds. False when it does not within a generous time.
    bool WaitFor(const std::function<bool()>& condition);

    /// Commands and notifications that reached the frame: (id, code).
    int last_command = 0;
    int notifications = 0;
    int context_menus = 0;

private:
    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam);
    HWND hwnd_ = nullptr;
};

/// Mouse input at a client point of a window, through SendInput.
void MoveMouse(HWND hwnd, int x, int y);
void PressMouse(bool right = false);
void ReleaseMouse(bool right = false);
void Click(HWND hwnd, int x, int y);
void DoubleClick(HWND hwnd, int x, int y);

/// A key pressed and released, with modifiers held.
void PressKey(WORD key, bool shift = false, bool control = false, bool alt = false);
/// Characters typed as Unicode input.
void TypeText(const std::wstring& text);

/// Writes a window's picture as a BMP into the folder named by TESSEL_SCREENSHOTS, if set. Popups are windows
/// of their own, and are laid over it when `popup` is given.
void SavePicture(HWND hwnd, const std::string& name, HWND popup = nullptr);

}  // namespace tessel::testing
