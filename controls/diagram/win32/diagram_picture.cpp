#include "controls/diagram/win32/diagram_picture.h"

#include <cstring>

#include "common/win32/gdi.h"

namespace tessel::controls::diagram {

namespace {

constexpr int kLongestSide_px = 4000;
constexpr int kHimetricPerInch = 2540;

/// A view of the whole diagram whose left top corner is the picture's.
Viewport WholeView(const DiagramState& state, int zoom) {
    const Rect content = state.Content();
    Viewport view;
    view.SetDpi(state.View().Dpi());
    view.SetExtent(content);
    view.SetZoom(zoom, {0, 0});
    view.SetClient({view.ToPixels(content.width), view.ToPixels(content.height)});
    view.SetScroll({view.ToPixels(content.left), view.ToPixels(content.top)});
    return view;
}

Viewport LimitedView(const DiagramState& state) {
    Viewport view = WholeView(state, 100);
    const int longest = std::max(view.Client().width, view.Client().height);
    if (longest > kLongestSide_px)
        view = WholeView(state, std::max(kMinZoom, 100 * kLongestSide_px / longest));
    return view;
}

}  // namespace

HENHMETAFILE MakeMetafile(DiagramPainter& painter, const DiagramState& state) {
    if (!state.Model() || IsEmpty(state.Content())) return nullptr;
    const Viewport view = WholeView(state, 100);
    const Size size = view.Client();
    // The frame is measured in hundredths of a millimetre of the reference device, the screen.
    const HDC screen = GetDC(nullptr);
    const int across =
        MulDiv(size.width, GetDeviceCaps(screen, HORZSIZE) * 100, GetDeviceCaps(screen, HORZRES));
    const int down =
        MulDiv(size.height, GetDeviceCaps(screen, VERTSIZE) * 100, GetDeviceCaps(screen, VERTRES));
    const RECT frame{0, 0, across > 0 ? across : MulDiv(size.width, kHimetricPerInch, view.Dpi()),
                     down > 0 ? down : MulDiv(size.height, kHimetricPerInch, view.Dpi())};
    const HDC dc = CreateEnhMetaFileW(screen, nullptr, &frame, nullptr);
    ReleaseDC(nullptr, screen);
    if (!dc) return nullptr;
    painter.PaintPicture(dc, {0, 0, size.width, size.height}, state, view);
    return CloseEnhMetaFile(dc);
}

HGLOBAL MakeDib(DiagramPainter& painter, const DiagramState& state) {
    if (!state.Model() || IsEmpty(state.Content())) return nullptr;
    const Viewport view = LimitedView(state);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = view.Client().width;
    info.bmiHeader.biHeight = view.Client().height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biSizeImage = static_cast<DWORD>(view.Client().width * view.Client().height * 4);
    void* bits = nullptr;
    const win32::UniqueBitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const win32::UniqueMemoryDc dc(CreateCompatibleDC(nullptr));
    if (!bitmap || !dc) return nullptr;
    {
        const win32::Selected selected(dc.get(), bitmap.get());
        painter.PaintPicture(dc.get(), {0, 0, view.Client().width, view.Client().height}, state, view);
        GdiFlush();
    }
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof info.bmiHeader + info.bmiHeader.biSizeImage);
    auto* target = memory ? static_cast<char*>(GlobalLock(memory)) : nullptr;
    if (!target) {
        if (memory) GlobalFree(memory);
        return nullptr;
    }
    std::memcpy(target, &info.bmiHeader, sizeof info.bmiHeader);
    std::memcpy(target + sizeof info.bmiHeader, bits, info.bmiHeader.biSizeImage);
    GlobalUnlock(memory);
    return memory;
}

}  // namespace tessel::controls::diagram
