// The table diagram without its window: what is selected, hovered, dragged and scrolled, and what mouse and
// keyboard do. The window passes events in client pixels and paints what this class holds.
//
// A gesture changes the model when it is finished, not while it goes on, and then once; given up, it leaves
// nothing behind. Only places and the selection are written to the model; what changes the query is reported
// to the host. The model may change at any time, also in the middle of a gesture: everything here that
// outlives an event names tables and relations, and the layout is read again when it is next needed.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "controls/diagram/diagram_host.h"
#include "controls/diagram/diagram_layout.h"
#include "controls/diagram/diagram_placement.h"
#include "controls/diagram/diagram_viewport.h"

namespace tessel::controls::diagram {

class DiagramState {
public:
    explicit DiagramState(DiagramHost& host) : host_(host) {}

    void Bind(model::Diagram* diagram);
    /// Fonts changed. The measurer is not owned and must outlive the state.
    void SetMetrics(const BoxMetrics& metrics, const TextMeasurer* measurer);
    /// The model announced a change; it is read again at the next Update.
    void ModelChanged();
    /// Brings the layout up to date and gives new tables a place, which writes to the model.
    void Update();

    void SetDpi(int dpi);
    void SetClient(Size client_px);
    void SetZoom(int percent, Point anchor_px);
    void ScrollTo(Point scroll_px);

    /// "Ajustar": the largest zoom up to 100 % at which everything is in view, and scrolls there.
    void Fit();
    /// Everything drawn, with some room around; nothing when there is no table.
    Rect Content() const;
    bool ShowsEverything() const;
    /// Gives every table a place anew, as if all of them had just arrived.
    void Arrange();
    /// Where a table that is about to be added should come to stand: its title under that point, or as near
    /// to it as there is room.
    void WishPlace(std::wstring_view table, Point client_px);
    /// Selects a table, or its field, and brings it into view. False when it is not there.
    bool Reveal(std::wstring_view table, std::wstring_view field);
    /// Selects a relation and brings it into view. False when it is not there.
    bool RevealRelation(int key);

    void MouseDown(Button button, Point client_px);
    void MouseMove(Point client_px);
    void MouseUp(Button button, Point client_px);
    void DoubleClick(Point client_px);
    void MouseLeave();
    /// `steps` notches, positive away from the user.
    void Wheel(Point client_px, int steps, Modifiers modifiers, bool sideways);
    /// False when the key means nothing here.
    bool KeyDown(Key key, Modifiers modifiers);
    /// A letter goes to the next field that begins with it.
    void Typed(wchar_t letter);
    /// Gives up a gesture: Esc, or the mouse was taken away.
    void Cancel();

    /// "Agregar relación": asks for the fields of a relation that begins at that table
    /// (diagram_relating.cpp).
    void BeginRelation(std::wstring_view table);
    void CancelRelation();
    bool IsRelating() const { return !relating_table_.empty(); }
    /// What the user is to do next; empty when no relation is begun.
    std::wstring RelatingHint() const;

    /// While a gesture holds the mouse outside the client area, to be called some times a second.
    void AutoScroll();
    bool HoldsMouse() const { return gesture_ != Gesture::None; }
    /// Selects what is at the point and asks the host for its menu.
    void ContextMenu(Point client_px);
    /// Where a menu asked for by keyboard belongs.
    Point SelectionPoint();

    const model::Diagram* Model() const { return diagram_; }
    const Layout& Shapes() const { return layout_; }
    const Viewport& View() const { return view_; }
    const Hit& Hover() const { return hover_; }
    /// The row with the keyboard in the selected table; -1 is its title.
    int FocusRow() const { return focus_row_; }
    std::optional<Rubber> RubberLine() const;
    Cursor PointerAt(Point client_px) const;
    Hit HitAt(Point client_px) const;

private:
    enum class Gesture { None, Press, Check, Move, Resize, Link, Scroll, Pan };

    const model::DiagramTable* TableAt(int index) const;
    int SelectedIndex() const;
    void PlaceNewTables();
    void ApplyOwnState();
    void Shift(int table, const Rect& rect);
    void StoreRect(int table, const Rect& rect);
    void ScrollBox(int table, int scroll);
    void Select(int table, int row);
    void SelectElement(const Hit& hit);
    void ToggleCheck(int table, int row);
    void BeginGesture(Gesture gesture, const Hit& hit, Point client_px);
    void EndGesture();
    bool PassedThreshold(Point client_px);
    void MoveTo(Point client_px);
    void ResizeTo(Point client_px);
    bool CanJoin(const Hit& target) const;
    bool CarryTo(Point client_px);
    Rect Drawn() const;
    void PlaceWished(std::vector<PlacementBox>& boxes);
    void RevealFocus();
    bool ArrowKey(Key key, Modifiers modifiers);
    void RowKey(Key key);
    void StepElement(int direction);
    bool ZoomKey(Key key);
    bool CanChoose(const Hit& hit) const;
    Hit FocusedHit() const;
    void ChooseForRelation(const Hit& hit);
    bool RelatingMouseDown(Button button, const Hit& hit);
    bool RelatingKey(Key key, Modifiers modifiers);
    std::optional<Rubber> RelatingLine() const;

    DiagramHost& host_;
    model::Diagram* diagram_ = nullptr;
    const TextMeasurer* measurer_ = nullptr;
    BoxMetrics metrics_;
    Layout layout_;
    Viewport view_;
    bool stale_ = true;
    bool placing_ = false;

    std::vector<std::wstring> raised_;  ///< tables brought to the front, the foremost last
    std::unordered_map<std::wstring, int> box_scroll_;
    std::unordered_map<std::wstring, Point> wished_places_;
    std::unordered_map<std::wstring, Rect> known_places_;  ///< also of tables that went; they may come back
    std::wstring focus_table_;
    int focus_row_ = -1;
    Hit hover_;

    Gesture gesture_ = Gesture::None;
    Button gesture_button_ = Button::Left;
    std::wstring gesture_table_;
    Hit gesture_hit_;
    Point gesture_start_;  ///< client pixels
    Point gesture_scroll_;
    Rect gesture_rect_;
    Point pointer_;
    bool moved_ = false;
    bool outside_ = false;        ///< the host was told that something is carried outside
    bool taken_outside_ = false;  ///< and takes it

    std::wstring relating_table_;  ///< where a relation begins that is not complete yet; empty when none does
    std::wstring relating_field_;  ///< empty until it is chosen
    bool relating_by_key_ = false;  ///< the line ends where the keyboard is, not at the pointer
};

}  // namespace tessel::controls::diagram
