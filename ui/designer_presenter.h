// The designer's behaviour without a window: taking a statement, the two tabs, accept and cancel, grid and diagram
// gestures. The Win32 window, the command line and the tests drive this same class.
//
// Two states on the design tab: the design is in force (grid shown), or text only (grid hidden, lblNo says why)
// after a text that cannot be shown as a design. In text only nothing ever composes over the user's text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "analyse/analyse_sql.h"
#include "model/design.h"
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
    /// The user clicked a tab.
    void TabClicked(Tab tab);

    /// The current SQL: on the design tab, with the design in force, composed first and put into the editor.
    std::wstring GetSQLText();
    std::wstring BuildSQL() const;

    void Accept();
    void Cancel();
    bool Accepted() const { return accepted_; }
    const std::wstring& ResultSQL() const { return result_sql_; }
    void SetResultSQL(std::wstring_view text) { result_sql_ = text; }

    // Gestures.
    void GridFocusMoved(model::GridRow row, int column);
    void GridCellCommitted(model::GridRow row, int column, std::wstring_view text);
    void DiagramFieldChecked(std::wstring_view table, std::wstring_view field, bool checked);
    void RelationDrawn(std::wstring_view left_table, std::wstring_view left_field, std::wstring_view right_table,
                       std::wstring_view right_field);
    void TableChosen(std::wstring_view name);
    void DistinctClicked(bool checked);
    /// "Quitar columna": removes the focused query column.
    void RemoveFocusedColumn();
    /// "Limpiar todo": asks first when bAsk.
    void ClearDesign(bool bAsk);

    /// Why the last analysis answered false; empty when it answered true.
    const std::optional<Diagnostic>& Reason() const { return reason_; }

private:
    bool Analyse(std::wstring_view text);
    void SetGridShown(bool shown);

    DesignerView& view_;
    EditorView& editor_;
    DesignerOwner* owner_;
    model::Design design_;
    Tab tab_ = Tab::Design;
    bool grid_shown_ = true;
    bool accepted_ = false;
    std::wstring result_sql_;
    std::optional<Diagnostic> reason_;
};

}  // namespace tessel::ui
