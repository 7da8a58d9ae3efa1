#include "benchmarks/win32/plain_odbc.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace tessel::bench {

namespace {

SQLWCHAR* OdbcText(const std::wstring& text) {
    return const_cast<SQLWCHAR*>(text.c_str());
}

void Check(SQLRETURN result, const char* what) {
    if (SQL_SUCCEEDED(result)) return;
    fprintf(stderr, "ODBC: %s failed\n", what);
    std::exit(1);
}

class PlainStatement {
public:
    explicit PlainStatement(SQLHDBC connection) {
        Check(SQLAllocHandle(SQL_HANDLE_STMT, connection, &handle_), "SQLAllocHandle");
    }
    ~PlainStatement() { SQLFreeHandle(SQL_HANDLE_STMT, handle_); }
    PlainStatement(const PlainStatement&) = delete;
    PlainStatement& operator=(const PlainStatement&) = delete;
    SQLHSTMT Handle() const { return handle_; }

private:
    SQLHSTMT handle_ = SQL_NULL_HSTMT;
};

/// A column bound to memory of its own.
struct BoundColumn {
    SQLSMALLINT c_type = SQL_C_WCHAR;
    std::size_t bytes = 0;  ///< of a value; texts carry their length
    std::vector<unsigned char> buffer;
    SQLLEN length = 0;
};

constexpr std::size_t kLongestText = 1024;  // characters

BoundColumn ColumnFor(SQLSMALLINT type, SQLULEN size) {
    BoundColumn column;
    switch (type) {
        case SQL_BIT:
            column = {SQL_C_BIT, 1, {}, 0};
            break;
        case SQL_SMALLINT:
            column = {SQL_C_SSHORT, 2, {}, 0};
            break;
        case SQL_INTEGER:
            column = {SQL_C_SLONG, 4, {}, 0};
            break;
        case SQL_DOUBLE:
        case SQL_FLOAT:
            column = {SQL_C_DOUBLE, 8, {}, 0};
            break;
        case SQL_TIMESTAMP:
        case SQL_TYPE_TIMESTAMP:
            column = {SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT), {}, 0};
            break;
        default:
            column.buffer.resize((std::min<std::size_t>(size, kLongestText) + 1) * sizeof(SQLWCHAR));
            return column;
    }
    column.buffer.resize(column.bytes);
    return column;
}

void Store(const BoundColumn& column, CompactRows* rows) {
    const unsigned char is_null = column.length == SQL_NULL_DATA;
    rows->Append(&is_null, 1);
    if (is_null) return;
    if (column.bytes > 0) return rows->Append(column.buffer.data(), column.bytes);
    const auto room = static_cast<SQLLEN>(column.buffer.size() - sizeof(SQLWCHAR));
    const auto bytes = static_cast<std::uint32_t>(std::clamp<SQLLEN>(column.length, 0, room));
    rows->Append(&bytes, sizeof bytes);
    rows->Append(column.buffer.data(), bytes);
}

}  // namespace

PlainConnection::PlainConnection(const std::wstring& odbc_string) {
    Check(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_), "SQLAllocHandle");
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    Check(SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_), "SQLAllocHandle");
    SQLWCHAR completed[1024];
    SQLSMALLINT length = 0;
    Check(SQLDriverConnectW(connection_, nullptr, OdbcText(odbc_string), SQL_NTS, completed, 1024, &length,
                            SQL_DRIVER_NOPROMPT),
          "SQLDriverConnect");
}

PlainConnection::~PlainConnection() {
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

std::vector<PlainObject> ListObjects(const PlainConnection& connection) {
    const PlainStatement statement(connection.Handle());
    Check(SQLTablesW(statement.Handle(), nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0), "SQLTables");
    SQLWCHAR texts[4][256] = {};
    SQLLEN lengths[4] = {};
    for (int i = 0; i < 4; ++i)
        Check(SQLBindCol(statement.Handle(), static_cast<SQLUSMALLINT>(i + 1), SQL_C_WCHAR, texts[i],
                         sizeof texts[i], &lengths[i]),
              "SQLBindCol");
    std::vector<PlainObject> objects;
    const auto text = [&](int i) {
        return lengths[i] == SQL_NULL_DATA ? std::wstring() : std::wstring(texts[i]);
    };
    while (SQL_SUCCEEDED(SQLFetch(statement.Handle())))
        objects.push_back({text(0), text(1), text(2), text(3)});
    return objects;
}

void CompactRows::Append(const void* bytes, std::size_t count) {
    const auto* from = static_cast<const unsigned char*>(bytes);
    while (count > 0) {
        const std::size_t at = size_ % kBlock;
        if (at == 0) blocks_.emplace_back(new unsigned char[kBlock]);
        const std::size_t fitting = std::min(count, kBlock - at);
        memcpy(blocks_.back().get() + at, from, fitting);
        from += fitting;
        size_ += fitting;
        count -= fitting;
    }
}

void FetchAll(const PlainConnection& connection, const std::wstring& sql, CompactRows* rows) {
    const PlainStatement statement(connection.Handle());
    Check(SQLExecDirectW(statement.Handle(), OdbcText(sql), SQL_NTS), "SQLExecDirect");
    SQLSMALLINT count = 0;
    Check(SQLNumResultCols(statement.Handle(), &count), "SQLNumResultCols");
    std::vector<BoundColumn> columns;
    for (SQLUSMALLINT i = 1; i <= count; ++i) {
        SQLSMALLINT type = 0, digits = 0, nullable = 0;
        SQLULEN size = 0;
        Check(SQLDescribeColW(statement.Handle(), i, nullptr, 0, nullptr, &type, &size, &digits, &nullable),
              "SQLDescribeCol");
        columns.push_back(ColumnFor(type, size));
    }
    for (SQLUSMALLINT i = 1; i <= count; ++i) {
        BoundColumn& column = columns[i - 1u];
        Check(SQLBindCol(statement.Handle(), i, column.c_type, column.buffer.data(),
                         static_cast<SQLLEN>(column.buffer.size()), &column.length),
              "SQLBindCol");
    }
    while (SQL_SUCCEEDED(SQLFetch(statement.Handle()))) {
        rows->BeginRow();
        for (const BoundColumn& column : columns) Store(column, rows);
    }
}

}  // namespace tessel::bench
