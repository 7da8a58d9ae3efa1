// The operations that change the design grid: placing, completing and removing a column, what a committed
// cell edit sets off, and the marks that the diagram shows for the grid's fields. They change only grid and
// diagram marks; the SQL text is composed when it is needed.
#pragma once

#include <string>
#include <string_view>

#include "model/design.h"

namespace tessel::model {

/// Visibility requests of AddField.
enum FieldVisibility : int { kKeepVisibility = 0, kShow = 1, kHide = 2 };

/// The column whose trimmed, lower-cased "Campo:" equals the lowered argument (not trimmed), or -1.
/// FieldCol(L"") is the first column not in use. Hidden columns count.
[[nodiscard]] int FieldCol(const DesignGrid& grid, std::wstring_view sField);

/// Places a field in the first free column, never twice. Nothing happens when all columns are used or the
/// text does not fit a cell. Returns the column that holds the field now, or -1.
int AddField(Design& design, std::wstring_view sField, std::wstring_view sAlias, int nVisible);
/// As AddField, for many fields one after the other: the diagram's marks stay until SyncDiagramChecks is
/// called.
int AddFieldUnmarked(Design& design, std::wstring_view sField, std::wstring_view sAlias, int nVisible);
/// As AddFieldUnmarked, for a field of which the caller knows that no column holds it.
int AddNewField(Design& design, std::wstring_view sField, std::wstring_view sAlias, int nVisible);

/// Clears the column that holds a field, hides it and refreshes the diagram's marks.
void DelField(Design& design, std::wstring_view sField);

/// Completes a column after its "Campo:" cell was written: table, alias, caption, grouping, visibility.
void SetColumnField(Design& design, int column, std::wstring_view sAlias, int nVisible);

/// After "Tabla:" was edited: drops a field, with its alias, that does not belong to the chosen table.
void SetColumnTable(Design& design, int column);

/// A field's name as a title: a reserved word may stand bare after a point, but not after AS.
[[nodiscard]] std::wstring TitleOfField(std::wstring_view field);

/// A header caption that no other column shows: the name, or the name and a number. "*" gives none.
[[nodiscard]] std::wstring UniqueCaption(const DesignGrid& grid, int column, std::wstring_view sName);

/// Marks in the diagram the fields that the grid uses.
void SyncDiagramChecks(Design& design);

/// What the committed edit of a cell sets off; the cell already holds its new text.
void CellCommitted(Design& design, GridRow row, int column);

/// Clears every column that holds a field of a table of the diagram, or all its fields. For a table that is
/// about to leave: without it the columns could not be asked for. Expressions are left alone.
void DropFieldsOf(Design& design, std::wstring_view table);

/// The user ticked or unticked a field in the diagram.
void FieldChecked(Design& design, std::wstring_view table, std::wstring_view field, bool checked);

/// Empties every query column (no question asked here) and resets the grid.
void ClearGrid(Design& design);

}  // namespace tessel::model
