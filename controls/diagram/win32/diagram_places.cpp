// What DiagramView tells others: where things are shown, and what the user did.
#include "controls/diagram/win32/diagram_view.h"

namespace tessel::controls {

namespace {

RECT ToRect(const diagram::Rect& rect) {
    return {rect.left, rect.top, diagram::Right(rect), diagram::Bottom(rect)};
}

}  // namespace

RECT DiagramView::TableRect(std::wstring_view table) const {
    state_.Update();
    const int index = state_.Shapes().TableIndex(table);
    return index < 0 ? RECT{} : ToRect(state_.View().ToClient(state_.Shapes().BoxOf(index).Frame()));
}

RECT DiagramView::BoxPart(std::wstring_view table, std::wstring_view field, bool check) const {
    state_.Update();
    const int index = state_.Shapes().TableIndex(table);
    if (!diagram_ || index < 0) return {};
    const diagram::Box& box = state_.Shapes().BoxOf(index);
    const int row = diagram::RowOf(diagram_->Tables()[static_cast<std::size_t>(index)], field);
    if (row < 0) return {};
    const diagram::Rect part = diagram::Intersection(check ? box.Check(row) : box.Row(row), box.Field());
    return diagram::IsEmpty(part) ? RECT{} : ToRect(state_.View().ToClient(part));
}

RECT DiagramView::FieldRect(std::wstring_view table, std::wstring_view field) const {
    return BoxPart(table, field, false);
}

RECT DiagramView::CheckRect(std::wstring_view table, std::wstring_view field) const {
    return BoxPart(table, field, true);
}

POINT DiagramView::RelationPoint(int key) const {
    state_.Update();
    const diagram::Line* line = state_.Shapes().FindLine(key);
    if (!line) return {-1, -1};
    const diagram::Point point = state_.View().ToClient(diagram::Halfway(line->path));
    return {point.x, point.y};
}

void DiagramView::BeginRelation(std::wstring_view table) {
    SetFocus(Handle());
    state_.BeginRelation(table);
}

void DiagramView::SetZoom(int percent) {
    const diagram::Size client = state_.View().Client();
    state_.SetZoom(percent, {client.width / 2, client.height / 2});
}

void DiagramView::FieldChecked(std::wstring_view table, std::wstring_view field, bool checked) {
    if (events_) events_->OnDiagramFieldChecked(table, field, checked);
}

void DiagramView::RelationDrawn(std::wstring_view left_table, std::wstring_view left_field,
                                std::wstring_view right_table, std::wstring_view right_field) {
    if (events_) events_->OnDiagramRelationDrawn(left_table, left_field, right_table, right_field);
}

void DiagramView::ContextMenu(model::DiagramElement element, diagram::Point client_px) {
    // Nothing is a place of the view's own: its menu changes what is seen, not the design.
    if (element == model::DiagramElement::None) return ShowPlaneMenu(ToScreen(client_px));
    if (events_) events_->OnDiagramContextMenu(element, ToScreen(client_px));
}

void DiagramView::DeleteWanted(model::DiagramElement element) {
    if (events_) events_->OnDiagramDelete(element);
}

void DiagramView::RelationActivated(int key) {
    if (events_) events_->OnDiagramRelationActivated(key);
}

POINT DiagramView::ToScreen(diagram::Point client_px) const {
    POINT screen{client_px.x, client_px.y};
    ClientToScreen(Handle(), &screen);
    return screen;
}

bool DiagramView::CarriedOutside(std::wstring_view table, std::wstring_view field, diagram::Point client_px) {
    return events_ && events_->OnDiagramCarriedOutside(table, field, ToScreen(client_px));
}

void DiagramView::CarriedBack() {
    if (events_) events_->OnDiagramCarriedBack();
}

void DiagramView::DroppedOutside(std::wstring_view table, std::wstring_view field, diagram::Point client_px) {
    if (events_) events_->OnDiagramDroppedOutside(table, field, ToScreen(client_px));
}

void DiagramView::WishPlace(std::wstring_view table, POINT screen) {
    if (!IsCreated()) return;
    ScreenToClient(Handle(), &screen);
    state_.WishPlace(table, {screen.x, screen.y});
}

void DiagramView::Reveal(std::wstring_view table, std::wstring_view field) {
    state_.Reveal(table, field);
}

}  // namespace tessel::controls
