#include "model/grid_editing.h"

#include <algorithm>
#include <cassert>
#include <optional>
#include <utility>
#include <vector>

#include "common/identifiers.h"
#include "common/mdl_global.h"
#include "common/text.h"

namespace tessel::model {

namespace {

constexpr std::wstring_view kShown = L"Si";
constexpr std::wstring_view kHidden = L"No";
constexpr std::wstring_view kExpression = L"Expresión";

/// A "Campo:" text of the plain form table.field, in its two parts. Expressions and unqualified names are
/// none.
struct QualifiedField {
    std::wstring_view field;
    std::wstring_view piece;  ///< what stands before the point, when that is one name
    std::wstring pieces;      ///< the names before the last point, when they are several

    /// Everything before the last point.
    std::wstring_view Table() const { return pieces.empty() ? piece : std::wstring_view(pieces); }
};

std::optional<QualifiedField> SplitField(std::wstring_view text, const QualifiedName& name) {
    if (!name.is_one || name.last_point == std::wstring_view::npos) return std::nullopt;
    QualifiedField parts;
    parts.field = TrimView(text.substr(name.last_point + 1));
    const std::wstring_view table = text.substr(0, name.last_point);
    if (name.parts == 2) {
        parts.piece = TrimView(table);
        return parts;
    }
    for (const std::wstring& piece : SplitQualified(table))
        parts.pieces += (parts.pieces.empty() ? L"" : L".") + piece;
    return parts;
}

std::optional<QualifiedField> SplitField(std::wstring_view text) {
    return SplitField(text, ReadQualifiedName(text));
}

/// The diagram's table that a qualifier names: the whole of it (owner.table), or its last piece.
const DiagramTable* FindQualifier(const Diagram& diagram, std::wstring_view qualifier) {
    if (const DiagramTable* table = diagram.FindTable(qualifier)) return table;
    return diagram.FindTable(SplitQualified(qualifier).back());
}

/// Texts written here come from cells or were measured before, so they fit.
void Write(DesignGrid& grid, GridRow row, int column, std::wstring_view text) {
    [[maybe_unused]] const bool written = grid.SetCell(row, column, text);
    assert(written);
}

/// Writes as much of the text as fits.
void WriteCut(DesignGrid& grid, GridRow row, int column, std::wstring_view text) {
    if (FitsCell(text)) {
        Write(grid, row, column, text);
    } else {
        Write(grid, row, column, CutToUtf16(text, kMaxCellLength));
    }
}

bool IsBlank(const std::wstring& text) {
    return text.find_first_not_of(L' ') == std::wstring::npos;
}

/// The first column whose "Campo:" is blank, or -1.
int FirstFreeColumn(const DesignGrid& grid) {
    const std::vector<DesignGrid::Column>& columns = grid.Columns();
    const auto is_free = [](const DesignGrid::Column& column) { return IsBlank(column.cells.front()); };
    const auto free = std::find_if(columns.begin(), columns.begin() + grid.UsedEnd(), is_free);
    return free == columns.end() ? -1 : static_cast<int>(free - columns.begin());
}

bool CaptionTaken(const DesignGrid& grid, int column, std::wstring_view caption) {
    for (int other = 0; other < grid.UsedEnd(); ++other) {
        if (other != column && SameIgnoringCase(grid.Caption(other), caption)) return true;
    }
    return false;
}

/// A counted name; the number goes inside the brackets, so that the alias stays one name.
std::wstring Numbered(std::wstring_view name, int number) {
    const std::wstring digits = std::to_wstring(number);
    const bool quoted =
        !name.empty() && (name.front() == L'[' || name.front() == L'"' || name.front() == L'`');
    if (!quoted) return std::wstring(name) + digits;
    return std::wstring(name.substr(0, name.size() - 1)) + digits + name.back();
}

/// The column that holds this field of this table however it is written, or -1.
int ColumnOfField(const Design& design, std::wstring_view table, std::wstring_view field) {
    for (int column = 0; column < design.grid.ColumnCount(); ++column) {
        const auto parts = SplitField(design.grid.Cell(GridRow::Campo, column));
        if (!parts || !SameIdentifier(parts->field, field)) continue;
        const DiagramTable* owner = FindQualifier(design.diagram, parts->Table());
        if (owner && SameIdentifier(owner->name, table)) return column;
    }
    return -1;
}

void EmptyColumn(Design& design, int column) {
    for (const GridRow row : kGridRows) Write(design.grid, row, column, L"");
    design.grid.SetCaption(column, L"");
    design.grid.ShowColumn(column, false);
    SyncDiagramChecks(design);
}

/// SetColumnField without the diagram's marks, for a column whose "Campo:" holds that text.
void CompleteColumn(Design& design, int column, std::wstring_view text, std::wstring_view sAlias,
                    int nVisible) {
    DesignGrid& grid = design.grid;
    const QualifiedName name = ReadQualifiedName(text);
    const std::optional<QualifiedField> parts = SplitField(text, name);

    // An unqualified name keeps the table that the user chose; a field of a table that is not drawn and an
    // expression belong to none.
    const DiagramTable* owner = parts ? FindQualifier(design.diagram, parts->Table()) : nullptr;
    if (owner) {
        WriteCut(grid, GridRow::Tabla, column, owner->name);
    } else if (parts || !name.is_one) {
        Write(grid, GridRow::Tabla, column, L"");
    }

    if (!sAlias.empty()) WriteCut(grid, GridRow::Titulo, column, sAlias);
    // Only table.field is given a title. "Nombre AS Nombre" would be a circular reference to the Jet engine,
    // and an expression has no name of its own.
    if (parts && IsBlank(grid.Cell(GridRow::Titulo, column))) {
        const bool is_free = !IsReservedWord(parts->field) && !CaptionTaken(grid, column, parts->field);
        if (is_free && parts->field != L"*") {
            Write(grid, GridRow::Titulo, column, parts->field);
        } else {
            Write(grid, GridRow::Titulo, column, UniqueCaption(grid, column, TitleOfField(parts->field)));
        }
    }
    grid.SetCaption(column, grid.Cell(GridRow::Titulo, column));

    if (IsAggregate(text)) Write(grid, GridRow::Agrupacion, column, kExpression);
    if (nVisible != kKeepVisibility) {
        Write(grid, GridRow::Visible, column, nVisible == kShow ? kShown : kHidden);
    } else if (IsBlank(grid.Cell(GridRow::Visible, column))) {
        Write(grid, GridRow::Visible, column, kShown);
    }
}

}  // namespace

int FieldCol(const DesignGrid& grid, std::wstring_view sField) {
    if (sField.empty()) return FirstFreeColumn(grid);
    for (int column = 0; column < grid.UsedEnd(); ++column) {
        const std::wstring& cell = grid.Cell(GridRow::Campo, column);
        if (cell.size() >= sField.size() && SameIgnoringCase(TrimView(cell), sField)) return column;
    }
    return -1;
}

int AddFieldUnmarked(Design& design, std::wstring_view sField, std::wstring_view sAlias, int nVisible) {
    // Cells are compared trimmed, so a field with blanks around it is the same field.
    const std::wstring_view field = TrimView(sField);
    if (field.empty() || !FitsCell(sField) || !FitsCell(sAlias)) return -1;
    if (const int there = FieldCol(design.grid, field); there >= 0) return there;
    return AddNewField(design, sField, sAlias, nVisible);
}

int AddNewField(Design& design, std::wstring_view sField, std::wstring_view sAlias, int nVisible) {
    if (TrimView(sField).empty() || !FitsCell(sField) || !FitsCell(sAlias)) return -1;
    const int column = FieldCol(design.grid, L"");
    if (column < 0) return -1;
    design.grid.ShowColumn(column, true);
    Write(design.grid, GridRow::Campo, column, sField);
    CompleteColumn(design, column, sField, sAlias, nVisible);
    return column;
}

int AddField(Design& design, std::wstring_view sField, std::wstring_view sAlias, int nVisible) {
    const int column = AddFieldUnmarked(design, sField, sAlias, nVisible);
    if (column >= 0) SyncDiagramChecks(design);
    return column;
}

void DelField(Design& design, std::wstring_view sField) {
    if (TrimView(sField).empty()) return;
    const int column = FieldCol(design.grid, sField);
    if (column >= 0) EmptyColumn(design, column);
}

void SetColumnField(Design& design, int column, std::wstring_view sAlias, int nVisible) {
    if (column < 0 || column >= design.grid.ColumnCount()) return;
    const std::wstring text = design.grid.Cell(GridRow::Campo, column);
    CompleteColumn(design, column, text, sAlias, nVisible);
    SyncDiagramChecks(design);
}

void SetColumnTable(Design& design, int column) {
    DesignGrid& grid = design.grid;
    const std::wstring table = grid.Cell(GridRow::Tabla, column);
    if (IsBlank(table)) return;
    const std::wstring field = grid.Cell(GridRow::Campo, column);
    const std::optional<QualifiedField> parts = SplitField(field);
    const bool belongs = Lower(field).find(Folded(table) + L'.') != std::wstring::npos ||
                         (parts && SameIdentifier(parts->Table(), table));
    if (belongs) return;
    Write(grid, GridRow::Campo, column, L"");
    Write(grid, GridRow::Titulo, column, L"");
    grid.SetCaption(column, L"");
    SyncDiagramChecks(design);
}

std::wstring TitleOfField(std::wstring_view field) {
    return IsReservedWord(field) ? BracketIfNeeded(field) : std::wstring(field);
}

std::wstring UniqueCaption(const DesignGrid& grid, int column, std::wstring_view sName) {
    if (TrimView(sName) == L"*") return {};
    if (sName.empty()) return {};
    int count = 0;
    for (int other = 0; other < grid.UsedEnd(); ++other) {
        if (other != column && SameIgnoringCase(grid.Caption(other), sName)) ++count;
    }
    if (count == 0) return std::wstring(sName);
    // The number counts the columns of that caption. A third one would find one such column and take the
    // second one's number, hence the search.
    while (CaptionTaken(grid, column, Numbered(sName, count))) ++count;
    return Numbered(sName, count);
}

void SyncDiagramChecks(Design& design) {
    std::vector<Diagram::CheckedField> used;
    used.reserve(static_cast<std::size_t>(design.grid.UsedEnd()));
    // Fields of one table mostly stand side by side.
    std::wstring_view qualifier;
    const DiagramTable* owner = nullptr;
    for (int column = 0; column < design.grid.UsedEnd(); ++column) {
        const auto parts = SplitField(design.grid.Cell(GridRow::Campo, column));
        if (!parts) continue;
        if (!parts->pieces.empty() || parts->piece != qualifier) {
            owner = FindQualifier(design.diagram, parts->Table());
            qualifier = parts->piece;
        }
        if (owner) used.push_back({owner->name, parts->field});
    }
    design.diagram.SetChecks(used);
}

void CellCommitted(Design& design, GridRow row, int column) {
    if (column < 0 || column >= design.grid.ColumnCount()) return;
    if (row == GridRow::Campo) SetColumnField(design, column, L"", kKeepVisibility);
    if (row == GridRow::Titulo) design.grid.SetCaption(column, design.grid.Cell(GridRow::Titulo, column));
    if (row == GridRow::Tabla) SetColumnTable(design, column);
}

void DropFieldsOf(Design& design, std::wstring_view table) {
    for (int column = 0; column < design.grid.ColumnCount(); ++column) {
        const auto parts = SplitField(design.grid.Cell(GridRow::Campo, column));
        const DiagramTable* owner = parts ? FindQualifier(design.diagram, parts->Table()) : nullptr;
        if (owner && SameIdentifier(owner->name, table)) EmptyColumn(design, column);
    }
}

void FieldChecked(Design& design, std::wstring_view table, std::wstring_view field, bool checked) {
    const int column = ColumnOfField(design, table, field);
    if (checked && column < 0) {
        AddField(design, std::wstring(table) + L'.' + std::wstring(field), L"", kKeepVisibility);
    } else if (!checked && column >= 0) {
        EmptyColumn(design, column);
    }
    // A tick that could not be carried out (no free column) or that another column holds must not stay.
    SyncDiagramChecks(design);
}

void ClearGrid(Design& design) {
    design.grid.Reset();
    design.grid.ClearCells();
    SyncDiagramChecks(design);
}

}  // namespace tessel::model
