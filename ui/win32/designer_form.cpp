#include "ui/win32/designer_form.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <vector>

#include "common/win32/accessible_name.h"
#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/module.h"
#include "common/win32/screen.h"
#include "ui/accessible_names.h"
#include "ui/designer_layout.h"
#include "ui/dlg_dsn_texts.h"
#include "ui/win32/rect_area.h"

namespace tessel::ui {

namespace {

// All in dips.
constexpr int kWindowWidth = 1000;
constexpr int kWindowHeight = 680;
constexpr int kMinimumWidth = 700;
constexpr int kMinimumHeight = 460;
constexpr int kTopPadding = 7;  // above and below the commands
constexpr int kBottomHeight = 46;
constexpr int kButtonHeight = 26;
constexpr int kSmallButtonHeight = 20;
constexpr int kButtonPadding = 12;  // left and right of a caption
constexpr int kButtonMinimum = 86;
constexpr int kMargin = 8;
constexpr int kGap = 6;
constexpr int kBrowserWidth = 220;
constexpr int kBrowserHeight = 400;  // above the properties
constexpr int kGridHeight = 270;     // buttons, header, eight rows and the scroll bar
constexpr int kSplitterMinimum = 80;
constexpr int kCheckMark = 20;  // the box of a check button with its gap
constexpr int kTwipsPerInch = 1440;

SIZE ClientSize(HWND hwnd) {
    RECT client{};
    GetClientRect(hwnd, &client);
    return {client.right, client.bottom};
}

/// The layout runs again whenever anything changes; what keeps its place is left alone, since moving a window
/// nowhere costs as much as moving it.
void Place(HWND hwnd, int left, int top, int width, int height) {
    const RECT wanted{left, top, left + std::max(width, 0), top + std::max(height, 0)};
    RECT now{};
    if (GetWindowRect(hwnd, &now)) {
        MapWindowPoints(nullptr, GetParent(hwnd), reinterpret_cast<POINT*>(&now), 2);
        if (EqualRect(&now, &wanted)) return;
    }
    SetWindowPos(hwnd, nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                 wanted.bottom - wanted.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

int DesignerForm::Px(int dips) const {
    return win32::Scale(dips, dpi_);
}
int DesignerForm::FromTwips(int twips) const {
    return win32::TwipsToPixels(twips, dpi_);
}
int DesignerForm::ToTwips(int pixels) const {
    return MulDiv(pixels, kTwipsPerInch, dpi_);
}

bool DesignerForm::CreateButton(HWND& button, HWND parent, const wchar_t* caption, int id, DWORD style,
                                const wchar_t* tip) {
    button =
        CreateWindowExW(0, L"BUTTON", caption, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 0, 0, 0, 0, parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), win32::ThisModule(), nullptr);
    if (!button) return false;
    AddTip(button, tip);
    return true;
}

void DesignerForm::AddTip(HWND control, const wchar_t* tip) {
    TTTOOLINFOW info{};
    info.cbSize = sizeof info;
    info.uFlags = TTF_IDISHWND;
    info.hwnd = Handle();
    info.uId = reinterpret_cast<UINT_PTR>(control);
    info.lpszText = const_cast<wchar_t*>(tip);
    SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info));
}

bool DesignerForm::CreateControls(const Listeners& listeners) {
    const win32::AccessibleNaming naming;
    const HINSTANCE module = win32::ThisModule();
    const HWND form = Handle();
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, CW_USEDEFAULT,
                            0, 0, 0, form, nullptr, module, nullptr);

    // In tab order: the commands, the browser, the strip with its page, the dialog buttons.
    if (!CreateButton(add_table_, form, texts::kAddTable, kIdAddTable, 0, texts::kTipAddTable) ||
        !CreateButton(run_query_, form, texts::kRunQuery, kIdRunQuery, 0, texts::kTipRunQuery) ||
        !CreateButton(syntax_tree_, form, texts::kSyntaxTree, kIdSyntaxTree, 0, texts::kTipSyntaxTree))
        return false;

    if (!main_splitter_.Create(form, kIdMainSplitter, controls::Orientation::SideBySide,
                               listeners.splitters) ||
        !browser_splitter_.Create(main_splitter_.Handle(), kIdBrowserSplitter, controls::Orientation::Stacked,
                                  listeners.splitters) ||
        !browser_.Create(browser_splitter_.Handle(), kIdBrowser, listeners.browser) ||
        !props_.Create(browser_splitter_.Handle(), kIdProperties) ||
        !strip_.Create(main_splitter_.Handle(), form, kIdPanel))
        return false;
    browser_splitter_.SetPanes(browser_.Handle(), props_.Handle());
    browser_splitter_.SetMinimums(2 * kSplitterMinimum, kSplitterMinimum);
    browser_splitter_.SetPosition(kBrowserHeight);
    main_splitter_.SetPanes(browser_splitter_.Handle(), strip_.Handle());
    main_splitter_.SetMinimums(kSplitterMinimum, 4 * kSplitterMinimum);
    main_splitter_.SetPosition(kBrowserWidth);
    main_splitter_.SetName(accessible_names::kMainSplitter);
    browser_splitter_.SetName(accessible_names::kBrowserSplitter);

    // Of a width that the tabs fit into, or the control would make itself a pair of arrows first.
    tabs_ = CreateWindowExW(0, WC_TABCONTROLW, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP, 0,
                            0, Px(kWindowWidth), Px(kBottomHeight), strip_.Handle(),
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(kIdTabs)), module, nullptr);
    if (!tabs_) return false;
    win32::SetAccessibleName(tabs_, accessible_names::kTabs);
    const wchar_t* const captions[] = {texts::kDesignTab, texts::kSqlTab};
    for (int i = 0; i < 2; ++i) {
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(captions[i]);
        SendMessageW(tabs_, TCM_INSERTITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
    }

    if (!page_splitter_.Create(strip_.Handle(), kIdPageSplitter, controls::Orientation::Stacked,
                               listeners.splitters) ||
        !diagram_.Create(page_splitter_.Handle(), kIdDiagram) ||
        !design_pane_.Create(page_splitter_.Handle(), form, kIdPanel) ||
        !grid_buttons_.Create(design_pane_.Handle(), form, kIdPanel) ||
        !CreateButton(remove_column_, grid_buttons_.Handle(), texts::kRemoveColumn, kIdRemoveColumn, 0,
                      texts::kTipRemoveColumn) ||
        !CreateButton(clear_all_, grid_buttons_.Handle(), texts::kClearAll, kIdClearAll, 0,
                      texts::kTipClearAll) ||
        !CreateButton(distinct_, grid_buttons_.Handle(), texts::kDistinct, kIdDistinct, BS_AUTOCHECKBOX,
                      texts::kTipDistinct) ||
        !grid_.Create(design_pane_.Handle(), kIdGrid) ||
        !reason_.Create(design_pane_.Handle(), kIdReason, texts::kReason, listeners.reason_link) ||
        !sql_page_.Create(strip_.Handle(), form, kIdPanel, false) ||
        !find_bar_.Create(sql_page_.Handle(), kIdFindBar, nullptr, editor_, [this] { LayoutSqlPage(); }) ||
        !editor_.Create(sql_page_.Handle(), kIdEditor, win32::ModuleFolder() + L"SQL.ini",
                        listeners.editor) ||
        !error_line_.Create(sql_page_.Handle(), kIdErrorLine, editor_, [this] { LayoutSqlPage(); }))
        return false;
    page_splitter_.SetPanes(diagram_.Handle(), design_pane_.Handle());
    page_splitter_.SetName(accessible_names::kPageSplitter);
    page_splitter_.SetMinimums(kSplitterMinimum, kSplitterMinimum);
    // lblNo lies under the grid and its buttons.
    SetWindowPos(reason_.Handle(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);

    focus_ = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, -10, -10, 1, 1, form,
                             reinterpret_cast<HMENU>(static_cast<INT_PTR>(kIdFocus)), module, nullptr);
    if (focus_) win32::SetAccessibleName(focus_, accessible_names::kFocus);

    if (!buttons_.Create(form, form, kIdPanel) ||
        !CreateButton(accept_, buttons_.Handle(), texts::kAccept, kIdAccept, BS_DEFPUSHBUTTON,
                      texts::kTipAccept) ||
        !CreateButton(cancel_, buttons_.Handle(), texts::kCancel, kIdCancel, 0, texts::kTipCancel) ||
        !CreateButton(help_, buttons_.Handle(), texts::kHelp, kIdHelp, 0, texts::kTipHelp))
        return false;

    strip_.OnSize([this] { LayoutStrip(); });
    design_pane_.OnSize([this] { LayoutDesignPane(); });
    sql_page_.OnSize([this] { LayoutSqlPage(); });
    // The other controls took theirs when they were created.
    ApplyOwnFonts();
    return true;
}

void DesignerForm::ApplyFonts() {
    ApplyOwnFonts();
    editor_.OnDpiChanged(dpi_);
    browser_.OnDpiChanged(dpi_);
    props_.OnDpiChanged(dpi_);
}

void DesignerForm::ApplyOwnFonts() {
    win32::UniqueFont font = win32::MessageFont(dpi_);
    const LPARAM redraw = IsWindowVisible(Handle()) ? TRUE : FALSE;
    for (HWND control : {add_table_, run_query_, syntax_tree_, tabs_, remove_column_, clear_all_, distinct_,
                         accept_, cancel_, help_, focus_})
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), redraw);
    reason_.SetFont(font.get());
    error_line_.SetFont(font.get());
    find_bar_.SetFont(font.get());
    font_ = std::move(font);
}

void DesignerForm::ApplyScale() {
    dpi_ = win32::DpiOf(Handle());
    if (!cancel_) return;
    ApplyFonts();
    win32::TellDpiToChildren(Handle());
}

void DesignerForm::PlaceOnMonitorOf(HWND host) {
    const Area work = AreaOf(win32::WorkAreaOf(host));
    // The window's scale is that of the monitor it is on, so it goes there before it is measured.
    SetWindowPos(Handle(), nullptr, work.left, work.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    dpi_ = win32::DpiOf(Handle());
    MoveTo(Centred(Px(kWindowWidth), Px(kWindowHeight), work, work));
}

void DesignerForm::KeepReachable() {
    const HWND form = Handle();
    const Area work = AreaOf(win32::WorkAreaOf(form));
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (IsIconic(form) || IsZoomed(form)) {
        if (!GetWindowPlacement(form, &placement)) return;
        const Area place = KeptInside(AreaOf(placement.rcNormalPosition), work);
        placement.rcNormalPosition = {place.left, place.top, place.right, place.bottom};
        SetWindowPlacement(form, &placement);
        return;
    }
    RECT window{};
    GetWindowRect(form, &window);
    const Area place = KeptInside(AreaOf(window), work);
    if (place != AreaOf(window)) MoveTo(place);
}

void DesignerForm::MoveTo(const Area& place) {
    SetWindowPos(Handle(), nullptr, place.left, place.top, place.Width(), place.Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

SIZE DesignerForm::SmallestSize() const {
    const Area work = AreaOf(win32::WorkAreaOf(Handle()));
    return {std::min(Px(kMinimumWidth), work.Width()), std::min(Px(kMinimumHeight), work.Height())};
}

void DesignerForm::LayoutForm() {
    if (!cancel_) return;
    const SIZE inner = ClientSize(Handle());
    const int top = LayoutTopButtons(inner.cx);
    const int bottom = Px(kBottomHeight);
    if (const auto box = SplitterBox(ToTwips(inner.cx), ToTwips(inner.cy), ToTwips(top), ToTwips(bottom)))
        Place(main_splitter_.Handle(), 0, top, inner.cx, inner.cy - top - bottom);
    LayoutBottomButtons(inner);
    LayoutStrip();
}

int DesignerForm::ButtonWidth(HWND button) const {
    wchar_t caption[128] = L"";
    GetWindowTextW(button, caption, 128);
    RECT text{};
    DrawTextW(win32::MeasuringDc(font_.get()).Get(), caption, -1, &text, DT_SINGLELINE | DT_CALCRECT);
    return text.right - text.left + 2 * Px(kButtonPadding);
}

// Where the window is narrow the commands take a second row, whole, rather than being cut.
int DesignerForm::LayoutTopButtons(int inner_width) {
    const HWND buttons[] = {add_table_, run_query_, syntax_tree_};
    std::vector<int> widths;
    for (HWND button : buttons) widths.push_back(ButtonWidth(button));
    const std::vector<FlowPlace> places = Flow(widths, inner_width - 2 * Px(kMargin), Px(kGap));
    const int height = Px(kButtonHeight);
    for (std::size_t i = 0; i < places.size(); ++i)
        Place(buttons[i], Px(kMargin) + places[i].left, Px(kTopPadding) + places[i].row * (height + Px(kGap)),
              widths[i], height);
    return 2 * Px(kTopPadding) + height + places.back().row * (height + Px(kGap));
}

void DesignerForm::LayoutBottomButtons(const SIZE& inner) {
    const int height = Px(kButtonHeight);
    const int top = (Px(kBottomHeight) - height) / 2;
    int left = 0;
    for (HWND button : {accept_, cancel_, help_}) {
        const int width = std::max(ButtonWidth(button), Px(kButtonMinimum));
        Place(button, left, top, width, height);
        left += width + Px(kGap);
    }
    const int panel_width = left - Px(kGap) + Px(kMargin);
    Place(buttons_.Handle(), FromTwips(ButtonsLeft(ToTwips(inner.cx), ToTwips(panel_width))),
          inner.cy - Px(kBottomHeight), panel_width, Px(kBottomHeight));
}

void DesignerForm::LayoutStrip() {
    if (!cancel_) return;
    const SIZE strip = ClientSize(strip_.Handle());
    Place(tabs_, 0, 0, strip.cx, strip.cy);
    const TwipsSize page = PageSize(ToTwips(strip.cx), ToTwips(strip.cy));
    if (page.height && !is_page_divided_) DivideDesignPage(FromTwips(*page.height));
    for (HWND hwnd : {page_splitter_.Handle(), sql_page_.Handle()}) {
        const SIZE now = ClientSize(hwnd);
        Place(hwnd, FromTwips(kPageLeft), FromTwips(kPageTop), page.width ? FromTwips(*page.width) : now.cx,
              page.height ? FromTwips(*page.height) : now.cy);
    }
    LayoutSqlPage();
    CutPageOutOfTabs();
}

/// The tabs come before their pages in the order of the Tab key, and so lie above them: their body has a hole
/// where the page is.
void DesignerForm::CutPageOutOfTabs() {
    const SIZE strip = ClientSize(strip_.Handle());
    const SIZE page = ClientSize(page_splitter_.Handle());
    const int left = FromTwips(kPageLeft);
    const int top = FromTwips(kPageTop);
    const HRGN region = CreateRectRgn(0, 0, strip.cx, strip.cy);
    const HRGN hole = CreateRectRgn(left, top, left + page.cx, top + page.cy);
    if (region && hole) CombineRgn(region, region, hole, RGN_DIFF);
    if (hole) DeleteObject(hole);
    const HRGN now = CreateRectRgn(0, 0, 0, 0);
    const bool same = region && now && GetWindowRgn(tabs_, now) != ERROR && EqualRgn(now, region);
    if (now) DeleteObject(now);
    // A region that is set becomes the window's own.
    if (region && (same || !SetWindowRgn(tabs_, region, TRUE))) DeleteObject(region);
}

/// The first division between diagram and grid: the grid gets the height of its rows when there is room for
/// both. Made before the page has its place, so that what is on it is placed once.
void DesignerForm::DivideDesignPage(int height) {
    is_page_divided_ = true;
    const int page = MulDiv(height, 96, dpi_);
    page_splitter_.SetPosition(std::max(std::min(page - kGridHeight, page * 6 / 10), page * 3 / 10));
}

void DesignerForm::LayoutDesignPane() {
    if (!cancel_) return;
    const SIZE pane = ClientSize(design_pane_.Handle());
    Place(grid_buttons_.Handle(), 0, 0, pane.cx, FromTwips(kGridTop));
    Place(reason_.Handle(), 0, 0, pane.cx, pane.cy);
    const TwipsSize size = GridSize(ToTwips(pane.cx), ToTwips(pane.cy));
    const SIZE now = ClientSize(grid_.Handle());
    Place(grid_.Handle(), 0, FromTwips(kGridTop), size.width ? FromTwips(*size.width) : now.cx,
          size.height ? FromTwips(*size.height) : now.cy);
    LayoutGridButtons();
}

void DesignerForm::LayoutGridButtons() {
    const int height = Px(kSmallButtonHeight);
    int left = 0;
    for (HWND button : {remove_column_, clear_all_}) {
        const int width = ButtonWidth(button);
        Place(button, left, 0, width, height);
        left += width + Px(kGap);
    }
    Place(distinct_, left + Px(kGap), 0, ButtonWidth(distinct_) + Px(kCheckMark), height);
}

void DesignerForm::LayoutSqlPage() {
    const SIZE page = ClientSize(sql_page_.Handle());
    const int line = std::min<int>(error_line_.HeightFor(page.cx), page.cy / 2);
    const int find = find_bar_.IsShown() ? std::min<int>(find_bar_.Height(), page.cy / 2) : 0;
    Place(find_bar_.Handle(), 0, 0, page.cx, find);
    Place(editor_.Handle(), 0, find, page.cx, page.cy - find - line);
    Place(error_line_.Handle(), 0, page.cy - line, page.cx, line);
}

}  // namespace tessel::ui
