// Opens each of the designer's windows in the state that shows most, so that somebody can look at all of them
// in one way: the test of the layout, the test of the states, whoever takes pictures.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace tessel::testing {

enum class Shown {
    Design,
    Sql,
    SqlReplace,
    SqlError,
    Reason,
    Relation,
    AddTable,
    AddRelatedTable,
    Preview,
    PreviewFind,
    Tree
};

inline constexpr Shown kEveryWindow[] = {
    Shown::Design,  Shown::Sql,         Shown::SqlReplace, Shown::SqlError,
    Shown::Reason,  Shown::Relation,    Shown::AddTable,   Shown::AddRelatedTable,
    Shown::Preview, Shown::PreviewFind, Shown::Tree};

/// For names of tests and files.
const char* NameOf(Shown shown);

/// Opens the window, calls `look` inside its modal loop once it is shown, and closes it. What went wrong;
/// empty when nothing did.
std::string Open(Shown shown, const std::function<void(HWND)>& look);

/// Lets a window grow beyond the screen of the machine, as far as a simulated one needs.
void AllowAnySize(HWND window);

/// Tells the window that it came to the simulated screen there is now, filling its work area.
void BringToScreen(HWND window, const RECT& work_area);

/// Lets the window do what it put off until its messages are handled; nothing is painted.
void Settle();

}  // namespace tessel::testing
