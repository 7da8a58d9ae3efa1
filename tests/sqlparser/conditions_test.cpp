#include <gtest/gtest.h>

#include "common/text.h"
#include "sqlparser/sql_parser.h"

namespace tessel::sql {
namespace {

// One line for the nodes of a level: predicates in « », connectives bare, groups as "text{ … }second".
std::wstring Shown(const std::vector<ConditionNode>& nodes) {
    std::wstring text;
    for (const ConditionNode& node : nodes) {
        if (!text.empty()) text += L' ';
        switch (node.kind) {
            case ConditionNode::Kind::Predicate:
                text += L"«" + node.text + L"»";
                break;
            case ConditionNode::Kind::Connective:
                text += node.text;
                break;
            case ConditionNode::Kind::Group:
                text += node.text + L"{ " + Shown(node.sub) + L" }" + node.second;
                break;
        }
    }
    return text;
}

std::string WhereOf(const std::wstring& condition) {
    SqlParser parser;
    EXPECT_FALSE(parser.Parse(L"SELECT a FROM t WHERE " + condition + L" ORDER BY a"));
    return ToUtf8(Shown(parser.GetStatement()->Where()));
}

struct Case {
    const wchar_t* text;
    const wchar_t* nodes;
};

TEST(Conditions, TreeOfPredicatesConnectivesAndGroups) {
    for (const Case& c : std::initializer_list<Case>{
             {L"a = 1", L"«a = 1»"},
             {L"a = 1 and b>2", L"«a = 1» and «b>2»"},
             {L"a And b Or c AND NOT d", L"«a» And «b» Or «c» AND «NOT d»"},
             {L"(a OR b) AND c", L"({ «a» OR «b» }) AND «c»"},
             {L"((a) OR (b))", L"({ «(a)» OR «(b)» })"},
             {L"((a OR b))", L"({ ({ «a» OR «b» }) })"},
             {L"(a = 1)", L"«(a = 1)»"},
             {L"((a) = 1)", L"«((a) = 1)»"},
             {L"Not(a OR b) xor c", L"NOT ({ «a» OR «b» }) xor «c»"},
             {L"(NOT (a OR b))", L"({ NOT ({ «a» OR «b» }) })"},
             {L"NOT (a)", L"«NOT (a)»"},
             {L"NOT (a = 1)", L"«NOT (a = 1)»"},
             {L"NOT NOT (a OR b)", L"«NOT NOT (a OR b)»"},
             {L"(((t.a)=1) AND ((t.b) Like \"x*\")) OR (((t.a)=3))",
              L"({ «((t.a)=1)» AND «((t.b) Like \"x*\")» }) OR «(((t.a)=3))»"},
             {L"a Between 1 And 2 And b", L"«a Between 1 And 2» And «b»"},
             {L"a In (SELECT b FROM u WHERE c AND d) OR e", L"«a In (SELECT b FROM u WHERE c AND d)» OR «e»"},
             {L"a /* x */ AND -- y\n b", L"«a» AND «b»"},
             {L"a\tImp\tb Eqv c", L"«a» Imp «b» Eqv «c»"},
             {L"Exists (SELECT 1) AND f(a, b)", L"«Exists (SELECT 1)» AND «f(a, b)»"},
             {L"a=1 OR b=2 OR c=3", L"«a=1» OR «b=2» OR «c=3»"},
             {L"(a=1 AND (b=2 OR c=3)) OR d", L"({ «a=1» AND ({ «b=2» OR «c=3» }) }) OR «d»"},
         }) {
        EXPECT_EQ(WhereOf(c.text), ToUtf8(c.nodes)) << ToUtf8(c.text);
    }
}

TEST(Conditions, RangesPointAtTheText) {
    SqlParser parser;
    ASSERT_FALSE(parser.Parse(L"SELECT a FROM t WHERE (b = 1 OR c) AND d HAVING e OR f"));
    const Statement& s = *parser.GetStatement();
    const std::vector<ConditionNode> where = s.Where();
    ASSERT_EQ(where.size(), 3u);
    EXPECT_EQ(s.Text(where[0].range), L"(b = 1 OR c)");
    EXPECT_EQ(s.Text(where[1].range), L"AND");
    EXPECT_EQ(s.Text(where[0].sub[0].range), L"b = 1");
    EXPECT_EQ(s.Having().size(), 3u);
    EXPECT_EQ(s.Text(s.where_range), L"(b = 1 OR c) AND d");
    EXPECT_EQ(s.Text(s.having_range), L"e OR f");
}

TEST(Conditions, AreEmptyWithoutTheClause) {
    SqlParser parser;
    ASSERT_FALSE(parser.Parse(L"SELECT a FROM t"));
    EXPECT_TRUE(parser.GetStatement()->Where().empty());
    EXPECT_TRUE(parser.GetStatement()->Having().empty());
}

}  // namespace
}  // namespace tessel::sql
