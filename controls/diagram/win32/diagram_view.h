// dgmTables, the table diagram as a window: boxes of fields with check boxes, and the lines of their
// relations.
//
// The view shows a model::Diagram and follows its changes. Positions and the selection it writes to the model
// itself; everything that changes the query (a tick, a drawn relation, a removal) it only reports, and shows
// it when the model has it. Interaction is decided in diagram_state.h, geometry in diagram_layout.h; painting
// is in diagram_painter.h. Assistive programs see it as diagram_accessible.h describes it.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "common/change_source.h"
#include "common/win32/accessible_window.h"
#include "common/win32/handles.h"
#include "common/win32/window.h"
#include "controls/diagram/diagram_accessible.h"
#include "controls/diagram/diagram_state.h"
#include "controls/diagram/win32/diagram_painter.h"
#include "model/diagram.h"

namespace tessel::controls {

/// What the user did on the diagram. Names are those of the model.
class DiagramEvents {
public:
    virtual ~DiagramEvents() = default;
    /// The check box of a field (or of "*", all fields) was clicked; `checked` is the state wished for.
    virtual void OnDiagramFieldChecked(std::wstring_view table, std::wstring_view field, bool checked) = 0;
    /// A field was dragged from the left table and dropped on a field of the right table.
    virtual void OnDiagramRelationDrawn(std::wstring_view left_table, std::wstring_view left_field,
                                        std::wstring_view right_table, std::wstring_view right_field) = 0;
    /// A context menu is wanted for the element, which is selected in the model by now.
    virtual void OnDiagramContextMenu(model::DiagramElement element, POINT screen) {
        (void)element;
        (void)screen;
    }
    /// Del was pressed on the selected element.
    virtual void OnDiagramDelete(model::DiagramElement element) { (void)element; }
    /// A relation was double-clicked, or Enter pressed on it.
    virtual void OnDiagramRelationActivated(int key) { (void)key; }
    /// The pointer carries a field of a table ("*" for all of them) outside the diagram. True when what is
    /// there takes it. Comes again and again while the pointer is outside.
    virtual bool OnDiagramCarriedOutside(std::wstring_view table, std::wstring_view field, POINT screen) {
        (void)table;
        (void)field;
        (void)screen;
        return false;
    }
    /// What was carried outside came back, was dropped or given up.
    virtual void OnDiagramCarriedBack() {}
    /// It was dropped where something takes it.
    virtual void OnDiagramDroppedOutside(std::wstring_view table, std::wstring_view field, POINT screen) {
        (void)table;
        (void)field;
        (void)screen;
    }
};

class DiagramView : public win32::Window,
                    private ChangeListener,
                    private diagram::DiagramHost,
                    private diagram::DiagramAccessibleHost {
public:
    DiagramView();
    ~DiagramView() override;

    /// Creates the control as a child of `parent`, of no size yet. False when Windows refuses.
    [[nodiscard]] bool Create(HWND parent, int id);
    /// Shows another diagram and reports to `events`. Neither is owned; both may be nullptr and must outlive
    /// the binding.
    void Bind(model::Diagram* diagram, DiagramEvents* events);
    /// Reads the model again and repaints everything.
    void Redraw();

    /// Asks the user for the fields of a relation that begins at that table, and takes the focus for it.
    /// Reported as a relation drawn when it is complete.
    void BeginRelation(std::wstring_view table);
    /// What the user is to do next; empty when no relation is begun.
    std::wstring RelatingHint() const { return state_.RelatingHint(); }

    /// Where something is shown, in client pixels; an empty rectangle when it is not there or scrolled out of
    /// its box.
    RECT TableRect(std::wstring_view table) const;
    RECT FieldRect(std::wstring_view table, std::wstring_view field) const;
    RECT CheckRect(std::wstring_view table, std::wstring_view field) const;
    /// The point half-way along the relation's line; {-1, -1} when there is none.
    POINT RelationPoint(int key) const;

    /// 25 to 400; other values are brought into that range. The middle of the view stays where it is.
    void SetZoom(int percent);
    int Zoom() const { return state_.View().Zoom(); }
    /// "Ajustar": the largest zoom up to 100 % at which everything is in view.
    void Fit();
    /// Puts the whole diagram on the clipboard as a picture, at 100 % and without selection. False when there
    /// is no table or another program holds the clipboard.
    bool CopyPicture();

    /// A table that is about to be added comes to stand at that point of the screen.
    void WishPlace(std::wstring_view table, POINT screen);
    /// Selects a table, or its field, and scrolls to it.
    void Reveal(std::wstring_view table, std::wstring_view field);

private:
    enum class SpaceBar { Up, Down, Pans };

    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    LRESULT OnMouse(UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT OnKeyDown(WPARAM wparam, LPARAM lparam);
    void OnSpaceUp();
    LRESULT DialogCode(LPARAM lparam) const;
    void OnCreated();
    void CreateTip();
    void OnResized();
    void OnPaint();
    void OnWheel(WPARAM wparam, LPARAM lparam, bool sideways);
    void OnScrollBar(int bar, int code);
    void OnContextMenu(LPARAM lparam);
    bool OnSetCursor();
    void ReadSettings();
    void Refresh();
    void ShowScrollBar(int bar, int low, int high, int page, int position);
    void FollowCapture();
    void RelayToTip(UINT message, WPARAM wparam, LPARAM lparam);
    std::wstring TipText() const;
    RECT BoxPart(std::wstring_view table, std::wstring_view field, bool check) const;

    void OnChanged() override;

    void Repaint() override;
    void FieldChecked(std::wstring_view table, std::wstring_view field, bool checked) override;
    void RelationDrawn(std::wstring_view left_table, std::wstring_view left_field,
                       std::wstring_view right_table, std::wstring_view right_field) override;
    void ContextMenu(model::DiagramElement element, diagram::Point client_px) override;
    void DeleteWanted(model::DiagramElement element) override;
    void RelationActivated(int key) override;
    bool CarriedOutside(std::wstring_view table, std::wstring_view field, diagram::Point client_px) override;
    void CarriedBack() override;
    void DroppedOutside(std::wstring_view table, std::wstring_view field, diagram::Point client_px) override;

    // diagram_view_accessible.cpp
    void CheckField(const std::wstring& table, const std::wstring& field, bool checked) override;
    void OpenRelation(int key) override;
    AccessiblePlace HintPlace() const override;
    /// Tells assistive programs what changed since it was last called.
    void Announce();

    // diagram_view_commands.cpp
    bool OnCommandKey(WPARAM key);
    void ShowPlaneMenu(POINT screen);
    void PlaceFitButton();
    POINT ToScreen(diagram::Point client_px) const;

    model::Diagram* diagram_ = nullptr;
    DiagramEvents* events_ = nullptr;
    diagram::DiagramPainter painter_;
    mutable diagram::DiagramState state_;  ///< queries bring it up to date first
    HWND tip_ = nullptr;                   ///< owned by our window
    HWND fit_button_ = nullptr;            ///< in the corner while something is out of view
    win32::UniqueFont button_font_;
    diagram::Hit tip_hit_;
    std::wstring tip_text_;

    /// What assistive programs were told last.
    struct Announced {
        AccessibleId focused = kAccessibleSelf;
        unsigned states = 0;
        std::vector<AccessibleId> children;
        std::wstring hint;
    };
    Announced announced_;
    diagram::DiagramAccessible tree_{state_, *this};
    win32::AccessibleWindow accessible_{tree_};

    int dpi_ = 0;
    int wheel_rest_ = 0;
    int wheel_rest_sideways_ = 0;
    bool refresh_pending_ = false;
    bool refreshing_ = false;
    bool tracking_ = false;
    SpaceBar space_ = SpaceBar::Up;
};

}  // namespace tessel::controls
