// Dragging tables and fields with the real mouse: from the schema browser onto the diagram, the grid and the
// editor, and from the diagram onto the grid.
#include <windows.h>

#include <commctrl.h>

#include "common/win32/dpi.h"
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

namespace tessel::testing {
namespace {

using model::GridRow;
using ui::Tab;

class DragTest : public DlgDsnTest {
protected:
    HWND Tree() { return Descendant(Control(ui::kIdBrowser), 12); }

    HTREEITEM Find(HTREEITEM item, const std::wstring& beginning) {
        for (; item; item = TreeView_GetNextSibling(Tree(), item)) {
            wchar_t text[200] = L"";
            TVITEMW query{};
            query.hItem = item;
            query.mask = TVIF_TEXT;
            query.pszText = text;
            query.cchTextMax = 200;
            TreeView_GetItem(Tree(), &query);
            if (std::wstring(text).starts_with(beginning)) return item;
            if (const HTREEITEM below = Find(TreeView_GetChild(Tree(), item), beginning)) return below;
        }
        return nullptr;
    }
    POINT ItemPoint(const std::wstring& beginning) {
        RECT rect{};
        const HTREEITEM item = Find(TreeView_GetRoot(Tree()), beginning);
        EXPECT_NE(item, nullptr);
        EXPECT_TRUE(TreeView_GetItemRect(Tree(), item, &rect, TRUE));
        return ScreenPoint(Tree(), rect);
    }
    /// Opens a table in the browser and finds one of its fields.
    POINT BrowserField(const std::wstring& table, const std::wstring& field) {
        const HTREEITEM item = Find(TreeView_GetRoot(Tree()), table);
        TreeView_Expand(Tree(), item, TVE_EXPAND);
        const HTREEITEM child = Find(TreeView_GetChild(Tree(), item), field);
        TreeView_EnsureVisible(Tree(), child);
        RECT rect{};
        EXPECT_TRUE(TreeView_GetItemRect(Tree(), child, &rect, TRUE));
        return ScreenPoint(Tree(), rect);
    }
    POINT GridPoint(int column) {
        return ScreenPoint(Control(ui::kIdGrid), window_.GridControl().CellRect(GridRow::Tabla, column));
    }
    POINT DiagramPoint(int left, int top) {
        POINT point{left, top};
        ClientToScreen(Control(ui::kIdDiagram), &point);
        return point;
    }
    POINT DiagramField(const std::wstring& table, const std::wstring& field) {
        return ScreenPoint(Control(ui::kIdDiagram), window_.DiagramControl().FieldRect(table, field));
    }

    /// Presses the button over one point and goes to the other, in steps that let the window see each move.
    void Carry(std::function<POINT()> from, std::function<POINT()> to) {
        script_.Do([=, this] {
            from_ = from();
            to_ = to();
            MouseMove(from_);
            SendButton(MOUSEEVENTF_LEFTDOWN);
        });
        for (int step = 1; step <= 4; ++step)
            script_.Do([=, this] {
                MouseMove({from_.x + (to_.x - from_.x) * step / 4, from_.y + (to_.y - from_.y) * step / 4});
            });
        script_.Do([this] { MouseMove({to_.x + 1, to_.y}); });
    }
    void Drag(std::function<POINT()> from, std::function<POINT()> to) {
        Carry(from, to);
        script_.Do([this] { SendButton(MOUSEEVENTF_LEFTUP); });
        script_.Until([] { return GetCapture() == nullptr; }, "the mouse is free");
    }
    static void SendButton(DWORD flag) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = flag;
        SendInput(1, &input, sizeof input);
    }
    void Close() {
        script_.Do([this] { Press(ui::kIdCancel); });
    }
    bool IsShown(const wchar_t* table) { return Diagram().FindTable(table) != nullptr; }

    POINT from_{};
    POINT to_{};
};

constexpr wchar_t kClientes[] = L"SELECT Clientes.Nombre FROM Clientes";

TEST_F(DragTest, ATableFromTheBrowserArrivesWhereItIsDroppedRelatedByItsKeys) {
    Drag([this] { return ItemPoint(L"Pedidos"); }, [this] { return DiagramPoint(420, 120); });
    script_.Until([this] { return IsShown(L"Pedidos"); }, "the table is there");
    script_.Do([this] {
        const RECT box = window_.DiagramControl().TableRect(L"Pedidos");
        POINT dropped = to_;
        ScreenToClient(Control(ui::kIdDiagram), &dropped);
        EXPECT_TRUE(PtInRect(&box, dropped));
        ASSERT_EQ(Diagram().Relations().size(), 1u);
        EXPECT_EQ(Diagram().Relations()[0].info.LeftTable, L"Clientes");
        EXPECT_EQ(Diagram().SelectedTable(), L"Pedidos");
    });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

TEST_F(DragTest, AFieldFromTheBrowserGoesIntoTheColumnAndBringsItsTable) {
    Drag([this] { return BrowserField(L"Pedidos", L"Importe"); }, [this] { return GridPoint(2); });
    script_.Until([this] { return !Cell(GridRow::Campo, 2).empty(); }, "the column is filled");
    script_.Do([this] {
        EXPECT_EQ(Cell(GridRow::Campo, 2), L"Pedidos.Importe");
        EXPECT_EQ(Cell(GridRow::Tabla, 2), L"Pedidos");
        EXPECT_EQ(Diagram().Relations().size(), 1u);
        EXPECT_EQ(Grid().FocusedColumn(), 2);
    });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

TEST_F(DragTest, ATableFromTheBrowserBecomesAllItsFieldsInTheGrid) {
    Drag([this] { return ItemPoint(L"Productos"); }, [this] { return GridPoint(1); });
    script_.Until([this] { return !Cell(GridRow::Campo, 1).empty(); }, "the column is filled");
    script_.Do([this] {
        EXPECT_EQ(Cell(GridRow::Campo, 1), L"Productos.*");
        EXPECT_TRUE(Diagram().FindTable(L"Productos")->all_checked);
    });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

TEST_F(DragTest, AFieldFromTheDiagramIsInsertedBeforeAUsedColumn) {
    Drag([this] { return DiagramField(L"Clientes", L"IdCliente"); }, [this] { return GridPoint(0); });
    script_.Until([this] { return Cell(GridRow::Campo, 0) == L"Clientes.IdCliente"; },
                  "the column is filled");
    script_.Do([this] { EXPECT_EQ(Cell(GridRow::Campo, 1), L"Clientes.Nombre"); });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

TEST_F(DragTest, ATableFromTheDiagramBecomesAllItsFieldsAndIsNotMoved) {
    RECT before{};
    Drag(
        [this, &before] {
            before = window_.DiagramControl().TableRect(L"Clientes");
            return ScreenPoint(Control(ui::kIdDiagram),
                               {before.left, before.top, before.right, before.top + 20});
        },
        [this] { return GridPoint(1); });
    script_.Until([this] { return Cell(GridRow::Campo, 1) == L"Clientes.*"; }, "the column is filled");
    script_.Do([this, &before] {
        const RECT after = window_.DiagramControl().TableRect(L"Clientes");
        EXPECT_TRUE(EqualRect(&before, &after));
    });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

TEST_F(DragTest, EscGivesUpADragAndLeavesTheWindowOpen) {
    Carry([this] { return ItemPoint(L"Pedidos"); }, [this] { return DiagramPoint(420, 120); });
    script_.Until([] { return GetCapture() != nullptr; }, "the drag is on");
    script_.Do([] { PressKey(VK_ESCAPE); });
    script_.Until([] { return GetCapture() == nullptr; }, "the drag is over");
    script_.Do([this] {
        SendButton(MOUSEEVENTF_LEFTUP);
        EXPECT_TRUE(IsWindowVisible(window_.Handle()));
    });
    script_.Do([this] { EXPECT_FALSE(IsShown(L"Pedidos")); });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

TEST_F(DragTest, DroppingElsewhereDoesNothing) {
    Drag([this] { return BrowserField(L"Pedidos", L"Importe"); },
         [this] { return MiddleOf(Control(ui::kIdCancel)); });
    script_.Do([this] {
        EXPECT_TRUE(IsWindowVisible(window_.Handle()));
        EXPECT_FALSE(IsShown(L"Pedidos"));
        EXPECT_EQ(Cell(GridRow::Campo, 1), L"");
    });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

TEST_F(DragTest, ADropIsOneStepToUndo) {
    Drag([this] { return BrowserField(L"Pedidos", L"Importe"); }, [this] { return GridPoint(2); });
    script_.Until([this] { return !Cell(GridRow::Campo, 2).empty(); }, "the column is filled");
    script_.Do([] { PressKey('Z', false, true); });
    script_.Until([this] { return Cell(GridRow::Campo, 2).empty(); }, "the column is empty again");
    script_.Do([this] { EXPECT_FALSE(IsShown(L"Pedidos")); });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

TEST_F(DragTest, ANameDroppedOnTheEditorIsWrittenAtTheCaret) {
    script_.Do([this] { ClickTab(Tab::Sql); });
    script_.Until([this] { return GetFocus() == Control(ui::kIdEditor); }, "the editor has the focus");
    Drag([this] { return ItemPoint(L"Detalle de pedidos"); },
         [this] { return MiddleOf(Control(ui::kIdEditor)); });
    script_.Until([this] { return EditorText().starts_with(L"[Detalle de pedidos]"); },
                  "the name is written");
    script_.Do([this] { EXPECT_EQ(GetFocus(), Control(ui::kIdEditor)); });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

TEST_F(DragTest, ADragThatRestsAtTheGridsEdgeScrollsIt) {
    Carry([this] { return BrowserField(L"Pedidos", L"Importe"); },
          [this] {
              RECT client{};
              GetClientRect(Control(ui::kIdGrid), &client);
              POINT edge{client.right - 6, client.bottom / 2};
              ClientToScreen(Control(ui::kIdGrid), &edge);
              return edge;
          });
    script_.Until(
        [this] {
            const RECT cell = window_.GridControl().CellRect(GridRow::Campo, 9);
            return !IsRectEmpty(&cell);
        },
        "the tenth column is in view");
    script_.Do([] { PressKey(VK_ESCAPE); });
    script_.Until([] { return GetCapture() == nullptr; }, "the drag is over");
    script_.Do([] { SendButton(MOUSEEVENTF_LEFTUP); });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

TEST_F(DragTest, ThePropertiesFollowTheBrowserFromTheStart) {
    const auto property = [this](int row) {
        wchar_t name[100] = L"";
        wchar_t value[100] = L"";
        const HWND list = GetWindow(Control(ui::kIdProperties), GW_CHILD);
        ListView_GetItemText(list, row, 0, name, 100);
        ListView_GetItemText(list, row, 1, value, 100);
        return std::wstring(name) + L": " + value;
    };
    script_.Do([=, this] {
        EXPECT_EQ(property(0), L"Nombre: ventas");
        MouseClick(ItemPoint(L"Pedidos"));
    });
    script_.Until([=] { return property(0) == L"Nombre: Pedidos"; }, "the table's properties are shown");
    script_.Do([=] { EXPECT_EQ(property(3), L"Clave principal: IdPedido"); });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

TEST_F(DragTest, PlacesSurviveATabSwitch) {
    RECT moved{};
    Drag(
        [this] {
            const RECT box = window_.DiagramControl().TableRect(L"Clientes");
            return ScreenPoint(Control(ui::kIdDiagram), {box.left, box.top, box.right, box.top + 20});
        },
        [this] { return DiagramPoint(480, 60); });
    script_.Do([&moved, this] {
        moved = window_.DiagramControl().TableRect(L"Clientes");
        EXPECT_GT(moved.left, 200);
        ClickTab(Tab::Sql);
    });
    script_.Until([this] { return IsWindowVisible(Control(ui::kIdEditor)) != FALSE; },
                  "the SQL tab is shown");
    script_.Do([this] { ClickTab(Tab::Design); });
    script_.Until([this] { return IsWindowVisible(Control(ui::kIdDiagram)) != FALSE; },
                  "the diagram is shown");
    script_.Do([&moved, this] {
        const RECT after = window_.DiagramControl().TableRect(L"Clientes");
        EXPECT_TRUE(EqualRect(&moved, &after));
    });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

TEST_F(DragTest, AFieldOfATableThatIsThereIsOnlySelectedByADropOnTheDiagram) {
    Drag([this] { return BrowserField(L"Clientes", L"IdCliente"); },
         [this] { return DiagramPoint(420, 120); });
    script_.Until([this] { return Diagram().SelectedTable() == L"Clientes"; }, "the table is selected");
    script_.Do([this] {
        EXPECT_EQ(Diagram().Tables().size(), 1u);
        EXPECT_EQ(Cell(GridRow::Campo, 1), L"");
    });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

// Pictures of a drag on its way, for a person's eyes, when a folder for them is given.
TEST_F(DragTest, PicturesOfADragOnItsWay) {
    wchar_t folder[MAX_PATH];
    if (!GetEnvironmentVariableW(L"TESSEL_PICTURES", folder, MAX_PATH))
        GTEST_SKIP() << "TESSEL_PICTURES is not set";
    const std::wstring name = std::wstring(folder) + L"\\drag" + std::to_wstring(win32::DpiOf(nullptr));
    const auto save = [this](const std::wstring& file) {
        RedrawWindow(window_.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        EXPECT_TRUE(SavePicture(window_.Handle(), file));
    };
    Drag([this] { return ItemPoint(L"Pedidos"); }, [this] { return DiagramPoint(380, 40); });
    script_.Until([this] { return IsShown(L"Pedidos"); }, "the table is there");
    Drag([this] { return ItemPoint(L"Detalle"); }, [this] { return DiagramPoint(380, 60); });
    script_.Until([this] { return IsShown(L"[Detalle de pedidos]"); }, "the table is there");
    script_.Do([=] { save(name + L"_dropped.bmp"); });
    Carry([this] { return BrowserField(L"Pedidos", L"Importe"); }, [this] { return GridPoint(0); });
    script_.Do([=] { save(name + L"_used.bmp"); });
    script_.Do([this] { MouseMove(GridPoint(1)); });
    script_.Do([=, this] {
        save(name + L"_unused.bmp");
        HWND label = FindWindowW(L"TesselDragWindow", nullptr);
        EXPECT_TRUE(IsWindowVisible(label));
        EXPECT_TRUE(SavePicture(label, name + L"_label.bmp"));
        SendButton(MOUSEEVENTF_LEFTUP);
    });
    script_.Until([this] { return !Cell(GridRow::Campo, 1).empty(); }, "the column is filled");
    script_.Do([=] { save(name + L"_filled.bmp"); });
    Close();
    EXPECT_FALSE(Run(kClientes));
}

}  // namespace
}  // namespace tessel::testing
