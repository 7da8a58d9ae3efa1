// Rows of texts that a provider gave, all at once: what the catalogue's large answers are read into, the
// tables of a database and its foreign keys.
//
// A recordset that knows GetString gives a thousand rows a call, in one text; asking row by row and column by
// column takes a late-bound call for each cell. Nothing of a text is believed that does not have the shape
// that was asked for. What each way costs, and when it is taken, is ado_catalogue's business.
#pragma once

#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/win32/dispatch.h"

namespace tessel::schema {

/// The names of the columns that are wanted, by whose places rows are read.
using TextColumns = std::span<const wchar_t* const>;

/// Owns the texts; moving it leaves their places in memory.
class TextRows {
public:
    explicit TextRows(std::size_t columns = 0) : columns_(columns) {}

    std::size_t RowCount() const { return columns_ == 0 ? 0 : cells_.size() / columns_; }
    /// A cell by the place of its column among those that were wanted; empty when it is Null, missing or
    /// unreadable.
    std::wstring_view At(std::size_t row, std::size_t column) const {
        return cells_[row * columns_ + column];
    }

    /// Adds a row by taking over its cells; there must be one a column.
    void AddRow(std::vector<std::wstring> cells);
    /// Adds the rows of a text with `columns` values a row, between the two separators below. Cell i of a row
    /// is its value number `places[i]`, or empty where that is no number of one. False, and nothing is added,
    /// when the text has another shape, more than `most_rows`, or is the one before again, as a cursor that
    /// does not move gives it.
    bool AddBlock(std::wstring_view text, std::size_t columns, std::span<const std::size_t> places,
                  std::size_t most_rows);

private:
    std::size_t columns_;
    std::vector<std::wstring_view> cells_;
    std::deque<std::wstring> blocks_;
    std::deque<std::wstring> single_;
};

/// What stands between two values and two rows of a block: control characters that no name that anybody types
/// holds. A text with one too many does not have its shape.
inline constexpr wchar_t kColumnEnd = L'\u001F';
inline constexpr wchar_t kRowEnd = L'\u001E';

/// How reading in blocks went.
enum class BlockReading {
    Complete,    ///< to the end, or to the limit
    NotOffered,  ///< the recordset does not know how, and was not moved
    Broken,      ///< it ended before the end; what was read until then has the right shape
};

/// Reads the recordset by GetString.
BlockReading ReadInBlocks(const win32::Dispatch& recordset, TextColumns columns, std::size_t limit,
                          TextRows* target);
}  // namespace tessel::schema
