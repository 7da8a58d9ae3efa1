// The window behind dlgDsn: turns what its controls (designer_form.h) report into the presenter's gestures
// and shows what the presenter says. It decides nothing about queries.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/win32/com.h"
#include "common/win32/modal_loop.h"
#include "ui/designer_presenter.h"
#include "ui/preview.h"
#include "ui/views.h"
#include "ui/win32/designer_completion.h"
#include "ui/win32/designer_form.h"
#include "ui/win32/drag_window.h"

namespace tessel::ui {

class DesignerWindow final : public DesignerForm,
                             private DesignerView,
                             private EditorView,
                             private PreviewView,
                             private controls::GridEvents,
                             private controls::DiagramEvents,
                             private controls::BrowserEvents,
                             private controls::SqlEditorEvents,
                             private controls::SplitterEvents,
                             private DragEvents,
                             private ChangeListener {
public:
    explicit DesignerWindow(DesignerOwner* owner);
    ~DesignerWindow() override;

    bool Create();
    macros::MacroSource& MacroSource() { return macros_; }
    void LoadSchema(const schema::Schema* schema, std::wstring_view caption);
    void SetConnection(IDispatch* connection);
    /// Gives every control its place, unless they have theirs: later than creating and filling them, since
    /// each change of a control that has a size costs more. What is shown by the statement needs the places.
    void LayOut();
    bool ShowModal();

    void PreviewTable(std::wstring_view table) override;

    DesignerPresenter& Presenter() { return presenter_; }
    /// The editor's text as it stands, nothing composed.
    std::wstring EditorText() const { return editor_.Text(); }
    /// The controls, for whoever wants to know where something is shown.
    const controls::DiagramView& DiagramControl() const { return diagram_; }
    const controls::DesignGridView& GridControl() const { return grid_; }

private:
    static constexpr UINT kStepMessage = WM_APP + 40;

    // Messages (designer_window.cpp) and keys (designer_window_keys.cpp).
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    /// What the session, the screens and other windows do to this one (designer_window_states.cpp); nothing
    /// for every other message.
    std::optional<LRESULT> OnStateMessage(UINT message, WPARAM wparam, LPARAM lparam);
    void OnActivated(bool active);
    void OnScaleChanged(const RECT& suggested);
    void OnScreensChanged();
    void OnLooksChanged(UINT message);
    void OnSessionEnd();
    static HWND HostWindow();
    LRESULT OnCommand(int id, int notification);
    LRESULT OnNotify(NMHDR* header);
    bool OnKey(const MSG& message);
    bool OnHistoryKey(const MSG& message);
    void Undo();
    void Redo();
    /// The design changed; the presenter is told when whoever changes it is done.
    void AwaitStep();
    void OnStepMessage();
    bool IsMovingByKeys() const;
    /// Another tab is in front; the keyboard goes to its page, or stays with who walks through the tabs.
    void OnTabSelected(bool stay);
    void ShowPages();
    void MoveToNextPane(bool backwards);
    /// The help topic of the pane that has the focus.
    long HelpTopic() const;
    void FocusPage();

    // Errors in the text, and why the design is not shown (designer_window_errors.cpp).
    bool OnErrorKey(const MSG& message);
    void OnEditorTextChanged() override;
    void OnEditorTextSet() override;
    void TellReason();
    /// The link of lblNo: the SQL text with the reason's place selected.
    void GoToReason();

    // Commands (designer_window_commands.cpp).
    void UpdateCommands();
    void ShowMenu(const Menu& menu, POINT screen);
    void RunQuery();

    // DesignerView (designer_window_view.cpp)
    Pointer SetPointer(Pointer pointer) override;
    void ProcessEvents() override;
    void FocusNeutral() override;
    void ShowTab(Tab tab) override;
    void ShowGrid(bool shown) override;
    void ShowReason(bool shown) override;
    void ShowDistinct(bool checked) override;
    void RedrawDiagram() override;
    void ShowMessage(std::wstring_view text) override;
    bool AskYesNo(std::wstring_view text) override;
    void ShowSyntaxTree(const std::vector<analyse::TreeNode>& roots) override;
    void RevealTable(std::wstring_view table) override;
    void BeginRelation(std::wstring_view table) override;
    std::optional<model::JoinKind> AskRelationKind(const model::RelInfo& relation) override;
    void AddTable(std::wstring_view related_to) override;
    bool HasConnection() const override { return static_cast<bool>(connection_); }
    void Hide() override;

    // PreviewView; its other members are DesignerView's
    std::optional<Error> ShowRows(PreviewRows& rows) override;

    // EditorView
    std::wstring Text() const override;
    void SetText(std::wstring_view text) override;
    void LoadText(std::wstring_view text) override;
    void SetLayout(std::wstring_view text) override;
    void BeginReplacement() override;
    void EndReplacement() override;
    void Refresh() override;

    // The controls' gestures (designer_window_gestures.cpp)
    void OnGridFocusMoved(model::GridRow row, int column) override;
    void OnGridCellCommitted(model::GridRow row, int column, std::wstring_view text) override;
    void OnGridColumnMoved(int from, int to) override;
    void OnGridCellsEmptied(const model::CellRange& range) override;
    void OnGridCellsPasted(const model::CellRange& range, const model::CellBlock& block) override;
    void OnGridContextMenu(int column, POINT screen) override;
    void OnDiagramFieldChecked(std::wstring_view table, std::wstring_view field, bool checked) override;
    void OnDiagramRelationDrawn(std::wstring_view left_table, std::wstring_view left_field,
                                std::wstring_view right_table, std::wstring_view right_field) override;
    void OnDiagramContextMenu(model::DiagramElement element, POINT screen) override;
    void OnDiagramDelete(model::DiagramElement element) override;
    void OnDiagramRelationActivated(int key) override;
    void OnBrowserContextMenu(const controls::BrowserItem& item, POINT screen) override;
    void OnBrowserActivated(const controls::BrowserItem& item) override;
    void OnBrowserSelected(const controls::BrowserItem* item) override;
    void OnBrowserDragBegun(const controls::BrowserItem& item, std::wstring_view caption) override;
    void OnSplitterResized(int id) override;

    // What is dragged (designer_window_drag.cpp)
    enum class DropPlace { None, Diagram, Grid, Editor };
    /// A table, or one of its fields.
    struct Dragged {
        std::wstring table;
        std::wstring field;
    };
    DropPlace DropPlaceAt(POINT screen) const;
    bool ShowDropMark(POINT screen);
    void Drop(POINT screen);
    bool OnDragMoved(POINT screen) override;
    void OnDragDropped(POINT screen) override;
    void OnDragCancelled() override;
    bool OnDiagramCarriedOutside(std::wstring_view table, std::wstring_view field, POINT screen) override;
    void OnDiagramCarriedBack() override;
    void OnDiagramDroppedOutside(std::wstring_view table, std::wstring_view field, POINT screen) override;

    void OnEditorFormat() override { presenter_.FormatText(); }

    // ChangeListener: the design grid or the diagram changed.
    void OnChanged() override;

    DesignerPresenter presenter_;
    win32::ComPtr<IDispatch> connection_;
    OwnerMacros macros_;
    DesignerCompletion completion_;

    DragWindow drag_;
    Dragged dragged_;
    Pointer pointer_ = Pointer::Default;
    HWND focus_to_restore_ = nullptr;
    bool done_ = false;
    bool is_laid_out_ = false;
    bool is_shown_ = false;
    bool is_switching_ = false;
    bool step_waits_ = false;
    bool grid_visible_ = true;
    const schema::Schema* schema_ = nullptr;
    win32::DisabledPeers* peers_ = nullptr;
};

}  // namespace tessel::ui
