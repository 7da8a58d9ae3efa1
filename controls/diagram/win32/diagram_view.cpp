#include "controls/diagram/win32/diagram_view.h"

#include <commctrl.h>
#include <windowsx.h>

#include <utility>

#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/module.h"
#include "common/win32/screen.h"
#include "common/win32/system_cursor.h"
#include "controls/diagram/diagram_accessible_texts.h"
#include "controls/diagram/diagram_texts.h"

namespace tessel::controls {

namespace {

constexpr UINT kRefresh =
    WM_USER + 1;  // scroll bars and places of new tables, once after any number of changes
constexpr UINT_PTR kAutoScrollTimer = 1;
constexpr UINT kAutoScrollPeriod_ms = 40;
constexpr int kTipWidth = 480;  // at 96 dpi

diagram::Point PointOf(LPARAM lparam) {
    return {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
}

diagram::Modifiers HeldKeys() {
    return {GetKeyState(VK_SHIFT) < 0, GetKeyState(VK_CONTROL) < 0};
}

LPCWSTR CursorName(diagram::Cursor cursor) {
    switch (cursor) {
        case diagram::Cursor::Move:
            return IDC_SIZEALL;
        case diagram::Cursor::SizeWE:
            return IDC_SIZEWE;
        case diagram::Cursor::SizeNS:
            return IDC_SIZENS;
        case diagram::Cursor::SizeNWSE:
            return IDC_SIZENWSE;
        case diagram::Cursor::SizeNESW:
            return IDC_SIZENESW;
        case diagram::Cursor::Hand:
            return IDC_HAND;
        case diagram::Cursor::Link:
            return IDC_CROSS;
        case diagram::Cursor::No:
            return IDC_NO;
        case diagram::Cursor::Arrow:
            break;
    }
    return IDC_ARROW;
}

/// Keys that complete or give up a relation, which the dialog would take otherwise.
bool IsRelatingKey(WPARAM key) {
    return key == VK_RETURN || key == VK_ESCAPE || key == VK_TAB;
}

}  // namespace

DiagramView::DiagramView() : state_(static_cast<diagram::DiagramHost&>(*this)) {}

DiagramView::~DiagramView() {
    Bind(nullptr, nullptr);
    Destroy();
}

bool DiagramView::Create(HWND parent, int id) {
    // Its scroll bars come when something is out of view: drawing them only to take them away is slow.
    return CreateWindowOf({L"TesselDiagram", CS_DBLCLKS}, diagram::kDiagramName,
                          WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, 0, parent,
                          id);
}

void DiagramView::OnCreated() {
    fit_button_ = CreateWindowExW(0, L"BUTTON", std::wstring(diagram::FitCaption()).c_str(), WS_CHILD, 0, 0,
                                  0, 0, Handle(), nullptr, win32::ThisModule(), nullptr);
    ReadSettings();
}

void DiagramView::CreateTip() {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
    tip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                           CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, Handle(), nullptr,
                           win32::ThisModule(), nullptr);
    if (!tip_) return;
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = Handle();
    tool.rect = {0, 0, 32767, 32767};
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, win32::Scale(kTipWidth, dpi_));
}

void DiagramView::ReadSettings() {
    dpi_ = win32::DpiOf(Handle());
    painter_.SetDpi(dpi_);
    state_.SetDpi(dpi_);
    state_.SetMetrics(painter_.Metrics(), &painter_);
    if (tip_) SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, win32::Scale(kTipWidth, dpi_));
    if (fit_button_) {
        button_font_ = win32::MessageFont(dpi_);
        SendMessageW(fit_button_, WM_SETFONT, reinterpret_cast<WPARAM>(button_font_.get()), TRUE);
        PlaceFitButton();
    }
}

void DiagramView::Bind(model::Diagram* diagram, DiagramEvents* events) {
    if (diagram_) diagram_->RemoveListener(this);
    diagram_ = diagram;
    events_ = events;
    if (diagram_) diagram_->AddListener(this);
    state_.Bind(diagram);
}

void DiagramView::Redraw() {
    state_.ModelChanged();
}

void DiagramView::OnChanged() {
    state_.ModelChanged();
}

void DiagramView::Repaint() {
    if (!IsCreated()) return;
    InvalidateRect(Handle(), nullptr, FALSE);
    if (refresh_pending_ || refreshing_) return;
    refresh_pending_ = PostMessageW(Handle(), kRefresh, 0, 0) != 0;
}

void DiagramView::OnResized() {
    RECT client{};
    GetClientRect(Handle(), &client);
    state_.SetClient({client.right, client.bottom});
}

void DiagramView::OnPaint() {
    state_.Update();
    win32::BufferedPaint paint(Handle());
    painter_.Paint(paint.Dc(), paint.Area(), state_, GetFocus() == Handle());
}

void DiagramView::OnContextMenu(LPARAM lparam) {
    if (lparam != -1) {
        POINT point{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
        ScreenToClient(Handle(), &point);
        state_.ContextMenu({point.x, point.y});
        return;
    }
    if (diagram_) ContextMenu(diagram_->SelectedElement(), state_.SelectionPoint());
}

bool DiagramView::OnSetCursor() {
    POINT point{};
    GetCursorPos(&point);
    ScreenToClient(Handle(), &point);
    SetCursor(win32::SystemCursor(CursorName(state_.PointerAt({point.x, point.y}))));
    return true;
}

void DiagramView::FollowCapture() {
    if (state_.HoldsMouse()) {
        if (GetCapture() == Handle()) return;
        SetCapture(Handle());
        SetTimer(Handle(), kAutoScrollTimer, kAutoScrollPeriod_ms, nullptr);
    } else {
        KillTimer(Handle(), kAutoScrollTimer);
        if (GetCapture() == Handle()) ReleaseCapture();
    }
}

LRESULT DiagramView::OnMouse(UINT message, WPARAM, LPARAM lparam) {
    const diagram::Point point = PointOf(lparam);
    switch (message) {
        case WM_LBUTTONDOWN:
            SetFocus(Handle());
            // With the space bar held the plane is taken hold of wherever the pointer is.
            if (space_ != SpaceBar::Up) space_ = SpaceBar::Pans;
            state_.MouseDown(space_ == SpaceBar::Up ? diagram::Button::Left : diagram::Button::Middle, point);
            break;
        case WM_MBUTTONDOWN:
            SetFocus(Handle());
            state_.MouseDown(diagram::Button::Middle, point);
            break;
        case WM_RBUTTONDOWN:
            SetFocus(Handle());
            state_.MouseDown(diagram::Button::Right, point);
            break;
        case WM_LBUTTONDBLCLK:
            state_.DoubleClick(point);
            break;
        case WM_LBUTTONUP:
            state_.MouseUp(diagram::Button::Left, point);
            state_.MouseUp(diagram::Button::Middle, point);
            break;
        case WM_MBUTTONUP:
            state_.MouseUp(diagram::Button::Middle, point);
            break;
        default:
            if (!tracking_) {
                TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Handle(), 0};
                tracking_ = TrackMouseEvent(&track) != 0;
            }
            state_.MouseMove(point);
            if (state_.HoldsMouse()) OnSetCursor();
            break;
    }
    if (IsCreated()) FollowCapture();
    return 0;
}

LRESULT DiagramView::DialogCode(LPARAM lparam) const {
    LRESULT code = DLGC_WANTARROWS | DLGC_WANTCHARS;
    const auto* message = reinterpret_cast<const MSG*>(lparam);
    if (!message || message->message != WM_KEYDOWN) return code;
    const bool on_relation = diagram_ && diagram_->SelectedElement() == model::DiagramElement::Relation;
    // Enter and Esc belong to the dialog unless they mean something here and now.
    if ((message->wParam == VK_RETURN && on_relation) ||
        (message->wParam == VK_ESCAPE && state_.HoldsMouse()) ||
        (state_.IsRelating() && IsRelatingKey(message->wParam)))
        code |= DLGC_WANTMESSAGE;
    return code;
}

LRESULT DiagramView::OnKeyDown(WPARAM wparam, LPARAM lparam) {
    struct KeyName {
        WPARAM code;
        diagram::Key key;
    };
    static constexpr KeyName kKeys[] = {
        {VK_LEFT, diagram::Key::Left},      {VK_RIGHT, diagram::Key::Right},
        {VK_UP, diagram::Key::Up},          {VK_DOWN, diagram::Key::Down},
        {VK_HOME, diagram::Key::Home},      {VK_END, diagram::Key::End},
        {VK_PRIOR, diagram::Key::PageUp},   {VK_NEXT, diagram::Key::PageDown},
        {VK_SPACE, diagram::Key::Space},    {VK_DELETE, diagram::Key::Delete},
        {VK_RETURN, diagram::Key::Enter},   {VK_ESCAPE, diagram::Key::Escape},
        {VK_ADD, diagram::Key::Plus},       {VK_OEM_PLUS, diagram::Key::Plus},
        {VK_SUBTRACT, diagram::Key::Minus}, {VK_OEM_MINUS, diagram::Key::Minus},
        {'0', diagram::Key::Zero},          {VK_NUMPAD0, diagram::Key::Zero},
        {VK_TAB, diagram::Key::Tab},        {'9', diagram::Key::Nine},
        {VK_NUMPAD9, diagram::Key::Nine},   {VK_INSERT, diagram::Key::Insert},
    };
    if (OnCommandKey(wparam)) return 0;
    if (wparam == VK_SPACE) {
        if (space_ == SpaceBar::Up) space_ = SpaceBar::Down;
        return 0;
    }
    for (const KeyName& name : kKeys) {
        if (name.code != wparam) continue;
        if (!state_.KeyDown(name.key, HeldKeys())) break;
        if (IsCreated()) FollowCapture();
        return 0;
    }
    return Window::OnMessage(WM_KEYDOWN, wparam, lparam);
}

// Ticking waits until the space bar is let go, because with the mouse it takes hold of the plane.
void DiagramView::OnSpaceUp() {
    if (std::exchange(space_, SpaceBar::Up) == SpaceBar::Down)
        state_.KeyDown(diagram::Key::Space, HeldKeys());
}

void DiagramView::RelayToTip(UINT message, WPARAM wparam, LPARAM lparam) {
    // Made when the mouse first comes.
    if (!tip_) CreateTip();
    if (!tip_) return;
    if (tip_hit_ != state_.Hover() || state_.HoldsMouse()) {
        tip_hit_ = state_.Hover();
        SendMessageW(tip_, TTM_POP, 0, 0);
    }
    MSG relayed{};
    relayed.hwnd = Handle();
    relayed.message = message;
    relayed.wParam = wparam;
    relayed.lParam = lparam;
    SendMessageW(tip_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

std::wstring DiagramView::TipText() const {
    const diagram::Hit& hover = state_.Hover();
    if (!diagram_ || state_.HoldsMouse()) return {};
    if (hover.kind == diagram::HitKind::Relation) {
        const model::DiagramRelation* relation = diagram_->FindRelation(hover.relation);
        return relation ? diagram::RelationText(relation->info) : std::wstring();
    }
    if (hover.table < 0 || hover.table >= static_cast<int>(diagram_->Tables().size())) return {};
    const model::DiagramTable& table = diagram_->Tables()[static_cast<std::size_t>(hover.table)];
    if (hover.kind == diagram::HitKind::Title) return diagram::TableText(table);
    if (hover.row == 0) return diagram::AllFieldsText(table);
    const model::DiagramField* field = diagram::RowField(table, hover.row);
    return field ? diagram::FieldText(*field) : std::wstring();
}

LRESULT DiagramView::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    if (LRESULT result = 0; accessible_.OnMessage(Handle(), message, wparam, lparam, result)) return result;
    switch (message) {
        case WM_CREATE:
            OnCreated();
            return 0;
        case WM_DESTROY:
            tip_ = nullptr;
            fit_button_ = nullptr;
            state_.Cancel();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            OnPaint();
            return 0;
        case WM_SIZE:
            OnResized();
            return 0;
        case kRefresh:
            Refresh();
            return 0;
        case WM_COMMAND:
            if (fit_button_ && reinterpret_cast<HWND>(lparam) == fit_button_) {
                Fit();
                SetFocus(Handle());
            }
            return 0;
        case WM_GETDLGCODE:
            return DialogCode(lparam);
        case WM_KILLFOCUS:
            space_ = SpaceBar::Up;
            state_.CancelRelation();
            InvalidateRect(Handle(), nullptr, FALSE);
            return 0;
        case WM_SETFOCUS:
            accessible_.ReportFocus();
            InvalidateRect(Handle(), nullptr, FALSE);
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_LBUTTONDBLCLK:
        case WM_MBUTTONDOWN:
        case WM_MBUTTONUP:
        case WM_RBUTTONDOWN:
        case WM_MOUSEMOVE:
            OnMouse(message, wparam, lparam);
            if (IsCreated()) RelayToTip(message, wparam, lparam);
            return 0;
        case WM_MOUSELEAVE:
            tracking_ = false;
            state_.MouseLeave();
            return 0;
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
            OnWheel(wparam, lparam, message == WM_MOUSEHWHEEL);
            return 0;
        case WM_CAPTURECHANGED:
            if (reinterpret_cast<HWND>(lparam) != Handle()) state_.Cancel();
            return 0;
        case WM_TIMER:
            if (wparam == kAutoScrollTimer) state_.AutoScroll();
            return 0;
        case WM_SETCURSOR:
            if (LOWORD(lparam) == HTCLIENT && OnSetCursor()) return TRUE;
            break;
        case WM_CONTEXTMENU:
            OnContextMenu(lparam);
            return 0;
        case WM_KEYDOWN:
            return OnKeyDown(wparam, lparam);
        case WM_KEYUP:
            if (wparam == VK_SPACE) OnSpaceUp();
            return 0;
        case WM_CHAR:
            if (wparam > VK_SPACE) state_.Typed(static_cast<wchar_t>(wparam));
            return 0;
        case WM_HSCROLL:
            OnScrollBar(SB_HORZ, LOWORD(wparam));
            return 0;
        case WM_VSCROLL:
            OnScrollBar(SB_VERT, LOWORD(wparam));
            return 0;
        case WM_NOTIFY: {
            auto* header = reinterpret_cast<NMHDR*>(lparam);
            if (header->hwndFrom != tip_ || header->code != TTN_GETDISPINFOW) break;
            tip_text_ = TipText();
            reinterpret_cast<NMTTDISPINFOW*>(lparam)->lpszText = tip_text_.data();
            return 0;
        }
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
        case WM_THEMECHANGED:
        case win32::kDpiChangedAfterParent:
            ReadSettings();
            return 0;
        default:
            break;
    }
    return Window::OnMessage(message, wparam, lparam);
}

}  // namespace tessel::controls
