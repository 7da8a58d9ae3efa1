// The window behind dlgDsn: creates the controls, lays them out, turns their notifications into the
// presenter's gestures and shows what the presenter says. It decides nothing about queries.
//
//   form
//     picTop      "Agregar tabla al diagrama", "Ejecutar consulta …", "Ver árbol de sintaxis"
//     VSplit1     schemaView above schemaProps | strip (sTab, and over it the pages HSR and picSQL)
//       HSR       dgmTables above picDsn (picCtrs, dxG, lblNo)
//       picSQL    edtSQL
//     picBottom   picBtns: "&Aceptar", "&Cancelar", "Ay&uda"
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/win32/com.h"
#include "common/win32/handles.h"
#include "common/win32/modal_loop.h"
#include "common/win32/window.h"
#include "controls/browser/win32/schema_browser.h"
#include "controls/browser/win32/schema_props.h"
#include "controls/diagram/win32/diagram_view.h"
#include "controls/editor/win32/sql_editor.h"
#include "controls/grid/win32/design_grid_view.h"
#include "controls/splitter/win32/splitter_bar.h"
#include "ui/designer_presenter.h"
#include "ui/preview.h"
#include "ui/views.h"
#include "ui/win32/designer_ids.h"
#include "ui/win32/drag_window.h"
#include "ui/win32/panel.h"
#include "ui/win32/reason_label.h"

namespace tessel::ui {

class DesignerWindow final : public win32::Window,
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
    bool ShowModal();

    void PreviewTable(std::wstring_view table) override;

    DesignerPresenter& Presenter() { return presenter_; }
    /// Replaces what "Ay&uda" and F1 call, which is ShowHelp, so that a test opens no help window.
    void SetHelp(std::function<void(HWND owner, long context_id)> show_help) {
        show_help_ = std::move(show_help);
    }
    /// The editor's text as it stands, nothing composed.
    std::wstring EditorText() const { return editor_.Text(); }
    /// The controls, for whoever wants to know where something is shown.
    const controls::DiagramView& DiagramControl() const { return diagram_; }
    const controls::DesignGridView& GridControl() const { return grid_; }

private:
    static constexpr UINT kStepMessage = WM_APP + 40;

    // Creation and layout (designer_window_layout.cpp).
    bool CreateControls();
    bool CreateButton(HWND& button, HWND parent, const wchar_t* caption, int id, DWORD style,
                      const wchar_t* tip);
    void AddTip(HWND control, const wchar_t* tip);
    void ApplyFonts();
    void CentreOnScreen();
    void LayoutForm();
    void LayoutTopButtons();
    void LayoutBottomButtons();
    void LayoutStrip();
    void DivideDesignPage();
    void LayoutDesignPane();
    void LayoutGridButtons();
    void LayoutSqlPage();
    int ButtonWidth(HWND button) const;
    int Px(int dips) const;
    int FromTwips(int twips) const;
    int ToTwips(int pixels) const;

    // Messages (designer_window.cpp) and keys (designer_window_keys.cpp).
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    LRESULT OnCommand(int id, int notification);
    LRESULT OnNotify(NMHDR* header);
    bool OnKey(const MSG& message);
    bool OnHistoryKey(const MSG& message);
    void Undo();
    void Redo();
    /// The design changed; the presenter is told when whoever changes it is done.
    void AwaitStep();
    void OnStepMessage();
    void OnTabSelected();
    void ShowPages();
    void MoveToNextPane(bool backwards);
    /// The help topic of the pane that has the focus.
    long HelpTopic() const;
    void FocusPage();

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

    // ChangeListener: the design grid or the diagram changed.
    void OnChanged() override;

    // First, so that it outlives the controls, which show its model.
    DesignerPresenter presenter_;
    win32::ComPtr<IDispatch> connection_;
    OwnerMacros macros_;

    Panel top_;
    Panel bottom_;
    Panel buttons_;  // picBtns
    Panel strip_;
    Panel design_pane_;                    // picDsn
    Panel grid_buttons_;                   // picCtrs
    Panel sql_page_;                       // picSQL
    controls::SplitterBar main_splitter_;  // VSplit1
    controls::SplitterBar page_splitter_;  // HSR
    controls::SplitterBar browser_splitter_;
    controls::SchemaBrowser browser_;  // schemaView
    controls::SchemaProps props_;      // schemaProps
    controls::DiagramView diagram_;    // dgmTables
    controls::DesignGridView grid_;    // dxG
    controls::SqlEditor editor_;       // edtSQL
    ReasonLabel reason_;               // lblNo
    DragWindow drag_;
    Dragged dragged_;
    HWND tabs_ = nullptr;
    HWND tips_ = nullptr;
    HWND focus_ = nullptr;
    HWND accept_ = nullptr;
    HWND cancel_ = nullptr;
    HWND help_ = nullptr;
    HWND syntax_tree_ = nullptr;
    HWND add_table_ = nullptr;
    HWND run_query_ = nullptr;
    HWND remove_column_ = nullptr;
    HWND clear_all_ = nullptr;
    HWND distinct_ = nullptr;

    std::function<void(HWND, long)> show_help_;
    win32::UniqueFont font_;
    int dpi_ = 96;
    Pointer pointer_ = Pointer::Default;
    bool done_ = false;
    bool step_waits_ = false;
    bool grid_visible_ = true;
    const schema::Schema* schema_ = nullptr;
    win32::DisabledPeers* peers_ = nullptr;
};

}  // namespace tessel::ui
