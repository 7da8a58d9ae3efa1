#include <gtest/gtest.h>

#include <random>

#include "common/text.h"
#include "sqlparser/dump.h"
#include "sqlparser/sql_parser.h"

namespace tessel::sql {
namespace {

std::wstring TableText(const Statement& s, int index) {
    if (index < 0) return L"-";
    const TableRef& table = s.Tables[static_cast<std::size_t>(index)];
    return s.Text(table.alias.length != 0 ? table.alias : table.name);
}

std::wstring FieldText(const Statement& s, const FieldRef& field) {
    return s.Text(field.table) + L"|" + s.Text(field.field);
}

// "left K right on[condition] left field, right field", one join a line, a blank line between the groups.
std::string JoinsOf(const std::wstring& from) {
    SqlParser parser;
    EXPECT_FALSE(parser.Parse(L"SELECT a FROM " + from + L" WHERE a = 1")) << ToUtf8(from);
    const Statement& s = *parser.GetStatement();
    std::wstring text;
    for (const JoinGroup& group : s.JoinGroups) {
        if (!text.empty()) text += L"--\n";
        for (const Join& join : group.joins) {
            const wchar_t* kinds[] = {L"?", L"INNER", L"LEFT", L"RIGHT"};
            text += TableText(s, join.left_table) + L" " + kinds[static_cast<int>(join.kind)] + L" " +
                    TableText(s, join.right_table) + L" [" + s.Text(join.on) + L"] " +
                    FieldText(s, join.left_field) + L" " + FieldText(s, join.right_field) + L"\n";
        }
    }
    return ToUtf8(text);
}

TEST(Joins, TheConditionNamesTheTables) {
    EXPECT_EQ(JoinsOf(L"A INNER JOIN B ON A.x = B.y"), "A INNER B [A.x = B.y] A|x B|y\n");
    EXPECT_EQ(JoinsOf(L"(A INNER JOIN B ON A.x = B.y) LEFT JOIN C ON A.z = C.w"),
              "A INNER B [A.x = B.y] A|x B|y\nA LEFT C [A.z = C.w] A|z C|w\n");
}

TEST(Joins, AMirroredEqualityIsTurnedRound) {
    EXPECT_EQ(JoinsOf(L"A LEFT JOIN B ON B.y = A.x"), "A LEFT B [B.y = A.x] A|x B|y\n");
    EXPECT_EQ(JoinsOf(L"A LEFT JOIN B ON B.y = x"), "A LEFT B [B.y = x] |x B|y\n");
    EXPECT_EQ(JoinsOf(L"A LEFT JOIN B ON y = A.x"), "A LEFT B [y = A.x] A|x |y\n");
}

TEST(Joins, ParenthesesBracketsAndLetterCaseDoNotMatter) {
    EXPECT_EQ(
        JoinsOf(L"[Detalle de pedidos] AS D INNER JOIN [Pedidos] ON ((([d].[Id pedido]) = PEDIDOS.Id))"),
        "D INNER [Pedidos] [((([d].[Id pedido]) = PEDIDOS.Id))] [d]|[Id pedido] PEDIDOS|Id\n");
    EXPECT_EQ(JoinsOf(L"dbo.A RIGHT JOIN dbo.B ON dbo.B.y = dbo.A.x"),
              "A RIGHT B [dbo.B.y = dbo.A.x] dbo.A|x dbo.B|y\n");
    EXPECT_EQ(JoinsOf(L"Peña INNER JOIN Ñu ON PEÑA.a = ñu.b"), "Peña INNER Ñu [PEÑA.a = ñu.b] PEÑA|a ñu|b\n");
}

TEST(Joins, ComeInTheOrderInWhichTheyWouldBeCarriedOut) {
    EXPECT_EQ(JoinsOf(L"A LEFT JOIN (B INNER JOIN C ON B.y = C.y) ON A.x = C.x"),
              "B INNER C [B.y = C.y] B|y C|y\nA LEFT C [A.x = C.x] A|x C|x\n");
    EXPECT_EQ(JoinsOf(L"(A INNER JOIN B ON A.x=B.x) INNER JOIN (C INNER JOIN D ON C.x=D.x) ON B.y=D.y"),
              "A INNER B [A.x=B.x] A|x B|x\nC INNER D [C.x=D.x] C|x D|x\nB INNER D [B.y=D.y] B|y D|y\n");
    EXPECT_EQ(JoinsOf(L"A JOIN B JOIN C ON B.y=C.y ON A.x=B.x"),
              "B INNER C [B.y=C.y] B|y C|y\nA INNER B [A.x=B.x] A|x B|x\n");
}

TEST(Joins, ATableJoinedWithItselfIsToldApartByItsAlias) {
    EXPECT_EQ(JoinsOf(L"X INNER JOIN X AS X_1 ON X_1.a = X.b"), "X INNER X_1 [X_1.a = X.b] X|b X_1|a\n");
}

TEST(Joins, WhatIsNotOneEqualityHasNoFields) {
    EXPECT_EQ(JoinsOf(L"A INNER JOIN B ON (A.x = B.x) AND (A.y = B.y)"),
              "A INNER B [(A.x = B.x) AND (A.y = B.y)] | |\n");
    EXPECT_EQ(JoinsOf(L"A INNER JOIN B ON A.x > B.x"), "A INNER B [A.x > B.x] | |\n");
    EXPECT_EQ(JoinsOf(L"A INNER JOIN B ON A.x = 5"), "A INNER B [A.x = 5] | |\n");
    EXPECT_EQ(JoinsOf(L"A INNER JOIN B ON A.x = f(B.x)"), "A INNER B [A.x = f(B.x)] | |\n");
    EXPECT_EQ(JoinsOf(L"A INNER JOIN B ON A.x = A.y"), "A INNER B [A.x = A.y] | |\n");
    EXPECT_EQ(JoinsOf(L"(A INNER JOIN B ON A.a=B.a) LEFT JOIN C ON C.x + 1 = A.x AND C.y"),
              "A INNER B [A.a=B.a] A|a B|a\nA LEFT C [C.x + 1 = A.x AND C.y] | |\n");
}

TEST(Joins, UnknownQualifiersFallBackOnTheNearestTables) {
    EXPECT_EQ(JoinsOf(L"(A INNER JOIN B ON A.a=B.a) LEFT JOIN (C INNER JOIN D ON C.c=D.c) ON x = y"),
              "A INNER B [A.a=B.a] A|a B|a\nC INNER D [C.c=D.c] C|c D|c\nB LEFT C [x = y] |x |y\n");
    EXPECT_EQ(JoinsOf(L"A LEFT JOIN B ON Z.x = W.y"), "A LEFT B [Z.x = W.y] Z|x W|y\n");
}

TEST(Joins, OneGroupForEachItemOfTheList) {
    EXPECT_EQ(JoinsOf(L"A, B INNER JOIN C ON B.x=C.x, D"), "B INNER C [B.x=C.x] B|x C|x\n--\n");
    SqlParser parser;
    ASSERT_FALSE(parser.Parse(L"SELECT a FROM A, B INNER JOIN C ON B.x=C.x, D"));
    const Statement& s = *parser.GetStatement();
    ASSERT_EQ(s.JoinGroups.size(), 3u);
    EXPECT_TRUE(s.JoinGroups[0].joins.empty());
    EXPECT_EQ(s.JoinGroups[1].joins.size(), 1u);
    EXPECT_TRUE(s.JoinGroups[2].joins.empty());
    EXPECT_EQ(s.Tables.size(), 4u);
}

TEST(Joins, OtherKindsAreListedWithoutAKind) {
    EXPECT_EQ(JoinsOf(L"A FULL JOIN B ON A.x = B.x"), "A ? B [A.x = B.x] A|x B|x\n");
    EXPECT_EQ(JoinsOf(L"A CROSS JOIN B"), "A ? B [] | |\n");
    EXPECT_EQ(JoinsOf(L"A LEFT JOIN B USING (x)"), "A LEFT B [] | |\n");
}

TEST(Tables, KeepTheirQualifiersAndAliases) {
    SqlParser parser;
    ASSERT_FALSE(parser.Parse(L"SELECT a FROM [mi base].dbo.[Mi tabla] AS [m t], dbo.u v, db..w"));
    const Statement& s = *parser.GetStatement();
    ASSERT_EQ(s.Tables.size(), 3u);
    EXPECT_EQ(s.Text(s.Tables[0].database), L"[mi base]");
    EXPECT_EQ(s.Text(s.Tables[0].owner), L"dbo");
    EXPECT_EQ(s.Text(s.Tables[0].name), L"[Mi tabla]");
    EXPECT_EQ(s.Text(s.Tables[0].alias), L"[m t]");
    EXPECT_EQ(s.Text(s.Tables[0].range), L"[mi base].dbo.[Mi tabla] AS [m t]");
    EXPECT_EQ(s.Text(s.Tables[1].database), L"");
    EXPECT_EQ(s.Text(s.Tables[1].owner), L"dbo");
    EXPECT_EQ(s.Text(s.Tables[2].database), L"db");
    EXPECT_EQ(s.Text(s.Tables[2].owner), L"");
    EXPECT_EQ(s.Text(s.from_range), L"[mi base].dbo.[Mi tabla] AS [m t], dbo.u v, db..w");
}

// A random tree of joins over tables T0, T1, …, with parentheses where they are needed and sometimes where
// they are not. The right operand may be a join without parentheses: its condition then comes first.
class JoinTree {
public:
    explicit JoinTree(unsigned seed) : random_(seed) {}

    struct Written {
        std::wstring text;
        std::wstring dump;
        std::vector<std::wstring> conditions;  ///< inner operands first
        std::vector<int> tables;
    };

    Written Make(int joins) {
        if (joins == 0) {
            const int number = tables_++;
            const std::wstring name = L"T" + std::to_wstring(number);
            return {name, name, {}, {number}};
        }
        const int left_joins = static_cast<int>(random_() % static_cast<unsigned>(joins));
        const Written left = Operand(left_joins);
        const Written right = Operand(joins - 1 - left_joins);
        const int a = left.tables[random_() % left.tables.size()];
        const int b = right.tables[random_() % right.tables.size()];
        const unsigned kind = random_() % 3;
        constexpr const wchar_t* words[] = {L" INNER JOIN ", L" LEFT JOIN ", L" RIGHT OUTER JOIN "};
        constexpr const wchar_t* names[] = {L"inner", L"left", L"right"};
        const std::wstring x = L"T" + std::to_wstring(a) + L".x";
        const std::wstring y = L"T" + std::to_wstring(b) + L".y";
        const bool mirrored = random_() % 2 == 0;
        const std::wstring first = mirrored ? y : x;
        const std::wstring second = mirrored ? x : y;
        Written all;
        all.text = left.text + words[kind] + right.text + L" ON " + first + L"=" + second;
        all.dump = L"(" + std::wstring(names[kind]) + L" " + left.dump + L" " + right.dump + L" (= " + first +
                   L" " + second + L"))";
        for (const Written* part : {&left, &right}) {
            all.conditions.insert(all.conditions.end(), part->conditions.begin(), part->conditions.end());
            all.tables.insert(all.tables.end(), part->tables.begin(), part->tables.end());
        }
        all.conditions.push_back(x + L" " + y);
        return all;
    }

private:
    Written Operand(int joins) {
        Written operand = Make(joins);
        if (joins > 0 && random_() % 3 != 0) {
            operand.text = L"(" + operand.text + L")";
            operand.dump = L"(paren " + operand.dump + L")";
        }
        return operand;
    }

    std::mt19937 random_;
    int tables_ = 0;
};

TEST(Joins, RandomTreesComeBackAsTheyWereWritten) {
    for (unsigned seed = 0; seed < 2000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const JoinTree::Written written = JoinTree(seed).Make(1 + static_cast<int>(seed % 9));
        SqlParser parser;
        ASSERT_FALSE(parser.Parse(L"SELECT 1 FROM " + written.text)) << ToUtf8(written.text);
        const Statement& s = *parser.GetStatement();
        ASSERT_EQ(ToUtf8(DumpFrom(s, s.JoinGroups[0].root)), ToUtf8(written.dump)) << ToUtf8(written.text);
        ASSERT_EQ(s.JoinGroups[0].joins.size(), written.conditions.size());
        for (std::size_t i = 0; i < written.conditions.size(); ++i) {
            const Join& join = s.JoinGroups[0].joins[i];
            const std::wstring fields = s.Text(join.left_field.table) + L"." + s.Text(join.left_field.field) +
                                        L" " + s.Text(join.right_field.table) + L"." +
                                        s.Text(join.right_field.field);
            ASSERT_EQ(ToUtf8(fields), ToUtf8(written.conditions[i])) << ToUtf8(written.text);
            ASSERT_EQ(TableText(s, join.left_table), s.Text(join.left_field.table));
            ASSERT_EQ(TableText(s, join.right_table), s.Text(join.right_field.table));
        }
    }
}

}  // namespace
}  // namespace tessel::sql
