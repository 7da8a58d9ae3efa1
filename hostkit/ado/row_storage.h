// Rows kept in memory, packed: one byte of type and the bare value a cell, one pointer a row. A client cursor
// over a million rows needs a fraction of what Variants would. Bytes lie in blocks that never move, so that
// storing a row neither copies those before it nor needs room for them twice.
#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/win32/com.h"
#include "hostkit/ado/column.h"

namespace tessel::ado {

/// Adds a value as text, as the system converts it; what has no text adds nothing.
void AddValueText(const win32::UniqueVariant& value, std::wstring_view null_text, std::wstring* target);

class RowStorage {
public:
    std::size_t RowCount() const { return starts_.size(); }

    // A row is added value by value, one for each column in their order, and then ended.

    /// A value of one of the types that ReadCell makes.
    void Append(const VARIANT& value);
    void AppendNull() { row_.push_back(static_cast<unsigned char>(VT_NULL)); }
    void AppendText(std::wstring_view text);
    /// A number as a Variant of that type holds it.
    template <class Number>
    void AppendNumber(VARTYPE type, Number value) {
        row_.push_back(static_cast<unsigned char>(type));
        AppendBytes(&value, sizeof value);
    }
    void EndRow();

    /// Adds a whole row of texts, one for each column; an empty one is Null.
    void AddTextRow(std::span<const std::wstring_view> texts);

    /// A value of a row.
    win32::UniqueVariant Cell(std::size_t row, std::size_t column) const;
    /// Adds the texts of a row's first `columns` values, with `column_end` between two.
    void AddRowText(std::size_t row, std::size_t columns, std::wstring_view column_end,
                    std::wstring_view null_text, std::wstring* target) const;

private:
    unsigned char* NewRow(std::size_t bytes);
    static win32::UniqueVariant CellAt(const unsigned char* at);
    void AppendBytes(const void* bytes, std::size_t count);

    std::deque<const unsigned char*> starts_;
    std::vector<std::unique_ptr<unsigned char[]>> blocks_;
    unsigned char* free_ = nullptr;  ///< in the last block, with `room_` bytes behind it
    std::size_t room_ = 0;
    std::vector<unsigned char> row_;  ///< the row that is being added
};

/// Complete rows with their columns: what a client cursor or a schema rowset holds.
struct RowSet {
    SharedColumns columns;
    RowStorage rows;
};

}  // namespace tessel::ado
