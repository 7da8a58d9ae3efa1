// Each difference by its name: what the comparison of two statements says of it, and what the analysis does
// about it.
#include <gtest/gtest.h>

#include "compose/compose.h"
#include "sqlparser/sql_parser.h"
#include "tests/analyse/difference_cases.h"
#include "tests/analyse/support.h"

namespace tessel::test {

void PrintTo(const Forbidden& test, std::ostream* out);
void PrintTo(const Forbidden& test, std::ostream* out) {
    *out << ToUtf8(test.statement);
}
void PrintTo(const Allowed& test, std::ostream* out);
void PrintTo(const Allowed& test, std::ostream* out) {
    *out << ToUtf8(test.one);
}

}  // namespace tessel::test

namespace tessel::analyse {
namespace {

using test::Allowed;
using test::Forbidden;

/// A title may be added and not lost, so the order matters.
std::optional<Clause> Difference(const wchar_t* original, const wchar_t* composed) {
    sql::SqlParser first;
    sql::SqlParser second;
    EXPECT_FALSE(first.Parse(original)) << ToUtf8(original);
    EXPECT_FALSE(second.Parse(composed)) << ToUtf8(composed);
    Forms forms;
    const StatementScope first_scope(*first.GetStatement(), nullptr, forms);
    const StatementScope second_scope(*second.GetStatement(), nullptr, forms);
    const Canonical first_canonical(first_scope);
    const Canonical second_canonical(second_scope);
    return FirstDifference(Normalise(first_scope, first_canonical), Normalise(second_scope, second_canonical),
                           {});
}

std::string Composed(const model::Design& design) {
    std::wstring text = compose::BuildSQL(design);
    for (std::size_t at = text.find(L" \r\n"); at != std::wstring::npos; at = text.find(L" \r\n", at)) {
        text.replace(at, 3, L"\n");
    }
    return ToUtf8(text);
}

template <typename Case>
std::string NameOf(const ::testing::TestParamInfo<Case>& info) {
    return info.param.name;
}

class ForbiddenDifferences : public ::testing::TestWithParam<Forbidden> {};

TEST_P(ForbiddenDifferences, Count) {
    const Forbidden& test = GetParam();
    const std::optional<Clause> difference = Difference(test.statement, test.changed);
    ASSERT_TRUE(difference);
    EXPECT_EQ(static_cast<int>(*difference), static_cast<int>(test.clause));
    EXPECT_FALSE(Difference(test.statement, test.statement));
}

TEST_P(ForbiddenDifferences, AreNotMadeByTheDesign) {
    const Forbidden& test = GetParam();
    model::Design design;
    const Analysis analysis = AnalyseSQL(test.statement, design);
    EXPECT_TRUE(analysis.parsed);
    EXPECT_EQ(Composed(design), ToUtf8(test.shown));
    EXPECT_EQ(!analysis.messages.empty(), test.with_message);
    EXPECT_EQ(analysis.accepted, !analysis.error);
    if (analysis.accepted) {
        EXPECT_FALSE(std::wstring_view(test.shown).empty());
    } else {
        EXPECT_FALSE(analysis.error->message.empty());
        EXPECT_GT(analysis.error->range.length, 0u);
    }
    // What is shown without a message means what was written.
    if (!analysis.accepted || test.with_message) return;
    EXPECT_FALSE(Difference(test.statement, compose::BuildSQL(design).c_str()));
}

INSTANTIATE_TEST_SUITE_P(Named, ForbiddenDifferences, ::testing::ValuesIn(test::kForbidden),
                         NameOf<Forbidden>);

class AllowedDifferences : public ::testing::TestWithParam<Allowed> {};

TEST_P(AllowedDifferences, DoNotCount) {
    const std::optional<Clause> difference = Difference(GetParam().one, GetParam().other);
    EXPECT_FALSE(difference) << static_cast<int>(difference.value_or(Clause::Whole));
}

TEST_P(AllowedDifferences, LetBothOpen) {
    for (const wchar_t* statement : {GetParam().one, GetParam().other}) {
        model::Design design;
        const Analysis analysis = AnalyseSQL(statement, design);
        EXPECT_TRUE(analysis.accepted)
            << ToUtf8(statement) << (analysis.error ? "\n" + ToUtf8(analysis.error->message) : "");
        EXPECT_TRUE(analysis.messages.empty()) << ToUtf8(statement);
    }
}

INSTANTIATE_TEST_SUITE_P(Named, AllowedDifferences, ::testing::ValuesIn(test::kAllowed), NameOf<Allowed>);

/// Columns c1, c2, … in a list.
std::wstring ColumnList(int count) {
    std::wstring list;
    for (int column = 1; column <= count; ++column) {
        list += (list.empty() ? L"c" : L", c") + std::to_wstring(column);
    }
    return list;
}

TEST(Limits, SixtyColumnsOpenAndSixtyOneAreRefusedAtTheLastOne) {
    model::Design design;
    EXPECT_TRUE(AnalyseSQL(L"SELECT " + ColumnList(60) + L" FROM A", design).accepted);
    const std::wstring statement = L"SELECT " + ColumnList(61) + L" FROM A";
    const Analysis analysis = AnalyseSQL(statement, design);
    EXPECT_FALSE(analysis.accepted);
    ASSERT_TRUE(analysis.error);
    EXPECT_EQ(analysis.error->range.offset, statement.find(L"c61"));
    EXPECT_TRUE(Difference((L"SELECT " + ColumnList(61) + L" FROM A").c_str(),
                           (L"SELECT " + ColumnList(60) + L" FROM A").c_str()));
    // A hidden column has no place beside sixty others.
    EXPECT_FALSE(AnalyseSQL(L"SELECT " + ColumnList(60) + L" FROM A WHERE d = 1", design).accepted);
    EXPECT_FALSE(AnalyseSQL(L"SELECT " + ColumnList(60) + L" FROM A ORDER BY d", design).accepted);
    EXPECT_TRUE(
        AnalyseSQL(L"SELECT " + ColumnList(60) + L" FROM A WHERE c60 = 1 ORDER BY c60", design).accepted);
}

TEST(Limits, ACellHolds255CharactersAndNoMore) {
    const std::wstring text(253, L'a');
    model::Design design;
    EXPECT_TRUE(AnalyseSQL(L"SELECT '" + text + L"' AS z FROM A", design).accepted);
    EXPECT_FALSE(AnalyseSQL(L"SELECT '" + text + L"a' AS z FROM A", design).accepted);
    EXPECT_TRUE(Difference((L"SELECT '" + text + L"a' AS z FROM A").c_str(),
                           (L"SELECT '" + text + L"' AS z FROM A").c_str()));
    // Characters outside the first plane take two units of a cell.
    EXPECT_FALSE(AnalyseSQL(L"SELECT '" + text.substr(1) + L"\U0001F600' AS z FROM A", design).accepted);
}

}  // namespace
}  // namespace tessel::analyse
