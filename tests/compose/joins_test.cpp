#include <gtest/gtest.h>

#include "compose/compose.h"
#include "tests/compose/design_builder.h"

namespace tessel::compose {
namespace {

using model::RelInfo;

model::Diagram Diagram(const std::vector<std::wstring>& tables, const std::vector<RelInfo>& relations) {
    model::Diagram diagram;
    for (const std::wstring& table : tables) diagram.AddTable(table, true);
    for (const RelInfo& relation : relations) diagram.AddRelation(relation);
    return diagram;
}

TEST(JoinKeywords, CodesTwoAndThreeAreOuter) {
    EXPECT_EQ(JoinKeyword(1), L"INNER");
    EXPECT_EQ(JoinKeyword(2), L"LEFT");
    EXPECT_EQ(JoinKeyword(3), L"RIGHT");
    for (const int code : {0, 4, -1, 100}) EXPECT_EQ(JoinKeyword(code), L"INNER") << code;
}

TEST(TableLists, NamesInDiagramOrder) {
    EXPECT_EQ(TableList(Diagram({L"A", L"B", L"E"}, {})), L"A, B, E");
    EXPECT_EQ(TableList(Diagram({}, {})), L"");
}

TEST(JoinChains, EveryStepIsParenthesisedAndUnrelatedTablesFollow) {
    const model::Diagram diagram =
        Diagram({L"A", L"B", L"E", L"D"}, {{L"A", L"x", L"B", L"y", 0}, {L"B", L"z", L"E", L"w", 1}});
    EXPECT_EQ(JoinClause(diagram), L"((A INNER JOIN B ON A.x = B.y)  LEFT JOIN E ON B.z = E.w) , D");
}

TEST(JoinChains, UnconnectedChainsAreSeparatedByAComma) {
    const model::Diagram diagram =
        Diagram({L"A", L"B", L"E", L"D"}, {{L"A", L"x", L"B", L"y", 0}, {L"E", L"p", L"D", L"q", 0}});
    EXPECT_EQ(JoinClause(diagram), L"(A INNER JOIN B ON A.x = B.y) , (E INNER JOIN D ON E.p = D.q) ");
}

TEST(JoinChains, OneRelationAndATableOfItsOwn) {
    EXPECT_EQ(JoinClause(Diagram({L"A", L"B", L"E"}, {{L"A", L"x", L"B", L"y", 0}})),
              L"(A INNER JOIN B ON A.x = B.y) , E");
}

TEST(JoinChains, StoredKindsGiveTheirKeyword) {
    EXPECT_EQ(JoinClause(Diagram({L"A", L"B"}, {{L"A", L"x", L"B", L"y", 1}})),
              L"(A LEFT JOIN B ON A.x = B.y) ");
    EXPECT_EQ(JoinClause(Diagram({L"A", L"B"}, {{L"A", L"x", L"B", L"y", 2}})),
              L"(A RIGHT JOIN B ON A.x = B.y) ");
    EXPECT_EQ(JoinClause(Diagram({L"A", L"B"}, {{L"A", L"x", L"B", L"y", 7}})),
              L"(A INNER JOIN B ON A.x = B.y) ");
}

TEST(JoinChains, LeftJoinReachedFromItsRightTableStaysLeft) {
    const model::Diagram diagram =
        Diagram({L"A", L"B", L"C"}, {{L"A", L"x", L"B", L"y", 0}, {L"C", L"z", L"B", L"w", 1}});
    EXPECT_EQ(JoinClause(diagram), L"((A INNER JOIN B ON A.x = B.y)  LEFT JOIN C ON C.z = B.w) ");
}

TEST(JoinChains, TwoRelationsBetweenTheSameTablesAreTwoSteps) {
    const model::Diagram diagram =
        Diagram({L"A", L"B"}, {{L"A", L"x", L"B", L"y", 0}, {L"A", L"z", L"B", L"w", 0}});
    EXPECT_EQ(JoinClause(diagram), L"((A INNER JOIN B ON A.x = B.y)  INNER JOIN A ON A.z = B.w) ");
}

TEST(JoinChains, RelationReachableThroughAnEarlierStepJoinsTheSameWalk) {
    const std::vector<model::JPath> chains = BuildJoinChains(
        Diagram({L"A", L"B", L"C"}, {{L"A", L"x", L"B", L"y", 0}, {L"B", L"z", L"C", L"w", 0}}));
    ASSERT_EQ(chains.size(), 1u);
    EXPECT_EQ(chains[0].StartTable, L"A");
    ASSERT_EQ(chains[0].Joins.size(), 2u);
    EXPECT_EQ(chains[0].Joins[0].Table, L"B");
    EXPECT_EQ(chains[0].Joins[0].OnExp, L"A.x = B.y");
    EXPECT_EQ(chains[0].Joins[1].Table, L"C");
}

TEST(JoinChains, RelationReachableOnlyThroughALaterOneStartsAnotherChain) {
    const model::Diagram diagram =
        Diagram({L"A", L"B", L"C", L"D"},
                {{L"A", L"x", L"B", L"y", 0}, {L"C", L"z", L"D", L"w", 0}, {L"B", L"u", L"C", L"v", 0}});
    EXPECT_EQ(JoinClause(diagram),
              L"((A INNER JOIN B ON A.x = B.y)  INNER JOIN C ON B.u = C.v) , (C INNER JOIN D ON C.z = D.w) ");
}

TEST(JoinChains, TableNamesAreComparedWithoutLetterCase) {
    const model::Diagram diagram =
        Diagram({L"clientes", L"Pedidos"}, {{L"Clientes", L"Id", L"PEDIDOS", L"Id", 0}});
    EXPECT_EQ(BuildJoinChains(diagram).size(), 1u);
    EXPECT_EQ(JoinClause(diagram).find(L','), std::wstring::npos) << JoinClause(diagram);
}

}  // namespace
}  // namespace tessel::compose
