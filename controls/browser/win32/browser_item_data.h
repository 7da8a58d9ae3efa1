// What an item of the browser's tree carries: its kind below, above it the index of the object or, for a
// field, of the field in its object.
#pragma once

#include <windows.h>

#include "controls/browser/browser_model.h"

namespace tessel::controls {

inline constexpr int kItemKindBits = 3;

inline LPARAM ItemData(BrowserItem::Kind kind, std::size_t index) {
    return static_cast<LPARAM>((index << kItemKindBits) | static_cast<std::size_t>(kind));
}
inline BrowserItem::Kind KindOf(LPARAM data) {
    return static_cast<BrowserItem::Kind>(data & ((1 << kItemKindBits) - 1));
}
inline std::size_t IndexOf(LPARAM data) {
    return static_cast<std::size_t>(data) >> kItemKindBits;
}
inline bool IsObject(BrowserItem::Kind kind) {
    return kind == BrowserItem::Kind::Table || kind == BrowserItem::Kind::View;
}

}  // namespace tessel::controls
