#include "model/design_grid.h"

#include <algorithm>
#include <utility>

#include "common/text.h"

namespace tessel::model {

namespace {

const std::wstring kNoText;
const std::vector<std::wstring> kNoList;

std::size_t Index(GridRow row) {
    return static_cast<std::size_t>(row) - 1;
}

}  // namespace

bool FitsCell(std::wstring_view text) {
    // A character has two units at most.
    return text.size() <= kMaxCellLength / 2 || Utf16Length(text) <= kMaxCellLength;
}

std::wstring_view RowCaption(GridRow row) {
    static constexpr std::array<std::wstring_view, kGridRowCount> kCaptions = {
        L"Campo:",   L"Título (Alias):", L"Tabla:",     L"Agrupación:",
        L"Visible:", L"Orden:",          L"Condición:", L"OR:"};
    return kCaptions[Index(row)];
}

const std::vector<std::wstring>& GroupingWords() {
    static const std::vector<std::wstring> kWords = {L"Agrupado por", L"Suma",   L"Promedio", L"Mínimo",
                                                     L"Máximo",       L"Cuenta", L"Expresión"};
    return kWords;
}

const std::vector<std::wstring>& VisibleWords() {
    static const std::vector<std::wstring> kWords = {L"Si", L"No"};
    return kWords;
}

const std::vector<std::wstring>& OrderWords() {
    static const std::vector<std::wstring> kWords = {L"Ascendente", L"Descendente"};
    return kWords;
}

DesignGrid::DesignGrid() {
    AppendColumns(kInitialColumnCount);
}

void DesignGrid::AppendColumns(int count) {
    columns_.reserve(static_cast<std::size_t>(count));
    while (ColumnCount() < count) {
        const int key = ColumnCount();
        columns_.emplace_back().key = key;
    }
}

void DesignGrid::LoadColumns() {
    if (ColumnCount() >= kGridColumnCount) return;
    AppendColumns(kGridColumnCount);
    NotifyChanged();
}

bool DesignGrid::Exists(int column) const {
    return column >= 0 && column < ColumnCount();
}

const std::wstring& DesignGrid::Cell(GridRow row, int column) const {
    if (!Exists(column)) return kNoText;
    return columns_[static_cast<std::size_t>(column)].cells[Index(row)];
}

bool DesignGrid::SetCell(GridRow row, int column, std::wstring_view text) {
    if (!Exists(column) || !FitsCell(text)) return false;
    std::wstring& cell = columns_[static_cast<std::size_t>(column)].cells[Index(row)];
    if (cell == text) return true;
    cell = text;
    used_end_ = std::max(used_end_, column + 1);
    NotifyChanged();
    return true;
}

std::wstring DesignGrid::FieldName(int column) {
    return L"C" + std::to_wstring(column + 1);
}

const std::wstring& DesignGrid::Caption(int column) const {
    return Exists(column) ? columns_[static_cast<std::size_t>(column)].caption : kNoText;
}

void DesignGrid::SetCaption(int column, std::wstring_view caption) {
    if (!Exists(column) || Caption(column) == caption) return;
    columns_[static_cast<std::size_t>(column)].caption = caption;
    used_end_ = std::max(used_end_, column + 1);
    NotifyChanged();
}

bool DesignGrid::IsColumnShown(int column) const {
    return Exists(column) && columns_[static_cast<std::size_t>(column)].shown;
}

void DesignGrid::ShowColumn(int column, bool shown) {
    if (!Exists(column) || IsColumnShown(column) == shown) return;
    columns_[static_cast<std::size_t>(column)].shown = shown;
    NotifyChanged();
}

int DesignGrid::ColumnWidth(int column) const {
    return Exists(column) ? columns_[static_cast<std::size_t>(column)].width : 0;
}

void DesignGrid::SetColumnWidth(int column, int width) {
    if (!Exists(column) || ColumnWidth(column) == width) return;
    columns_[static_cast<std::size_t>(column)].width = width;
    NotifyChanged();
}

void DesignGrid::SetFocus(GridRow row, int column) {
    if (row == focused_row_ && column == focused_column_) return;
    focused_row_ = row;
    focused_column_ = column;
    NotifyChanged();
}

const std::vector<std::wstring>& DesignGrid::PickList(int column) const {
    return Exists(column) ? columns_[static_cast<std::size_t>(column)].pick_list : kNoList;
}

void DesignGrid::SetPickLists(const std::vector<std::wstring>& items) {
    for (Column& column : columns_) column.pick_list = items;
    NotifyChanged();
}

void DesignGrid::ClearCells() {
    for (int column = 0; column < used_end_; ++column) {
        for (std::wstring& cell : columns_[static_cast<std::size_t>(column)].cells) cell.clear();
    }
    FindUsedEnd(used_end_);
    NotifyChanged();
}

void DesignGrid::Reset() {
    focused_row_ = GridRow::Campo;
    focused_column_ = 0;
    for (Column& column : columns_) {
        column.caption.clear();
        column.shown = true;
    }
    FindUsedEnd(used_end_);
    NotifyChanged();
}

bool DesignGrid::IsColumnUsed(int column) const {
    return !TrimView(Cell(GridRow::Campo, column)).empty();
}

bool DesignGrid::IsColumnEmpty(int column) const {
    return std::ranges::all_of(kGridRows, [&](GridRow row) { return Cell(row, column).empty(); });
}

bool DesignGrid::MoveColumn(int from, int to) {
    if (!Exists(from) || !Exists(to)) return false;
    if (from == to) return true;
    const auto first = columns_.begin();
    if (from < to) {
        std::rotate(first + from, first + from + 1, first + to + 1);
    } else {
        std::rotate(first + to, first + from, first + from + 1);
    }
    FindUsedEnd(ColumnCount());
    NotifyChanged();
    return true;
}

void DesignGrid::SetColumns(std::vector<Column> columns) {
    columns_ = std::move(columns);
    FindUsedEnd(ColumnCount());
    NotifyChanged();
}

void DesignGrid::TakeContents(DesignGrid& other) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        other.columns_[i].key = columns_[i].key;
        other.columns_[i].width = columns_[i].width;
        other.columns_[i].pick_list.swap(columns_[i].pick_list);
    }
    columns_.swap(other.columns_);
    std::swap(used_end_, other.used_end_);
    NotifyChanged();
}

void DesignGrid::StartAgain() {
    focused_row_ = GridRow::Campo;
    focused_column_ = 0;
    for (int index = 0; index < ColumnCount(); ++index) {
        Column& column = columns_[static_cast<std::size_t>(index)];
        column.key = index;
        column.width = kColumnWidth;
        column.shown = true;
        column.pick_list.clear();
        if (index >= used_end_) continue;
        column.caption.clear();
        for (std::wstring& cell : column.cells) cell.clear();
    }
    used_end_ = 0;
    AppendColumns(kGridColumnCount);
}

/// `limit` is a column from which on there is neither text nor caption.
void DesignGrid::FindUsedEnd(int limit) {
    used_end_ = limit;
    while (used_end_ > 0 && Caption(used_end_ - 1).empty() && IsColumnEmpty(used_end_ - 1)) --used_end_;
}

}  // namespace tessel::model
