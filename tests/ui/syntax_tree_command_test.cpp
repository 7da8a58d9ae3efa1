// "Ver árbol de sintaxis".
#include <gtest/gtest.h>

#include "tests/ui/fakes.h"
#include "ui/designer_presenter.h"

namespace tessel::test {
namespace {

class SyntaxTreeCommand : public ::testing::Test {
protected:
    Calls calls_;
    FakeEditor editor_{calls_};
    FakeWindow window_{calls_};
    ui::DesignerPresenter presenter_{window_, editor_, nullptr};

    SyntaxTreeCommand() { presenter_.Load(); }
};

TEST_F(SyntaxTreeCommand, ShowsTheTreeOfTheComposedDesign) {
    presenter_.SetDsn(L"SELECT a AS x FROM t");
    presenter_.ShowSyntaxTree();
    ASSERT_EQ(window_.tree.size(), 2u);
    EXPECT_EQ(window_.tree[0].key, L"@SELECT");
    EXPECT_EQ(window_.tree[0].children[0].children[0].text, L"a Alias: x");
    EXPECT_EQ(window_.tree[1].text, L"FROM");
}

TEST_F(SyntaxTreeCommand, ShowsTheTreeOfATextThatIsNoDesign) {
    presenter_.SetDsn(L"SELECT a FROM t UNION SELECT b FROM u");
    presenter_.ShowSyntaxTree();
    EXPECT_FALSE(window_.tree.empty());
    EXPECT_EQ(editor_.text, L"SELECT a FROM t UNION SELECT b FROM u");
}

TEST_F(SyntaxTreeCommand, SaysThatATextIsNotUnderstood) {
    presenter_.SetDsn(L"SELECT FROM");
    presenter_.ShowSyntaxTree();
    EXPECT_EQ(window_.messages, (std::vector<std::wstring>{
                                    L"No se pudo interpretar la sintaxis de la instrucción, puede que sea "
                                    L"demasiado compleja o contenga un error."}));
    EXPECT_TRUE(window_.tree.empty());
}

TEST_F(SyntaxTreeCommand, SaysThatThereIsNothing) {
    presenter_.ShowSyntaxTree();
    EXPECT_EQ(window_.messages,
              (std::vector<std::wstring>{L"No hay ninguna instrucción que analizar, existe un "
                                         L"error o es demasiado compleja."}));
}

}  // namespace
}  // namespace tessel::test
