#include "controls/browser/win32/browser_icons.h"

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/screen.h"

namespace tessel::controls {

namespace {

// Icons are drawn four times too large and averaged, which gives smooth edges without a drawing library. A
// pixel that nobody painted keeps this colour and counts as transparent; no icon uses it.
constexpr int kOversampling = 4;
constexpr COLORREF kUnpainted = RGB(1, 2, 3);

// Drawings are laid out on a field of 32 by 32.
constexpr int kField = 32;

constexpr int kTextGap = 3;  // between icon and text, at 96 dpi

constexpr COLORREF kBlue = RGB(0x2F, 0x6F, 0xBF);
constexpr COLORREF kPaleBlue = RGB(0xDC, 0xE9, 0xF7);
constexpr COLORREF kGreen = RGB(0x2E, 0x8B, 0x76);
constexpr COLORREF kPaleGreen = RGB(0xDD, 0xF1, 0xEC);
constexpr COLORREF kViolet = RGB(0x7A, 0x5C, 0xB8);
constexpr COLORREF kGrey = RGB(0x7A, 0x82, 0x8C);
constexpr COLORREF kPaleGrey = RGB(0xE9, 0xEC, 0xEF);
constexpr COLORREF kGold = RGB(0xC9, 0x8B, 0x0B);
constexpr COLORREF kFolder = RGB(0xD9, 0xA4, 0x41);
constexpr COLORREF kPaleFolder = RGB(0xF6, 0xDC, 0xA2);
constexpr COLORREF kWhite = RGB(0xFF, 0xFF, 0xFF);

/// The colours that icons are drawn in: their own, or in high contrast those of text and its background.
COLORREF Shown(COLORREF colour) {
    if (!win32::IsHighContrast()) return colour;
    for (const COLORREF pale : {kPaleBlue, kPaleGreen, kPaleGrey, kPaleFolder, kWhite})
        if (colour == pale) return GetSysColor(COLOR_WINDOW);
    return GetSysColor(COLOR_WINDOWTEXT);
}

class Canvas {
public:
    Canvas(HDC dc, int edge) : dc_(dc), edge_(edge) {}

    void Box(int left, int top, int right, int bottom, COLORREF fill, COLORREF line) const {
        const Pens pens(dc_, fill, line, Thickness());
        Rectangle(dc_, At(left), At(top), At(right), At(bottom));
    }
    void Round(int left, int top, int right, int bottom, COLORREF fill, COLORREF line) const {
        const Pens pens(dc_, fill, line, Thickness());
        RoundRect(dc_, At(left), At(top), At(right), At(bottom), At(4), At(4));
    }
    void Oval(int left, int top, int right, int bottom, COLORREF fill, COLORREF line) const {
        const Pens pens(dc_, fill, line, Thickness());
        Ellipse(dc_, At(left), At(top), At(right), At(bottom));
    }
    /// A thick line with round ends.
    void Stroke(std::initializer_list<POINT> points, int width, COLORREF colour) const {
        const win32::UniquePen pen(CreatePen(PS_SOLID, MulDiv(width, edge_, kField), Shown(colour)));
        const win32::Selected pen_in(dc_, pen.get());
        std::vector<POINT> path;
        for (const POINT& point : points) path.push_back({At(point.x), At(point.y)});
        Polyline(dc_, path.data(), static_cast<int>(path.size()));
    }
    void Fill(int left, int top, int right, int bottom, COLORREF colour) const {
        const RECT rect{At(left), At(top), At(right), At(bottom)};
        win32::FillSolid(dc_, rect, Shown(colour));
    }

private:
    struct Pens {
        Pens(HDC dc, COLORREF fill, COLORREF line, int thickness)
            : brush(CreateSolidBrush(Shown(fill))),
              pen(CreatePen(PS_SOLID, thickness, Shown(line))),
              brush_in(dc, brush.get()),
              pen_in(dc, pen.get()) {}
        win32::UniqueBrush brush;
        win32::UniquePen pen;
        win32::Selected brush_in;
        win32::Selected pen_in;
    };

    int At(int position) const { return MulDiv(position, edge_, kField); }
    int Thickness() const { return MulDiv(2, edge_, kField); }

    HDC dc_;
    int edge_;
};

void DrawDatabase(const Canvas& canvas) {
    canvas.Oval(5, 20, 27, 30, kPaleBlue, kBlue);
    canvas.Fill(5, 8, 27, 25, kPaleBlue);
    canvas.Fill(5, 8, 7, 25, kBlue);
    canvas.Fill(25, 8, 27, 25, kBlue);
    canvas.Oval(5, 2, 27, 12, kBlue, kBlue);
}

void DrawGroup(const Canvas& canvas) {
    canvas.Round(3, 6, 16, 16, kFolder, kFolder);
    canvas.Round(3, 10, 29, 27, kPaleFolder, kFolder);
}

void DrawGrid(const Canvas& canvas, COLORREF strong, COLORREF pale) {
    canvas.Box(3, 5, 30, 28, kWhite, strong);
    canvas.Fill(3, 5, 29, 12, strong);
    canvas.Fill(5, 12, 11, 26, pale);
    canvas.Fill(11, 12, 12, 27, strong);
    canvas.Fill(20, 12, 21, 27, strong);
    canvas.Fill(4, 19, 29, 20, strong);
}

void DrawTable(const Canvas& canvas) {
    DrawGrid(canvas, kBlue, kPaleBlue);
}

void DrawView(const Canvas& canvas) {
    DrawGrid(canvas, kGreen, kPaleGreen);
    canvas.Oval(13, 15, 31, 29, kWhite, kGreen);
    canvas.Oval(19, 19, 26, 26, kGreen, kGreen);
}

void DrawField(const Canvas& canvas) {
    canvas.Round(6, 10, 27, 23, kPaleGrey, kGrey);
    canvas.Fill(10, 15, 22, 18, kGrey);
}

// The sorts of values: a letter, a number sign, a calendar leaf, a ticked box, dots of bytes.

void DrawTextField(const Canvas& canvas) {
    canvas.Stroke({{7, 26}, {16, 6}, {25, 26}}, 3, kBlue);
    canvas.Stroke({{11, 19}, {21, 19}}, 3, kBlue);
}

void DrawNumberField(const Canvas& canvas) {
    canvas.Stroke({{13, 6}, {10, 26}}, 3, kGreen);
    canvas.Stroke({{22, 6}, {19, 26}}, 3, kGreen);
    canvas.Stroke({{6, 12}, {27, 12}}, 3, kGreen);
    canvas.Stroke({{5, 20}, {26, 20}}, 3, kGreen);
}

void DrawDateField(const Canvas& canvas) {
    canvas.Round(4, 6, 28, 28, kWhite, kViolet);
    canvas.Fill(4, 7, 28, 13, kViolet);
    canvas.Fill(9, 3, 12, 9, kViolet);
    canvas.Fill(20, 3, 23, 9, kViolet);
    for (const int y : {16, 22})
        for (const int x : {8, 14, 20}) canvas.Fill(x, y, x + 4, y + 4, kViolet);
}

void DrawBooleanField(const Canvas& canvas) {
    canvas.Round(5, 5, 28, 28, kWhite, kGrey);
    canvas.Stroke({{10, 16}, {15, 22}, {23, 10}}, 3, kGreen);
}

void DrawBinaryField(const Canvas& canvas) {
    for (const int y : {6, 18}) {
        canvas.Oval(4, y, 13, y + 9, kPaleGrey, kGrey);
        canvas.Oval(19, y, 28, y + 9, kGrey, kGrey);
    }
}

void DrawRelation(const Canvas& canvas) {
    canvas.Round(2, 4, 14, 14, kPaleBlue, kBlue);
    canvas.Round(18, 18, 30, 28, kPaleBlue, kBlue);
    canvas.Stroke({{8, 15}, {8, 23}, {17, 23}}, 2, kGrey);
}

void DrawKey(const Canvas& canvas, COLORREF colour) {
    canvas.Fill(15, 14, 30, 18, colour);
    canvas.Fill(26, 17, 30, 23, colour);
    canvas.Fill(20, 17, 23, 22, colour);
    canvas.Oval(2, 8, 18, 24, colour, colour);
    canvas.Oval(7, 13, 12, 18, kWhite, kWhite);
}

void Draw(BrowserIcon icon, const Canvas& canvas) {
    switch (icon) {
        case BrowserIcon::Database:
            return DrawDatabase(canvas);
        case BrowserIcon::Group:
            return DrawGroup(canvas);
        case BrowserIcon::Table:
            return DrawTable(canvas);
        case BrowserIcon::View:
            return DrawView(canvas);
        case BrowserIcon::Field:
            return DrawField(canvas);
        case BrowserIcon::TextField:
            return DrawTextField(canvas);
        case BrowserIcon::NumberField:
            return DrawNumberField(canvas);
        case BrowserIcon::DateField:
            return DrawDateField(canvas);
        case BrowserIcon::BooleanField:
            return DrawBooleanField(canvas);
        case BrowserIcon::BinaryField:
            return DrawBinaryField(canvas);
        case BrowserIcon::Relation:
            return DrawRelation(canvas);
        case BrowserIcon::PrimaryKey:
            return DrawKey(canvas, kGold);
        case BrowserIcon::ForeignKey:
            return DrawKey(canvas, kGrey);
    }
}

/// A bitmap whose pixels can be read and written as 0xAARRGGBB, top row first.
struct PixelBitmap {
    PixelBitmap(int width, int height) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        pixels = static_cast<std::uint32_t*>(bits);
    }
    win32::UniqueBitmap bitmap;
    std::uint32_t* pixels = nullptr;
};

std::uint32_t Average(const std::uint32_t* pixels, int stride) {
    constexpr std::uint32_t kEmpty =
        (GetRValue(kUnpainted) << 16) | (GetGValue(kUnpainted) << 8) | GetBValue(kUnpainted);
    std::uint32_t red = 0, green = 0, blue = 0, painted = 0;
    for (int y = 0; y < kOversampling; ++y) {
        for (int x = 0; x < kOversampling; ++x) {
            const std::uint32_t pixel = pixels[y * stride + x] & 0xFFFFFF;
            if (pixel == kEmpty) continue;
            red += pixel >> 16;
            green += (pixel >> 8) & 0xFF;
            blue += pixel & 0xFF;
            ++painted;
        }
    }
    if (painted == 0) return 0;
    const std::uint32_t alpha = painted * 255 / (kOversampling * kOversampling);
    return (alpha << 24) | (red / painted << 16) | (green / painted << 8) | (blue / painted);
}

/// Draws an icon into a strip of them, from that column on.
bool DrawInto(const PixelBitmap& strip, int strip_width, int left, BrowserIcon icon, int size) {
    const int edge = size * kOversampling;
    const PixelBitmap large(edge, edge);
    const win32::UniqueMemoryDc dc(CreateCompatibleDC(nullptr));
    if (!large.pixels || !dc) return false;
    {
        const win32::Selected selected(dc.get(), large.bitmap.get());
        win32::FillSolid(dc.get(), RECT{0, 0, edge, edge}, kUnpainted);
        Draw(icon, Canvas(dc.get(), edge));
        GdiFlush();
    }
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            strip.pixels[y * strip_width + left + x] =
                Average(large.pixels + (y * edge + x) * kOversampling, edge);
    return true;
}

}  // namespace

int BrowserIconSize(int dpi) {
    return win32::Scale(16, dpi);
}

HIMAGELIST MakeBrowserIcons(int dpi) {
    const int size = BrowserIconSize(dpi);
    // The tree puts the text three pixels behind the icon at every resolution: the rest is part of the icon.
    const int gap = win32::Scale(kTextGap, dpi) - kTextGap;
    const HIMAGELIST list = ImageList_Create(size + gap, size, ILC_COLOR32 | ILC_MASK, kBrowserIconCount, 0);
    if (!list) return nullptr;
    // All at once: adding them one by one as icons takes the system many times as long.
    const int width = (size + gap) * kBrowserIconCount;
    const PixelBitmap strip(width, size);
    // With an alpha channel the mask is not looked at, but there must be one.
    const std::vector<std::uint8_t> mask_bits(static_cast<std::size_t>((width + 15) / 16 * 2 * size), 0);
    const win32::UniqueBitmap mask(CreateBitmap(width, size, 1, 1, mask_bits.data()));
    bool drawn = strip.pixels && mask;
    for (int i = 0; drawn && i < kBrowserIconCount; ++i)
        drawn = DrawInto(strip, width, i * (size + gap), static_cast<BrowserIcon>(i), size);
    if (drawn) ImageList_Add(list, strip.bitmap.get(), mask.get());
    return list;
}

}  // namespace tessel::controls
