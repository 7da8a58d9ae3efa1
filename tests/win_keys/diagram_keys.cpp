// The keys of the table diagram.
#include <windows.h>

#include "common/win32/clipboard.h"
#include "tests/win_keys/designer_keys.h"
#include "ui/relation_texts.h"

namespace tessel::testing {

namespace {

constexpr wchar_t kApart[] = L"SELECT Clientes.Nombre FROM Clientes, Pedidos";
constexpr wchar_t kRelationTitle[] = L"Propiedades de la relación";

/// The keyboard on the title of Clientes, with Pedidos to the right of it.
void OnClientes(DesignerKeys& keys, const wchar_t* statement = kJoined) {
    keys.Open(statement);
    keys.Do([&keys] {
        model::Diagram& diagram = keys.Window().Presenter().Design().diagram;
        diagram.SetTableRect(L"Clientes", {40, 40, 150, 160});
        diagram.SetTableRect(L"Pedidos", {400, 40, 150, 160});
    });
    keys.FocusOnTable(L"Clientes");
}

/// Steps down from the title to a row and looks where that is by ticking it.
void ExpectFieldAtKeyboard(DesignerKeys& keys, const wchar_t* table, const wchar_t* field) {
    keys.Do([=, &keys] { EXPECT_FALSE(keys.Checked(table, field)); });
    keys.Press(VK_SPACE);
    keys.Until([=, &keys] { return keys.Checked(table, field); }, "the field with the keyboard is ticked");
}

void MovesTheTable(DesignerKeys& keys, int dx, int dy) {
    OnClientes(keys);
    keys.Press();
    keys.Until(
        [=, &keys] {
            const model::DiagramRect& rect = keys.Diagram().FindTable(L"Clientes")->rect;
            return rect.left == 40 + dx && rect.top == 40 + dy && rect.width == 150;
        },
        "the table moved");
}

void ResizesTheTable(DesignerKeys& keys, int dx, int dy) {
    OnClientes(keys);
    keys.Press();
    keys.Until(
        [=, &keys] {
            const model::DiagramRect& rect = keys.Diagram().FindTable(L"Clientes")->rect;
            const bool wider = dx == 0 || (rect.width > 150) == (dx > 0);
            const bool higher = dy == 0 || (rect.height > 160) == (dy > 0);
            return rect.left == 40 && rect.top == 40 && wider && higher &&
                   (rect.width != 150 || rect.height != 160);
        },
        "the table has another size");
}

/// Tables that do not fit the view, the keyboard on the title of Clientes.
void FarApart(DesignerKeys& keys) {
    OnClientes(keys);
    keys.Do([&keys] {
        keys.Window().Presenter().Design().diagram.SetTableRect(L"Pedidos", {2000, 1500, 150, 160});
    });
}

/// The key scrolls the plane, and moves no table.
void Scrolls(DesignerKeys& keys, int dx, int dy) {
    static RECT before{};
    FarApart(keys);
    if (dx < 0 || dy < 0) {
        keys.Do([dx] { PressKey(dx < 0 ? VK_RIGHT : VK_DOWN, true, true); });
        keys.Do([dx] { PressKey(dx < 0 ? VK_RIGHT : VK_DOWN, true, true); });
    }
    keys.Do([&keys] { before = keys.DiagramView().TableRect(L"Clientes"); });
    keys.Press();
    keys.Until(
        [=, &keys] {
            const RECT now = keys.DiagramView().TableRect(L"Clientes");
            const auto went = [](int wish, LONG from, LONG to) {
                return wish == 0 ? from == to : (wish > 0) == (to < from) && to != from;
            };
            return went(dx, before.left, now.left) && went(dy, before.top, now.top);
        },
        "the plane scrolled");
    keys.Do([&keys] { EXPECT_EQ(keys.Diagram().FindTable(L"Clientes")->rect.left, 40); });
}

void HoldKey(WORD key, bool down) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    SendInput(1, &input, sizeof input);
}

void ZoomsTo(DesignerKeys& keys, bool larger) {
    OnClientes(keys);
    keys.Press();
    keys.Until(
        [=, &keys] { return larger ? keys.DiagramView().Zoom() > 100 : keys.DiagramView().Zoom() < 100; },
        "another scale");
}

/// The relation's menu entry, chosen; the keyboard is on the title of Clientes.
void BeginsARelation(DesignerKeys& keys) {
    OnClientes(keys, kApart);
    keys.Press(VK_DOWN);
    keys.Press(VK_DOWN);
    keys.Press(VK_APPS);
    keys.Until([&keys] { return keys.OpenMenu() != nullptr; }, "the menu is open");
    keys.Press(VK_DOWN);
    keys.Press(VK_DOWN);
    keys.Press(VK_RETURN);
    keys.Until([&keys] { return !keys.DiagramView().RelatingHint().empty(); }, "a relation is begun");
}

void OpensTheMenu(DesignerKeys& keys) {
    OnClientes(keys);
    keys.Press();
    keys.Until([&keys] { return keys.OpenMenu() != nullptr; }, "the menu is open");
    keys.Do([&keys] { EXPECT_EQ(keys.MenuLines().front(), L"Quitar tabla del diagrama"); });
}

const KeyCheck<DesignerKeys> kChecks[] = {
    {L"Flecha izquierda", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Press(VK_RIGHT);
         keys.Until([&keys] { return keys.Diagram().SelectedTable() == L"Pedidos"; }, "the other table");
         keys.Press();
         keys.Until([&keys] { return keys.Diagram().SelectedTable() == L"Clientes"; },
                    "the table to the left");
     }},
    {L"Flecha derecha", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Press();
         keys.Until([&keys] { return keys.Diagram().SelectedTable() == L"Pedidos"; },
                    "the table to the right");
     }},
    {L"Flecha arriba", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         for (int i = 0; i < 5; ++i) keys.Press(VK_DOWN);
         keys.Press();
         ExpectFieldAtKeyboard(keys, L"Clientes", L"Pais");
     }},
    {L"Flecha abajo", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Press();
         keys.Press();
         ExpectFieldAtKeyboard(keys, L"Clientes", L"IdCliente");
     }},
    {L"Inicio", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Press(VK_END);
         keys.Press();
         keys.Press(VK_DOWN);
         ExpectFieldAtKeyboard(keys, L"Clientes", L"*");
     }},
    {L"Fin", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Press();
         ExpectFieldAtKeyboard(keys, L"Clientes", L"[Fecha de alta]");
     }},
    {L"Re Pág", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Press(VK_END);
         for (int i = 0; i < 6; ++i) keys.Press();
         keys.Press(VK_DOWN);
         ExpectFieldAtKeyboard(keys, L"Clientes", L"*");
     }},
    {L"Av Pág", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         for (int i = 0; i < 6; ++i) keys.Press();
         ExpectFieldAtKeyboard(keys, L"Clientes", L"[Fecha de alta]");
     }},
    {L"una letra", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Type(L"p");
         ExpectFieldAtKeyboard(keys, L"Clientes", L"Pais");
     }},
    {L"Ctrl+Av Pág", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Press();
         keys.Until([&keys] { return keys.Diagram().SelectedTable() == L"Pedidos"; }, "the next table");
         keys.Press();
         keys.Until([&keys] { return keys.Diagram().SelectedElement() == model::DiagramElement::Relation; },
                    "the relation");
     }},
    {L"Ctrl+Re Pág", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Press();
         keys.Until([&keys] { return keys.Diagram().SelectedElement() == model::DiagramElement::Relation; },
                    "the last relation");
     }},
    {L"Espacio", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Type(L"p");
         keys.Press();
         keys.Until([&keys] { return keys.Cell(model::GridRow::Campo, 1) == L"Clientes.Pais"; }, "ticked");
         keys.Press();
         keys.Until([&keys] { return keys.Cell(model::GridRow::Campo, 1).empty(); }, "and not");
     }},
    {L"Entrar", L"en una relación",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Press(VK_PRIOR, false, true);
         keys.Press();
         keys.Until([&keys] { return keys.Dialog(kRelationTitle) != nullptr; }, "its properties");
     }},
    {L"Supr", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Press(VK_PRIOR, false, true);
         keys.Press();
         keys.Until([&keys] { return keys.Diagram().Relations().empty(); }, "the relation is removed");
         keys.FocusOnTable(L"Pedidos");
         keys.Press();
         keys.Until([&keys] { return keys.Diagram().Tables().size() == 1; }, "the table is removed");
     }},
    {L"Mayús+F10 | Menú", L"", OpensTheMenu},
    {L"Ctrl+Flecha izquierda", L"", [](DesignerKeys& keys) { MovesTheTable(keys, -8, 0); }},
    {L"Ctrl+Flecha derecha", L"", [](DesignerKeys& keys) { MovesTheTable(keys, 8, 0); }},
    {L"Ctrl+Flecha arriba", L"", [](DesignerKeys& keys) { MovesTheTable(keys, 0, -8); }},
    {L"Ctrl+Flecha abajo", L"", [](DesignerKeys& keys) { MovesTheTable(keys, 0, 8); }},
    {L"Mayús+Flecha izquierda", L"", [](DesignerKeys& keys) { ResizesTheTable(keys, -1, 0); }},
    {L"Mayús+Flecha derecha", L"", [](DesignerKeys& keys) { ResizesTheTable(keys, 1, 0); }},
    {L"Mayús+Flecha arriba", L"", [](DesignerKeys& keys) { ResizesTheTable(keys, 0, -1); }},
    {L"Mayús+Flecha abajo", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         for (int i = 0; i < 3; ++i) keys.Press(VK_UP, true);
         static int lower = 0;
         keys.Do([&keys] { lower = keys.Diagram().FindTable(L"Clientes")->rect.height; });
         keys.Press();
         keys.Until([&keys] { return keys.Diagram().FindTable(L"Clientes")->rect.height == lower + 8; },
                    "the table is higher");
     }},
    {L"Ctrl+Mayús+Flecha izquierda", L"", [](DesignerKeys& keys) { Scrolls(keys, -1, 0); }},
    {L"Ctrl+Mayús+Flecha derecha", L"", [](DesignerKeys& keys) { Scrolls(keys, 1, 0); }},
    {L"Ctrl+Mayús+Flecha arriba", L"", [](DesignerKeys& keys) { Scrolls(keys, 0, -1); }},
    {L"Ctrl+Mayús+Flecha abajo", L"", [](DesignerKeys& keys) { Scrolls(keys, 0, 1); }},
    {L"Espacio", L"con el ratón",
     [](DesignerKeys& keys) {
         FarApart(keys);
         static RECT before{};
         keys.Do([&keys] { before = keys.DiagramView().TableRect(L"Clientes"); });
         keys.Type(L"p");
         keys.Do([] { HoldKey(VK_SPACE, true); });
         keys.Do([&keys] {
             // On a table, which would move without the space bar.
             RECT title = before;
             title.bottom = title.top + 16;
             const POINT from = ScreenPoint(keys.Control(ui::kIdDiagram), title);
             MouseDrag(from, {from.x - 60, from.y - 50});
         });
         keys.Until(
             [&keys] {
                 const RECT now = keys.DiagramView().TableRect(L"Clientes");
                 return now.left == before.left - 60 && now.top == before.top - 50;
             },
             "the plane follows the mouse");
         keys.Do([] { HoldKey(VK_SPACE, false); });
         keys.Do([&keys] {
             EXPECT_EQ(keys.Diagram().FindTable(L"Clientes")->rect.left, 40);
             EXPECT_FALSE(keys.Checked(L"Clientes", L"Pais"));
         });
     }},
    {L"Ctrl++", L"", [](DesignerKeys& keys) { ZoomsTo(keys, true); }},
    {L"Ctrl+-", L"", [](DesignerKeys& keys) { ZoomsTo(keys, false); }},
    {L"Ctrl+0", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Press(VK_ADD, false, true);
         keys.Until([&keys] { return keys.DiagramView().Zoom() > 100; }, "larger");
         keys.Press();
         keys.Until([&keys] { return keys.DiagramView().Zoom() == 100; }, "its actual size");
     }},
    {L"Ctrl+9", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Do([&keys] {
             keys.Window().Presenter().Design().diagram.SetTableRect(L"Pedidos", {1400, 40, 150, 160});
         });
         keys.Press();
         keys.Until([&keys] { return keys.DiagramView().Zoom() < 100; }, "everything is in view");
     }},
    {L"Ctrl+C", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Do([&keys] { win32::CopyToClipboard(keys.Window().Handle(), L"otra cosa"); });
         keys.Press();
         keys.Until([] { return IsClipboardFormatAvailable(CF_ENHMETAFILE) != FALSE; },
                    "the picture is copied");
     }},
    {L"Esc", L"al arrastrar",
     [](DesignerKeys& keys) {
         OnClientes(keys);
         keys.Do([&keys] {
             RECT title = keys.DiagramView().TableRect(L"Clientes");
             title.bottom = title.top + 16;
             const HWND diagram = keys.Control(ui::kIdDiagram);
             const POINT from = ScreenPoint(diagram, title);
             MouseMove(from);
             INPUT press{};
             press.type = INPUT_MOUSE;
             press.mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
             SendInput(1, &press, sizeof press);
             MouseMove({from.x + 60, from.y + 60});
         });
         keys.Until([] { return GetCapture() != nullptr; }, "the table is being dragged");
         keys.Press();
         keys.Until([] { return GetCapture() == nullptr; }, "the drag is given up");
         keys.Do([&keys] {
             INPUT release{};
             release.type = INPUT_MOUSE;
             release.mi.dwFlags = MOUSEEVENTF_LEFTUP;
             SendInput(1, &release, sizeof release);
             EXPECT_EQ(keys.Diagram().FindTable(L"Clientes")->rect.left, 40);
             EXPECT_TRUE(IsWindowVisible(keys.Window().Handle()));
         });
     }},
    {L"Insert", L"",
     [](DesignerKeys& keys) {
         OnClientes(keys, kApart);
         keys.Press();
         keys.Until([&keys] { return !keys.DiagramView().RelatingHint().empty(); }, "a relation is begun");
     }},
    {L"Tab", L"en «Agregar relación»",
     [](DesignerKeys& keys) {
         BeginsARelation(keys);
         keys.Press();
         keys.Until([&keys] { return keys.Diagram().SelectedTable() == L"Pedidos"; }, "the next table");
     }},
    {L"Entrar", L"en «Agregar relación»",
     [](DesignerKeys& keys) {
         BeginsARelation(keys);
         keys.Press(VK_TAB);
         for (int i = 0; i < 3; ++i) keys.Press(VK_DOWN);
         keys.Press();
         keys.Until([&keys] { return keys.Diagram().Relations().size() == 1; }, "the relation is there");
         keys.Do([&keys] {
             EXPECT_EQ(ui::RelationFields(keys.Diagram().Relations()[0].info),
                       L"Clientes.IdCliente = Pedidos.IdCliente");
         });
     }},
    {L"Esc", L"en «Agregar relación»",
     [](DesignerKeys& keys) {
         BeginsARelation(keys);
         keys.Press();
         keys.Until([&keys] { return keys.DiagramView().RelatingHint().empty(); }, "given up");
         keys.Do([&keys] {
             EXPECT_TRUE(keys.Diagram().Relations().empty());
             EXPECT_TRUE(IsWindowVisible(keys.Window().Handle()));
         });
     }},
};
const KeyPane<DesignerKeys> kPane("KeysOfTheDiagram", L"En el diagrama", kChecks);

}  // namespace

}  // namespace tessel::testing
