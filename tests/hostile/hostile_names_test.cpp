// Names of every kind go from the catalogue into a statement and back: the statement says that name and
// nothing else, and the design made of it shows it. None is taken for syntax.
#include <gtest/gtest.h>

#include <algorithm>

#include "analyse/analyse_sql.h"
#include "common/text.h"
#include "compose/compose.h"
#include "controls/browser/browser_model.h"
#include "model/design.h"
#include "sqlparser/sql_parser.h"
#include "tests/hostile/hostile_schema.h"
#include "ui/add_table_list.h"

namespace tessel::testing {
namespace {

class HostileName : public ::testing::TestWithParam<NamedText> {
protected:
    const std::wstring raw_ = GetParam().text;
    const std::wstring written_ = WrittenName(raw_);
};

TEST_P(HostileName, IsWrittenSoThatItReadsBackTheSame) {
    EXPECT_EQ(ToUtf8(Unbracketed(written_)), ToUtf8(raw_));
    EXPECT_TRUE(IsQualifiedName(written_) || written_ == raw_);
    EXPECT_EQ(SplitQualified(written_ + L"." + written_), (std::vector{written_, written_}));
}

TEST_P(HostileName, StandsInAStatementAsATableAndAField) {
    const std::wstring sql = L"SELECT " + written_ + L"." + written_ + L" FROM " + written_;
    sql::SqlParser parser;
    ASSERT_FALSE(parser.Parse(sql)) << ToUtf8(sql) << "\n" << ToUtf8(parser.Errors().front().message);
    const sql::Statement& statement = *parser.GetStatement();
    ASSERT_EQ(statement.Tables.size(), 1u);
    EXPECT_EQ(ToUtf8(Unbracketed(statement.Slice(statement.Tables[0].name))), ToUtf8(raw_));
}

TEST_P(HostileName, GoesThroughADesignAndComesBackWhole) {
    const schema::Schema schema = MakeHostileSchema({{raw_, {raw_, L"b"}}, {L"otra", {L"a"}}});
    model::Design design;
    design.grid.LoadColumns();
    design.diagram.Bind(&schema);
    const std::wstring sql = L"SELECT " + written_ + L"." + written_ + L", " + written_ + L".b FROM " +
                             written_ + L" WHERE " + written_ + L".b='x'";
    const analyse::Analysis analysis = analyse::AnalyseSQL(sql, design);
    ASSERT_TRUE(analysis.accepted) << ToUtf8(sql) << "\n"
                                   << (analysis.error ? ToUtf8(analysis.error->message) : "");
    const std::wstring composed = compose::BuildSQL(design);
    model::Design again;
    again.grid.LoadColumns();
    again.diagram.Bind(&schema);
    ASSERT_TRUE(analyse::AnalyseSQL(composed, again).accepted) << ToUtf8(composed);
    EXPECT_EQ(ToUtf8(compose::BuildSQL(again)), ToUtf8(composed));
    sql::SqlParser parser;
    ASSERT_FALSE(parser.Parse(composed)) << ToUtf8(composed);
    const sql::Statement& statement = *parser.GetStatement();
    EXPECT_EQ(ToUtf8(Unbracketed(statement.Slice(statement.Tables.at(0).name))), ToUtf8(raw_));
}

TEST_P(HostileName, IsOfferedByTheDialogAndTakenWhole) {
    const schema::Schema schema = MakeHostileSchema({{raw_, {raw_}}});
    const std::vector<std::wstring> lines = ui::AddTableLines(schema, ui::kAllTablesEntry);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(schema.Find(ui::TableOfLine(lines[0])), nullptr) << ToUtf8(lines[0]);
}

TEST_P(HostileName, IsFoundInTheBrowserByItsWrittenName) {
    const schema::Schema schema = MakeHostileSchema({{raw_, {raw_}}, {L"otra", {L"a"}}});
    controls::BrowserModel model;
    model.Load(&schema, raw_);
    EXPECT_EQ(model.FindObject(written_), 0u);
    EXPECT_EQ(model.FindField(0, written_), 0u);
    EXPECT_EQ(model.FieldsOf(0).size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Names, HostileName, ::testing::ValuesIn(HostileNames()),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace tessel::testing
