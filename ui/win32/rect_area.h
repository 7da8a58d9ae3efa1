// Between the rectangles of Windows and the areas of window_place.h.
#pragma once

#include <windows.h>

#include "ui/window_place.h"

namespace tessel::ui {

inline Area AreaOf(const RECT& rect) {
    return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
            static_cast<int>(rect.bottom)};
}

}  // namespace tessel::ui
