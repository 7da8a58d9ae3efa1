#include "ui/win32/designer_window.h"

#include <commctrl.h>

#include <algorithm>

#include "common/win32/activation_context.h"
#include "common/win32/dpi.h"
#include "ui/dlg_dsn_texts.h"
#include "ui/help_contexts.h"
#include "ui/win32/dlg_add_table.h"
#include "ui/win32/dlg_arbol.h"
#include "ui/win32/dlg_pvw.h"
#include "ui/win32/preview_database.h"
#include "ui/win32/show_help.h"

namespace tessel::ui {

namespace {

constexpr int kMinimumWidth = 700;   // dips
constexpr int kMinimumHeight = 460;  // dips
constexpr int kFirstColumnsWidth = 124;

BOOL CALLBACK PassOn(HWND child, LPARAM message) {
    SendMessageW(child, static_cast<UINT>(message), 0, 0);
    return TRUE;
}

}  // namespace

DesignerWindow::DesignerWindow(DesignerOwner* owner) : presenter_(*this, *this, owner), macros_(owner) {
    SetHelp([](HWND help_owner, long context_id) { ShowHelp(help_owner, context_id); });
}

DesignerWindow::~DesignerWindow() {
    // The controls show the presenter's model: they let go of it while both are alive.
    presenter_.Design().grid.RemoveListener(this);
    grid_.Bind(nullptr, nullptr);
    diagram_.Bind(nullptr, nullptr);
    Destroy();
}

bool DesignerWindow::Create() {
    static const win32::WindowClass kClass{L"TesselDlgDsn", 0, nullptr, IDC_ARROW};
    if (!CreateWindowOf(kClass, texts::kTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, nullptr, 0,
                        RECT{CW_USEDEFAULT, CW_USEDEFAULT, 0, 0}))
        return false;
    dpi_ = win32::DpiOf(Handle());
    CentreOnScreen();
    if (!CreateControls()) {
        Destroy();
        return false;
    }
    presenter_.Load();
    // The first columns, the ones that most queries use, show a qualified name whole.
    for (int column = 0; column < model::kInitialColumnCount; ++column)
        presenter_.Design().grid.SetColumnWidth(column, kFirstColumnsWidth);
    grid_.Bind(&presenter_.Design().grid, this);
    diagram_.Bind(&presenter_.Design().diagram, this);
    presenter_.Design().grid.AddListener(this);
    ShowPages();
    UpdateCommands();
    LayoutForm();
    DivideDesignPage();
    return true;
}

void DesignerWindow::LoadSchema(const schema::Schema* schema, std::wstring_view caption) {
    schema_ = schema;
    browser_.Load(schema, caption);
    presenter_.BindSchema(schema);
    UpdateCommands();
}

void DesignerWindow::SetConnection(IDispatch* connection) {
    connection_ = win32::ComPtr<IDispatch>(connection);
    UpdateCommands();
}

bool DesignerWindow::ShowModal() {
    if (!IsCreated()) return false;
    done_ = false;
    {
        win32::DisabledPeers peers(Handle());
        peers_ = &peers;
        ShowWindow(Handle(), SW_SHOW);
        SetForegroundWindow(Handle());
        FocusPage();
        win32::RunModalLoop(
            Handle(), [this] { return done_; }, [this](const MSG& message) { return OnKey(message); });
        peers.Enable();
        if (Handle()) ShowWindow(Handle(), SW_HIDE);
        peers_ = nullptr;
    }
    if (!done_) presenter_.Cancel();
    return presenter_.Accepted();
}

LRESULT DesignerWindow::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_SIZE:
            if (wparam != SIZE_MINIMIZED) LayoutForm();
            return 0;
        case WM_GETMINMAXINFO: {
            // Never larger than the screen, which at a high scale may be small in dips.
            auto* info = reinterpret_cast<MINMAXINFO*>(lparam);
            info->ptMinTrackSize = {std::min<LONG>(Px(kMinimumWidth), GetSystemMetrics(SM_CXSCREEN)),
                                    std::min<LONG>(Px(kMinimumHeight), GetSystemMetrics(SM_CYSCREEN))};
            return 0;
        }
        case WM_ERASEBKGND: {
            RECT client;
            GetClientRect(Handle(), &client);
            FillRect(reinterpret_cast<HDC>(wparam), &client, GetSysColorBrush(COLOR_BTNFACE));
            return 1;
        }
        case WM_COMMAND:
            return OnCommand(LOWORD(wparam), HIWORD(wparam));
        case WM_NOTIFY:
            return OnNotify(reinterpret_cast<NMHDR*>(lparam));
        case WM_CLOSE:
            presenter_.Cancel();
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wparam) != WA_INACTIVE && GetFocus() == Handle()) FocusPage();
            return 0;
        case DM_GETDEFID:
            // Enter presses "Aceptar" wherever a control does not want the key for itself.
            return MAKELRESULT(kIdAccept, DC_HASDEFID);
        case WM_SETCURSOR:
            if (pointer_ == Pointer::Hourglass) {
                SetCursor(LoadCursorW(nullptr, IDC_WAIT));
                return TRUE;
            }
            break;
        case WM_DPICHANGED: {
            dpi_ = LOWORD(wparam);
            const RECT& place = *reinterpret_cast<RECT*>(lparam);
            ApplyFonts();
            SetWindowPos(Handle(), nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                         SWP_NOZORDER | SWP_NOACTIVATE);
            LayoutForm();
            return 0;
        }
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
        case WM_THEMECHANGED:
            // Windows tells top-level windows only.
            EnumChildWindows(Handle(), PassOn, static_cast<LPARAM>(message));
            ApplyFonts();
            LayoutForm();
            break;
        default:
            break;
    }
    return Window::OnMessage(message, wparam, lparam);
}

LRESULT DesignerWindow::OnCommand(int id, int notification) {
    if (notification != BN_CLICKED) return 0;
    switch (id) {
        case kIdAccept:
            if (grid_.CommitEdit()) presenter_.Accept();
            break;
        case kIdCancel:
            presenter_.Cancel();
            break;
        case kIdRunQuery:
            RunQuery();
            break;
        case kIdRemoveColumn:
            grid_.CancelEdit();
            presenter_.RemoveFocusedColumn();
            break;
        case kIdClearAll:
            grid_.CancelEdit();
            presenter_.ClearDesign(true);
            break;
        case kIdAddTable:
            if (grid_.CommitEdit()) AddTable(L"");
            break;
        case kIdSyntaxTree:
            if (grid_.CommitEdit()) presenter_.ShowSyntaxTree();
            break;
        case kIdHelp:
            show_help_(nullptr, help::kIndex);
            break;
        case kIdDistinct:
            presenter_.DistinctClicked(SendMessageW(distinct_, BM_GETCHECK, 0, 0) == BST_CHECKED);
            break;
        default:
            break;
    }
    return 0;
}

LRESULT DesignerWindow::OnNotify(NMHDR* header) {
    if (header->hwndFrom == tabs_) {
        // A text that does not fit its cell keeps the tab where it is, so that nothing typed is lost.
        if (header->code == TCN_SELCHANGING) return !grid_.CommitEdit();
        if (header->code == TCN_SELCHANGE) OnTabSelected();
        return 0;
    }
    if (header->hwndFrom == editor_.Handle()) editor_.HandleNotify(header);
    return 0;
}

void DesignerWindow::OnTabSelected() {
    const auto tab = static_cast<Tab>(SendMessageW(tabs_, TCM_GETCURSEL, 0, 0));
    presenter_.TabClicked(tab);
    ShowPages();
    FocusPage();
}

bool DesignerWindow::OnKey(const MSG& message) {
    if (message.message != WM_KEYDOWN) return false;
    if (message.hwnd != Handle() && !IsChild(Handle(), message.hwnd)) return false;
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    if (message.wParam == VK_TAB && GetKeyState(VK_CONTROL) < 0) {
        if (!grid_.CommitEdit()) return true;
        const LRESULT other = SendMessageW(tabs_, TCM_GETCURSEL, 0, 0) == 0 ? 1 : 0;
        SendMessageW(tabs_, TCM_SETCURSEL, static_cast<WPARAM>(other), 0);
        OnTabSelected();
        return true;
    }
    if (message.wParam == VK_F1) {
        show_help_(nullptr, HelpTopic());
        return true;
    }
    if (message.wParam == VK_F5) {
        if (IsWindowEnabled(run_query_)) RunQuery();
        return true;
    }
    if (message.wParam == VK_F6) {
        MoveToNextPane(shift);
        return true;
    }
    return false;
}

void DesignerWindow::MoveToNextPane(bool backwards) {
    std::vector<HWND> panes = {browser_.Tree()};
    if (presenter_.CurrentTab() == Tab::Sql) {
        panes.push_back(editor_.Handle());
    } else if (grid_visible_) {
        panes.push_back(diagram_.Handle());
        panes.push_back(grid_.Handle());
    }
    panes.push_back(accept_);
    const HWND focus = GetFocus();
    std::size_t current = panes.size() - 1;
    for (std::size_t i = 0; i < panes.size(); ++i)
        if (focus == panes[i] || IsChild(panes[i], focus)) current = i;
    const std::size_t step = backwards ? panes.size() - 1 : 1;
    SetFocus(panes[(current + step) % panes.size()]);
}

long DesignerWindow::HelpTopic() const {
    const HWND focus = GetFocus();
    const auto is_in = [focus](HWND pane) { return pane && (focus == pane || IsChild(pane, focus)); };
    if (is_in(browser_.Handle())) return help::kBrowser;
    if (is_in(diagram_.Handle())) return help::kDiagram;
    if (is_in(editor_.Handle())) return help::kSqlTab;
    // The grid's rows are numbered from 1 in the help, as their ID is.
    if (is_in(grid_.Handle())) return help::OfGridRow(static_cast<int>(presenter_.Design().grid.FocusedRow()));
    return help::kWindow;
}

void DesignerWindow::ShowPages() {
    const bool sql = SendMessageW(tabs_, TCM_GETCURSEL, 0, 0) == static_cast<LRESULT>(Tab::Sql);
    ShowWindow(page_splitter_.Handle(), sql ? SW_HIDE : SW_SHOW);
    ShowWindow(sql_page_.Handle(), sql ? SW_SHOW : SW_HIDE);
    UpdateCommands();
}

void DesignerWindow::FocusPage() {
    if (presenter_.CurrentTab() == Tab::Sql)
        SetFocus(editor_.Handle());
    else if (grid_visible_)
        SetFocus(grid_.Handle());
    else
        SetFocus(tabs_);
}

void DesignerWindow::UpdateCommands() {
    const model::DesignGrid& grid = presenter_.Design().grid;
    bool any_used = false;
    for (int column = 0; column < grid.ColumnCount() && !any_used; ++column) any_used = grid.IsColumnUsed(column);
    const int focused = grid.FocusedColumn();
    const bool focused_used = focused >= 0 && focused < grid.ColumnCount() && grid.IsColumnUsed(focused);
    EnableWindow(remove_column_, focused_used);
    EnableWindow(clear_all_, any_used);
    // A table can only be added to a diagram that is in force and in sight.
    const bool design_shown = SendMessageW(tabs_, TCM_GETCURSEL, 0, 0) == static_cast<LRESULT>(Tab::Design);
    EnableWindow(add_table_, schema_ && design_shown && grid_visible_);
    EnableWindow(run_query_, static_cast<bool>(connection_));
}

void DesignerWindow::RunQuery() {
    if (!grid_.CommitEdit()) return;
    ConnectionDatabase database(connection_.Get());
    RunStatement(presenter_.GetSQLText(), macros_, database, *this);
}

void DesignerWindow::PreviewTable(std::wstring_view table) {
    ConnectionDatabase database(connection_.Get());
    ui::ShowTable(table, database, *this);
}

std::optional<Error> DesignerWindow::ShowRows(PreviewRows& rows) {
    dlgPVW dialog(rows);
    return dialog.Show(Handle());
}

Pointer DesignerWindow::SetPointer(Pointer pointer) {
    const Pointer before = pointer_;
    pointer_ = pointer;
    SetCursor(LoadCursorW(nullptr, pointer == Pointer::Hourglass ? IDC_WAIT : IDC_ARROW));
    return before;
}

void DesignerWindow::ProcessEvents() { win32::ProcessPendingMessages(); }

void DesignerWindow::FocusNeutral() {
    if (IsWindowVisible(Handle())) SetFocus(focus_);
}

void DesignerWindow::ShowTab(Tab tab) {
    SendMessageW(tabs_, TCM_SETCURSEL, static_cast<WPARAM>(tab), 0);
    ShowPages();
}

void DesignerWindow::ShowGrid(bool shown) {
    grid_visible_ = shown;
    if (!shown) grid_.CancelEdit();
    ShowWindow(grid_.Handle(), shown ? SW_SHOWNA : SW_HIDE);
    ShowWindow(grid_buttons_.Handle(), shown ? SW_SHOWNA : SW_HIDE);
    // A diagram that is not the statement's would mislead, so lblNo stands alone.
    page_splitter_.SetFirstPaneShown(shown);
    UpdateCommands();
}

void DesignerWindow::ShowReason(bool shown) { ShowWindow(reason_.Handle(), shown ? SW_SHOWNA : SW_HIDE); }

void DesignerWindow::ShowDistinct(bool checked) {
    SendMessageW(distinct_, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

void DesignerWindow::RedrawDiagram() { diagram_.Redraw(); }

void DesignerWindow::ShowMessage(std::wstring_view text) {
    const Pointer before = SetPointer(Pointer::Default);
    MessageBoxW(Handle(), std::wstring(text).c_str(), texts::kMessageTitle, MB_OK);
    SetPointer(before);
}

bool DesignerWindow::AskYesNo(std::wstring_view text) {
    const Pointer before = SetPointer(Pointer::Default);
    const int answer = MessageBoxW(Handle(), std::wstring(text).c_str(), texts::kMessageTitle,
                                   MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2);
    SetPointer(before);
    return answer == IDYES;
}

void DesignerWindow::AddTable(std::wstring_view related_to) {
    if (!schema_) return;
    dlgAddTable dialog;
    dialog.Init(*schema_, related_to, [this](std::wstring_view name) { presenter_.TableChosen(name); });
    dialog.Show(Handle());
}

void DesignerWindow::ShowSyntaxTree(const std::vector<analyse::TreeNode>& roots) {
    // A node's text is selected behind the dialog, when the editor is what the window shows.
    const bool shows_text = presenter_.CurrentTab() == Tab::Sql;
    dlgArbol dialog(roots, [&](TextRange range) {
        if (shows_text) editor_.SelectRange(range);
    });
    dialog.ShowTree(Handle());
}

void DesignerWindow::Hide() {
    done_ = true;
    // The host's windows must be enabled before ours goes, or Windows would activate another program.
    if (peers_) peers_->Enable();
    ShowWindow(Handle(), SW_HIDE);
    PostMessageW(Handle(), WM_NULL, 0, 0);
}

std::wstring DesignerWindow::Text() const { return editor_.Text(); }
void DesignerWindow::SetText(std::wstring_view text) { editor_.SetText(text); }
void DesignerWindow::Refresh() { editor_.Refresh(); }

void DesignerWindow::OnGridFocusMoved(model::GridRow row, int column) {
    presenter_.GridFocusMoved(row, column);
    UpdateCommands();
}

void DesignerWindow::OnGridCellCommitted(model::GridRow row, int column, std::wstring_view text) {
    presenter_.GridCellCommitted(row, column, text);
}

void DesignerWindow::OnDiagramFieldChecked(std::wstring_view table, std::wstring_view field, bool checked) {
    presenter_.DiagramFieldChecked(table, field, checked);
}

void DesignerWindow::OnDiagramRelationDrawn(std::wstring_view left_table, std::wstring_view left_field,
                                            std::wstring_view right_table, std::wstring_view right_field) {
    presenter_.RelationDrawn(left_table, left_field, right_table, right_field);
}

void DesignerWindow::OnBrowserActivated(const controls::BrowserItem& item) {
    using Kind = controls::BrowserItem::Kind;
    if (item.kind == Kind::Table || item.kind == Kind::View) presenter_.TableChosen(item.name);
}

void DesignerWindow::OnSplitterResized(int id) {
    if (id == kIdPageSplitter) LayoutDesignPane();
    if (id == kIdMainSplitter) LayoutStrip();
}

void DesignerWindow::OnChanged() { UpdateCommands(); }

}  // namespace tessel::ui
