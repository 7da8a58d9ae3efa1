#include <gtest/gtest.h>

#include "common/text.h"
#include "compose/compose.h"
#include "tests/analyse/statement_cases.h"
#include "tests/analyse/support.h"

namespace tessel::test {

/// Named by its statement in the output of a failing test.
void PrintTo(const StatementCase& test, std::ostream* out);
void PrintTo(const StatementCase& test, std::ostream* out) {
    *out << ToUtf8(test.statement);
}

}  // namespace tessel::test

namespace tessel::analyse {
namespace {

using test::StatementCase;

std::wstring WithPlainBreaks(std::wstring text) {
    for (std::size_t at = text.find(L" \r\n"); at != std::wstring::npos; at = text.find(L" \r\n", at)) {
        text.replace(at, 3, L"\n");
    }
    return text;
}

std::string Reason(const Analysis& analysis) {
    return analysis.error ? ToUtf8(analysis.error->message) : "";
}

class Statements : public ::testing::TestWithParam<StatementCase> {};

TEST_P(Statements, AreShownFaithfullyOrRefusedAtTheirPlace) {
    const StatementCase& test = GetParam();
    const std::wstring statement = test.statement;
    model::Design design;
    const Analysis analysis = AnalyseSQL(statement, design);
    EXPECT_TRUE(analysis.parsed) << ToUtf8(statement) << '\n' << Reason(analysis);
    EXPECT_EQ(analysis.accepted, !analysis.error) << ToUtf8(statement);
    EXPECT_TRUE(analysis.messages.empty()) << ToUtf8(statement);
    EXPECT_EQ(ToUtf8(WithPlainBreaks(compose::BuildSQL(design))), ToUtf8(test.composed)) << ToUtf8(statement);
    if (!analysis.error) return;
    const TextRange range = analysis.error->range;
    EXPECT_EQ(ToUtf8(statement.substr(range.offset, range.length)), ToUtf8(test.refused_at))
        << ToUtf8(statement) << '\n'
        << Reason(analysis);
    EXPECT_FALSE(analysis.error->message.empty());
}

// What the designer wrote, it reads back as the same design.
TEST_P(Statements, ComposedTextIsShownAgain) {
    model::Design design;
    if (!AnalyseSQL(GetParam().statement, design).accepted) return;
    const std::wstring composed = compose::BuildSQL(design);
    model::Design again;
    const Analysis analysis = AnalyseSQL(composed, again);
    EXPECT_TRUE(analysis.accepted) << ToUtf8(composed) << '\n' << Reason(analysis);
    EXPECT_TRUE(analysis.messages.empty()) << ToUtf8(composed);
    model::Design third;
    EXPECT_TRUE(AnalyseSQL(compose::BuildSQL(again), third).accepted);
    EXPECT_EQ(ToUtf8(compose::BuildSQL(third)), ToUtf8(compose::BuildSQL(again)));
}

INSTANTIATE_TEST_SUITE_P(RealStyle, Statements, ::testing::ValuesIn(test::kStatementCases));

}  // namespace
}  // namespace tessel::analyse
