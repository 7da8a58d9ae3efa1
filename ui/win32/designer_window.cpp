#include "ui/win32/designer_window.h"

#include <commctrl.h>

#include <utility>

#include "common/win32/activation_context.h"
#include "common/win32/tips.h"
#include "ui/dlg_dsn_texts.h"
#include "ui/help_contexts.h"
#include "ui/win32/page_shown.h"
#include "ui/win32/show_help.h"

namespace tessel::ui {

namespace {

constexpr int kFirstColumnsWidth = 124;

/// A flag that is set for a scope.
class Flagged {
public:
    explicit Flagged(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flagged() { flag_ = false; }
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;

private:
    bool& flag_;
};

}  // namespace

DesignerWindow::DesignerWindow(DesignerOwner* owner)
    : presenter_(*this, *this, owner), macros_(owner), completion_(owner) {}

DesignerWindow::~DesignerWindow() {
    // The controls show the presenter's model: they let go of it while both are alive.
    presenter_.Design().grid.RemoveListener(this);
    presenter_.Design().diagram.RemoveListener(this);
    grid_.Bind(nullptr, nullptr);
    diagram_.Bind(nullptr, nullptr);
    Destroy();
}

bool DesignerWindow::Create() {
    static const win32::WindowClass kClass{L"TesselDlgDsn", 0, nullptr, IDC_ARROW};
    if (!CreateWindowOf(kClass, texts::kTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT,
                        nullptr, 0, RECT{CW_USEDEFAULT, CW_USEDEFAULT, 0, 0}))
        return false;
    PlaceOnMonitorOf(HostWindow());
    if (!CreateControls({this, this, this, [this] { GoToReason(); }})) {
        Destroy();
        return false;
    }
    editor_.SetCompletionSource(&completion_);
    presenter_.Load();
    // The first columns, the ones that most queries use, show a qualified name whole.
    for (int column = 0; column < model::kInitialColumnCount; ++column)
        presenter_.Design().grid.SetColumnWidth(column, kFirstColumnsWidth);
    grid_.Bind(&presenter_.Design().grid, this);
    diagram_.Bind(&presenter_.Design().diagram, this);
    presenter_.Design().grid.AddListener(this);
    presenter_.Design().diagram.AddListener(this);
    ShowPages();
    return true;
}

void DesignerWindow::LayOut() {
    if (!std::exchange(is_laid_out_, true)) LayoutForm();
}

void DesignerWindow::LoadSchema(const schema::Schema* schema, std::wstring_view caption) {
    schema_ = schema;
    error_line_.SetSchema(schema);
    completion_.SetSchema(schema);
    browser_.Load(schema, caption);
    if (controls::BrowserItem item; browser_.SelectedItem(item)) props_.Show(schema, &item);
    presenter_.BindSchema(schema);
    LayOut();
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
        LayOut();
        is_shown_ = true;
        UpdateCommands();
        // Everything is drawn when it is painted, in one pass, rather than erased before and painted then.
        SetWindowPos(Handle(), HWND_TOP, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW | SWP_DEFERERASE);
        SetForegroundWindow(Handle());
        win32::ShowKeyboardCues(Handle());
        FocusPage();
        win32::RunModalLoop(
            Handle(), [this] { return done_; },
            [this](const MSG& message) {
                win32::RelayMouse(tips_, message);
                return OnKey(message);
            });
        peers.Enable();
        if (Handle()) ShowWindow(Handle(), SW_HIDE);
        peers_ = nullptr;
    }
    if (!done_) presenter_.Cancel();
    return presenter_.Accepted();
}

LRESULT DesignerWindow::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    if (const auto answer = OnStateMessage(message, wparam, lparam)) return *answer;
    switch (message) {
        case WM_SIZE:
            if (wparam != SIZE_MINIMIZED) LayoutForm();
            return 0;
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
        case kStepMessage:
            OnStepMessage();
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
            ShowHelp(nullptr, help::kIndex);
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
        if (header->code == TCN_SELCHANGE) OnTabSelected(GetFocus() == tabs_ && GetKeyState(VK_LBUTTON) >= 0);
        return 0;
    }
    if (header->hwndFrom == editor_.Handle()) editor_.HandleNotify(header);
    return 0;
}

void DesignerWindow::OnTabSelected(bool stay) {
    const auto tab = static_cast<Tab>(SendMessageW(tabs_, TCM_GETCURSEL, 0, 0));
    {
        // The page that comes is filled before it is seen.
        const Flagged switching(is_switching_);
        presenter_.TabClicked(tab);
    }
    ShowPages();
    stay ? static_cast<void>(SetFocus(tabs_)) : FocusPage();
}

void DesignerWindow::ShowPages() {
    const bool sql = SendMessageW(tabs_, TCM_GETCURSEL, 0, 0) == static_cast<LRESULT>(Tab::Sql);
    const HWND design_page = page_splitter_.Handle();
    const HWND sql_page = sql_page_.Handle();
    TurnPage(sql ? design_page : sql_page, sql ? sql_page : design_page);
    UpdateCommands();
}

}  // namespace tessel::ui
