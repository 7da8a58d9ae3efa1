// The ways to ask a connection about its database: OpenSchema first, then the database's own catalogue by SQL
// for providers that do not implement a rowset. One class for the asking; what the rows mean is read
// elsewhere.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "common/win32/dispatch.h"
#include "schema/win32/ado_rows.h"
#include "schema/win32/text_rows.h"

namespace tessel::schema {

/// ADO's numbers of the rowsets that we ask for.
enum class Rowset : long { Columns = 4, Tables = 20, ForeignKeys = 27, PrimaryKeys = 28 };

/// What OpenSchema restricts a rowset to, by position; an empty text leaves that position open.
using Restrictions = std::vector<std::wstring>;

/// Reads one row.
using RowReader = std::function<void(const AdoRows& row)>;

class AdoCatalogue {
public:
    AdoCatalogue(IDispatch* connection, std::size_t row_limit)
        : connection_(connection), row_limit_(row_limit) {}

    const win32::Dispatch& Connection() const { return connection_; }

    /// Reads a rowset. False when the provider refused it or failed before its first row.
    bool ReadRowset(Rowset rowset, const Restrictions& restrictions, const RowReader& reader);
    /// Reads the first of the statements that the database accepts and that gives a row. In each, "{0}"
    /// stands for `name` as the inside of a text literal. False when none gives a row.
    bool ReadQuery(std::initializer_list<const wchar_t*> statements, std::wstring_view name,
                   const RowReader& reader);

    // The same for large answers that are made of texts: in blocks where the provider knows how. A block that
    // is not what it should be sends us back to ask again and read row by row.
    bool ReadRowset(Rowset rowset, const Restrictions& restrictions, TextColumns columns, TextRows* target);
    bool ReadQuery(std::initializer_list<const wchar_t*> statements, TextColumns columns, TextRows* target);

    /// Why the last thing that was asked for was refused.
    const std::wstring& LastError() const { return last_error_; }

    /// Opens a statement; IsOpen() of the answer tells whether that worked.
    win32::CallResult Execute(const std::wstring& sql);

private:
    /// Opens the recordset that is to be read.
    using Opener = std::function<win32::CallResult()>;

    win32::CallResult OpenRowset(Rowset rowset, const Restrictions& restrictions);
    bool ReadAll(const win32::CallResult& opened, const RowReader& reader, bool needs_row);
    bool ReadTexts(const Opener& open, TextColumns columns, bool needs_row, TextRows* target);

    win32::Dispatch connection_;
    std::size_t row_limit_;
    std::wstring last_error_;
};

}  // namespace tessel::schema
