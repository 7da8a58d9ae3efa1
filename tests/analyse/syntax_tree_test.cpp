#include "analyse/syntax_tree.h"

#include <gtest/gtest.h>

#include "common/text.h"
#include "sqlparser/sql_parser.h"

namespace tessel::analyse {
namespace {

void Append(const TreeNode& node, std::size_t level, std::wstring& text) {
    text += std::wstring(level * 2, L' ') + node.key + L"|" + node.text + L"\n";
    for (const TreeNode& child : node.children) Append(child, level + 1, text);
}

std::string Tree(const wchar_t* statement) {
    sql::SqlParser parser;
    EXPECT_FALSE(parser.Parse(statement)) << ToUtf8(statement);
    if (!parser.GetStatement()) return {};
    std::wstring text;
    for (const TreeNode& root : ShowTree(*parser.GetStatement())) Append(root, 0, text);
    return ToUtf8(text);
}

TEST(SyntaxTrees, OptionsStandUnderSelectInTheirOrder) {
    EXPECT_EQ(
        Tree(L"SELECT DISTINCTROW TOP 10 PERCENT WITH TIES a FROM t"),
        "@SELECT|SELECT\n  @DISTINCTROW|Distinct\n  @TOP|TOP 10 PERCENT WITH TIES\n  @Columns|Columnas\n"
        "    K1|a\n@FROM|FROM\n  @Tables|Tablas\n    K_2|t\n");
    EXPECT_EQ(Tree(L"SELECT TOP 5 a FROM t"),
              "@SELECT|SELECT\n  @TOP|TOP 5\n  @Columns|Columnas\n    K1|a\n@FROM|FROM\n  @Tables|Tablas\n   "
              " K_2|t\n");
}

TEST(SyntaxTrees, WithoutClausesThereAreTwoRoots) {
    EXPECT_EQ(
        Tree(L"SELECT a, b AS [x y] FROM t"),
        "@SELECT|SELECT\n  @Columns|Columnas\n    K1|a\n    K2|b Alias: [x y]\n@FROM|FROM\n  @Tables|Tablas\n"
        "    K_3|t\n");
}

TEST(SyntaxTrees, TableListStandsThereEvenWhenEmpty) {
    EXPECT_EQ(Tree(L"SELECT 1"),
              "@SELECT|SELECT\n  @Columns|Columnas\n    K1|1\n@FROM|FROM\n  @Tables|Tablas\n");
}

TEST(SyntaxTrees, CountRunsOnFromColumnsToJoinsToTables) {
    EXPECT_EQ(
        Tree(L"SELECT A.a, B.b FROM A LEFT JOIN B ON A.x = B.y"),
        "@SELECT|SELECT\n  @Columns|Columnas\n    K1|A.a\n    K2|B.b\n@FROM|FROM\n  @Joins|Combinaciones\n"
        "    K_3|A LEFT JOIN B ON A.x = B.y\n  @Tables|Tablas\n    K_4|A\n    K_5|B\n");
}

TEST(SyntaxTrees, JoinsOfAllGroupsShareOneBranch) {
    EXPECT_EQ(
        Tree(L"SELECT 1 FROM (A INNER JOIN B ON A.x = B.x) RIGHT JOIN C ON B.y = C.y, D INNER JOIN E ON "
             L"D.z=E.z"),
        "@SELECT|SELECT\n  @Columns|Columnas\n    K1|1\n@FROM|FROM\n  @Joins|Combinaciones\n"
        "    K_2|A INNER JOIN B ON A.x = B.x\n    K_3|B RIGHT JOIN C ON B.y = C.y\n"
        "    K_4|D INNER JOIN E ON D.z=E.z\n  @Tables|Tablas\n    K_5|A\n    K_6|B\n    K_7|C\n    K_8|D\n"
        "    K_9|E\n");
}

TEST(SyntaxTrees, TablesShowTheirQualifiersAndAlias) {
    EXPECT_EQ(Tree(L"SELECT 1 FROM base.dueño.t AS x, [u v] y"),
              "@SELECT|SELECT\n  @Columns|Columnas\n    K1|1\n@FROM|FROM\n  @Tables|Tablas\n"
              "    K_2|base.dueño.t Alias: x\n    K_3|[u v] Alias: y\n");
}

TEST(SyntaxTrees, ConditionsShowConnectivesAndGroups) {
    EXPECT_EQ(Tree(L"SELECT a FROM t WHERE a = 1 AND (b = 2 or c Like 'x*') GROUP BY a, b HAVING Sum(c) > 3 "
                   L"ORDER BY a, Sum(c) DESC"),
              "@SELECT|SELECT\n  @Columns|Columnas\n    K1|a\n@FROM|FROM\n  @Tables|Tablas\n    K_2|t\n"
              "@WHERE|WHERE\n  |a = 1\n  |AND\n  |(\n    |b = 2\n    |or\n    |c Like 'x*'\n  |)\n"
              "@HAVING|HAVING\n  |Sum(c) > 3\n@GROUP|GROUP BY\n  |a\n  |b\n"
              "@ORDER|ORDER BY\n  |a\n  |Sum(c) DESC\n");
}

TEST(SyntaxTrees, NodesKnowTheirPlaceInTheText) {
    const std::wstring text = L"SELECT a, b FROM t WHERE c = 1 ORDER BY a DESC";
    sql::SqlParser parser;
    ASSERT_FALSE(parser.Parse(text));
    const std::vector<TreeNode> roots = ShowTree(*parser.GetStatement());
    ASSERT_EQ(roots.size(), 4u);
    const auto slice = [&](const TreeNode& node) {
        return node.range ? text.substr(node.range->offset, node.range->length) : L"";
    };
    EXPECT_EQ(slice(roots[0].children[0].children[1]), L"b");
    EXPECT_EQ(slice(roots[1].children[0].children[0]), L"t");
    EXPECT_EQ(slice(roots[2].children[0]), L"c = 1");
    EXPECT_EQ(slice(roots[3].children[0]), L"a DESC");
}

}  // namespace
}  // namespace tessel::analyse
