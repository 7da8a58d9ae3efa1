// Schemas whose parts do not fit together, are too many, or are not there at all.
#include <gtest/gtest.h>

#include "analyse/analyse_sql.h"
#include "common/text.h"
#include "compose/compose.h"
#include "controls/browser/browser_model.h"
#include "model/design.h"
#include "model/pick_lists.h"
#include "tests/hostile/hostile_schema.h"
#include "ui/add_table_list.h"

namespace tessel::testing {
namespace {

using schema::ForeignKey;

ForeignKey Key(const wchar_t* table, const wchar_t* field, const wchar_t* referenced,
               const wchar_t* referenced_field) {
    return {L"", table, {field}, referenced, {referenced_field}};
}

model::Design DesignOn(const schema::Schema& schema) {
    model::Design design;
    design.grid.LoadColumns();
    design.diagram.Bind(&schema);
    return design;
}

TEST(HostileSchema, RelationsInARingAreDrawnAsFarAsAChainGoes) {
    const schema::Schema schema = MakeHostileSchema(
        {{L"a", {L"x"}}, {L"b", {L"x"}}, {L"c", {L"x"}}},
        {Key(L"a", L"x", L"b", L"x"), Key(L"b", L"x", L"c", L"x"), Key(L"c", L"x", L"a", L"x")});
    model::Design design = DesignOn(schema);
    for (const wchar_t* table : {L"a", L"b", L"c"}) design.diagram.AddTable(table, false);
    EXPECT_EQ(design.diagram.Relations().size(), 2u);
    model::Design again = DesignOn(schema);
    ASSERT_TRUE(design.grid.SetCell(model::GridRow::Campo, 0, L"a.x"));
    EXPECT_TRUE(analyse::AnalyseSQL(compose::BuildSQL(design), again).accepted);
}

TEST(HostileSchema, ATableThatRefersToItselfIsListedAndNotRelatedToItself) {
    const schema::Schema schema = MakeHostileSchema({{L"a", {L"x", L"y"}}}, {Key(L"a", L"y", L"a", L"x")});
    model::Design design = DesignOn(schema);
    design.diagram.AddTable(L"a", false);
    design.diagram.AddTable(L"a", false);
    EXPECT_TRUE(design.diagram.Relations().empty());
    EXPECT_EQ(ui::AddTableLines(schema, L"a").size(), 1u);
}

TEST(HostileSchema, RelationsToWhatIsNotThereLeadNowhere) {
    const schema::Schema schema =
        MakeHostileSchema({{L"a", {L"x"}}, {L"b", {L"x"}}}, {Key(L"a", L"x", L"nada", L"x"),
                                                             Key(L"nadie", L"x", L"a", L"x"),
                                                             Key(L"a", L"falta", L"b", L"otra"),
                                                             Key(L"", L"", L"", L""),
                                                             {L"sin campos", L"a", {}, L"b", {}}});
    model::Design design = DesignOn(schema);
    for (const schema::Object& object : schema.Objects()) design.diagram.AddTable(object.name, false);
    EXPECT_EQ(schema.Fields(L"a").size(), 1u);
    for (const std::wstring& line : ui::AddTableLines(schema, L"a"))
        EXPECT_FALSE(ui::TableOfLine(line).empty());
    controls::BrowserModel browser;
    browser.Load(&schema, L"");
    EXPECT_EQ(browser.RelationsOf(0).size(), schema.ForeignKeysOf(L"a").size());
}

TEST(HostileSchema, NamesThatDifferInCaseAloneAreOneObject) {
    const schema::Schema schema = MakeHostileSchema({{L"Ventas", {L"x", L"X"}}, {L"VENTAS", {L"y"}}});
    EXPECT_EQ(schema.Find(L"ventas")->RawName(), L"Ventas");
    model::Design design = DesignOn(schema);
    EXPECT_TRUE(design.diagram.AddTable(L"Ventas", false));
    EXPECT_FALSE(design.diagram.AddTable(L"VENTAS", false));
    EXPECT_TRUE(design.diagram.SetChecked(L"ventas", L"X", true));
}

TEST(HostileSchema, NoTablesMakeAnEmptyButUsableDesign) {
    const schema::Schema schema = MakeHostileSchema({});
    model::Design design = DesignOn(schema);
    EXPECT_FALSE(schema.Failed());
    EXPECT_EQ(ui::AddTableEntries(schema).size(), 1u);
    EXPECT_TRUE(ui::AddTableLines(schema, ui::kAllTablesEntry).empty());
    controls::BrowserModel browser;
    browser.Load(&schema, L"");
    EXPECT_TRUE(browser.Tables().empty());
    EXPECT_TRUE(analyse::AnalyseSQL(L"SELECT t.a FROM t", design).accepted);
}

TEST(HostileSchema, EmptyNamesAreNobodysTable) {
    const schema::Schema schema = MakeHostileSchema({{L"", {L""}}, {L"a", {L"", L"x", L""}}});
    model::Design design = DesignOn(schema);
    EXPECT_FALSE(design.diagram.AddTable(L"", false));
    EXPECT_TRUE(design.diagram.AddTable(L"a", false));
    EXPECT_FALSE(analyse::AnalyseSQL(L"SELECT [].[] FROM []", design).accepted);
}

TEST(HostileSchema, ATableOfTwoThousandFieldsIsOfferedWhole) {
    std::vector<std::wstring> fields;
    for (int i = 0; i < 2000; ++i) fields.push_back(L"campo" + std::to_wstring(i));
    const schema::Schema schema = MakeHostileSchema({{L"ancha", fields}});
    model::Design design = DesignOn(schema);
    design.diagram.AddTable(L"ancha", false);
    EXPECT_EQ(design.diagram.Tables()[0].fields.size(), 2000u);
    ASSERT_TRUE(analyse::AnalyseSQL(L"SELECT ancha.campo1999 FROM ancha", design).accepted);
    EXPECT_TRUE(design.diagram.Tables()[0].fields[1999].checked);
}

TEST(HostileSchema, TwoThousandTablesAreListedAndOneIsFound) {
    HostileTables tables;
    for (int i = 0; i < 2000; ++i) tables.push_back({L"tabla " + std::to_wstring(i), {L"id"}});
    const schema::Schema schema = MakeHostileSchema(std::move(tables));
    EXPECT_EQ(ui::AddTableLines(schema, ui::kAllTablesEntry).size(), 2000u);
    EXPECT_EQ(ui::LinesHolding(ui::AddTableLines(schema, ui::kAllTablesEntry), L"tabla 1999").size(), 1u);
    controls::BrowserModel browser;
    browser.Load(&schema, L"");
    browser.SetFilter(L"tabla 1999");
    EXPECT_EQ(browser.Tables().size(), 1u);
}

TEST(HostileSchema, ANameLongerThanACellIsRefusedWithItsReason) {
    const std::wstring longest(255, L'n');
    const schema::Schema schema = MakeHostileSchema({{longest, {longest}}});
    model::Design design = DesignOn(schema);
    EXPECT_TRUE(design.diagram.AddTable(longest, false));
    const analyse::Analysis analysis =
        analyse::AnalyseSQL(L"SELECT " + longest + L"." + longest + L" FROM " + longest, design);
    EXPECT_FALSE(analysis.accepted);
    ASSERT_TRUE(analysis.error);
    EXPECT_NE(analysis.error->message.find(L"255"), std::wstring::npos);
    // Without its table's name it fits.
    EXPECT_TRUE(analyse::AnalyseSQL(L"SELECT " + longest + L" FROM t", design).accepted);
}

}  // namespace
}  // namespace tessel::testing
