// The keyboard on the table diagram.
//
// Up and Down walk through the title and the rows of the selected table and on to the table above or below;
// Left and Right go to the table beside. Ctrl+Page Up and Page Down walk through all tables and then all
// relations. With Ctrl the arrow keys move the selected box, with Shift they resize it, with both they
// scroll.
#include "common/identifiers.h"
#include "common/text.h"
#include "controls/diagram/diagram_state.h"

namespace tessel::controls::diagram {

namespace {

constexpr int kKeyStep = 8;      // units
constexpr int kScrollStep = 40;  // pixels at 96 dpi

Point DirectionOf(Key key) {
    switch (key) {
        case Key::Left:
            return {-1, 0};
        case Key::Right:
            return {1, 0};
        case Key::Up:
            return {0, -1};
        case Key::Down:
            return {0, 1};
        default:
            return {};
    }
}

}  // namespace

bool DiagramState::KeyDown(Key key, Modifiers modifiers) {
    if (key == Key::Escape) {
        const bool had_gesture = HoldsMouse();
        Cancel();
        if (had_gesture || !IsRelating()) return had_gesture;
    }
    if (!diagram_ || HoldsMouse()) return false;
    Update();
    if (IsRelating() && RelatingKey(key, modifiers)) return true;
    if (modifiers.ctrl && ZoomKey(key)) return true;
    if (DirectionOf(key) != Point{}) return ArrowKey(key, modifiers);
    switch (key) {
        case Key::PageUp:
        case Key::PageDown:
            if (modifiers.ctrl) {
                StepElement(key == Key::PageDown ? 1 : -1);
                return true;
            }
            [[fallthrough]];
        case Key::Home:
        case Key::End:
            RowKey(key);
            return true;
        case Key::Space:
            if (const int table = SelectedIndex(); table >= 0) ToggleCheck(table, focus_row_);
            return true;
        case Key::Delete:
            if (diagram_->SelectedElement() == model::DiagramElement::None) return false;
            host_.DeleteWanted(diagram_->SelectedElement());
            return true;
        case Key::Insert:
            if (const model::DiagramTable* table = TableAt(SelectedIndex())) BeginRelation(table->name);
            return true;
        case Key::Enter:
            if (diagram_->SelectedElement() != model::DiagramElement::Relation) return false;
            host_.RelationActivated(diagram_->SelectedRelation());
            return true;
        default:
            return false;
    }
}

bool DiagramState::ZoomKey(Key key) {
    const Point middle{view_.Client().width / 2, view_.Client().height / 2};
    if (key == Key::Plus)
        SetZoom(NextZoom(view_.Zoom(), 1), middle);
    else if (key == Key::Minus)
        SetZoom(NextZoom(view_.Zoom(), -1), middle);
    else if (key == Key::Zero)
        SetZoom(100, middle);
    else if (key == Key::Nine)
        Fit();
    else
        return false;
    return true;
}

bool DiagramState::ArrowKey(Key key, Modifiers modifiers) {
    if (layout_.Boxes().empty()) return false;
    const Point direction = DirectionOf(key);
    if (modifiers.ctrl && modifiers.shift) {
        const int step = kScrollStep * view_.Dpi() / 96;
        ScrollTo({view_.Scroll().x + step * direction.x, view_.Scroll().y + step * direction.y});
        return true;
    }
    int table = SelectedIndex();
    if (table < 0) {
        // From a selected relation to the table at that end of it, else to the first table.
        const Line* line = diagram_->SelectedElement() == model::DiagramElement::Relation
                               ? layout_.FindLine(diagram_->SelectedRelation())
                               : nullptr;
        table = !line ? 0 : key == Key::Right || key == Key::Down ? line->right_table : line->left_table;
        Select(table, -1);
        RevealFocus();
        return true;
    }
    if (modifiers.ctrl || modifiers.shift) {
        Rect rect = TableAt(table)->rect;
        if (modifiers.ctrl) {
            rect.left = std::max(0, rect.left + kKeyStep * direction.x);
            rect.top = std::max(0, rect.top + kKeyStep * direction.y);
        } else {
            const Size smallest = SmallestSize(metrics_);
            const Size largest = LargestSize(layout_.BoxOf(table).Rows(), metrics_);
            rect.width = std::max(smallest.width, rect.width + kKeyStep * direction.x);
            rect.height = std::clamp(rect.height + kKeyStep * direction.y, smallest.height, largest.height);
        }
        StoreRect(table, rect);
        RevealFocus();
        return true;
    }
    const int row = focus_row_ + direction.y;
    if (direction.y != 0 && row >= -1 && row < layout_.BoxOf(table).Rows()) {
        Select(table, row);
    } else if (const int other = layout_.Neighbour(table, direction.x, direction.y); other >= 0) {
        Select(other, direction.y < 0 ? layout_.BoxOf(other).Rows() - 1 : -1);
    }
    RevealFocus();
    return true;
}

void DiagramState::RowKey(Key key) {
    const int table = SelectedIndex();
    if (table < 0) return;
    const Box& box = layout_.BoxOf(table);
    const int last = box.Rows() - 1;
    const int page = std::max(1, box.Field().height / metrics_.row_height - 1);
    int row = focus_row_;
    if (key == Key::Home) row = -1;
    if (key == Key::End) row = last;
    if (key == Key::PageUp) row -= page;
    if (key == Key::PageDown) row += page;
    Select(table, std::clamp(row, -1, last));
    RevealFocus();
}

void DiagramState::StepElement(int direction) {
    const int tables = static_cast<int>(layout_.Boxes().size());
    const int count = tables + static_cast<int>(layout_.Lines().size());
    if (count == 0) return;
    int at = SelectedIndex();
    if (diagram_->SelectedElement() == model::DiagramElement::Relation)
        for (int i = 0; i < count - tables; ++i)
            if (layout_.Lines()[static_cast<std::size_t>(i)].key == diagram_->SelectedRelation())
                at = tables + i;
    at = at < 0 ? (direction > 0 ? 0 : count - 1) : (at + direction + count) % count;
    if (at < tables) {
        Select(at, -1);
        RevealFocus();
        return;
    }
    RevealRelation(layout_.Lines()[static_cast<std::size_t>(at - tables)].key);
}

void DiagramState::Typed(wchar_t letter) {
    if (!diagram_ || HoldsMouse()) return;
    Update();
    const int table = SelectedIndex();
    const model::DiagramTable* shown = TableAt(table);
    if (!shown) return;
    const int rows = RowCount(*shown);
    for (int i = 1; i <= rows; ++i) {
        const int row = (focus_row_ + i + rows) % rows;
        const std::wstring name = Unbracketed(RowName(*shown, row));
        if (name.empty() || LowerChar(name.front()) != LowerChar(letter)) continue;
        Select(table, row);
        RevealFocus();
        return;
    }
}

}  // namespace tessel::controls::diagram
