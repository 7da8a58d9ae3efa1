// Where a recordset stands in its rows. A static cursor holds all rows in memory and moves freely; a forward
// cursor fetches one row at a time and keeps none. Both close when their session does.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/ado/row_storage.h"

namespace tessel::ado {

/// What AbsolutePosition reads outside the rows.
inline constexpr long kPositionUnknown = -1;
inline constexpr long kPositionBof = -2;
inline constexpr long kPositionEof = -3;

class Cursor {
public:
    virtual ~Cursor() = default;

    virtual bool IsOpen() const = 0;
    const ColumnList& GetColumns() const { return *columns_; }

    virtual bool AtBegin() const = 0;
    virtual bool AtEnd() const = 0;
    /// The number of rows, or -1 when it is not known.
    virtual long Count() const = 0;
    /// The current row's number from 1, or one of the constants above.
    virtual long Position() const = 0;

    virtual Status First() = 0;
    virtual Status Last() = 0;
    /// Moves by a number of rows, past the last row or before the first one at most.
    virtual Status MoveBy(long count) = 0;
    virtual Status GoTo(long position) = 0;

    /// A value of the current row; only when neither AtBegin() nor AtEnd().
    virtual win32::UniqueVariant Cell(std::size_t column) const = 0;
    /// Adds the texts of the current row's values, as the system converts them, with `column_end` between
    /// two.
    virtual void AddRowText(std::wstring_view column_end, std::wstring_view null_text,
                            std::wstring* target) const;

protected:
    explicit Cursor(SharedColumns columns) : columns_(std::move(columns)) {}

    SharedColumns columns_;
};

/// A cursor over rows in memory, standing on the first one. It lives as long as `session` is open.
std::unique_ptr<Cursor> MakeStaticCursor(std::shared_ptr<const RowSet> rows,
                                         std::shared_ptr<Session> session);

/// A cursor over an executed statement. `sql` repeats it when the host returns to the first row.
Status MakeForwardCursor(std::unique_ptr<Statement> statement, SharedColumns columns, std::wstring sql,
                         std::unique_ptr<Cursor>* target);

/// Reads all rows that the statement still has.
Status ReadAllRows(Statement& statement, const SharedColumns& columns, RowSet* target);

}  // namespace tessel::ado
