// The diagram's own commands in its window: fitting, the picture on the clipboard, the menu of the empty
// plane; and what keeps painting steady.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <set>

#include "hostkit/drive/script.h"
#include "tests/win_diagram/diagram_window.h"

namespace tessel::controls::testing_support {
namespace {

TableLiterals Sales() {
    return {{L"Clientes", {L"+IdCliente", L"Nombre", L"País"}},
            {L"Pedidos", {L"+IdPedido", L"-IdCliente", L"Fecha", L"Importe"}},
            {L"Productos", {L"+IdProducto", L"Nombre"}}};
}

class DiagramCommandsTest : public ::testing::Test {
protected:
    DiagramCommandsTest() {
        for (const wchar_t* table : {L"Clientes", L"Pedidos", L"Productos"}) window.Add(table);
        window.Relate(L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente", model::kLeftJoin);
        window.Pump();
    }

    HWND FitButton() const { return GetWindow(window.view.Handle(), GW_CHILD); }
    bool IsFitOffered() const { return IsWindowVisible(FitButton()) != FALSE; }
    bool IsInView(const wchar_t* table) const {
        RECT client{};
        GetClientRect(window.view.Handle(), &client);
        const RECT box = window.view.TableRect(table);
        return box.left >= 0 && box.top >= 0 && box.right <= client.right && box.bottom <= client.bottom;
    }

    DiagramWindow window{Sales()};
};

TEST_F(DiagramCommandsTest, TheButtonIsOfferedWhileSomethingIsOutOfViewAndFitsIt) {
    EXPECT_FALSE(IsFitOffered());
    window.diagram.SetTableRect(L"Productos", {1500, 1200, 160, 90});
    window.Pump();
    ASSERT_TRUE(IsFitOffered());
    wchar_t caption[40] = L"";
    GetWindowTextW(FitButton(), caption, 40);
    EXPECT_STREQ(caption, L"Ajustar");
    SendMessageW(FitButton(), BM_CLICK, 0, 0);
    window.Pump();
    EXPECT_LT(window.view.Zoom(), 100);
    for (const wchar_t* table : {L"Clientes", L"Pedidos", L"Productos"})
        EXPECT_TRUE(IsInView(table)) << table;
    EXPECT_FALSE(IsFitOffered());
    EXPECT_EQ(GetFocus(), window.view.Handle());
}

TEST_F(DiagramCommandsTest, KeysFitAndGoBackToTheActualSize) {
    window.diagram.SetTableRect(L"Productos", {1500, 1200, 160, 90});
    window.Press('9', true);
    EXPECT_TRUE(IsInView(L"Productos"));
    window.Press('0', true);
    EXPECT_EQ(window.view.Zoom(), 100);
    window.Press(VK_OEM_PLUS, true);
    EXPECT_EQ(window.view.Zoom(), 110);
    window.Press(VK_OEM_MINUS, true);
    window.Press(VK_OEM_MINUS, true);
    EXPECT_EQ(window.view.Zoom(), 90);
}

/// The bitmap on the clipboard: its size and how many colours it has; no colours when there is none.
struct Picture {
    SIZE size{};
    std::set<DWORD> colours;
};

Picture BitmapOnClipboard() {
    Picture picture;
    if (!OpenClipboard(nullptr)) return picture;
    if (const HANDLE memory = GetClipboardData(CF_DIB)) {
        const auto* header = static_cast<const BITMAPINFOHEADER*>(GlobalLock(memory));
        picture.size = {header->biWidth, header->biHeight};
        const auto* pixels = reinterpret_cast<const DWORD*>(header + 1);
        for (LONG i = 0; i < header->biWidth * header->biHeight; ++i)
            picture.colours.insert(pixels[i] & 0xFFFFFF);
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return picture;
}

/// The metafile on the clipboard played into a bitmap of that size.
Picture MetafileOnClipboard(SIZE size) {
    Picture picture;
    if (!OpenClipboard(nullptr)) return picture;
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, size.cx, size.cy);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    const RECT all{0, 0, size.cx, size.cy};
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    const auto metafile = static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE));
    if (metafile && PlayEnhMetaFile(dc, metafile, &all)) {
        picture.size = size;
        for (int y = 0; y < size.cy; ++y)
            for (int x = 0; x < size.cx; ++x) picture.colours.insert(GetPixel(dc, x, y));
    }
    CloseClipboard();
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
    return picture;
}

TEST_F(DiagramCommandsTest, ControlAndCPutsThePictureOnTheClipboardInBothForms) {
    window.Click({window.view.TableRect(L"Pedidos").left + 40, window.view.TableRect(L"Pedidos").top + 10});
    window.Press('C', true);
    const Picture bitmap = BitmapOnClipboard();
    const RECT last = window.view.TableRect(L"Productos");
    EXPECT_GT(bitmap.size.cx, last.right - last.left);
    EXPECT_GT(bitmap.colours.size(), 10u);
    // A picture to keep: nothing in it is selected.
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    EXPECT_FALSE(
        bitmap.colours.contains(RGB(GetBValue(highlight), GetGValue(highlight), GetRValue(highlight))));
    const Picture metafile = MetafileOnClipboard(bitmap.size);
    EXPECT_GT(metafile.colours.size(), 10u);
}

TEST_F(DiagramCommandsTest, ThePictureHoldsTheWholeDiagramAtAnyZoom) {
    window.Press('C', true);
    const SIZE near_by = BitmapOnClipboard().size;
    window.view.SetZoom(50);
    window.Press('C', true);
    const Picture same = BitmapOnClipboard();
    EXPECT_EQ(same.size.cx, near_by.cx);
    EXPECT_EQ(same.size.cy, near_by.cy);
    window.diagram.SetTableRect(L"Productos", {9000, 100, 160, 90});
    window.Press('C', true);
    const Picture wide = BitmapOnClipboard();
    EXPECT_GT(wide.size.cx, near_by.cx);
    EXPECT_LE(wide.size.cx, 4000);
}

TEST_F(DiagramCommandsTest, AnEmptyDiagramLeavesTheClipboardAlone) {
    window.Press('C', true);
    const SIZE before = BitmapOnClipboard().size;
    window.diagram.Clear();
    EXPECT_FALSE(window.view.CopyPicture());
    EXPECT_EQ(BitmapOnClipboard().size.cx, before.cx);
}

HWND OpenMenu() {
    const HWND menu = FindWindowW(L"#32768", nullptr);
    return menu && IsWindowVisible(menu) ? menu : nullptr;
}

TEST_F(DiagramCommandsTest, TheEmptyPlaneOffersWhatChangesTheView) {
    window.diagram.SetTableRect(L"Productos", {1500, 1200, 160, 90});
    window.Pump();
    std::vector<std::wstring> captions;
    tessel::testing::Script script;
    script.Until([] { return OpenMenu() != nullptr; }, "the menu is open");
    script.Do([&] {
        constexpr UINT kGetMenu = 0x01E1;
        const auto menu = reinterpret_cast<HMENU>(SendMessageW(OpenMenu(), kGetMenu, 0, 0));
        for (int i = 0; i < GetMenuItemCount(menu); ++i) {
            wchar_t text[100] = L"";
            GetMenuStringW(menu, static_cast<UINT>(i), text, 100, MF_BYPOSITION);
            captions.push_back(text);
        }
        keybd_event(VK_DOWN, 0, 0, 0);
        keybd_event(VK_DOWN, 0, KEYEVENTF_KEYUP, 0);
        keybd_event(VK_RETURN, 0, 0, 0);
        keybd_event(VK_RETURN, 0, KEYEVENTF_KEYUP, 0);
    });
    script.Start();
    window.diagram.SelectNothing();
    SendMessageW(window.view.Handle(), WM_CONTEXTMENU, 0, -1);
    EXPECT_TRUE(script.Finished()) << script.Trouble();
    EXPECT_EQ(captions, (std::vector<std::wstring>{L"Ajustar\tCtrl+9", L"Tamaño real (100 %)\tCtrl+0", L"",
                                                   L"Ordenar las tablas", L"Copiar como imagen\tCtrl+C"}));
    EXPECT_TRUE(IsInView(L"Productos"));
    EXPECT_TRUE(window.events.log.empty());
}

TEST_F(DiagramCommandsTest, ErasingTheBackgroundPaintsNothing) {
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 8, 8);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    SetPixel(dc, 3, 3, RGB(200, 10, 20));
    EXPECT_NE(SendMessageW(window.view.Handle(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 0);
    EXPECT_EQ(GetPixel(dc, 3, 3), RGB(200, 10, 20));
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
}

TEST_F(DiagramCommandsTest, TooltipsTellTypesKeysAndJoins) {
    const auto tip_at = [&](POINT at) {
        window.Mouse(WM_MOUSEMOVE, at);
        HWND tip = nullptr;
        while ((tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr)
            if (GetWindow(tip, GW_OWNER) == GetAncestor(window.view.Handle(), GA_ROOT) ||
                GetWindow(tip, GW_OWNER) == window.view.Handle())
                break;
        NMTTDISPINFOW ask{};
        ask.hdr = {tip, 0, static_cast<UINT>(TTN_GETDISPINFOW)};
        ask.lpszText = ask.szText;
        SendMessageW(window.view.Handle(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&ask));
        return std::wstring(ask.lpszText);
    };
    EXPECT_EQ(tip_at(Middle(window.view.FieldRect(L"Clientes", L"IdCliente"))),
              L"IdCliente: adInteger, clave principal");
    EXPECT_EQ(tip_at(Middle(window.view.FieldRect(L"Pedidos", L"IdCliente"))),
              L"IdCliente: adInteger, clave externa");
    EXPECT_EQ(tip_at(window.view.RelationPoint(window.diagram.Relations()[0].key)),
              L"Clientes.IdCliente = Pedidos.IdCliente (izquierda)");
}

}  // namespace
}  // namespace tessel::controls::testing_support
