#include "tests/laws/sqlite_engine.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "common/text.h"
#include "sqlparser/lexer.h"

namespace tessel::laws {

namespace {

std::wstring InSqliteWords(std::wstring_view text) {
    std::wstring spelled;
    sql::Lexer lexer(text);
    for (sql::Token token = lexer.Next(); token.kind != sql::TokenKind::End; token = lexer.Next()) {
        const std::wstring_view slice = text.substr(token.begin, token.length);
        const bool distinct = token.kind == sql::TokenKind::Word && Lower(slice) == L"distinctrow";
        spelled += distinct ? std::wstring_view(L"DISTINCT") : slice;
    }
    return spelled;
}

struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

std::string ValueText(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_NULL:
            return "∅";
        case SQLITE_FLOAT: {
            char text[40];
            std::snprintf(text, sizeof text, "%.10g", sqlite3_column_double(statement, column));
            return text;
        }
        default:
            return reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    }
}

}  // namespace

void SqliteEngine::Load(const std::vector<std::wstring>& script) {
    sqlite3* connection = nullptr;
    const int opened = sqlite3_open(":memory:", &connection);
    connection_.reset(connection);
    ASSERT_EQ(opened, SQLITE_OK);
    for (const std::wstring& statement : script) {
        const std::string text = ToUtf8(statement);
        ASSERT_EQ(sqlite3_exec(connection, text.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << text << '\n'
            << sqlite3_errmsg(connection);
    }
}

RowSet SqliteEngine::Query(std::wstring_view text) {
    RowSet result;
    const std::string spelled = ToUtf8(InSqliteWords(text));
    sqlite3_stmt* raw = nullptr;
    const int prepared = sqlite3_prepare_v2(connection_.get(), spelled.c_str(), -1, &raw, nullptr);
    const std::unique_ptr<sqlite3_stmt, Finalizer> statement(raw);
    if (prepared != SQLITE_OK || !raw) {
        result.error = sqlite3_errmsg(connection_.get());
        return result;
    }
    const int columns = sqlite3_column_count(raw);
    for (int column = 0; column < columns; ++column)
        result.names.emplace_back(sqlite3_column_name(raw, column));
    int step = sqlite3_step(raw);
    for (; step == SQLITE_ROW; step = sqlite3_step(raw)) {
        std::vector<std::string> row;
        for (int column = 0; column < columns; ++column) row.push_back(ValueText(raw, column));
        result.rows.push_back(std::move(row));
    }
    result.prepared = step == SQLITE_DONE;
    if (!result.prepared) result.error = sqlite3_errmsg(connection_.get());
    return result;
}

}  // namespace tessel::laws
