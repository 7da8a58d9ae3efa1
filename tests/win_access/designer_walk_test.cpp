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

}  // namespace tessel::testing
