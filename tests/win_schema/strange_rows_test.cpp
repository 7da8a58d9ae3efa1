// Rowsets that move in ways of their own: field objects that belong to one row, cursors that stand still.
#include <gtest/gtest.h>

#include "common/text.h"
#include "schema/win32/ado_rows.h"
#include "schema/win32/ado_schema_source.h"
#include "tests/support/win32/fake_ado.h"

namespace tessel::schema {
namespace {

using tests::Cell;
using tests::FakeTable;

/// What a walk over the table gives, column by column.
std::vector<std::wstring> Walked(FakeTable table, long* calls = nullptr) {
    const auto line = std::make_shared<tests::FakeLine>();
    const std::vector<std::wstring> columns = table.columns;
    const tests::FakePtr recordset = tests::MakeRecordset(std::move(table), line);
    AdoRows rows(win32::CallResult(tests::ObjectValue(recordset)));
    std::vector<std::wstring> read;
    while (rows.Next())
        for (const std::wstring& column : columns) read.push_back(rows.Text(column.c_str()).value_or(L"-"));
    if (calls) *calls = line->calls_made;
    return read;
}

FakeTable TableOf(std::vector<std::vector<Cell>> rows) {
    return {{L"SCHEMA", L"NAME"}, std::move(rows)};
}

TEST(StrangeRows, FieldsOfTheirOwnRowAreAskedForAgainInEveryRow) {
    for (const bool stay : {false, true}) {
        FakeTable table = TableOf({{L"s", L"a"}, {L"s", L"a"}, {L"s", L"b"}, {L"t", L"c"}, {{}, L"a"}});
        table.fields_stay = stay;
        EXPECT_EQ(Walked(std::move(table)),
                  (std::vector<std::wstring>{L"s", L"a", L"s", L"a", L"s", L"b", L"t", L"c", L"-", L"a"}))
            << stay;
    }
}

TEST(StrangeRows, FieldsThatMoveWithTheRowAreAskedForOnce) {
    std::vector<std::vector<Cell>> rows;
    for (int i = 0; i < 100; ++i) rows.push_back({L"s", std::to_wstring(i)});
    long calls = 0;
    Walked(TableOf(rows), &calls);
    // The end, the move and two values of each row, and what it takes to find out at the second row.
    EXPECT_LE(calls, 100 * 4 + 10);
}

TEST(StrangeRows, ACursorThatStandsStillIsLeft) {
    FakeTable table = TableOf({{L"s", L"a"}});
    table.never_ends = true;
    EXPECT_LE(Walked(std::move(table)).size(), 2 * (AdoRows::kMostRepeats + 2));
}

TEST(StrangeRows, WhatACursorThatStandsStillRepeatsIsOneThing) {
    tests::FakeDatabase database;
    database.rowsets[20] = {{L"TABLE_NAME", L"TABLE_TYPE"}, {{L"a", L"TABLE"}}, true};
    database.rowsets[4] = {{L"TABLE_NAME", L"COLUMN_NAME", L"ORDINAL_POSITION"}, {{L"a", L"x", L"1"}}, true};
    database.rowsets[28] = {{L"TABLE_NAME", L"COLUMN_NAME", L"ORDINAL"}, {{L"a", L"x", L"1"}}, true};
    database.rowsets[27] = {
        {L"PK_TABLE_NAME", L"PK_COLUMN_NAME", L"FK_TABLE_NAME", L"FK_COLUMN_NAME", L"ORDINAL", L"FK_NAME"},
        {{L"a", L"x", L"a", L"y", L"1", L"f"}},
        true};
    const tests::FakeConnection connection = tests::MakeConnection(database);
    AdoSchemaSource source(connection.object.Get());
    const auto objects = source.LoadObjects();
    ASSERT_TRUE(objects);
    ASSERT_EQ(objects->size(), 1u);
    const auto fields = source.LoadFields(objects->front());
    ASSERT_TRUE(fields);
    EXPECT_EQ(fields->size(), 1u);
    const auto keys = source.LoadForeignKeys();
    ASSERT_TRUE(keys);
    EXPECT_EQ(keys->size(), 1u);
}

}  // namespace
}  // namespace tessel::schema
