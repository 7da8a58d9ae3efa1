// Fields and tables that are carried out of the table diagram and into it, and what shows the diagram as a
// whole: fitting it into view and arranging it anew.
#include "common/identifiers.h"
#include "controls/diagram/diagram_state.h"

namespace tessel::controls::diagram {

namespace {

constexpr int kRoomForWished = 16;  // around a box that the user put down, units
constexpr int kGrip = 40;           // from a box's left side to the pointer that brings it, units
constexpr int kFitMargin = 16;      // left and above of everything, units

}  // namespace

/// Tells the host where the dragged field or table is while it is outside. True when what is there takes it.
bool DiagramState::CarryTo(Point client_px) {
    const model::DiagramTable* shown = TableAt(layout_.TableIndex(gesture_table_));
    const Size client = view_.Client();
    const bool outside = shown && !Contains({0, 0, client.width, client.height}, client_px);
    if (outside) {
        // Copies: the host may change the model.
        const std::wstring table = shown->name;
        const std::wstring field(RowName(*shown, std::max(0, gesture_hit_.row)));
        outside_ = true;
        taken_outside_ = host_.CarriedOutside(table, field, client_px);
    } else if (outside_) {
        outside_ = taken_outside_ = false;
        host_.CarriedBack();
    }
    return taken_outside_;
}

void DiagramState::WishPlace(std::wstring_view table, Point client_px) {
    Update();
    wished_places_[IdentifierKey(table)] = view_.ToPlane(client_px);
}

// Before the automatic placement: whatever else is new arranges itself around what the user put down.
void DiagramState::PlaceWished(std::vector<PlacementBox>& boxes) {
    if (wished_places_.empty()) return;
    const std::vector<model::DiagramTable>& tables = diagram_->Tables();
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (boxes[i].fixed) continue;
        const auto wish = wished_places_.find(IdentifierKey(tables[i].name));
        if (wish == wished_places_.end()) continue;
        Rect rect = boxes[i].rect;
        rect.left = std::max(0, wish->second.x - std::min(kGrip, rect.width / 2));
        rect.top = std::max(0, wish->second.y - metrics_.title_height / 2);
        std::vector<Rect> others;
        for (const PlacementBox& box : boxes)
            if (box.fixed) others.push_back(box.rect);
        boxes[i] = {NearestFree(rect, others, kRoomForWished), true};
    }
}

bool DiagramState::Reveal(std::wstring_view table, std::wstring_view field) {
    if (!diagram_) return false;
    Update();
    const int index = layout_.TableIndex(table);
    const model::DiagramTable* shown = TableAt(index);
    if (!shown) return false;
    Select(index, field.empty() ? -1 : RowOf(*shown, field));
    RevealFocus();
    return true;
}

bool DiagramState::RevealRelation(int key) {
    if (!diagram_) return false;
    Update();
    const Line* line = layout_.FindLine(key);
    if (!line) return false;
    view_.Reveal(line->bounds);
    diagram_->SelectRelation(key);
    host_.Repaint();
    return true;
}

Rect DiagramState::Drawn() const {
    Rect drawn;
    for (const Box& box : layout_.Boxes()) drawn = Union(drawn, box.Frame());
    for (const Line& line : layout_.Lines()) drawn = Union(drawn, line.bounds);
    return drawn;
}

// At the far sides the same room as the plane leaves to scroll to, so that a diagram that fits has no scroll
// bars.
Rect DiagramState::Content() const {
    const Rect drawn = Drawn();
    if (IsEmpty(drawn)) return {};
    return {drawn.left - kFitMargin, drawn.top - kFitMargin, drawn.width + kFitMargin + kRoomAround,
            drawn.height + kFitMargin + kRoomAround};
}

bool DiagramState::ShowsEverything() const {
    const Rect drawn = view_.ToClient(Drawn());
    const Size client = view_.Client();
    return IsEmpty(drawn) || (drawn.left >= 0 && drawn.top >= 0 && Right(drawn) <= client.width &&
                              Bottom(drawn) <= client.height);
}

void DiagramState::Fit() {
    Update();
    const Rect content = Content();
    const Size client = view_.Client();
    if (IsEmpty(content) || client.width <= 0 || client.height <= 0) return;
    const int per_unit = 96 * 100;
    const int across = client.width * per_unit / (content.width * view_.Dpi());
    const int down = client.height * per_unit / (content.height * view_.Dpi());
    view_.SetZoom(std::min({across, down, 100}), {0, 0});
    view_.SetScroll({view_.ToPixels(content.left), view_.ToPixels(content.top)});
    host_.Repaint();
}

void DiagramState::Arrange() {
    if (!diagram_ || HoldsMouse()) return;
    Update();
    std::vector<PlacementBox> boxes;
    for (const Box& box : layout_.Boxes()) boxes.push_back({box.Frame(), false});
    std::vector<PlacementLink> links;
    for (const Line& line : layout_.Lines())
        links.push_back(
            {static_cast<std::size_t>(line.left_table), static_cast<std::size_t>(line.right_table)});
    PlaceBoxes(boxes, links);
    std::vector<std::wstring> names;
    for (const model::DiagramTable& table : diagram_->Tables()) names.push_back(table.name);
    for (std::size_t i = 0; i < names.size(); ++i) diagram_->SetTableRect(names[i], boxes[i].rect);
    stale_ = true;
    Update();
    host_.Repaint();
}

}  // namespace tessel::controls::diagram
