// The schema browser's icons, drawn at whatever size the dpi asks for.
#pragma once

#include <windows.h>

#include <commctrl.h>

namespace tessel::controls {

enum class BrowserIcon : int {
    Database,
    Group,
    Table,
    View,
    Field,
    TextField,
    NumberField,
    DateField,
    BooleanField,
    BinaryField,
    PrimaryKey,
    ForeignKey,
    Relation
};
inline constexpr int kBrowserIconCount = static_cast<int>(BrowserIcon::Relation) + 1;

/// Edge of the icons in pixels.
int BrowserIconSize(int dpi);

/// An image list with the icons in the order of BrowserIcon, each with the room that a tree leaves too
/// narrow; the caller destroys it. nullptr when Windows refuses.
HIMAGELIST MakeBrowserIcons(int dpi);

}  // namespace tessel::controls
