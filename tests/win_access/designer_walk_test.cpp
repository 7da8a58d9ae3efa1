// The designer window as an accessibility client finds it.
#include "common/text.h"
#include "tests/win_access/access_fixture.h"
#include "tests/win_access/accessible_laws.h"

namespace tessel::testing {

namespace {

class DesignerWalkTest : public AccessTest {
protected:
    /// Walks the window once it shows a statement.
    AccessibleItem Walk(std::wstring_view statement) {
        AccessibleItem tree;
        script_.Do([&] {
            tree = WalkAccessible(window_.Handle());
            ExpectLawfulTree(tree);
        });
        CloseAfterwards();
        Run(statement);
        return tree;
    }
};

bool IsReason(const AccessibleItem& item) {
    return item.own && item.name.starts_with(L"No se puede mostrar más información visual");
}

}  // namespace

TEST_F(DesignerWalkTest, EveryElementOfADesignIsNamedAndInItsPlace) {
    const AccessibleItem tree = Walk(kCustomersAndOrders);
    int elements = 0;
    ForEachAccessible(tree, [&](const AccessibleItem&) { ++elements; });
    EXPECT_GT(elements, 550);
}

TEST_F(DesignerWalkTest, ATextThatCannotBeShownIsNamedAndInItsPlace) {
    Walk(L"SELECT A FROM B UNION SELECT C FROM D");
}

TEST_F(DesignerWalkTest, ACellIsNamedByItsRowItsColumnAndItsField) {
    const AccessibleItem tree = Walk(kCustomersAndOrders);
    const auto line = [&](std::wstring_view name) {
        const AccessibleItem* item = FindAccessible(tree, name);
        return item ? ToUtf8(PrintAccessible(*item)) : std::string();
    };
    EXPECT_EQ(line(L"Campo, columna 1"),
              "cell \"Campo, columna 1\" = \"Clientes.Nombre\" selected focused collapsed\n");
    EXPECT_EQ(line(L"Condición, columna 3, Clientes.Pais"),
              "cell \"Condición, columna 3, Clientes.Pais\" = \"= 'España'\"\n");
    EXPECT_EQ(line(L"Visible, columna 1, Clientes.Nombre"),
              "check button \"Visible, columna 1, Clientes.Nombre\" = \"Si\" checked\n");
    EXPECT_EQ(line(L"Visible, columna 3, Clientes.Pais"),
              "check button \"Visible, columna 3, Clientes.Pais\" = \"No\"\n");
    EXPECT_EQ(line(L"Columna 2, Total"), "column header \"Columna 2, Total\"\n");
}

TEST_F(DesignerWalkTest, UnderADesignTheReasonOfAHiddenOneIsInvisible) {
    const AccessibleItem tree = Walk(kCustomersAndOrders);
    const AccessibleItem* reason = FindAccessible(tree, IsReason);
    ASSERT_TRUE(reason);
    EXPECT_TRUE(reason->Is(STATE_SYSTEM_INVISIBLE));
}

TEST_F(DesignerWalkTest, AHiddenDesignTellsItsReasonWithALink) {
    AccessibleItem tree;
    script_.Do([this] { ClickTab(ui::Tab::Design); });
    script_.Until([this] { return IsWindowVisible(Control(ui::kIdReasonLink)) != FALSE; },
                  "the link is shown");
    script_.Do([&] {
        tree = WalkAccessible(window_.Handle());
        ExpectLawfulTree(tree);
    });
    CloseAfterwards();
    Run(L"SELECT A FROM B UNION SELECT C FROM D");
    const AccessibleItem* reason = FindAccessible(tree, IsReason);
    ASSERT_TRUE(reason);
    EXPECT_FALSE(reason->Is(STATE_SYSTEM_INVISIBLE));
    EXPECT_EQ(reason->role, ROLE_SYSTEM_STATICTEXT);
    const AccessibleItem* link = FindAccessible(
        tree, [](const AccessibleItem& item) { return item.own && item.role == ROLE_SYSTEM_LINK; });
    ASSERT_TRUE(link);
    EXPECT_FALSE(link->name.empty());
    EXPECT_FALSE(link->action.empty());
}

TEST_F(DesignerWalkTest, TheEditorIsATextWithItsStatement) {
    AccessibleItem tree;
    std::wstring text;
    script_.Do([this] { ClickTab(ui::Tab::Sql); });
    script_.Until([this] { return EditorText().ends_with(L";"); }, "the statement is composed");
    script_.Do([&] {
        text = EditorText();
        tree = WalkAccessible(window_.Handle());
        ExpectLawfulTree(tree);
    });
    CloseAfterwards();
    Run(kCustomersAndOrders);
    const AccessibleItem* editor = FindAccessible(tree, [](const AccessibleItem& item) {
        return item.own && item.role == ROLE_SYSTEM_TEXT && item.name == L"Consulta SQL";
    });
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->value, text);
}

}  // namespace tessel::testing
