// The mouse on the table diagram: DiagramState's gestures.
#include <cstdlib>
#include <utility>

#include "common/identifiers.h"
#include "controls/diagram/diagram_state.h"

namespace tessel::controls::diagram {

namespace {

constexpr int kDragThreshold_px = 4;
constexpr int kWheelRows = 3;
constexpr int kWheelStep_px = 60;
constexpr int kAutoScrollStep_px = 20;
constexpr int kScrollEdge_px = 10;

Cursor EdgeCursor(int edges) {
    switch (edges) {
        case kLeftEdge:
        case kRightEdge:
            return Cursor::SizeWE;
        case kTopEdge:
        case kBottomEdge:
            return Cursor::SizeNS;
        case kLeftEdge | kTopEdge:
        case kRightEdge | kBottomEdge:
            return Cursor::SizeNWSE;
        default:
            return Cursor::SizeNESW;
    }
}

}  // namespace

void DiagramState::BeginGesture(Gesture gesture, const Hit& hit, Point client_px) {
    gesture_ = gesture;
    gesture_hit_ = hit;
    gesture_start_ = pointer_ = client_px;
    gesture_scroll_ = view_.Scroll();
    moved_ = false;
    gesture_table_.clear();
    if (const model::DiagramTable* table = TableAt(hit.table)) {
        gesture_table_ = IdentifierKey(table->name);
        gesture_rect_ = table->rect;
    }
}

void DiagramState::EndGesture() {
    gesture_ = Gesture::None;
    gesture_table_.clear();
    moved_ = false;
    taken_outside_ = false;
    if (std::exchange(outside_, false)) host_.CarriedBack();
    host_.Repaint();
}

void DiagramState::Cancel() {
    if (gesture_ == Gesture::None) return;
    const bool shows_elsewhere = moved_ && (gesture_ == Gesture::Move || gesture_ == Gesture::Resize);
    EndGesture();
    if (shows_elsewhere) ModelChanged();
}

bool DiagramState::PassedThreshold(Point client_px) {
    if (moved_) return true;
    const int threshold = kDragThreshold_px * view_.Dpi() / 96;
    moved_ = std::abs(client_px.x - gesture_start_.x) >= threshold ||
             std::abs(client_px.y - gesture_start_.y) >= threshold;
    return moved_;
}

void DiagramState::MouseDown(Button button, Point client_px) {
    if (!diagram_) return;
    Cancel();
    Update();
    gesture_button_ = button;
    const Hit hit = HitAt(client_px);
    if (IsRelating() && RelatingMouseDown(button, hit)) return;
    if (button == Button::Middle) return BeginGesture(Gesture::Pan, {}, client_px);
    if (button == Button::Right) return SelectElement(hit);
    switch (hit.kind) {
        case HitKind::None:
            if (!IsRelating()) SelectElement(hit);
            return BeginGesture(Gesture::Pan, hit, client_px);
        case HitKind::Relation:
            return SelectElement(hit);
        case HitKind::Title:
            SelectElement(hit);
            return BeginGesture(Gesture::Move, hit, client_px);
        case HitKind::Edge:
            SelectElement(hit);
            return BeginGesture(Gesture::Resize, hit, client_px);
        case HitKind::Check:
            SelectElement(hit);
            return BeginGesture(Gesture::Check, hit, client_px);
        case HitKind::Row:
            SelectElement(hit);
            return BeginGesture(Gesture::Press, hit, client_px);
        case HitKind::ScrollBar: {
            SelectElement({HitKind::Title, hit.table, -1, kNoEdge, 0});
            const Box& box = layout_.BoxOf(hit.table);
            const Point plane = view_.ToPlane(client_px);
            if (Contains(box.ScrollThumb(), plane)) {
                BeginGesture(Gesture::Scroll, hit, client_px);
                gesture_rect_ = box.ScrollThumb();
                return;
            }
            const int page = std::max(1, box.Field().height - metrics_.row_height);
            return ScrollBox(hit.table, box.Scroll() + (plane.y < box.ScrollThumb().top ? -page : page));
        }
    }
}

void DiagramState::MouseMove(Point client_px) {
    if (IsRelating() && pointer_ != client_px) {
        relating_by_key_ = false;
        host_.Repaint();
    }
    pointer_ = client_px;
    Update();
    switch (gesture_) {
        case Gesture::None:
        case Gesture::Check: {
            const Hit hit = HitAt(client_px);
            if (hit == hover_) return;
            hover_ = hit;
            return host_.Repaint();
        }
        case Gesture::Press:
            if (!PassedThreshold(client_px)) return;
            gesture_ = Gesture::Link;
            [[fallthrough]];
        case Gesture::Link:
            CarryTo(client_px);
            hover_ = HitAt(client_px);
            return host_.Repaint();
        case Gesture::Move:
            if (!PassedThreshold(client_px)) return;
            // A table that is carried over something else stays where it is meanwhile.
            if (!CarryTo(client_px)) return MoveTo(client_px);
            if (const int table = layout_.TableIndex(gesture_table_); table >= 0)
                Shift(table, TableAt(table)->rect);
            return;
        case Gesture::Resize:
            if (PassedThreshold(client_px)) ResizeTo(client_px);
            return;
        case Gesture::Scroll: {
            const int table = layout_.TableIndex(gesture_table_);
            const int moved = view_.ToPlane(client_px).y - view_.ToPlane(gesture_start_).y;
            return ScrollBox(table, layout_.BoxOf(table).ScrollForThumb(gesture_rect_.top + moved));
        }
        case Gesture::Pan:
            PassedThreshold(client_px);
            return ScrollTo({gesture_scroll_.x + gesture_start_.x - client_px.x,
                             gesture_scroll_.y + gesture_start_.y - client_px.y});
    }
}

// The plane may have scrolled meanwhile: distances are taken on it, from where the gesture began.
void DiagramState::MoveTo(Point client_px) {
    const int table = layout_.TableIndex(gesture_table_);
    const model::DiagramTable* shown = TableAt(table);
    if (!shown) return;
    const Point scroll = view_.Scroll();
    Rect rect = shown->rect;
    rect.left += view_.ToUnits(client_px.x - gesture_start_.x + scroll.x - gesture_scroll_.x);
    rect.top += view_.ToUnits(client_px.y - gesture_start_.y + scroll.y - gesture_scroll_.y);
    rect.left = std::max(rect.left, 0);
    rect.top = std::max(rect.top, 0);
    Shift(table, rect);
}

void DiagramState::ResizeTo(Point client_px) {
    const int table = layout_.TableIndex(gesture_table_);
    const model::DiagramTable* shown = TableAt(table);
    if (!shown) return;
    const Point scroll = view_.Scroll();
    const int dx = view_.ToUnits(client_px.x - gesture_start_.x + scroll.x - gesture_scroll_.x);
    const int dy = view_.ToUnits(client_px.y - gesture_start_.y + scroll.y - gesture_scroll_.y);
    const Size smallest = SmallestSize(metrics_);
    const Size largest = LargestSize(layout_.BoxOf(table).Rows(), metrics_);
    Rect rect = shown->rect;
    const int edges = gesture_hit_.edges;
    if (edges & kRightEdge) rect.width = std::max(smallest.width, rect.width + dx);
    if (edges & kBottomEdge) rect.height = std::clamp(rect.height + dy, smallest.height, largest.height);
    if (edges & kLeftEdge) {
        const int right = Right(rect);
        rect.left = std::clamp(rect.left + dx, std::min(0, rect.left), right - smallest.width);
        rect.width = right - rect.left;
    }
    if (edges & kTopEdge) {
        const int bottom = Bottom(rect);
        rect.top = std::clamp(rect.top + dy, std::max(0, bottom - largest.height), bottom - smallest.height);
        rect.height = bottom - rect.top;
    }
    Shift(table, rect);
}

bool DiagramState::CanJoin(const Hit& target) const {
    if (target.kind != HitKind::Row && target.kind != HitKind::Check) return false;
    // All the fields together join nothing.
    return gesture_hit_.row > 0 && target.row > 0 && target.table != layout_.TableIndex(gesture_table_);
}

void DiagramState::MouseUp(Button button, Point client_px) {
    if (gesture_ == Gesture::None || button != gesture_button_) return;
    Update();
    const Gesture gesture = gesture_;
    const Hit began = gesture_hit_;
    const Hit hit = HitAt(client_px);
    const int table = layout_.TableIndex(gesture_table_);
    const Rect rect = gesture_rect_;
    const bool moved = moved_;
    const bool joins = gesture == Gesture::Link && CanJoin(hit);
    const bool dropped = taken_outside_;
    EndGesture();
    hover_ = hit;
    if (const model::DiagramTable* carried = TableAt(table); dropped && carried) {
        const std::wstring name = carried->name;
        const std::wstring field(RowName(*carried, std::max(0, began.row)));
        return host_.DroppedOutside(name, field, client_px);
    }
    switch (gesture) {
        case Gesture::Move:
        case Gesture::Resize:
            if (moved) StoreRect(table, rect);
            return;
        case Gesture::Check:
            if (hit.kind == HitKind::Check && hit.table == began.table && hit.row == began.row)
                ToggleCheck(hit.table, hit.row);
            return;
        case Gesture::Link:
            if (joins) {
                const model::DiagramTable& from = *TableAt(table);
                const model::DiagramTable& to = *TableAt(hit.table);
                // Copies: the host changes the model while it is told.
                const std::wstring names[] = {from.name, std::wstring(RowName(from, began.row)), to.name,
                                              std::wstring(RowName(to, hit.row))};
                host_.RelationDrawn(names[0], names[1], names[2], names[3]);
            }
            return;
        default:
            return;
    }
}

void DiagramState::DoubleClick(Point client_px) {
    if (!diagram_) return;
    Cancel();
    Update();
    if (IsRelating()) return MouseDown(Button::Left, client_px);
    const Hit hit = HitAt(client_px);
    switch (hit.kind) {
        case HitKind::Relation:
            SelectElement(hit);
            return host_.RelationActivated(hit.relation);
        case HitKind::Row:
        case HitKind::Check:
            SelectElement(hit);
            return ToggleCheck(hit.table, hit.row);
        case HitKind::Title:
        case HitKind::Edge:
            // Back to the size that shows everything, as double-clicking a column's edge does.
            SelectElement(hit);
            if (const model::DiagramTable* table = TableAt(hit.table); table && measurer_) {
                const Size size = NaturalSize(*table, metrics_, *measurer_);
                StoreRect(hit.table, {table->rect.left, table->rect.top, size.width, size.height});
            }
            return;
        default:
            // The second press of a quick pair is a press like any other.
            return MouseDown(Button::Left, client_px);
    }
}

void DiagramState::MouseLeave() {
    if (hover_ == Hit{} || gesture_ != Gesture::None) return;
    hover_ = {};
    host_.Repaint();
}

void DiagramState::Wheel(Point client_px, int steps, Modifiers modifiers, bool sideways) {
    if (!diagram_ || steps == 0) return;
    Update();
    if (modifiers.ctrl) {
        int percent = view_.Zoom();
        for (int i = 0; i < std::abs(steps); ++i) percent = NextZoom(percent, steps);
        return SetZoom(percent, client_px);
    }
    const Hit hit = HitAt(client_px);
    if (!modifiers.shift && !sideways && hit.table >= 0 && layout_.BoxOf(hit.table).Scrollable()) {
        const Box& box = layout_.BoxOf(hit.table);
        ScrollBox(hit.table, box.Scroll() - steps * kWheelRows * metrics_.row_height);
    } else {
        Point scroll = view_.Scroll();
        const int distance = steps * kWheelStep_px * view_.Dpi() / 96;
        if (sideways)
            scroll.x += distance;
        else if (modifiers.shift)
            scroll.x -= distance;
        else
            scroll.y -= distance;
        ScrollTo(scroll);
    }
    MouseMove(client_px);
}

void DiagramState::AutoScroll() {
    if (gesture_ != Gesture::Move && gesture_ != Gesture::Resize && gesture_ != Gesture::Link) return;
    if (!moved_) return;
    if (taken_outside_) {
        // What lies there may want to scroll, too.
        CarryTo(pointer_);
        return;
    }
    const Point before = view_.Scroll();
    const Size client = view_.Client();
    // A box may not get far outside, where something else takes it: the edge scrolls already.
    const int edge = gesture_ == Gesture::Move ? kScrollEdge_px * view_.Dpi() / 96 : 0;
    const auto step = [edge](int at, int size) {
        return at < edge ? -kAutoScrollStep_px : at >= size - edge ? kAutoScrollStep_px : 0;
    };
    const Point by{step(pointer_.x, client.width), step(pointer_.y, client.height)};
    if (by == Point{}) {
        // A relation may end at a field further down in a long table.
        const Hit target = gesture_ == Gesture::Link ? HitAt(pointer_) : Hit{};
        if (target.table < 0 || !layout_.BoxOf(target.table).Scrollable()) return;
        const Box& box = layout_.BoxOf(target.table);
        const int y = view_.ToPlane(pointer_).y;
        const Rect field = box.Field();
        if (y < field.top + metrics_.row_height / 2)
            ScrollBox(target.table, box.Scroll() - metrics_.row_height);
        else if (y >= Bottom(field) - metrics_.row_height / 2)
            ScrollBox(target.table, box.Scroll() + metrics_.row_height);
        return;
    }
    // A box that is dragged outwards makes room for itself.
    Rect extent = Union(view_.Extent(), view_.Visible());
    if (gesture_ != Gesture::Link) {
        extent.width += by.x > 0 ? view_.ToUnits(by.x) : 0;
        extent.height += by.y > 0 ? view_.ToUnits(by.y) : 0;
        view_.SetExtent(extent);
    }
    view_.SetScroll({before.x + by.x, before.y + by.y});
    if (view_.Scroll() != before) MouseMove(pointer_);
}

std::optional<Rubber> DiagramState::RubberLine() const {
    if (IsRelating()) return RelatingLine();
    if (gesture_ != Gesture::Link || gesture_hit_.row <= 0 || taken_outside_) return std::nullopt;
    const int table = layout_.TableIndex(gesture_table_);
    if (table < 0) return std::nullopt;
    const Hit target = HitAt(pointer_);
    return Rubber{table, gesture_hit_.row, view_.ToPlane(pointer_), CanJoin(target) ? target : Hit{}, true};
}

Cursor DiagramState::PointerAt(Point client_px) const {
    const Hit hit = HitAt(client_px);
    switch (gesture_) {
        case Gesture::Move:
            return moved_ && !taken_outside_ ? Cursor::Move : Cursor::Arrow;
        case Gesture::Resize:
            return EdgeCursor(gesture_hit_.edges);
        case Gesture::Pan:
            return moved_ ? Cursor::Move : Cursor::Arrow;
        case Gesture::Link: {
            if (taken_outside_) return Cursor::Arrow;
            if (outside_) return Cursor::No;
            // Over the table it comes from and over the plane the line is still on its way, not forbidden.
            if (CanJoin(hit)) return Cursor::Link;
            return hit.table >= 0 && hit.table != layout_.TableIndex(gesture_table_) ? Cursor::No
                                                                                     : Cursor::Link;
        }
        default:
            break;
    }
    if (IsRelating() && hit.kind != HitKind::ScrollBar)
        return CanChoose(hit) || hit.table < 0 ? Cursor::Link : Cursor::No;
    if (hit.kind == HitKind::Edge) return EdgeCursor(hit.edges);
    return hit.kind == HitKind::Relation ? Cursor::Hand : Cursor::Arrow;
}

}  // namespace tessel::controls::diagram
