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
    if (!Exists(column) || Utf16Length(text) > kMaxCellLength) return false;
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
    for (Column& column : columns_) {
        for (std::wstring& cell : column.cells) cell.clear();
    }
    FindUsedEnd();
    NotifyChanged();
}

void DesignGrid::Reset() {
    focused_row_ = GridRow::Campo;
    focused_column_ = 0;
    for (Column& column : columns_) {
        column.caption.clear();
        column.shown = true;
    }
    FindUsedEnd();
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
    FindUsedEnd();
    NotifyChanged();
    return true;
}

void DesignGrid::SetColumns(std::vector<Column> columns) {
    columns_ = std::move(columns);
    FindUsedEnd();
    NotifyChanged();
}

void DesignGrid::TakeContents(DesignGrid& other) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        other.columns_[i].key = columns_[i].key;
        other.columns_[i].width = columns_[i].width;
        other.columns_[i].pick_list.swap(columns_[i].pick_list);
    }
    columns_.swap(other.columns_);
    used_end_ = other.used_end_;
    NotifyChanged();
}

void DesignGrid::FindUsedEnd() {
    used_end_ = ColumnCount();
    while (used_end_ > 0 && Caption(used_end_ - 1).empty() && IsColumnEmpty(used_end_ - 1)) --used_end_;
}

}  // namespace tessel::model
