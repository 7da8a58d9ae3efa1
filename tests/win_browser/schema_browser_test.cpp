#include "controls/browser/win32/schema_browser.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "common/win32/activation_context.h"
#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "hostkit/drive/input.h"
#include "tests/browser/sample_schema.h"

namespace tessel::controls {
namespace {

using namespace tessel::testing;
using Kind = BrowserItem::Kind;
using Items = std::vector<BrowserItem>;
using Texts = std::vector<std::wstring>;

class RecordingEvents final : public BrowserEvents {
public:
    void OnBrowserActivated(const BrowserItem& item) override { activated.push_back(item); }
    void OnBrowserSelected(const BrowserItem* item) override {
        selected.push_back(item ? *item : BrowserItem{});
    }
    void OnBrowserContextMenu(const BrowserItem& item, POINT) override { menus.push_back(item); }

    Items activated;
    Items selected;
    Items menus;
};

class SchemaBrowserTest : public ::testing::Test {
protected:
    class Frame final : public win32::Window {
    public:
        bool Create() {
            return CreateWindowOf({L"TesselBrowserTest", 0, GetSysColorBrush(COLOR_BTNFACE), IDC_ARROW},
                                  L"Esquema", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN,
                                  WS_EX_CONTROLPARENT, nullptr, 0, {20, 20, 360, 520});
        }
        ~Frame() override { Destroy(); }
    };

    SchemaBrowserTest() : schema_(MakeSampleSchema(&field_loads_)) {}

    void SetUp() override {
        ASSERT_TRUE(frame_.Create());
        ASSERT_TRUE(browser_.Create(frame_.Handle(), 7, &events_));
        MoveWindow(browser_.Handle(), 0, 0, 340, 480, TRUE);
        browser_.Load(&schema_, L"ventas");
        SetForegroundWindow(frame_.Handle());
        SetFocus(browser_.Tree());
        UpdateWindow(frame_.Handle());
    }

    bool Until(const std::function<bool()>& condition) {
        const ULONGLONG limit = GetTickCount64() + 60'000;
        while (!condition()) {
            if (GetTickCount64() > limit) return false;
            MSG message{};
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                if (IsDialogMessageW(frame_.Handle(), &message)) continue;
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        }
        return true;
    }

    std::wstring TextOfItem(HTREEITEM handle) const {
        wchar_t text[200] = L"";
        TVITEMW item{};
        item.hItem = handle;
        item.mask = TVIF_TEXT;
        item.pszText = text;
        item.cchTextMax = 200;
        TreeView_GetItem(browser_.Tree(), &item);
        return text;
    }

    /// The tree's items from the top, two blanks a level; children of closed items only when they are there.
    Texts Tree() const {
        Texts lines;
        Append(lines, TreeView_GetRoot(browser_.Tree()), L"");
        return lines;
    }
    void Append(Texts& lines, HTREEITEM item, const std::wstring& indent) const {
        for (; item; item = TreeView_GetNextSibling(browser_.Tree(), item)) {
            lines.push_back(indent + TextOfItem(item));
            Append(lines, TreeView_GetChild(browser_.Tree(), item), indent + L"  ");
        }
    }

    HTREEITEM ItemCalled(const std::wstring& text) const {
        HTREEITEM found = nullptr;
        Find(TreeView_GetRoot(browser_.Tree()), text, found);
        return found;
    }
    void Find(HTREEITEM item, const std::wstring& text, HTREEITEM& found) const {
        for (; item && !found; item = TreeView_GetNextSibling(browser_.Tree(), item)) {
            if (TextOfItem(item) == text) found = item;
            if (!found) Find(TreeView_GetChild(browser_.Tree(), item), text, found);
        }
    }

    POINT PointOf(const std::wstring& text) const {
        RECT rect{};
        const HTREEITEM item = ItemCalled(text);
        EXPECT_TRUE(item && TreeView_GetItemRect(browser_.Tree(), item, &rect, TRUE)) << "no item on screen";
        return ScreenPoint(browser_.Tree(), rect);
    }

    bool IsExpanded(const std::wstring& text) const {
        return (TreeView_GetItemState(browser_.Tree(), ItemCalled(text), TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
    }

    int field_loads_ = 0;
    win32::ActivationContext context_;
    schema::Schema schema_;
    RecordingEvents events_;
    Frame frame_;
    SchemaBrowser browser_;
};

const BrowserItem kClientes{Kind::Table, L"Clientes", L""};

TEST_F(SchemaBrowserTest, ShowsTablesAndViewsUnderTheCaptionWithoutReadingFields) {
    EXPECT_EQ(Tree(),
              (Texts{L"ventas", L"  Tablas (4)", L"    Clientes", L"    Categorías",
                     L"    Detalle de pedidos", L"    Pedidos", L"  Vistas (1)", L"    Ventas por año"}));
    EXPECT_EQ(field_loads_, 0);
    EXPECT_TRUE(IsExpanded(L"ventas"));
    EXPECT_TRUE(IsExpanded(L"Tablas (4)"));
}

TEST_F(SchemaBrowserTest, OpeningATableReadsItsFieldsOnce) {
    const HTREEITEM table = ItemCalled(L"Clientes");
    TreeView_Expand(browser_.Tree(), table, TVE_EXPAND);
    const Texts tree = Tree();
    ASSERT_EQ(tree.size(), 10u);
    EXPECT_EQ(tree[3], L"      IdCliente – Entero largo");
    EXPECT_EQ(tree[4], L"      Nombre – Texto (40)");
    TreeView_Expand(browser_.Tree(), table, TVE_COLLAPSE);
    TreeView_Expand(browser_.Tree(), table, TVE_EXPAND);
    EXPECT_EQ(Tree().size(), 10u);
    EXPECT_EQ(field_loads_, 1);
}

TEST_F(SchemaBrowserTest, ATableWhoseFieldsCannotBeReadLosesItsButton) {
    const HTREEITEM table = ItemCalled(L"Pedidos");
    TreeView_Expand(browser_.Tree(), table, TVE_EXPAND);
    TVITEMW item{};
    item.hItem = table;
    item.mask = TVIF_CHILDREN;
    ASSERT_TRUE(TreeView_GetItem(browser_.Tree(), &item));
    EXPECT_EQ(item.cChildren, 0);
}

TEST_F(SchemaBrowserTest, DoubleClickActivatesATableAndLeavesItClosed) {
    MouseClick(PointOf(L"Clientes"), 2);
    ASSERT_TRUE(Until([&] { return !events_.activated.empty(); }));
    EXPECT_EQ(events_.activated, Items{kClientes});
    EXPECT_FALSE(IsExpanded(L"Clientes"));
    EXPECT_EQ(field_loads_, 0);
}

TEST_F(SchemaBrowserTest, DoubleClickOnAGroupOnlyClosesIt) {
    MouseClick(PointOf(L"Tablas (4)"), 2);
    ASSERT_TRUE(Until([&] { return !IsExpanded(L"Tablas (4)"); }));
    EXPECT_TRUE(events_.activated.empty());
}

TEST_F(SchemaBrowserTest, EnterActivatesAViewAndTogglesAGroup) {
    ASSERT_TRUE(browser_.SelectItem(L"ventas por año"));
    PressKey(VK_RETURN);
    ASSERT_TRUE(Until([&] { return !events_.activated.empty(); }));
    EXPECT_EQ(events_.activated, (Items{{Kind::View, L"[Ventas por año]", L""}}));
    TreeView_SelectItem(browser_.Tree(), ItemCalled(L"Tablas (4)"));
    PressKey(VK_RETURN);
    EXPECT_TRUE(Until([&] { return !IsExpanded(L"Tablas (4)"); }));
    EXPECT_EQ(events_.activated.size(), 1u);
}

TEST_F(SchemaBrowserTest, SelectingReportsTheItem) {
    ASSERT_TRUE(browser_.SelectItem(L"clientes"));
    ASSERT_TRUE(browser_.SelectItem(L"Clientes", L"nombre"));
    EXPECT_EQ(events_.selected, (Items{kClientes, {Kind::Field, L"Nombre", L"Clientes"}}));
    EXPECT_FALSE(browser_.SelectItem(L"Nada"));
    EXPECT_FALSE(browser_.SelectItem(L"Clientes", L"Nada"));
    BrowserItem selected;
    ASSERT_TRUE(browser_.SelectedItem(selected));
    EXPECT_EQ(selected.name, L"Nombre");
}

void RightClick(POINT screen) {
    MouseMove(screen);
    INPUT inputs[2]{};
    for (INPUT& input : inputs) input.type = INPUT_MOUSE;
    inputs[0].mi.dwFlags = MOUSEEVENTF_RIGHTDOWN;
    inputs[1].mi.dwFlags = MOUSEEVENTF_RIGHTUP;
    SendInput(2, inputs, sizeof(INPUT));
}

TEST_F(SchemaBrowserTest, RightClickSelectsFirstAndAsksOnce) {
    RightClick(PointOf(L"Categorías"));
    ASSERT_TRUE(Until([&] { return !events_.menus.empty(); }));
    const BrowserItem wanted{Kind::Table, L"Categorías", L""};
    EXPECT_EQ(events_.menus, Items{wanted});
    EXPECT_EQ(events_.selected, Items{wanted});
}

TEST_F(SchemaBrowserTest, TheMenuKeyAsksForTheSelectedItem) {
    ASSERT_TRUE(browser_.SelectItem(L"Clientes"));
    SendMessageW(browser_.Tree(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(browser_.Tree()), -1);
    EXPECT_EQ(events_.menus, Items{kClientes});
}

TEST_F(SchemaBrowserTest, TypingNarrowsTheTablesAndEscapeShowsAllAgain) {
    SetFocus(browser_.SearchBox());
    TypeText(L"pedi");
    ASSERT_TRUE(Until([&] { return Tree().size() == 4; }));
    EXPECT_EQ(Tree(), (Texts{L"ventas", L"  Tablas (2)", L"    Detalle de pedidos", L"    Pedidos"}));
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(Until([&] { return Tree().size() == 8; }));
    EXPECT_EQ(TextOf(browser_.SearchBox()), L"");
    EXPECT_EQ(field_loads_, 0);
}

TEST_F(SchemaBrowserTest, EnterInTheSearchBoxGoesToTheFirstHit) {
    SetFocus(browser_.SearchBox());
    TypeText(L"categorias");
    PressKey(VK_RETURN);
    ASSERT_TRUE(Until([&] { return GetFocus() == browser_.Tree(); }));
    BrowserItem selected;
    ASSERT_TRUE(browser_.SelectedItem(selected));
    EXPECT_EQ(selected, (BrowserItem{Kind::Table, L"Categorías", L""}));
    EXPECT_TRUE(events_.activated.empty());
}

TEST_F(SchemaBrowserTest, NarrowingKeepsWhatIsSelectedAndOpen) {
    ASSERT_TRUE(browser_.SelectItem(L"Clientes", L"Nombre"));
    events_.selected.clear();
    SetWindowTextW(browser_.SearchBox(), L"cli");
    EXPECT_EQ(Tree(), (Texts{L"ventas", L"  Tablas (1)", L"    Clientes", L"      IdCliente – Entero largo",
                             L"      Nombre – Texto (40)"}));
    EXPECT_TRUE(IsExpanded(L"Clientes"));
    BrowserItem selected;
    ASSERT_TRUE(browser_.SelectedItem(selected));
    EXPECT_EQ(selected, (BrowserItem{Kind::Field, L"Nombre", L"Clientes"}));
    EXPECT_TRUE(events_.selected.empty());
    SetWindowTextW(browser_.SearchBox(), L"pedi");
    EXPECT_EQ(events_.selected, (Items{{Kind::Root, L"ventas", L""}}));
}

TEST_F(SchemaBrowserTest, TenThousandTablesLoadAndNarrowWithoutReadingFields) {
    int loads = 0;
    const schema::Schema large = MakeLargeSchema(10000, &loads);
    browser_.Load(&large, L"grande");
    ASSERT_TRUE(Until([&] { return TreeView_GetCount(browser_.Tree()) == 10002u; }));
    SetWindowTextW(browser_.SearchBox(), L"tabla999");
    EXPECT_EQ(TreeView_GetCount(browser_.Tree()), 13u);
    EXPECT_EQ(loads, 0);
    browser_.Load(nullptr, L"");
}

TEST_F(SchemaBrowserTest, OfALargeSchemaTheFirstTablesAreThereAtOnce) {
    int loads = 0;
    const schema::Schema large = MakeLargeSchema(10000, &loads);
    browser_.Load(&large, L"grande");
    EXPECT_LT(TreeView_GetCount(browser_.Tree()), 1000u);
    EXPECT_GT(TreeView_GetCount(browser_.Tree()), 50u);
    browser_.Load(nullptr, L"");
}

TEST_F(SchemaBrowserTest, ATableThatIsNotInTheTreeYetIsSelectedAllTheSame) {
    int loads = 0;
    const schema::Schema large = MakeLargeSchema(3000, &loads);
    browser_.Load(&large, L"grande");
    ASSERT_TRUE(browser_.SelectItem(L"Tabla2500"));
    BrowserItem selected;
    ASSERT_TRUE(browser_.SelectedItem(selected));
    EXPECT_EQ(selected.name, L"Tabla2500");
    browser_.Load(nullptr, L"");
}

TEST_F(SchemaBrowserTest, TheEndOfALargeSchemaIsItsLastTable) {
    int loads = 0;
    const schema::Schema large = MakeLargeSchema(3000, &loads);
    browser_.Load(&large, L"grande");
    SendMessageW(browser_.Tree(), WM_KEYDOWN, VK_END, 0);
    BrowserItem selected;
    ASSERT_TRUE(browser_.SelectedItem(selected));
    EXPECT_EQ(selected.name, L"Tabla2999");
    browser_.Load(nullptr, L"");
}

TEST_F(SchemaBrowserTest, AnotherSchemaReplacesTheFirst) {
    browser_.SelectItem(L"Clientes");
    int loads = 0;
    const schema::Schema other = MakeLargeSchema(1, &loads);
    browser_.Load(&other, L"otra");
    EXPECT_EQ(Tree(), (Texts{L"otra", L"  Tablas (1)", L"    Tabla0"}));
    browser_.Load(nullptr, L"Esquema de base de datos");
    EXPECT_EQ(Tree(), Texts{L"Esquema de base de datos"});
}

TEST_F(SchemaBrowserTest, TheSearchBoxSaysWhatItIsFor) {
    wchar_t cue[80] = L"";
    SendMessageW(browser_.SearchBox(), EM_GETCUEBANNER, reinterpret_cast<WPARAM>(cue), 80);
    EXPECT_STREQ(cue, L"Buscar…");
}

TEST_F(SchemaBrowserTest, SizesFollowTheDpi) {
    const int dpi = win32::DpiOf(browser_.Handle());
    const int height = TreeView_GetItemHeight(browser_.Tree());
    browser_.OnDpiChanged(2 * dpi);
    EXPECT_NEAR(TreeView_GetItemHeight(browser_.Tree()), 2 * height, 3);
    int width = 0;
    int icon_height = 0;
    ImageList_GetIconSize(TreeView_GetImageList(browser_.Tree(), TVSIL_NORMAL), &width, &icon_height);
    EXPECT_EQ(icon_height, BrowserIconSize(2 * dpi));
    EXPECT_GT(width, icon_height);
}

TEST_F(SchemaBrowserTest, CallsOnADestroyedWindowAreHarmless) {
    browser_.Destroy();
    browser_.Load(&schema_, L"x");
    browser_.OnDpiChanged(144);
    BrowserItem item;
    EXPECT_FALSE(browser_.SelectItem(L"Clientes"));
    EXPECT_FALSE(browser_.SelectedItem(item));
    EXPECT_EQ(browser_.Tree(), nullptr);
}

// Pictures for a person's eyes, when a folder for them is given.
TEST_F(SchemaBrowserTest, PicturesAreSavedAtThreeSizes) {
    wchar_t folder[MAX_PATH];
    if (!GetEnvironmentVariableW(L"TESSEL_PICTURES", folder, MAX_PATH))
        GTEST_SKIP() << "TESSEL_PICTURES is not set";
    for (int dpi : {96, 144, 192}) {
        browser_.OnDpiChanged(dpi);
        browser_.SelectItem(L"Clientes", L"Nombre");
        RedrawWindow(frame_.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        EXPECT_TRUE(SavePicture(frame_.Handle(),
                                std::wstring(folder) + L"\\browser" + std::to_wstring(dpi) + L".bmp"));
    }
}

// All icons side by side at 100, 150 and 200 %.
TEST(BrowserIcons, EveryIconPaintsSomethingAtEverySize) {
    const win32::ActivationContext context;
    const HDC screen = GetDC(nullptr);
    for (int dpi : {96, 120, 144, 192, 288}) {
        const int size = BrowserIconSize(dpi);
        const HIMAGELIST icons = MakeBrowserIcons(dpi);
        ASSERT_EQ(ImageList_GetImageCount(icons), kBrowserIconCount);
        const win32::UniqueMemoryDc dc(CreateCompatibleDC(screen));
        const win32::UniqueBitmap bitmap(CreateCompatibleBitmap(screen, size, size));
        const win32::Selected selected(dc.get(), bitmap.get());
        for (int i = 0; i < kBrowserIconCount; ++i) {
            win32::FillSolid(dc.get(), RECT{0, 0, size, size}, RGB(255, 255, 255));
            ImageList_Draw(icons, i, dc.get(), 0, 0, ILD_TRANSPARENT);
            int painted = 0;
            for (int y = 0; y < size; ++y)
                for (int x = 0; x < size; ++x) painted += GetPixel(dc.get(), x, y) != RGB(255, 255, 255);
            EXPECT_GT(painted, size * size / 12) << "icon " << i << " at " << dpi;
            EXPECT_LT(painted, size * size) << "icon " << i << " at " << dpi;
        }
        ImageList_Destroy(icons);
    }
    ReleaseDC(nullptr, screen);
}

}  // namespace
}  // namespace tessel::controls
