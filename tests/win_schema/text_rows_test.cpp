// The catalogue's large answers read in blocks: what is taken from a block, what is not, and that whatever a
// provider does instead of giving a right one, the rows are the same in the end.
#include "schema/win32/text_rows.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "common/text.h"
#include "schema/win32/ado_schema_source.h"
#include "tests/support/win32/fake_ado.h"

namespace tessel::schema {
namespace {

using tests::Cell;
using tests::FakeBlocks;
using tests::FakeConnection;
using tests::FakeDatabase;
using tests::FakeTable;

std::vector<std::wstring> CellsOf(const TextRows& rows, std::size_t columns) {
    std::vector<std::wstring> cells;
    for (std::size_t row = 0; row < rows.RowCount(); ++row)
        for (std::size_t i = 0; i < columns; ++i) cells.emplace_back(rows.At(row, i));
    return cells;
}

TEST(TextRows, ABlockGivesTheWantedColumnsInTheirOwnOrder) {
    const std::vector<std::size_t> places = {2, 0, 3};
    for (const wchar_t* text : {L"a\x1F"
                                L"b\x1F"
                                L"c\x1E\x1F\x1F\x1E",
                                L"a\x1F"
                                L"b\x1F"
                                L"c\x1E\x1F\x1F"}) {
        TextRows rows(places.size());
        ASSERT_TRUE(rows.AddBlock(text, 3, places, 2));
        EXPECT_EQ(CellsOf(rows, 3), (std::vector<std::wstring>{L"c", L"a", L"", L"", L"", L""}));
    }
}

TEST(TextRows, RowsStayWhereTheyAreWhenTheirOwnerMoves) {
    TextRows rows(1);
    rows.AddRow({L"uno"});
    ASSERT_TRUE(rows.AddBlock(L"dos\x1E", 1, std::vector<std::size_t>{0}, 9));
    const std::wstring_view single = rows.At(0, 0), block = rows.At(1, 0);
    const TextRows moved = std::move(rows);
    EXPECT_EQ(moved.At(0, 0).data(), single.data());
    EXPECT_EQ(moved.At(1, 0).data(), block.data());
}

TEST(TextRows, ABlockOfAnotherShapeIsRefused) {
    struct Case {
        const char* what;
        std::wstring text;
    };
    const Case cases[] = {
        {"nothing", L""},
        {"a column too few",
         L"a\x1E"
         L"b\x1F"
         L"c\x1E"},
        {"a column too many",
         L"a\x1F"
         L"b\x1F"
         L"c\x1E"},
        {"a short last row",
         L"a\x1F"
         L"b\x1E"
         L"c"},
        {"more rows than asked",
         L"a\x1F"
         L"b\x1E"
         L"c\x1F"
         L"d\x1E"
         L"e\x1F"
         L"f\x1E"},
        {"an empty row",
         L"a\x1F"
         L"b\x1E\x1E"},
        {"the block before again", L"x\x1Fy\x1E"},
    };
    for (const Case& refused : cases) {
        const std::vector<std::size_t> places = {0, 1};
        TextRows rows(2);
        ASSERT_TRUE(rows.AddBlock(L"x\x1Fy\x1E", 2, places, 2));
        EXPECT_FALSE(rows.AddBlock(refused.text, 2, places, 2)) << refused.what;
        EXPECT_EQ(CellsOf(rows, 2), (std::vector<std::wstring>{L"x", L"y"})) << refused.what;
    }
}

constexpr std::size_t kTables = 2500;

/// So many tables that they take several blocks, each related to the one before.
FakeDatabase LargeDatabase(FakeBlocks blocks) {
    FakeTable tables{{L"TABLE_CATALOG", L"TABLE_SCHEMA", L"TABLE_NAME", L"TABLE_TYPE", L"DESCRIPTION"}, {}};
    FakeTable keys{{L"PK_TABLE_NAME", L"PK_COLUMN_NAME", L"FK_TABLE_NAME", L"FK_COLUMN_NAME", L"ORDINAL"},
                   {}};
    for (std::size_t i = 0; i < kTables; ++i) {
        const std::wstring name = L"Tabla " + std::to_wstring(i * 7919 % kTables);
        tables.rows.push_back({Cell(), L"dbo", name, i % 10 ? L"TABLE" : L"VIEW", Cell()});
        if (i > 0) keys.rows.push_back({tables.rows[i - 1][2], L"id", name, L"anterior", L"1"});
    }
    tables.blocks = keys.blocks = blocks;
    FakeDatabase database;
    database.rowsets = {{20, tables}, {27, keys}};
    return database;
}

/// Everything that a connection on the database tells of its objects and keys.
std::vector<std::wstring> Told(const FakeConnection& connection) {
    const Schema schema(std::make_unique<AdoSchemaSource>(connection.object.Get()));
    std::vector<std::wstring> lines;
    for (const Object& object : schema.Objects())
        lines.push_back(object.name + L" " + object.raw_name +
                        (object.kind == ObjectKind::View ? L" vista" : L""));
    for (const ForeignKey& key : schema.ForeignKeys())
        lines.push_back(key.table + L"." + key.fields.front() + L" = " + key.referenced_table);
    return lines;
}

TEST(AdoSchemaBlocks, WhateverAProviderGivesInsteadOfABlockTheRowsAreTheSame) {
    const std::vector<std::wstring> wanted = Told(tests::MakeConnection(LargeDatabase(FakeBlocks::None)));
    ASSERT_EQ(wanted.size(), 2 * kTables - 1);
    for (int blocks = 1; blocks <= static_cast<int>(FakeBlocks::StandStill); ++blocks)
        EXPECT_EQ(Told(tests::MakeConnection(LargeDatabase(static_cast<FakeBlocks>(blocks)))), wanted)
            << "as block " << blocks;
}

TEST(AdoSchemaBlocks, AThousandRowsTakeOneCall) {
    const FakeConnection connection = tests::MakeConnection(LargeDatabase(FakeBlocks::Right));
    AdoSchemaSource source(connection.object.Get());
    const auto objects = source.LoadObjects();
    ASSERT_TRUE(objects);
    EXPECT_EQ(objects->size(), kTables);
    // The rowset and the database's name; three blocks, and before each of them and after the last whether
    // there is a row.
    EXPECT_LE(connection.line->calls_made, 10);
    EXPECT_EQ(*connection.log, std::vector<std::wstring>{L"20"});
}

TEST(AdoSchemaBlocks, ABadBlockAsksForTheRowsetOnceMore) {
    for (const FakeBlocks blocks : {FakeBlocks::Fail, FakeBlocks::FailLater, FakeBlocks::StandStill}) {
        const FakeConnection connection = tests::MakeConnection(LargeDatabase(blocks));
        AdoSchemaSource source(connection.object.Get());
        ASSERT_TRUE(source.LoadObjects());
        EXPECT_EQ(*connection.log, (std::vector<std::wstring>{L"20", L"20"}));
    }
}

TEST(AdoSchemaBlocks, NamesThatHoldTheSeparatorsAreReadAllTheSame) {
    for (const std::wstring name : {L"con\x1F"
                                    L"columna",
                                    L"con\x1E"
                                    L"fila",
                                    L"\x1E", L"\x1F\x1F\x1E"}) {
        FakeDatabase database;
        database.rowsets[20] = {{L"TABLE_NAME", L"TABLE_TYPE"}, {{name, L"TABLE"}, {L"otra", L"TABLE"}}};
        database.rowsets[20].blocks = FakeBlocks::Right;
        const FakeConnection connection = tests::MakeConnection(database);
        AdoSchemaSource source(connection.object.Get());
        const auto objects = source.LoadObjects();
        ASSERT_TRUE(objects);
        ASSERT_EQ(objects->size(), 2u) << ToUtf8(name);
        EXPECT_TRUE(std::any_of(objects->begin(), objects->end(), [&](const Object& object) {
            return object.raw_name == name;
        })) << ToUtf8(name);
    }
}

TEST(AdoSchemaBlocks, EveryCallMayBeTheLastAndWhatWasReadStays) {
    const FakeConnection whole = tests::MakeConnection(LargeDatabase(FakeBlocks::Right));
    const std::size_t expected = AdoSchemaSource(whole.object.Get()).LoadObjects()->size();
    const long calls = whole.line->calls_made;
    std::size_t last = 0;
    for (long left = 0; left <= calls; ++left) {
        const FakeConnection connection = tests::MakeConnection(LargeDatabase(FakeBlocks::Right));
        connection.line->calls_left = left;
        const auto objects = AdoSchemaSource(connection.object.Get()).LoadObjects();
        const std::size_t count = objects ? objects->size() : 0;
        EXPECT_GE(count, last) << "after " << left << " calls";
        last = count;
    }
    EXPECT_EQ(last, expected);
}

TEST(AdoSchemaBlocks, ARowsetWithoutEndStopsAtTheLimit) {
    FakeDatabase database = LargeDatabase(FakeBlocks::Right);
    database.rowsets[20].never_ends = true;
    const FakeConnection connection = tests::MakeConnection(database);
    const auto objects = AdoSchemaSource(connection.object.Get(), 50).LoadObjects();
    ASSERT_TRUE(objects);
    EXPECT_EQ(objects->size(), 1u);
    EXPECT_LT(connection.line->calls_made, 20);
}

}  // namespace
}  // namespace tessel::schema
