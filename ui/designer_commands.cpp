// The commands of the context menus: DesignerPresenter's part that changes the diagram's tables and
// relations. None of them composes the statement: that happens when the text is needed.
#include "model/grid_editing.h"
#include "ui/designer_gesture.h"
#include "ui/designer_presenter.h"
#include "ui/relation_messages.h"
#include "ui/table_mentions.h"

namespace tessel::ui {

Menu DesignerPresenter::DiagramMenu() const {
    const model::Diagram& diagram = design_.diagram;
    switch (diagram.SelectedElement()) {
        case model::DiagramElement::Relation:
            return LinksMenu();
        case model::DiagramElement::Table:
            return TablesMenu(diagram.Tables().size() > 1, diagram.BoundSchema() != nullptr,
                              view_.HasConnection());
        case model::DiagramElement::None:
            break;
    }
    return {};
}

Menu DesignerPresenter::BrowserMenu(std::wstring_view table) {
    current_table_ = table;
    return TableMenu(IsDesignInForce(), view_.HasConnection());
}

void DesignerPresenter::MenuChosen(MenuCommand command) {
    // Copies: the selection goes with what is removed, and dialogs let the user change it.
    const std::wstring table = design_.diagram.SelectedTable();
    const int relation = design_.diagram.SelectedRelation();
    switch (command) {
        case MenuCommand::None:
            return;
        case MenuCommand::mnuQuitarRel:
            return RemoveRelation(relation);
        case MenuCommand::mnuPropRel:
            return RelationActivated(relation);
        case MenuCommand::mnuDelTable:
            return RemoveTable(table);
        case MenuCommand::mnuRelacionar:
            if (!table.empty()) view_.BeginRelation(table);
            return;
        case MenuCommand::mnuAddRelTable:
            if (!table.empty()) view_.AddTable(table);
            return;
        case MenuCommand::mnuVista2:
            if (table.empty()) return;
            current_table_ = table;
            [[fallthrough]];
        case MenuCommand::mnuVista:
            view_.PreviewTable(current_table_);
            return;
        case MenuCommand::mnuAddTD:
            TableChosen(current_table_);
            return;
    }
}

void DesignerPresenter::DeleteSelected() {
    switch (design_.diagram.SelectedElement()) {
        case model::DiagramElement::Relation:
            return MenuChosen(MenuCommand::mnuQuitarRel);
        case model::DiagramElement::Table:
            return MenuChosen(MenuCommand::mnuDelTable);
        case model::DiagramElement::None:
            return;
    }
}

void DesignerPresenter::RelationActivated(int key) {
    const model::DiagramRelation* relation = design_.diagram.FindRelation(key);
    if (!relation) return;
    const model::RelInfo info = relation->info;
    const auto kind = view_.AskRelationKind(info);
    if (!kind) return;
    const Gesture gesture(*this);
    if (design_.diagram.SetRelationKind(key, *kind) == model::RelationOutcome::LosesRows)
        view_.ShowMessage(texts::kRelationLosesRows);
}

void DesignerPresenter::RelationDrawn(std::wstring_view left_table, std::wstring_view left_field,
                                      std::wstring_view right_table, std::wstring_view right_field) {
    const Gesture gesture(*this);
    model::RelInfo relation;
    relation.LeftTable = left_table;
    relation.LeftField = left_field;
    relation.RightTable = right_table;
    relation.RightField = right_field;
    const model::RelationResult result = design_.diagram.Relate(relation);
    if (result.key != 0) design_.diagram.SelectRelation(result.key);
    switch (result.outcome) {
        case model::RelationOutcome::AlreadyThere:
            return view_.ShowMessage(texts::kRelationAlreadyThere);
        case model::RelationOutcome::ClosesRing:
            return view_.ShowMessage(texts::kRelationClosesRing);
        case model::RelationOutcome::LosesRows:
            return view_.ShowMessage(texts::kRelationLosesRows);
        case model::RelationOutcome::NoTables:
        case model::RelationOutcome::Done:
            return;
    }
}

// A table that is there already is only shown: a second copy would need a name of its own, which the
// statement's columns do not have.
void DesignerPresenter::TableChosen(std::wstring_view name) {
    if (!IsDesignInForce()) return;
    const Gesture gesture(*this);
    if (design_.diagram.AddTable(name, false)) {
        // Columns that were typed before their table came get their ticks.
        model::SyncDiagramChecks(design_);
        RefillFieldLists();
    }
    design_.diagram.SelectTable(name);
    view_.RevealTable(name);
}

void DesignerPresenter::RemoveRelation(int key) {
    const Gesture gesture(*this);
    design_.diagram.RemoveRelation(key);
}

// The table's fields go with it, since the statement could not ask for them any more. What an expression or a
// criterion makes of them only the user can say.
void DesignerPresenter::RemoveTable(std::wstring_view name) {
    if (!design_.diagram.FindTable(name)) return;
    {
        const Gesture gesture(*this);
        model::DropFieldsOf(design_, name);
        design_.diagram.RemoveTable(name);
        RefillFieldLists();
    }
    if (NamesTable(design_.grid, name)) view_.ShowMessage(texts::kTableStillNamed);
}

}  // namespace tessel::ui
