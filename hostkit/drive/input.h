// Real mouse and keyboard input, looking at windows, and pictures of them: what a program needs that uses
// another program's windows as a person would.
#pragma once

#include <windows.h>

#include <string>

namespace tessel::testing {

/// Real input through SendInput, in screen pixels.
void MouseMove(POINT screen);
void MouseClick(POINT screen, int times = 1);
void RightClick(POINT screen);
void MouseDrag(POINT from, POINT to);
void PressKey(WORD virtual_key, bool shift = false, bool control = false);
/// A key with Alt held, and Shift if asked for.
void PressAlt(WORD virtual_key, bool shift = false);
void TypeText(const wchar_t* text);

/// The middle of a client rectangle, in screen pixels.
POINT ScreenPoint(HWND hwnd, const RECT& client_rect);
POINT MiddleOf(HWND hwnd);

std::wstring TextOf(HWND hwnd);
/// The descendant with that control identifier, or nullptr.
HWND Descendant(HWND root, int id);
/// An open message box of this process, or nullptr; and the text it shows.
HWND OpenMessageBox();
std::wstring MessageBoxText(HWND box);

/// Saves a picture of the window (frame and children) as BMP. False when it could not.
bool SavePicture(HWND hwnd, const std::wstring& file);

}  // namespace tessel::testing
