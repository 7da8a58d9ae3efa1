#include "controls/diagram/win32/diagram_view.h"

#include <gtest/gtest.h>

#include "tests/win_diagram/diagram_window.h"

namespace tessel::controls::testing_support {
namespace {

using Log = std::vector<std::wstring>;

TableLiterals Sales() {
    TableLiterals tables = {{L"Clientes", {L"+IdCliente", L"Nombre", L"País"}},
                            {L"Pedidos", {L"+IdPedido", L"-IdCliente", L"Fecha", L"Importe"}}};
    std::vector<std::wstring> many{L"+IdFicha"};
    for (int i = 1; i <= 30; ++i) many.push_back(L"Dato" + std::to_wstring(i));
    tables.push_back({L"Ficha técnica", many});
    return tables;
}

class DiagramViewTest : public testing::Test {
protected:
    DiagramViewTest() {
        window.Add(L"Clientes");
        window.Add(L"Pedidos");
        window.Add(L"Ficha técnica");
        window.Pump();
    }

    bool IsChecked(std::wstring_view table, std::wstring_view field) const {
        const model::DiagramTable* shown = window.diagram.FindTable(table);
        return shown && diagram::RowChecked(*shown, diagram::RowOf(*shown, field));
    }

    DiagramWindow window{Sales()};
};

TEST_F(DiagramViewTest, EveryTableAppearsAndNothingOverlaps) {
    ASSERT_TRUE(window.view.IsCreated());
    std::vector<RECT> rects;
    for (const model::DiagramTable& table : window.diagram.Tables()) {
        EXPECT_TRUE(table.placed);
        rects.push_back(window.view.TableRect(table.name));
        EXPECT_FALSE(IsRectEmpty(&rects.back()));
    }
    RECT common;
    for (std::size_t a = 0; a < rects.size(); ++a)
        for (std::size_t b = a + 1; b < rects.size(); ++b)
            EXPECT_FALSE(IntersectRect(&common, &rects[a], &rects[b]));
    const RECT nowhere = window.view.TableRect(L"Otra");
    EXPECT_TRUE(IsRectEmpty(&nowhere));
    EXPECT_EQ(window.view.RelationPoint(99).x, -1);
}

TEST_F(DiagramViewTest, DraggingTheTitleMovesTheBox) {
    const RECT before = window.view.TableRect(L"Clientes");
    const POINT title{(before.left + before.right) / 2, before.top + 10};
    window.Drag(title, {title.x + 120, title.y + 200});
    const RECT after = window.view.TableRect(L"Clientes");
    EXPECT_NEAR(after.left, before.left + 120, 1);
    EXPECT_NEAR(after.top, before.top + 200, 1);
    EXPECT_EQ(after.right - after.left, before.right - before.left);
    EXPECT_EQ(window.diagram.SelectedTable(), L"Clientes");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(DiagramViewTest, LosingTheMouseGivesUpAMove) {
    const RECT before = window.view.TableRect(L"Clientes");
    const POINT title{before.left + 30, before.top + 10};
    window.Mouse(WM_LBUTTONDOWN, title, MK_LBUTTON);
    window.Mouse(WM_MOUSEMOVE, {title.x + 50, title.y + 50}, MK_LBUTTON);
    ReleaseCapture();
    window.Mouse(WM_LBUTTONUP, {title.x + 50, title.y + 50});
    EXPECT_EQ(window.view.TableRect(L"Clientes").left, before.left);
}

TEST_F(DiagramViewTest, ClickingACheckBoxReportsAndShowsTheTick) {
    window.Click(Middle(window.view.CheckRect(L"Clientes", L"Nombre")));
    EXPECT_TRUE(IsChecked(L"Clientes", L"Nombre"));
    window.Click(Middle(window.view.CheckRect(L"Clientes", L"*")));
    EXPECT_TRUE(IsChecked(L"Clientes", L"*"));
    window.Click(Middle(window.view.CheckRect(L"Clientes", L"Nombre")));
    EXPECT_EQ(window.events.log,
              (Log{L"check Clientes.Nombre", L"check Clientes.*", L"uncheck Clientes.Nombre"}));
}

TEST_F(DiagramViewTest, DraggingAFieldToAFieldDrawsTheRelation) {
    window.Drag(Middle(window.view.FieldRect(L"Clientes", L"IdCliente")),
                Middle(window.view.FieldRect(L"Pedidos", L"IdCliente")));
    EXPECT_EQ(window.events.log, (Log{L"relate Clientes.IdCliente = Pedidos.IdCliente"}));
    ASSERT_EQ(window.diagram.Relations().size(), 1u);
    window.Click(window.view.RelationPoint(window.diagram.Relations()[0].key));
    EXPECT_EQ(window.diagram.SelectedElement(), model::DiagramElement::Relation);
}

TEST_F(DiagramViewTest, TheWheelScrollsALongTable) {
    const RECT hidden = window.view.FieldRect(L"Ficha técnica", L"Dato30");
    EXPECT_TRUE(IsRectEmpty(&hidden));
    const RECT box = window.view.TableRect(L"Ficha técnica");
    POINT screen = Middle(box);
    ClientToScreen(window.view.Handle(), &screen);
    for (int i = 0; i < 12; ++i)
        SendMessageW(window.view.Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)),
                     MAKELPARAM(screen.x, screen.y));
    window.Pump();
    const RECT shown = window.view.FieldRect(L"Ficha técnica", L"Dato30");
    EXPECT_FALSE(IsRectEmpty(&shown));
    const RECT first = window.view.FieldRect(L"Ficha técnica", L"IdFicha");
    EXPECT_TRUE(IsRectEmpty(&first));
    window.Click(Middle(window.view.CheckRect(L"Ficha técnica", L"Dato30")));
    EXPECT_EQ(window.events.log.back(), L"check [Ficha técnica].Dato30");
}

TEST_F(DiagramViewTest, ControlAndWheelZooms) {
    SendMessageW(window.view.Handle(), WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, WHEEL_DELTA), MAKELPARAM(0, 0));
    EXPECT_EQ(window.view.Zoom(), 110);
    window.view.SetZoom(200);
    const RECT large = window.view.TableRect(L"Clientes");
    window.view.SetZoom(100);
    const RECT normal = window.view.TableRect(L"Clientes");
    EXPECT_NEAR(large.right - large.left, 2 * (normal.right - normal.left), 1);
    window.view.SetZoom(1000);
    EXPECT_EQ(window.view.Zoom(), 400);
}

TEST_F(DiagramViewTest, ScrollBarsAppearOnlyWhenSomethingIsOutOfSight) {
    const auto styles = [&] {
        return GetWindowLongW(window.view.Handle(), GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL);
    };
    EXPECT_EQ(styles(), 0);
    window.diagram.SetTableRect(L"Clientes", {3000, 20, 160, 120});
    window.Pump();
    EXPECT_EQ(styles(), WS_HSCROLL);
    SendMessageW(window.view.Handle(), WM_HSCROLL, SB_RIGHT, 0);
    window.Pump();
    RECT client;
    GetClientRect(window.view.Handle(), &client);
    EXPECT_LE(window.view.TableRect(L"Clientes").right, client.right);
    window.diagram.SetTableRect(L"Clientes", {20, 20, 160, 120});
    window.Pump();
    EXPECT_EQ(styles(), 0);
}

TEST_F(DiagramViewTest, KeysWalkTickAndAskForRemoval) {
    window.Press(VK_DOWN);
    window.Press(VK_DOWN);
    window.Press(VK_DOWN);
    EXPECT_EQ(window.diagram.SelectedTable(), L"Clientes");
    window.Press(VK_SPACE);
    EXPECT_TRUE(IsChecked(L"Clientes", L"IdCliente"));
    window.Press(VK_DELETE);
    EXPECT_EQ(window.events.log, (Log{L"check Clientes.IdCliente", L"delete 1"}));
    EXPECT_EQ(window.diagram.FindTable(L"Clientes"), nullptr);
    const RECT gone = window.view.TableRect(L"Clientes");
    EXPECT_TRUE(IsRectEmpty(&gone));
}

TEST_F(DiagramViewTest, TabLeavesTheControl) {
    const HWND after = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 50, 20,
                                       window.frame, nullptr, GetModuleHandleW(nullptr), nullptr);
    SetFocus(window.view.Handle());
    window.Press(VK_TAB);
    EXPECT_EQ(GetFocus(), after);
    DestroyWindow(after);
}

TEST_F(DiagramViewTest, EnterBelongsToTheDialogUnlessARelationIsSelected) {
    const auto wants = [&](WPARAM key) {
        MSG message{};
        message.hwnd = window.view.Handle();
        message.message = WM_KEYDOWN;
        message.wParam = key;
        return (SendMessageW(window.view.Handle(), WM_GETDLGCODE, key, reinterpret_cast<LPARAM>(&message)) &
                DLGC_WANTMESSAGE) != 0;
    };
    const int key = window.Relate(L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente");
    EXPECT_FALSE(wants(VK_RETURN));
    EXPECT_FALSE(wants(VK_ESCAPE));
    window.Click(window.view.RelationPoint(key));
    EXPECT_TRUE(wants(VK_RETURN));
    window.Press(VK_RETURN);
    EXPECT_EQ(window.events.log, (Log{L"activate " + std::to_wstring(key)}));
    const RECT box = window.view.TableRect(L"Clientes");
    window.Mouse(WM_LBUTTONDOWN, {box.left + 30, box.top + 10}, MK_LBUTTON);
    EXPECT_TRUE(wants(VK_ESCAPE));
    window.Press(VK_ESCAPE);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(DiagramViewTest, TheMenuIsAskedForByMouseAndByKeyboard) {
    const int key = window.Relate(L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente");
    POINT screen = window.view.RelationPoint(key);
    ClientToScreen(window.view.Handle(), &screen);
    SendMessageW(window.view.Handle(), WM_CONTEXTMENU, 0, MAKELPARAM(screen.x, screen.y));
    EXPECT_EQ(window.events.menu_at.x, screen.x);
    const RECT box = window.view.TableRect(L"Pedidos");
    window.Click({box.left + 30, box.top + 10});
    SendMessageW(window.view.Handle(), WM_CONTEXTMENU, 0, -1);
    EXPECT_EQ(window.events.log, (Log{L"menu 2", L"menu 1"}));
    POINT at = window.events.menu_at;
    ScreenToClient(window.view.Handle(), &at);
    EXPECT_TRUE(PtInRect(&box, at));
}

TEST_F(DiagramViewTest, RealMouseInputTicksMovesAndRelates) {
    const POINT check = Middle(window.view.CheckRect(L"Pedidos", L"Fecha"));
    window.SendMouse(check, 0);
    window.SendMouse(check, MOUSEEVENTF_LEFTDOWN);
    window.SendMouse(check, MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(window.PumpUntil([&] { return IsChecked(L"Pedidos", L"Fecha"); }));

    const POINT from = Middle(window.view.FieldRect(L"Clientes", L"IdCliente"));
    const POINT to = Middle(window.view.FieldRect(L"Pedidos", L"IdCliente"));
    window.SendMouse(from, 0);
    window.SendMouse(from, MOUSEEVENTF_LEFTDOWN);
    window.SendMouse({from.x + 20, from.y + 5}, 0);
    window.SendMouse(to, 0);
    window.SendMouse(to, MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(window.PumpUntil([&] { return window.diagram.Relations().size() == 1; }));

    const RECT before = window.view.TableRect(L"Pedidos");
    const POINT title{before.left + 40, before.top + 10};
    window.SendMouse(title, 0);
    window.SendMouse(title, MOUSEEVENTF_LEFTDOWN);
    window.SendMouse({title.x + 20, title.y + 30}, 0);
    window.SendMouse({title.x + 40, title.y + 60}, 0);
    window.SendMouse({title.x + 40, title.y + 60}, MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(window.PumpUntil([&] {
        const RECT after = window.view.TableRect(L"Pedidos");
        return GetCapture() == nullptr && after.top > before.top + 50 && after.left > before.left + 30;
    }));
}

TEST_F(DiagramViewTest, RealKeysReachTheControl) {
    SetFocus(window.view.Handle());
    window.SendKey(VK_DOWN);
    window.SendKey(VK_DOWN);
    window.SendKey(VK_SPACE);
    EXPECT_TRUE(window.PumpUntil([&] { return IsChecked(L"Clientes", L"*"); }));
}

TEST_F(DiagramViewTest, HundredsOfTablesAndRelationsArePaintedAndDragged) {
    TableLiterals tables;
    for (int i = 0; i < 200; ++i)
        tables.push_back({L"Tabla" + std::to_wstring(i), {L"+Id", L"-Id1", L"Nombre", L"Valor", L"Fecha"}});
    DiagramWindow large(tables);
    for (const auto& [name, fields] : tables) large.Add(name);
    for (int i = 1; i < 200; ++i) {
        large.Relate(L"Tabla" + std::to_wstring(i / 3), L"Id", L"Tabla" + std::to_wstring(i), L"Id1");
        large.Relate(L"Tabla" + std::to_wstring(i / 2), L"Nombre", L"Tabla" + std::to_wstring(i), L"Nombre");
    }
    large.Pump();
    for (const int zoom : {100, 25}) {
        large.view.SetZoom(zoom);
        large.Pump();
        constexpr int kPaints = 20;
        const DWORD start = GetTickCount();
        for (int i = 0; i < kPaints; ++i) {
            InvalidateRect(large.view.Handle(), nullptr, FALSE);
            UpdateWindow(large.view.Handle());
        }
        const double each = static_cast<double>(GetTickCount() - start) / kPaints;
        RecordProperty("paint_ms_at_" + std::to_string(zoom), std::to_string(each));
        std::printf("one paint at %d %%: %.1f ms\n", zoom, each);
    }
    const DWORD start = GetTickCount();
    large.Drag({40, 20}, {300, 300});
    std::printf("a drag of 4 steps: %lu ms\n", GetTickCount() - start);
    EXPECT_EQ(large.diagram.Relations().size(), 398u);
}

TEST_F(DiagramViewTest, AWindowDestroyedFromOutsideLeavesAHarmlessObject) {
    DestroyWindow(window.view.Handle());
    window.diagram.AddTable(L"Otra", true);
    window.view.Redraw();
    window.view.SetZoom(150);
    EXPECT_FALSE(window.view.IsCreated());
}

}  // namespace
}  // namespace tessel::controls::testing_support
