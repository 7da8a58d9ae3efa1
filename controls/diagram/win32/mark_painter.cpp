#include "controls/diagram/win32/mark_painter.h"

#include <cstdint>

#include "common/win32/gdi.h"

namespace tessel::controls::diagram {

namespace {

constexpr std::size_t kMostSprites = 400;

// Blending wants colours multiplied by their coverage.
std::uint32_t Premultiplied(COLORREF colour, unsigned coverage) {
    const unsigned red = GetRValue(colour) * coverage / 255;
    const unsigned green = GetGValue(colour) * coverage / 255;
    const unsigned blue = GetBValue(colour) * coverage / 255;
    return coverage << 24 | red << 16 | green << 8 | blue;
}

}  // namespace

HBITMAP MarkPainter::Sprite(const Mark& mark, COLORREF colour) {
    if (sprites_.size() >= kMostSprites) sprites_.clear();
    win32::UniqueBitmap& sprite = sprites_[{mark, colour}];
    if (sprite) return sprite.get();
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = mark.width;
    info.bmiHeader.biHeight = -mark.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    sprite.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!sprite) return nullptr;
    auto* pixel = static_cast<std::uint32_t*>(bits);
    for (int y = 0; y < mark.height; ++y)
        for (int x = 0; x < mark.width; ++x) *pixel++ = Premultiplied(colour, Coverage(mark, x, y));
    return sprite.get();
}

void MarkPainter::Draw(HDC dc, int left, int top, const Mark& mark, COLORREF colour) {
    if (mark.width <= 0 || mark.height <= 0) return;
    if (!source_) source_.reset(CreateCompatibleDC(nullptr));
    const HBITMAP sprite = Sprite(mark, colour);
    if (!sprite || !source_) return;
    const win32::Selected selected(source_.get(), sprite);
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    GdiAlphaBlend(dc, left, top, mark.width, mark.height, source_.get(), 0, 0, mark.width, mark.height,
                  blend);
}

}  // namespace tessel::controls::diagram
