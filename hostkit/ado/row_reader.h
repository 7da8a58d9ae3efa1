// Reads the rows of an executed statement into packed storage. Columns of a known, bounded size are bound to
// memory once, so that a fetch fills them without a call for each; long and binary ones, and what proves
// longer than its room, are asked for cell by cell. A driver that does not let both be mixed is asked for
// everything.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/ado/row_storage.h"

namespace tessel::ado {

class RowReader {
public:
    /// Binds what can be bound, until its own end.
    RowReader(Statement& statement, const ColumnList& columns);
    ~RowReader();
    RowReader(const RowReader&) = delete;
    RowReader& operator=(const RowReader&) = delete;

    /// Fetches the next row; `fetched` is false after the last one.
    Status Fetch(bool* fetched) { return statement_.Fetch(fetched); }
    /// Adds the fetched row.
    Status Store(RowStorage* rows);
    /// A cell of the fetched row, of a text column; nothing for Null. Columns are to be read in rising order.
    Status ReadText(std::size_t column, std::optional<std::wstring>* text);

private:
    struct BoundCell {
        SQLSMALLINT c_type = 0;  ///< 0 for a column that is not bound
        std::vector<unsigned char> value;
        SQLLEN length = 0;
    };

    Status StoreCell(std::size_t column, RowStorage* rows);
    Status StoreText(std::size_t column, RowStorage* rows);
    /// The bound text, unless it is Null or longer than its room.
    std::optional<std::wstring_view> BoundText(std::size_t column) const;

    template <class Value>
    Value ValueOf(std::size_t column) const;

    Statement& statement_;
    const ColumnList& columns_;
    std::vector<BoundCell> cells_;
};

}  // namespace tessel::ado
