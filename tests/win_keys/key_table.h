// The help's table of keys as data: which keys which pane names, and what has to be pressed for each.
//
// The page marks every key with <kbd>; what else stands in a row's first cell says where the key means that
// ("en una relación"). "Flechas" stands for the four arrow keys.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace tessel::testing {

/// A key with those that are held meanwhile. `virtual_key` is 0 where the page says "una letra".
struct Stroke {
    WORD virtual_key = 0;
    bool shift = false;
    bool control = false;
    bool alt = false;
};

/// Presses and releases it, as real input.
void PressStroke(const Stroke& stroke);

/// One key of one row.
struct TableKey {
    std::wstring pane;   ///< the heading above the table
    std::wstring key;    ///< "Ctrl+Mayús+Z"
    std::wstring where;  ///< "en una relación"; mostly empty

    bool operator==(const TableKey&) const = default;
    auto operator<=>(const TableKey&) const = default;
};

/// Every key of the page, from the top. Empty when the page cannot be read.
std::vector<TableKey> ReadKeyTable();
/// The keys of a page given as text.
std::vector<TableKey> KeysOfPage(std::wstring_view page);

/// Reads a name as the page writes it. False when it names no key that is known here.
bool ParseStroke(std::wstring_view name, Stroke& stroke);

}  // namespace tessel::testing
