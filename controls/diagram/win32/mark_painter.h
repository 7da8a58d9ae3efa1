// Draws the smooth marks of diagram_marks.h: each is computed once for its size and colour and then blended.
#pragma once

#include <windows.h>

#include <map>
#include <utility>

#include "common/win32/handles.h"
#include "controls/diagram/diagram_marks.h"

namespace tessel::controls::diagram {

class MarkPainter {
public:
    void Draw(HDC dc, int left, int top, const Mark& mark, COLORREF colour);
    /// Forgets what was computed, when the scale changed.
    void Clear() { sprites_.clear(); }

private:
    HBITMAP Sprite(const Mark& mark, COLORREF colour);

    std::map<std::pair<Mark, COLORREF>, win32::UniqueBitmap> sprites_;
    win32::UniqueMemoryDc source_;
};

}  // namespace tessel::controls::diagram
