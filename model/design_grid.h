// The design grid dxG: eight attribute rows by sixty query columns, turned sideways. The rows are a query
// column's attributes ("Campo:" to "OR:"), the columns are the query's columns C1 to C60.
//
// This is the model: it holds texts, captions, widths, focus and pick lists, knows no window and announces
// its changes. The rules for placing and removing fields are in grid_editing.h; reading it for composition is
// in compose/. Columns are numbered from 0 here; FieldName(0) is "C1".
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/change_source.h"

namespace tessel::model {

/// The attribute rows; the value is the record's ID.
enum class GridRow : int { Campo = 1, Titulo, Tabla, Agrupacion, Visible, Orden, Condicion, Or };

inline constexpr int kGridRowCount = 8;
inline constexpr int kGridColumnCount = 60;
inline constexpr int kInitialColumnCount = 10;  ///< C1 to C10 exist before the window's load appends the rest
inline constexpr std::size_t kMaxCellLength = 255;  ///< UTF-16 units of a cell
inline constexpr int kColumnWidth = 80;             ///< pixels at 96 dpi of an appended column

/// All rows from "Campo:" to "OR:", for walking.
inline constexpr std::array<GridRow, kGridRowCount> kGridRows = {
    GridRow::Campo,   GridRow::Titulo, GridRow::Tabla,     GridRow::Agrupacion,
    GridRow::Visible, GridRow::Orden,  GridRow::Condicion, GridRow::Or};

/// The row's caption with its colon: "Campo:", "Título (Alias):", …
[[nodiscard]] std::wstring_view RowCaption(GridRow row);

/// The words of the pick-list rows, exactly as shown.
[[nodiscard]] const std::vector<std::wstring>& GroupingWords();
[[nodiscard]] const std::vector<std::wstring>& VisibleWords();
[[nodiscard]] const std::vector<std::wstring>& OrderWords();

/// True when the text is no longer than kMaxCellLength.
[[nodiscard]] bool FitsCell(std::wstring_view text);

class DesignGrid : public ChangeSource {
public:
    DesignGrid();

    /// The columns that exist: 10 after construction, 60 after LoadColumns.
    int ColumnCount() const { return static_cast<int>(columns_.size()); }
    /// Columns from this one on have neither text nor caption; those before may have.
    int UsedEnd() const { return used_end_; }
    /// Appends C11 to C60, each 80 wide with an empty caption, as the window's load does. Idempotent.
    void LoadColumns();

    /// A cell's text; empty for a column that does not exist, as are all attributes below.
    const std::wstring& Cell(GridRow row, int column) const;
    /// Writes a cell. False, and nothing changes, when the text is longer than kMaxCellLength or there is no
    /// such column.
    [[nodiscard]] bool SetCell(GridRow row, int column, std::wstring_view text);

    /// The dataset field name of a column: "C" and its number from 1.
    static std::wstring FieldName(int column);

    const std::wstring& Caption(int column) const;
    void SetCaption(int column, std::wstring_view caption);
    bool IsColumnShown(int column) const;
    void ShowColumn(int column, bool shown);
    int ColumnWidth(int column) const;
    void SetColumnWidth(int column, int width);

    /// Focus: the record and the query column that the user is on; -1 on the captions column, which is not a
    /// query column.
    GridRow FocusedRow() const { return focused_row_; }
    int FocusedColumn() const { return focused_column_; }
    void SetFocus(GridRow row, int column);

    /// The pick list of a column (all columns share their row's list, but each keeps its own copy).
    const std::vector<std::wstring>& PickList(int column) const;
    void SetPickLists(const std::vector<std::wstring>& items);

    /// Empties every cell; captions, widths and shown state stay.
    void ClearCells();
    /// The grid's reset: focus to the first cell, every caption empty, every column shown. Cells stay.
    void Reset();

    /// True when the column's "Campo:" is more than blanks.
    bool IsColumnUsed(int column) const;
    /// True when every cell of the column is empty.
    bool IsColumnEmpty(int column) const;

    /// Takes a column out of its place and puts it in at another, with its cells, caption, width and shown
    /// state; the columns between them close up. The focus stays on its place. False, and nothing changes,
    /// when there is no such column or place.
    bool MoveColumn(int from, int to);

    /// The whole state, for copies and undo.
    struct Column {
        int key = 0;  ///< tells the column from the others, wherever it is moved
        std::array<std::wstring, kGridRowCount> cells;
        std::wstring caption;
        std::vector<std::wstring> pick_list;
        int width = kColumnWidth;
        bool shown = true;
        friend bool operator==(const Column&, const Column&) = default;
    };
    const std::vector<Column>& Columns() const { return columns_; }
    void SetColumns(std::vector<Column> columns);
    /// Takes cells, captions, shown state and the number of columns of a grid that has at least as many, and
    /// keeps its own columns' keys, widths and pick lists. What this grid held goes to the other one.
    void TakeContents(DesignGrid& other);
    /// Makes a new grid of it, with all the columns that LoadColumns gives, in the memory that it has. Tells
    /// nobody: for a grid at which nobody looks.
    void StartAgain();

private:
    bool Exists(int column) const;
    void AppendColumns(int count);
    void FindUsedEnd(int limit);

    std::vector<Column> columns_;
    int used_end_ = 0;
    GridRow focused_row_ = GridRow::Campo;
    int focused_column_ = 0;
};

}  // namespace tessel::model
