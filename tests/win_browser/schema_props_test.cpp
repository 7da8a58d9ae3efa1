#include "controls/browser/win32/schema_props.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include "common/win32/activation_context.h"
#include "controls/browser/win32/schema_browser.h"
#include "hostkit/drive/input.h"
#include "tests/browser/sample_schema.h"

namespace tessel::controls {
namespace {

using namespace tessel::testing;
using Kind = BrowserItem::Kind;

/// A browser above its property list, wired as the designer window wires them.
class SchemaPropsTest : public ::testing::Test, protected BrowserEvents {
protected:
    class Frame final : public win32::Window {
    public:
        bool Create() {
            return CreateWindowOf({L"TesselPropsTest", 0, GetSysColorBrush(COLOR_BTNFACE), IDC_ARROW},
                                  L"Esquema", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN,
                                  WS_EX_CONTROLPARENT, nullptr, 0, {20, 20, 360, 620});
        }
        ~Frame() override { Destroy(); }
    };

    SchemaPropsTest() : schema_(MakeRelatedSchema(&field_loads_)) {}

    void SetUp() override {
        ASSERT_TRUE(frame_.Create());
        ASSERT_TRUE(browser_.Create(frame_.Handle(), 7, this));
        ASSERT_TRUE(props_.Create(frame_.Handle(), 8));
        MoveWindow(browser_.Handle(), 0, 0, 340, 360, TRUE);
        MoveWindow(props_.Handle(), 0, 364, 340, 216, TRUE);
        browser_.Load(&schema_, L"ventas");
    }

    void OnBrowserActivated(const BrowserItem& item) override { activated_.push_back(item); }
    void OnBrowserSelected(const BrowserItem* item) override { props_.Show(&schema_, item); }

    /// A line of the list as the user sees it.
    std::wstring Line(int row) const {
        wchar_t name[200] = L"";
        wchar_t value[200] = L"";
        ListView_GetItemText(props_.List(), row, 0, name, 200);
        ListView_GetItemText(props_.List(), row, 1, value, 200);
        return std::wstring(name) + L": " + value;
    }

    int field_loads_ = 0;
    win32::ActivationContext context_;
    schema::Schema schema_;
    Frame frame_;
    SchemaBrowser browser_;
    SchemaProps props_;
    std::vector<BrowserItem> activated_;
};

TEST_F(SchemaPropsTest, TheListFollowsTheBrowsersSelection) {
    ASSERT_TRUE(browser_.SelectItem(L"Clientes"));
    EXPECT_EQ(Line(0), L"Nombre: Clientes");
    EXPECT_EQ(Line(1), L"Tipo: Tabla");
    ASSERT_TRUE(browser_.SelectItem(L"Ventas del año", L"IdCliente"));
    EXPECT_EQ(Line(2), L"Tipo: Entero largo – adInteger");
    EXPECT_EQ(ListView_GetItemCount(props_.List()), 8);
    EXPECT_EQ(Line(6), L"Tabla referenciada: Clientes");
    props_.Show(nullptr, nullptr);
    EXPECT_EQ(ListView_GetItemCount(props_.List()), 0);
}

TEST_F(SchemaPropsTest, OnlyTheSelectedTablesFieldsAreRead) {
    ASSERT_TRUE(browser_.SelectItem(L"Clientes"));
    ASSERT_TRUE(browser_.SelectItem(L"Almacén"));
    ASSERT_TRUE(browser_.SelectItem(L"Clientes"));
    EXPECT_EQ(field_loads_, 2);
}

TEST_F(SchemaPropsTest, ColumnsFillTheWindowWithoutAScrollBar) {
    ASSERT_TRUE(browser_.SelectItem(L"Clientes", L"Nombre"));
    RECT client{};
    GetClientRect(props_.List(), &client);
    EXPECT_EQ(ListView_GetColumnWidth(props_.List(), 0) + ListView_GetColumnWidth(props_.List(), 1),
              client.right);
    MoveWindow(props_.Handle(), 0, 364, 280, 216, TRUE);
    GetClientRect(props_.List(), &client);
    EXPECT_EQ(ListView_GetColumnWidth(props_.List(), 0) + ListView_GetColumnWidth(props_.List(), 1),
              client.right);
    EXPECT_EQ(GetWindowLongW(props_.List(), GWL_STYLE) & WS_HSCROLL, 0);
}

TEST_F(SchemaPropsTest, RelationsStandBehindTheFieldsAndAreActivated) {
    ASSERT_TRUE(browser_.SelectItem(L"Clientes", L"Nombre"));
    const HTREEITEM field = TreeView_GetSelection(browser_.Tree());
    const HTREEITEM group = TreeView_GetNextSibling(browser_.Tree(), field);
    ASSERT_NE(group, nullptr);
    TreeView_Expand(browser_.Tree(), group, TVE_EXPAND);
    const HTREEITEM relation = TreeView_GetChild(browser_.Tree(), group);
    TreeView_SelectItem(browser_.Tree(), relation);
    EXPECT_EQ(Line(0), L"Nombre: fk_cliente");
    NMHDR enter{browser_.Tree(), 12, static_cast<UINT>(NM_RETURN)};
    SendMessageW(browser_.Handle(), WM_NOTIFY, 12, reinterpret_cast<LPARAM>(&enter));
    EXPECT_EQ(activated_, (std::vector<BrowserItem>{{Kind::Relation, L"[Ventas del año]", L"Clientes", 0}}));
}

TEST_F(SchemaPropsTest, CallsOnADestroyedWindowAreHarmless) {
    props_.Destroy();
    const BrowserItem item{Kind::Table, L"Clientes", L""};
    props_.Show(&schema_, &item);
    props_.OnDpiChanged(192);
    EXPECT_EQ(props_.List(), nullptr);
    EXPECT_EQ(props_.Shown().size(), 6u);
}

// Pictures for a person's eyes, when a folder for them is given.
TEST_F(SchemaPropsTest, PicturesAreSavedAtThreeSizes) {
    wchar_t folder[MAX_PATH];
    if (!GetEnvironmentVariableW(L"TESSEL_PICTURES", folder, MAX_PATH))
        GTEST_SKIP() << "TESSEL_PICTURES is not set";
    SetWindowPos(frame_.Handle(), nullptr, 0, 0, 560, 760, SWP_NOZORDER);
    MoveWindow(browser_.Handle(), 0, 0, 540, 440, TRUE);
    MoveWindow(props_.Handle(), 0, 446, 540, 270, TRUE);
    for (int dpi : {96, 144, 192}) {
        browser_.OnDpiChanged(dpi);
        props_.OnDpiChanged(dpi);
        browser_.SelectItem(L"Ventas del año", L"Nombre");
        TreeView_Expand(browser_.Tree(),
                        TreeView_GetNextSibling(browser_.Tree(), TreeView_GetSelection(browser_.Tree())),
                        TVE_EXPAND);
        browser_.SelectItem(L"Ventas del año", L"IdCliente");
        RedrawWindow(frame_.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        EXPECT_TRUE(
            SavePicture(frame_.Handle(), std::wstring(folder) + L"\\props" + std::to_wstring(dpi) + L".bmp"));
    }
}

}  // namespace
}  // namespace tessel::controls
