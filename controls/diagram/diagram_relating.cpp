// "Agregar relación": DiagramState asks for the two fields of a new relation, one after the other.
//
// The relation begins at a table. The user points at its field and then at the field of another table, with
// the mouse (a click each) or with the keyboard (arrow keys and Tab to the field, Enter). Pointing at the
// other table's field at once is enough where the schema or the names tell the first one. Nothing is reported
// before both are known; Esc, another window's focus or the table's removal give it up.
#include <algorithm>

#include "common/identifiers.h"
#include "controls/diagram/diagram_state.h"
#include "controls/diagram/diagram_texts.h"

namespace tessel::controls::diagram {

namespace {

/// The field of `from` that a foreign key, or else the same name, ties to that field of `to`; empty when none
/// does.
std::wstring TiedField(const model::Diagram& diagram, const model::DiagramTable& from,
                       const model::DiagramTable& to, std::wstring_view to_field) {
    if (const schema::Schema* schema = diagram.BoundSchema()) {
        for (const schema::ForeignKey* key : schema->ForeignKeysOf(from.name)) {
            for (std::size_t i = 0; i < std::min(key->fields.size(), key->referenced_fields.size()); ++i) {
                const auto is_tie = [&](const std::wstring& a, const std::wstring& b,
                                        const std::wstring& b_field) {
                    return SameIdentifier(a, from.name) && SameIdentifier(b, to.name) &&
                           SameIdentifier(b_field, to_field);
                };
                if (is_tie(key->table, key->referenced_table, key->referenced_fields[i]))
                    return key->fields[i];
                if (is_tie(key->referenced_table, key->table, key->fields[i]))
                    return key->referenced_fields[i];
            }
        }
    }
    const int row = RowOf(from, to_field);
    return row > 0 ? std::wstring(RowName(from, row)) : std::wstring();
}

}  // namespace

void DiagramState::BeginRelation(std::wstring_view table) {
    Cancel();
    CancelRelation();
    Update();
    const int index = layout_.TableIndex(table);
    if (index < 0) return;
    const std::wstring name = IdentifierKey(TableAt(index)->name);
    relating_table_ = name;
    relating_by_key_ = true;
    // A menu that was opened on a field means that field.
    if (SelectedIndex() == index && focus_row_ > 0) relating_field_ = RowName(*TableAt(index), focus_row_);
    host_.Repaint();
}

void DiagramState::CancelRelation() {
    if (!IsRelating()) return;
    relating_table_.clear();
    relating_field_.clear();
    host_.Repaint();
}

std::wstring DiagramState::RelatingHint() const {
    const model::DiagramTable* table = IsRelating() ? TableAt(layout_.TableIndex(relating_table_)) : nullptr;
    return table ? RelatingText(table->name, relating_field_) : std::wstring();
}

bool DiagramState::CanChoose(const Hit& hit) const {
    return (hit.kind == HitKind::Row || hit.kind == HitKind::Check) && hit.row > 0;
}

Hit DiagramState::FocusedHit() const {
    const int table = SelectedIndex();
    if (table < 0 || focus_row_ < 0) return {};
    return {HitKind::Row, table, focus_row_, kNoEdge, 0};
}

void DiagramState::ChooseForRelation(const Hit& hit) {
    const int from = layout_.TableIndex(relating_table_);
    const model::DiagramTable* source = TableAt(from);
    const model::DiagramTable* target = TableAt(hit.table);
    if (!source || !target || !CanChoose(hit)) return;
    const std::wstring field(RowName(*target, hit.row));
    if (hit.table == from) {
        relating_field_ = field;
        host_.Repaint();
        return;
    }
    if (relating_field_.empty()) relating_field_ = TiedField(*diagram_, *source, *target, field);
    if (relating_field_.empty()) return;
    // Copies: the host changes the model while it is told.
    const std::wstring names[] = {source->name, relating_field_, target->name, field};
    CancelRelation();
    host_.RelationDrawn(names[0], names[1], names[2], names[3]);
}

bool DiagramState::RelatingMouseDown(Button button, const Hit& hit) {
    if (button == Button::Middle || hit.kind == HitKind::ScrollBar || hit.kind == HitKind::None) return false;
    relating_by_key_ = false;
    if (button == Button::Left) ChooseForRelation(hit);
    return true;
}

bool DiagramState::RelatingKey(Key key, Modifiers modifiers) {
    switch (key) {
        case Key::Escape:
            CancelRelation();
            return true;
        case Key::Enter:
        case Key::Space:
            ChooseForRelation(FocusedHit());
            return true;
        case Key::Tab: {
            relating_by_key_ = true;
            const int tables = static_cast<int>(layout_.Boxes().size());
            const int from = std::max(SelectedIndex(), 0);
            Select((from + (modifiers.shift ? tables - 1 : 1)) % tables, -1);
            RevealFocus();
            return true;
        }
        case Key::Delete:
            return true;
        default:
            if (!modifiers.ctrl) relating_by_key_ = true;
            return false;
    }
}

std::optional<Rubber> DiagramState::RelatingLine() const {
    const int from = layout_.TableIndex(relating_table_);
    const model::DiagramTable* source = TableAt(from);
    if (!source) return std::nullopt;
    Rubber rubber;
    rubber.table = from;
    rubber.row = relating_field_.empty() ? -1 : RowOf(*source, relating_field_);
    const Hit target = relating_by_key_ ? FocusedHit() : HitAt(pointer_);
    if (CanChoose(target)) rubber.target = target;
    if (relating_by_key_) {
        const int selected = SelectedIndex();
        if (selected < 0 || selected == from) return rubber;
        const Box& box = layout_.BoxOf(selected);
        const Rect end = focus_row_ >= 0 && box.RowVisible(focus_row_) ? box.Row(focus_row_) : box.Title();
        // The line ends at the side that faces the table it comes from.
        const bool from_left = Center(layout_.BoxOf(from).Frame()).x <= Center(box.Frame()).x;
        rubber.to = {from_left ? box.Frame().left : Right(box.Frame()), Center(end).y};
        rubber.drawn = true;
        return rubber;
    }
    rubber.to = view_.ToPlane(pointer_);
    rubber.drawn = target.table != from;
    return rubber;
}

}  // namespace tessel::controls::diagram
