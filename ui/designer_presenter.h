// The designer's behaviour without a window: taking a statement, the two tabs, accept and cancel, grid and
// diagram gestures. The Win32 window, the command line and the tests drive this same class.
//
// Two states on the design tab: the design is in force (grid shown), or text only (grid hidden, lblNo says
// why) after a text that cannot be shown as a design. In text only nothing ever composes over the user's
// text. On the SQL tab the grid counts as shown in both states; the next switch to the design tab analyses
// the text anew.
//
// The view may deliver pending input while a procedure runs (ProcessEvents): tab clicks are then refused,
// accepting waits until the procedure is done, and everything else is carried out at once.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "analyse/analyse_sql.h"
#include "model/block_editing.h"
#include "model/design.h"
#include "model/design_history.h"
#include "ui/context_menus.h"
#include "ui/views.h"

namespace tessel::ui {

class DesignerPresenter {
public:
    /// None of the arguments is owned; all must outlive the presenter. `owner` may be nullptr.
    DesignerPresenter(DesignerView& view, EditorView& editor, DesignerOwner* owner);

    model::Design& Design() { return design_; }
    const model::Design& Design() const { return design_; }

    /// The window's load: grid columns, initial state.
    void Load();
    /// Binds the diagram to the connection's schema. Not owned.
    void BindSchema(const schema::Schema* schema);
    /// Loads an initial statement. A blank one does nothing.
    void SetDsn(std::wstring_view sSQL);

    Tab CurrentTab() const { return tab_; }
    bool IsGridShown() const { return grid_shown_; }
    /// The user clicked a tab. A click on the current tab does nothing.
    void TabClicked(Tab tab);

    /// The current SQL: on the design tab, with the design in force, composed first and put into the editor.
    std::wstring GetSQLText();
    std::wstring BuildSQL() const;

    /// "&Aceptar": composes, or takes the editor's text, and hides the view. An open cell edit is committed
    /// first; when its text is refused, the view stays.
    void Accept();
    /// "&Cancelar", the title bar and Esc.
    void Cancel();
    bool Accepted() const { return accepted_; }
    const std::wstring& ResultSQL() const { return result_sql_; }
    void SetResultSQL(std::wstring_view text) { result_sql_ = text; }

    // Gestures.
    void GridFocusMoved(model::GridRow row, int column);
    /// The user finished editing a cell. A text longer than a cell is refused with a message; the old one
    /// stays.
    void GridCellCommitted(model::GridRow row, int column, std::wstring_view text);
    /// A column was dragged, or moved by its keys, to the place of another.
    void GridColumnMoved(int from, int to);
    void GridCellsEmptied(const model::CellRange& range);
    /// False, after a message, when the block does not fit; nothing is written then.
    bool GridCellsPasted(const model::CellRange& range, const model::CellBlock& block);
    /// "Insertar columna": an empty column before the focused one.
    void InsertColumn();
    void DiagramFieldChecked(std::wstring_view table, std::wstring_view field, bool checked);
    void RelationDrawn(std::wstring_view left_table, std::wstring_view left_field,
                       std::wstring_view right_table, std::wstring_view right_field);
    void TableChosen(std::wstring_view name);
    /// A table was dropped on the diagram.
    void TableDropped(std::wstring_view table);
    /// A field of a table ("*" for all of them) was dropped on a query column of the grid; beyond the last
    /// one the first free column takes it. A table that is not in the diagram comes along.
    void FieldDropped(std::wstring_view table, std::wstring_view field, int column);
    void DistinctClicked(bool checked);
    /// "Quitar columna": removes the focused query column.
    void RemoveFocusedColumn();
    bool CanRemoveFocusedColumn() const;
    bool CanClearDesign() const;
    /// "Limpiar todo": asks first when bAsk.
    void ClearDesign(bool bAsk);

    // Undo and redo (designer_presenter_history.cpp). Every gesture above is one step. While the design is
    // not in force, or not in sight, nothing is undone: the text has the word then.
    bool CanUndo() const { return IsDesignShown() && history_.CanUndo(); }
    bool CanRedo() const { return IsDesignShown() && history_.CanRedo(); }
    void Undo();
    void Redo();
    /// What the controls changed by themselves, such as the place of a table, becomes a step. Does nothing
    /// inside a gesture.
    void StepDone();

    /// "Dar formato" of the editor's text (designer_presenter_editor.cpp), or a message that says why not.
    void FormatText();

    /// "Ver árbol de sintaxis": shows how the parser understands the current SQL, or says that it does not.
    void ShowSyntaxTree();

    // The context menus and their commands (designer_commands.cpp).

    /// The menu of the diagram's selected element; without entries when nothing is selected.
    [[nodiscard]] Menu DiagramMenu() const;
    /// The menu of a table or view of the schema browser, which becomes CurrentTable.
    [[nodiscard]] Menu BrowserMenu(std::wstring_view table);
    void MenuChosen(MenuCommand command);
    /// Del on the diagram: removes the selected relation or table.
    void DeleteSelected();
    /// Double click or Enter on a relation: its properties.
    void RelationActivated(int key);
    /// The table of the last table menu.
    const std::wstring& CurrentTable() const { return current_table_; }

    /// Why the last analysis answered false; empty when it answered true.
    const std::optional<Diagnostic>& Reason() const { return reason_; }
    /// Whether that is an error of the text, and not something right that no design can show.
    bool ReasonIsError() const { return reason_is_error_; }

private:
    class Working;
    class Gesture;

    bool IsDesignInForce() const { return tab_ == Tab::Design && grid_shown_; }
    bool IsDesignShown() const { return IsDesignInForce() && !busy_; }
    void DesignAnalysed(bool text_is_ours);
    void ShowRestored(const model::DesignHistory::Outcome& outcome);
    bool Analyse(std::wstring_view text);
    void SetGridShown(bool shown);
    void RefillFieldLists();
    void SwitchToSql();
    void SwitchToDesign();
    void RemoveRelation(int key);
    void RemoveTable(std::wstring_view name);

    DesignerView& view_;
    EditorView& editor_;
    DesignerOwner* owner_;
    model::Design design_;
    model::DesignHistory history_;
    int gestures_ = 0;  ///< gestures in progress, one inside the other
    /// What the SQL tab was given when the design was last composed for it; nothing when it shows a text that
    /// the design did not write.
    std::optional<std::wstring> composed_;
    Tab tab_ = Tab::Design;
    bool grid_shown_ = true;
    bool busy_ = false;
    bool accept_waits_ = false;
    bool edit_refused_ = false;
    bool accepted_ = false;
    std::wstring result_sql_;
    std::wstring current_table_;
    std::optional<Diagnostic> reason_;
    bool reason_is_error_ = false;
};

}  // namespace tessel::ui
