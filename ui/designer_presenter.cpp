#include "ui/designer_presenter.h"

#include <new>

#include "common/text.h"
#include "compose/compose.h"
#include "model/grid_editing.h"
#include "model/pick_lists.h"
#include "sqlparser/sql_parser.h"
#include "ui/designer_gesture.h"
#include "ui/grid_messages.h"

namespace tessel::ui {

namespace {

constexpr std::wstring_view kAskClear = L"¿Seguro desea eliminar todas las columnas definidas?";

/// The first shown column from there to the right, else to the left, so that the focus stays on something
/// visible.
int NearestShownColumn(const model::DesignGrid& grid, int column) {
    for (int right = column; right < grid.ColumnCount(); ++right) {
        if (grid.IsColumnShown(right)) return right;
    }
    for (int left = column; left > 0; --left) {
        if (grid.IsColumnShown(left)) return left;
    }
    return 0;
}

/// Shows the hourglass while it lives and then the pointer that it was told to leave.
class Hourglass {
public:
    explicit Hourglass(DesignerView& view) : view_(view), after_(view.SetPointer(Pointer::Hourglass)) {}
    Hourglass(DesignerView& view, Pointer after) : Hourglass(view) { after_ = after; }
    ~Hourglass() { view_.SetPointer(after_); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

private:
    DesignerView& view_;
    Pointer after_;
};

/// Makes one undoable step of the texts that the editor is given while it lives.
class Replacement {
public:
    explicit Replacement(EditorView& editor) : editor_(editor) { editor_.BeginReplacement(); }
    ~Replacement() { editor_.EndReplacement(); }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

private:
    EditorView& editor_;
};

constexpr std::wstring_view kTreeNotUnderstood =
    L"No se pudo interpretar la sintaxis de la instrucción, puede que sea demasiado compleja o contenga un "
    L"error.";
constexpr std::wstring_view kTreeOfNothing =
    L"No hay ninguna instrucción que analizar, existe un error o es demasiado compleja.";

}  // namespace

/// Marks the presenter as busy, so that input delivered meanwhile does not start a second procedure.
class DesignerPresenter::Working {
public:
    explicit Working(DesignerPresenter& presenter) : presenter_(presenter) {
        presenter_.busy_ = true;
        presenter_.accept_waits_ = false;
    }
    ~Working() { presenter_.busy_ = false; }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

private:
    DesignerPresenter& presenter_;
};

DesignerPresenter::DesignerPresenter(DesignerView& view, EditorView& editor, DesignerOwner* owner)
    : view_(view), editor_(editor), owner_(owner) {}

void DesignerPresenter::Load() {
    design_.grid.LoadColumns();
    busy_ = false;
    tab_ = Tab::Design;
    view_.ShowTab(tab_);
    SetGridShown(true);
    view_.ShowReason(true);
    view_.ShowDistinct(design_.distinct);
    history_.Start(design_);
}

void DesignerPresenter::BindSchema(const schema::Schema* schema) {
    design_.diagram.Bind(schema);
    history_.Start(design_);
}

void DesignerPresenter::SetDsn(std::wstring_view sSQL) {
    if (busy_ || IsAllWhiteSpace(sSQL)) return;
    const std::wstring text(sSQL);
    const Working working(*this);
    const Hourglass hourglass(view_, Pointer::Default);
    editor_.LoadText(text);
    composed_.reset();
    if (Analyse(text)) return DesignAnalysed(false);
    // The design is not in force, so that selecting the SQL tab leaves the text as it came.
    SetGridShown(false);
    tab_ = Tab::Sql;
    SwitchToSql();
}

void DesignerPresenter::TabClicked(Tab tab) {
    if (busy_ || tab == tab_) {
        view_.ShowTab(tab_);
        return;
    }
    const bool grid_shown = grid_shown_;
    try {
        const Working working(*this);
        const Hourglass hourglass(view_, Pointer::Default);
        tab_ = tab;
        tab == Tab::Sql ? SwitchToSql() : SwitchToDesign();
    } catch (...) {
        // What is on the tab before is whole; what would be on the other one may not be.
        tab_ = tab == Tab::Sql ? Tab::Design : Tab::Sql;
        grid_shown_ = grid_shown;
        view_.ShowTab(tab_);
        view_.ShowGrid(grid_shown_);
        view_.ShowReason(true);
        throw;
    }
    if (!accept_waits_) return;
    accept_waits_ = false;
    Accept();
}

// Moving the focus away commits a cell that is being edited, before the statement is composed from the grid.
void DesignerPresenter::SwitchToSql() {
    view_.ShowTab(Tab::Sql);
    view_.ProcessEvents();
    view_.FocusNeutral();
    view_.ProcessEvents();
    editor_.Refresh();
    if (grid_shown_) {
        history_.Record(design_);
        std::wstring sql = BuildSQL();
        {
            const Replacement replacement(editor_);
            editor_.SetText(L"");
            view_.ProcessEvents();
            try {
                sql = BuildSQL();
            } catch (const std::bad_alloc&) {
                // What was composed before the events stands: an empty text would mean an empty design.
            }
            editor_.SetText(sql);
            composed_ = editor_.Text();
        }
        // Its text is the statement from here on. An editor without memory for the step has lost it.
        if (editor_.Text() != composed_) throw std::bad_alloc();
    }
    SetGridShown(true);
}

void DesignerPresenter::SwitchToDesign() {
    view_.ShowTab(Tab::Design);
    SetGridShown(true);
    const std::wstring text = editor_.Text();
    const bool text_is_ours = composed_ == text;
    if (IsAllWhiteSpace(text)) {
        ClearDesign(false);
        design_.diagram.Clear();
        RefillFieldLists();
        design_.distinct = false;
        reason_.reset();
        view_.ShowDistinct(false);
        view_.ShowReason(false);
        view_.RedrawDiagram();
        view_.ShowReason(true);
        DesignAnalysed(text_is_ours);
        return;
    }
    view_.ShowReason(false);
    view_.ProcessEvents();
    if (Analyse(text)) {
        DesignAnalysed(text_is_ours);
    } else {
        SetGridShown(false);
        editor_.SetText(text);
    }
    view_.ShowReason(true);
}

bool DesignerPresenter::Analyse(std::wstring_view text) {
    const analyse::Analysis analysis = analyse::AnalyseSQL(text, design_);
    reason_ = analysis.accepted ? std::nullopt : analysis.error;
    reason_is_error_ = reason_ && !analysis.parsed;
    RefillFieldLists();
    view_.ShowDistinct(design_.distinct);
    for (const std::wstring& message : analysis.messages) view_.ShowMessage(message);
    return analysis.accepted;
}

// The lists of fields and tables follow the diagram also while the focus stays on their row.
void DesignerPresenter::RefillFieldLists() {
    const model::GridRow row = design_.grid.FocusedRow();
    if (row == model::GridRow::Campo || row == model::GridRow::Tabla)
        model::RefillPickLists(design_, row, {});
}

void DesignerPresenter::SetGridShown(bool shown) {
    grid_shown_ = shown;
    view_.ShowGrid(shown);
}

std::wstring DesignerPresenter::GetSQLText() {
    if (IsDesignInForce()) editor_.SetText(BuildSQL());
    return editor_.Text();
}

std::wstring DesignerPresenter::BuildSQL() const {
    return compose::BuildSQL(design_);
}

void DesignerPresenter::Accept() {
    if (busy_) {
        accept_waits_ = true;
        return;
    }
    const bool from_design = IsDesignInForce();
    if (from_design) {
        edit_refused_ = false;
        view_.FocusNeutral();
        if (edit_refused_) return;
    }
    result_sql_ = from_design ? BuildSQL() : editor_.Text();
    accepted_ = true;
    view_.Hide();
}

void DesignerPresenter::Cancel() {
    accept_waits_ = false;
    accepted_ = false;
    view_.Hide();
}

void DesignerPresenter::GridFocusMoved(model::GridRow row, int column) {
    const bool offers_parameters = row == model::GridRow::Condicion || row == model::GridRow::Or;
    std::vector<std::wstring> parameter_names;
    if (offers_parameters && owner_) parameter_names = owner_->ParameterNames();
    model::FocusMoved(design_, row, column, parameter_names);
}

void DesignerPresenter::GridCellCommitted(model::GridRow row, int column, std::wstring_view text) {
    if (Utf16Length(text) > model::kMaxCellLength) {
        edit_refused_ = true;
        view_.ShowMessage(messages::kCellTooLong);
        return;
    }
    const Gesture gesture(*this);
    if (design_.grid.SetCell(row, column, text)) model::CellCommitted(design_, row, column);
}

void DesignerPresenter::DiagramFieldChecked(std::wstring_view table, std::wstring_view field, bool checked) {
    const Gesture gesture(*this);
    model::FieldChecked(design_, table, field, checked);
}

void DesignerPresenter::DistinctClicked(bool checked) {
    try {
        const Gesture gesture(*this);
        design_.distinct = checked;
    } catch (...) {
        view_.ShowDistinct(design_.distinct);
        throw;
    }
}

// The column is told by its place, not by its field: a field typed twice must lose the column that has the
// focus.
void DesignerPresenter::RemoveFocusedColumn() {
    const Gesture gesture(*this);
    model::DesignGrid& grid = design_.grid;
    const int column = grid.FocusedColumn();
    if (column < 0 || column >= grid.ColumnCount()) return;
    bool removed = false;
    for (const model::GridRow row : model::kGridRows) {
        if (grid.Cell(row, column).empty()) continue;
        removed = grid.SetCell(row, column, L"");
    }
    if (!removed) return;
    grid.SetCaption(column, L"");
    grid.ShowColumn(column, false);
    model::SyncDiagramChecks(design_);
    GridFocusMoved(model::GridRow::Campo, NearestShownColumn(grid, column));
}

void DesignerPresenter::ShowSyntaxTree() {
    if (busy_) return;
    const std::wstring text = GetSQLText();
    if (IsAllWhiteSpace(text)) {
        view_.ShowMessage(kTreeOfNothing);
        return;
    }
    sql::SqlParser parser;
    if (parser.Parse(text) || !parser.GetStatement()) {
        view_.ShowMessage(kTreeNotUnderstood);
        return;
    }
    view_.ShowSyntaxTree(analyse::ShowTree(*parser.GetStatement()));
}

void DesignerPresenter::ClearDesign(bool bAsk) {
    if (bAsk && !view_.AskYesNo(kAskClear)) return;
    const Gesture gesture(*this);
    design_.grid.Reset();
    const Hourglass hourglass(view_);
    view_.ProcessEvents();
    model::ClearGrid(design_);
    RefillFieldLists();
}

}  // namespace tessel::ui
