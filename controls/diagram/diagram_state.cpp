#include "controls/diagram/diagram_state.h"

#include "common/identifiers.h"

namespace tessel::controls::diagram {

namespace {

constexpr int kHitTolerance = 4;  // pixels at 96 dpi, whatever the zoom
constexpr std::size_t kMostKnownPlaces = 1000;

}  // namespace

void DiagramState::Bind(model::Diagram* diagram) {
    Cancel();
    CancelRelation();
    diagram_ = diagram;
    raised_.clear();
    box_scroll_.clear();
    known_places_.clear();
    wished_places_.clear();
    hover_ = {};
    layout_.Clear();
    ModelChanged();
}

void DiagramState::SetMetrics(const BoxMetrics& metrics, const TextMeasurer* measurer) {
    metrics_ = metrics;
    measurer_ = measurer;
    ModelChanged();
}

void DiagramState::ModelChanged() {
    stale_ = true;
    if (!placing_) host_.Repaint();
}

void DiagramState::Update() {
    if (!stale_ || placing_) return;
    if (!diagram_) {
        layout_.Clear();
        stale_ = false;
        return;
    }
    placing_ = true;
    PlaceNewTables();
    placing_ = false;
    stale_ = false;
    layout_.Build(*diagram_, metrics_);
    ApplyOwnState();
    layout_.Reroute();
    view_.SetExtent(layout_.Extent());
    if (hover_.table >= static_cast<int>(layout_.Boxes().size()) ||
        (hover_.kind == HitKind::Relation && !layout_.FindLine(hover_.relation)))
        hover_ = {};
    if (!gesture_table_.empty() && layout_.TableIndex(gesture_table_) < 0) EndGesture();
    if (IsRelating() && layout_.TableIndex(relating_table_) < 0) CancelRelation();
}

// A table that was here before goes back to its place if that is still free: leaving for the text and coming
// back must not shuffle the diagram.
void DiagramState::PlaceNewTables() {
    std::vector<PlacementBox> boxes;
    bool any_new = false;
    for (const model::DiagramTable& table : diagram_->Tables()) {
        PlacementBox box{table.rect, table.placed};
        any_new |= !table.placed;
        boxes.push_back(box);
    }
    if (any_new && measurer_) {
        const std::vector<model::DiagramTable> tables = diagram_->Tables();
        for (std::size_t i = 0; i < tables.size(); ++i) {
            if (boxes[i].fixed) continue;
            const Size size = NaturalSize(tables[i], metrics_, *measurer_);
            boxes[i].rect = {0, 0, size.width, size.height};
            if (wished_places_.contains(IdentifierKey(tables[i].name))) continue;
            const auto known = known_places_.find(IdentifierKey(tables[i].name));
            if (known == known_places_.end()) continue;
            const bool taken = std::any_of(boxes.begin(), boxes.end(), [&](const PlacementBox& other) {
                return other.fixed && Overlaps(other.rect, known->second);
            });
            if (!taken) boxes[i] = {known->second, true};
        }
        PlaceWished(boxes);
        Layout links;
        links.Build(*diagram_, metrics_);
        std::vector<PlacementLink> related;
        for (const Line& line : links.Lines())
            related.push_back(
                {static_cast<std::size_t>(line.left_table), static_cast<std::size_t>(line.right_table)});
        PlaceBoxes(boxes, related);
        for (std::size_t i = 0; i < tables.size(); ++i)
            if (!tables[i].placed) diagram_->SetTableRect(tables[i].name, boxes[i].rect);
    }
    wished_places_.clear();
    if (known_places_.size() > kMostKnownPlaces) known_places_.clear();
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (!IsEmpty(boxes[i].rect)) known_places_[IdentifierKey(diagram_->Tables()[i].name)] = boxes[i].rect;
}

// Scroll positions, depth and the box that is being dragged are known here only.
void DiagramState::ApplyOwnState() {
    const std::vector<model::DiagramTable>& tables = diagram_->Tables();
    std::vector<int> order;
    std::vector<bool> taken(tables.size(), false);
    for (const std::wstring& name : raised_)
        if (const int table = layout_.TableIndex(name); table >= 0)
            taken[static_cast<std::size_t>(table)] = true;
    for (std::size_t i = 0; i < tables.size(); ++i)
        if (!taken[i]) order.push_back(static_cast<int>(i));
    for (const std::wstring& name : raised_)
        if (const int table = layout_.TableIndex(name); table >= 0) order.push_back(table);
    layout_.SetOrder(std::move(order));
    for (const auto& [name, scroll] : box_scroll_)
        if (const int table = layout_.TableIndex(name); table >= 0) layout_.SetScroll(table, scroll);
    if (moved_ && (gesture_ == Gesture::Move || gesture_ == Gesture::Resize))
        if (const int table = layout_.TableIndex(gesture_table_); table >= 0)
            layout_.SetRect(table, gesture_rect_);
    if (diagram_->SelectedElement() == model::DiagramElement::Table) {
        const std::wstring selected = IdentifierKey(diagram_->SelectedTable());
        const int table = layout_.TableIndex(selected);
        if (selected != focus_table_) focus_row_ = -1;
        focus_table_ = selected;
        if (table >= 0) focus_row_ = std::min(focus_row_, layout_.BoxOf(table).Rows() - 1);
    }
}

void DiagramState::SetDpi(int dpi) {
    view_.SetDpi(dpi);
    host_.Repaint();
}

void DiagramState::SetClient(Size client_px) {
    view_.SetClient(client_px);
    host_.Repaint();
}

void DiagramState::SetZoom(int percent, Point anchor_px) {
    Update();
    view_.SetZoom(percent, anchor_px);
    host_.Repaint();
}

void DiagramState::ScrollTo(Point scroll_px) {
    Update();
    view_.SetScroll(scroll_px);
    host_.Repaint();
}

const model::DiagramTable* DiagramState::TableAt(int index) const {
    if (!diagram_ || index < 0 || index >= static_cast<int>(diagram_->Tables().size())) return nullptr;
    return &diagram_->Tables()[static_cast<std::size_t>(index)];
}

int DiagramState::SelectedIndex() const {
    if (!diagram_ || diagram_->SelectedElement() != model::DiagramElement::Table) return -1;
    return layout_.TableIndex(diagram_->SelectedTable());
}

Hit DiagramState::HitAt(Point client_px) const {
    const int tolerance = std::clamp(view_.ToUnits(kHitTolerance * view_.Dpi() / 96), 2, 8);
    return layout_.HitTest(view_.ToPlane(client_px), tolerance);
}

// Shows a box elsewhere without telling the model.
void DiagramState::Shift(int table, const Rect& rect) {
    gesture_rect_ = rect;
    layout_.SetRect(table, rect);
    layout_.RerouteTable(table);
    host_.Repaint();
}

void DiagramState::StoreRect(int table, const Rect& rect) {
    const model::DiagramTable* shown = TableAt(table);
    if (!shown || shown->rect == rect) return;
    const std::wstring name = shown->name;
    diagram_->SetTableRect(name, rect);
    stale_ = true;
    Update();
}

void DiagramState::ScrollBox(int table, int scroll) {
    const model::DiagramTable* shown = TableAt(table);
    if (!shown) return;
    layout_.SetScroll(table, scroll);
    box_scroll_[IdentifierKey(shown->name)] = layout_.BoxOf(table).Scroll();
    layout_.RerouteTable(table);
    host_.Repaint();
}

void DiagramState::Select(int table, int row) {
    const model::DiagramTable* shown = TableAt(table);
    if (!shown) return;
    const std::wstring name = shown->name;
    focus_table_ = IdentifierKey(name);
    focus_row_ = row;
    std::erase(raised_, focus_table_);
    raised_.push_back(focus_table_);
    diagram_->SelectTable(name);
    stale_ = true;
    Update();
    host_.Repaint();
}

void DiagramState::SelectElement(const Hit& hit) {
    if (hit.table >= 0) {
        Select(hit.table, hit.row);
    } else if (hit.kind == HitKind::Relation) {
        diagram_->SelectRelation(hit.relation);
        host_.Repaint();
    } else {
        diagram_->SelectNothing();
        host_.Repaint();
    }
}

void DiagramState::ToggleCheck(int table, int row) {
    const model::DiagramTable* shown = TableAt(table);
    if (!shown || row < 0 || row >= RowCount(*shown)) return;
    // Copies: the host changes the model while it is told.
    const std::wstring name = shown->name;
    const std::wstring field(RowName(*shown, row));
    host_.FieldChecked(name, field, !RowChecked(*shown, row));
}

void DiagramState::ContextMenu(Point client_px) {
    Cancel();
    if (!diagram_) return;
    if (IsRelating()) return CancelRelation();
    Update();
    SelectElement(HitAt(client_px));
    host_.ContextMenu(diagram_->SelectedElement(), client_px);
}

Point DiagramState::SelectionPoint() {
    Update();
    if (const int table = SelectedIndex(); table >= 0) {
        const Box& box = layout_.BoxOf(table);
        const Rect place = focus_row_ >= 0 && box.RowVisible(focus_row_) ? box.Text(focus_row_) : box.Title();
        return view_.ToClient(Center(place));
    }
    if (diagram_ && diagram_->SelectedElement() == model::DiagramElement::Relation)
        if (const Line* line = layout_.FindLine(diagram_->SelectedRelation()))
            return view_.ToClient(Halfway(line->path));
    return {view_.Client().width / 2, view_.Client().height / 2};
}

void DiagramState::RevealFocus() {
    const int table = SelectedIndex();
    if (table < 0) return;
    if (focus_row_ >= 0) ScrollBox(table, layout_.BoxOf(table).ScrollToShow(focus_row_));
    const Box& box = layout_.BoxOf(table);
    view_.Reveal(box.Frame());
    if (focus_row_ >= 0) view_.Reveal(Intersection(box.Row(focus_row_), box.Frame()));
    host_.Repaint();
}

}  // namespace tessel::controls::diagram
