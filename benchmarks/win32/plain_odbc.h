// The references: what a host without us would do over the same driver. Objects are listed by the catalogue's
// own function, and rows fetched into bound columns and packed one after another; neither shows anything.
#pragma once

#include <windows.h>

#include <sql.h>
#include <sqlext.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tessel::bench {

/// A connection of the reference's own. Failures end the program.
class PlainConnection {
public:
    explicit PlainConnection(const std::wstring& odbc_string);
    ~PlainConnection();
    PlainConnection(const PlainConnection&) = delete;
    PlainConnection& operator=(const PlainConnection&) = delete;

    SQLHDBC Handle() const { return connection_; }

private:
    SQLHENV environment_ = SQL_NULL_HENV;
    SQLHDBC connection_ = SQL_NULL_HDBC;
};

struct PlainObject {
    std::wstring catalogue, schema, name, type;
};

/// Lists tables and views.
[[nodiscard]] std::vector<PlainObject> ListObjects(const PlainConnection& connection);

/// Rows packed into blocks: per cell a byte that tells Null, then the bare number, or a text with its length.
class CompactRows {
public:
    void Append(const void* bytes, std::size_t count);
    void BeginRow() { starts_.push_back(size_); }
    std::size_t RowCount() const { return starts_.size(); }
    std::uint64_t Size() const { return size_; }

private:
    static constexpr std::size_t kBlock = std::size_t{1} << 20;
    std::vector<std::unique_ptr<unsigned char[]>> blocks_;
    std::vector<std::uint64_t> starts_;
    std::uint64_t size_ = 0;
};

/// Fetches every row of a statement.
void FetchAll(const PlainConnection& connection, const std::wstring& sql, CompactRows* rows);

}  // namespace tessel::bench
