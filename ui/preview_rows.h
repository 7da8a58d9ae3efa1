// The rows of a preview without a window and without a database: what a table of rows answers, the search
// through it, and its rows as text for the clipboard. The window asks for the cells that it shows and for
// nothing else, so a source may have millions of rows.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessel::ui {

/// Where a column's values stand: numbers on the right, dates in the middle, so that the kinds tell
/// themselves apart.
enum class Alignment { Left, Right, Centre };

struct PreviewColumn {
    std::wstring name;
    Alignment alignment = Alignment::Left;
};

/// A value as the user reads it. Null has no text.
struct PreviewCell {
    std::wstring text;
    bool is_null = false;
};

struct CellPlace {
    std::int64_t row = 0;
    int column = 0;
    bool operator==(const CellPlace&) const = default;
};

/// A table of rows that is read piece by piece.
class PreviewRows {
public:
    virtual ~PreviewRows() = default;
    virtual const std::vector<PreviewColumn>& Columns() const = 0;
    virtual std::int64_t RowCount() const = 0;
    /// The cell; an empty one for a place outside, or when its row could not be read. Also while another one
    /// is being read: reading may let a window paint, and a source that is asked inside its own reading would
    /// lose its place.
    virtual PreviewCell Cell(std::int64_t row, int column) = 0;
    /// Whether a cell was asked for since the last call of this while another one was being read, so that
    /// what was painted then is to be painted again.
    virtual bool TakeUnread() { return false; }
    /// Why rows could not be read; empty as long as all could.
    virtual std::wstring Trouble() const = 0;
};

/// A search for a text in any cell, letter case aside, row by row, that begins beside a cell and ends there
/// after going all the way round. It works in slices, so that a window stays alive meanwhile.
class RowSearch {
public:
    enum class State { Searching, Found, NotFound };

    /// Begins after `from` (before it when backwards); that cell itself comes last.
    RowSearch(std::wstring_view text, CellPlace from, bool backwards);

    /// Looks through at most `rows` more rows.
    State Advance(PreviewRows& source, std::int64_t rows);
    /// The found cell, or the row reached so far.
    CellPlace Place() const { return place_; }

private:
    bool LookThrough(PreviewRows& source, int first, int last);

    std::wstring text_;
    CellPlace place_;
    int start_column_;
    bool backwards_;
    std::int64_t rows_done_ = 0;
};

/// One row as a line of tab-separated text without its line break. Cells that hold a tab, a line break or a
/// quotation mark are quoted as spreadsheets expect it; Null is empty.
[[nodiscard]] std::wstring RowAsText(PreviewRows& source, std::int64_t row);
/// The column names in the same form.
[[nodiscard]] std::wstring HeadersAsText(const PreviewRows& source);

/// One line of a text for a cell of a table: line breaks, tabs and other control characters become blanks,
/// and what is longer than `limit` units ends in "…".
[[nodiscard]] std::wstring OneLine(std::wstring_view text, std::size_t limit);

/// "1.234.567" with the given separator between groups of three digits.
[[nodiscard]] std::wstring Grouped(std::int64_t number, std::wstring_view separator);

}  // namespace tessel::ui
