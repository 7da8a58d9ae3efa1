// Procedures of ours before that of a window which another library made: a tree, an edit box, the editor.
//
// The common controls have functions for this (SetWindowSubclass), which look up a window property several
// times for every message. Under Wine each of those is a request to another process, and a window of many
// controls is painted late because of them. Here a message finds its procedures in our own memory.
//
//   LRESULT Thing::OnChildMessage(HWND hwnd, UINT message, WPARAM w, LPARAM l, void* data,
//                                 const win32::SubclassChain& next) {
//       if (message == WM_CHAR) …
//       return next(hwnd, message, w, l);
//   }
//   win32::Subclass(edit, Thing::OnChildMessage, thing);
//
// Only the user-interface thread subclasses windows. What was put there goes with the window; it needs no
// taking away, but may be taken away before.
#pragma once

#include <windows.h>

namespace tessel::win32 {

/// What comes behind a procedure: those that were put there before it, and at last the window's own.
class SubclassChain {
public:
    SubclassChain(WNDPROC own, int waiting) : own_(own), waiting_(waiting) {}
    LRESULT operator()(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) const;

private:
    WNDPROC own_;
    int waiting_;
};

/// `data` is what was given to Subclass. Nothing may be thrown.
using SubclassProcedure = LRESULT (*)(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, void* data,
                                      const SubclassChain& next);

/// Puts a procedure before what the window has, or changes the data of one that is there. False when Windows
/// refuses.
bool Subclass(HWND hwnd, SubclassProcedure procedure, void* data);
/// Takes a procedure away; it is not called any more. Nothing happens when it is not there.
void Unsubclass(HWND hwnd, SubclassProcedure procedure);

}  // namespace tessel::win32
