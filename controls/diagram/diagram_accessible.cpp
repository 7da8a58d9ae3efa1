#include "controls/diagram/diagram_accessible.h"

#include <limits>

#include "common/identifiers.h"
#include "controls/diagram/diagram_accessible_texts.h"

namespace tessel::controls::diagram {

namespace {

// Numbers of the elements, below zero: a table has room for itself and its rows; relations lie apart.
constexpr int kRowsOfTable = 1 << 14;
constexpr int kRelations = 1 << 30;
constexpr int kThinnest_px = 6;  ///< a straight line has a place all the same

}  // namespace

AccessibleId DiagramAccessible::TableId(std::wstring_view table) const {
    const std::wstring key = IdentifierKey(table);
    const auto [entry, is_new] = numbers_.try_emplace(key, static_cast<int>(names_.size()));
    if (is_new) names_.push_back(key);
    return -((entry->second + 1) * kRowsOfTable);
}

AccessibleId DiagramAccessible::FieldId(std::wstring_view table, int row) const {
    return TableId(table) - 1 - row;
}

AccessibleId DiagramAccessible::RelationId(int key) {
    return -(kRelations + key);
}

const model::DiagramTable& DiagramAccessible::TableAt(int index) const {
    return state_.Model()->Tables()[static_cast<std::size_t>(index)];
}

DiagramAccessible::Part DiagramAccessible::PartOf(AccessibleId id) const {
    if (id == kAccessibleSelf) return {Kind::Diagram};
    if (id > 0 || id == std::numeric_limits<AccessibleId>::min() || !state_.Model()) return {};
    state_.Update();
    if (id == kHintId) return {state_.RelatingHint().empty() ? Kind::None : Kind::Hint};
    const int number = -id;
    if (number >= kRelations) {
        const int key = number - kRelations;
        if (!state_.Shapes().FindLine(key) || !state_.Model()->FindRelation(key)) return {};
        return {Kind::Relation, -1, -1, key};
    }
    const int place = number / kRowsOfTable - 1;
    if (place < 0 || place >= static_cast<int>(names_.size())) return {};
    const int table = state_.Shapes().TableIndex(names_[static_cast<std::size_t>(place)]);
    const int row = number % kRowsOfTable - 1;
    if (table < 0 || row >= RowCount(TableAt(table))) return {};
    return {row < 0 ? Kind::Table : Kind::Field, table, row};
}

bool DiagramAccessible::Has(AccessibleId id) const {
    return PartOf(id).kind != Kind::None;
}

void DiagramAccessible::SetPlace(const Rect& plane, AccessibleElement& element) const {
    const Rect whole = state_.View().ToClient(plane);
    const Size client = state_.View().Client();
    Rect shown = Intersection(whole, {0, 0, client.width, client.height});
    if (diagram::IsEmpty(shown)) {
        element.states |= accessible_state::kOffscreen;
        shown = whole;
    }
    element.place = {shown.left, shown.top, Right(shown), Bottom(shown)};
}

AccessibleElement DiagramAccessible::DescribeField(const Part& part) const {
    using namespace accessible_state;
    const model::DiagramTable& table = TableAt(part.table);
    const Box& box = state_.Shapes().BoxOf(part.table);
    const bool checked = RowChecked(table, part.row);
    AccessibleElement element;
    element.role = AccessibleRole::CheckButton;
    element.states = kFocusable | kSelectable | (checked ? kChecked : 0U);
    element.action = checked ? kUncheckFieldAction : kCheckFieldAction;
    const model::DiagramField* field = RowField(table, part.row);
    element.name = field ? Unbracketed(field->name) : std::wstring(RowCaption(table, part.row));
    if (field) element.description = FieldDetails(*field);
    const Rect visible = Intersection(box.Row(part.row), box.Field());
    SetPlace(diagram::IsEmpty(visible) ? box.Row(part.row) : visible, element);
    if (diagram::IsEmpty(visible)) element.states |= kOffscreen;
    return element;
}

AccessibleElement DiagramAccessible::Describe(AccessibleId id) const {
    using namespace accessible_state;
    const Part part = PartOf(id);
    AccessibleElement element;
    switch (part.kind) {
        case Kind::Field:
            element = DescribeField(part);
            break;
        case Kind::Table:
            element.name = Unbracketed(TableAt(part.table).name);
            element.description = TableDetails(TableAt(part.table));
            element.role = AccessibleRole::List;
            element.states = kFocusable | kSelectable;
            SetPlace(state_.Shapes().BoxOf(part.table).Frame(), element);
            break;
        case Kind::Relation: {
            element.name = RelationName(state_.Model()->FindRelation(part.relation)->info);
            element.role = AccessibleRole::Graphic;
            element.states = kFocusable | kSelectable;
            element.action = kRelationAction;
            Rect bounds = state_.Shapes().FindLine(part.relation)->bounds;
            const int least = std::max(1, state_.View().ToUnits(kThinnest_px));
            if (bounds.width < least || bounds.height < least) bounds = Inflated(bounds, least / 2);
            SetPlace(bounds, element);
            break;
        }
        case Kind::Hint:
            element.name = state_.RelatingHint();
            element.role = AccessibleRole::Alert;
            element.states = kReadOnly;
            element.place = host_.HintPlace();
            break;
        case Kind::Diagram:
        case Kind::None:
            element.name = kDiagramName;
            element.role = AccessibleRole::Diagram;
            element.states = kFocusable;
            break;
    }
    const std::vector<AccessibleId> selected = Selected();
    if (!selected.empty() && selected.front() == id) element.states |= kSelected;
    return element;
}

AccessibleId DiagramAccessible::ParentOf(AccessibleId id) const {
    const Part part = PartOf(id);
    return part.kind == Kind::Field ? TableId(TableAt(part.table).name) : kAccessibleSelf;
}

std::vector<AccessibleId> DiagramAccessible::ChildrenOf(AccessibleId id) const {
    std::vector<AccessibleId> children;
    const Part part = PartOf(id);
    if (part.kind == Kind::Table) {
        const model::DiagramTable& table = TableAt(part.table);
        for (int row = 0; row < RowCount(table); ++row) children.push_back(FieldId(table.name, row));
    }
    if (part.kind != Kind::Diagram || !state_.Model()) return children;
    state_.Update();
    for (const model::DiagramTable& table : state_.Model()->Tables()) children.push_back(TableId(table.name));
    for (const Line& line : state_.Shapes().Lines()) children.push_back(RelationId(line.key));
    if (!state_.RelatingHint().empty()) children.push_back(kHintId);
    return children;
}

AccessibleId DiagramAccessible::Beside(AccessibleId id, AccessibleDirection direction) const {
    const Part part = PartOf(id);
    if (part.table < 0) return id;
    const int down = direction == AccessibleDirection::Down ? 1
                     : direction == AccessibleDirection::Up ? -1
                                                            : 0;
    const int right = direction == AccessibleDirection::Right  ? 1
                      : direction == AccessibleDirection::Left ? -1
                                                               : 0;
    if (part.kind == Kind::Field && down != 0) {
        const int row = part.row + down;
        const model::DiagramTable& table = TableAt(part.table);
        return row < 0 || row >= RowCount(table) ? id : FieldId(table.name, row);
    }
    const int other = state_.Shapes().Neighbour(part.table, right, down);
    return other < 0 ? id : TableId(TableAt(other).name);
}

AccessibleId DiagramAccessible::ElementAt(int x, int y) const {
    if (!state_.Model()) return kAccessibleSelf;
    state_.Update();
    if (!state_.RelatingHint().empty()) {
        const AccessiblePlace hint = host_.HintPlace();
        if (x >= hint.left && x < hint.right && y >= hint.top && y < hint.bottom) return kHintId;
    }
    const Hit hit = state_.HitAt({x, y});
    if (hit.kind == HitKind::Relation) return RelationId(hit.relation);
    if (hit.table < 0) return kAccessibleSelf;
    const std::wstring& table = TableAt(hit.table).name;
    const bool on_row = hit.kind == HitKind::Row || hit.kind == HitKind::Check;
    return on_row && hit.row >= 0 ? FieldId(table, hit.row) : TableId(table);
}

AccessibleId DiagramAccessible::Focused() const {
    if (!state_.Model()) return kAccessibleSelf;
    state_.Update();
    const model::Diagram& diagram = *state_.Model();
    if (diagram.SelectedElement() == model::DiagramElement::Relation)
        return RelationId(diagram.SelectedRelation());
    if (diagram.SelectedElement() != model::DiagramElement::Table) return kAccessibleSelf;
    const int table = state_.Shapes().TableIndex(diagram.SelectedTable());
    if (table < 0) return kAccessibleSelf;
    const std::wstring& name = TableAt(table).name;
    return state_.FocusRow() < 0 ? TableId(name) : FieldId(name, state_.FocusRow());
}

std::vector<AccessibleId> DiagramAccessible::Selected() const {
    const AccessibleId focused = Focused();
    if (focused == kAccessibleSelf) return {};
    return {focused};
}

bool DiagramAccessible::Select(AccessibleId id, bool) {
    const Part part = PartOf(id);
    switch (part.kind) {
        case Kind::Table:
            return state_.Reveal(TableAt(part.table).name, {});
        case Kind::Field: {
            // Copies: selecting changes the model.
            const std::wstring table = TableAt(part.table).name;
            const std::wstring field(RowName(TableAt(part.table), part.row));
            return state_.Reveal(table, field);
        }
        case Kind::Relation:
            return state_.RevealRelation(part.relation);
        default:
            return false;
    }
}

void DiagramAccessible::Act(AccessibleId id) {
    const Part part = PartOf(id);
    if (part.kind == Kind::Relation) {
        state_.RevealRelation(part.relation);
        host_.OpenRelation(part.relation);
    }
    if (part.kind != Kind::Field) return;
    const std::wstring table = TableAt(part.table).name;
    const std::wstring field(RowName(TableAt(part.table), part.row));
    host_.CheckField(table, field, !RowChecked(TableAt(part.table), part.row));
}

}  // namespace tessel::controls::diagram
