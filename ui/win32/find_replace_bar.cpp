#include "ui/win32/find_replace_bar.h"

#include <algorithm>
#include <iterator>

#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/module.h"
#include "ui/editor_search_texts.h"

namespace tessel::ui {

namespace {

// All in dips.
constexpr int kPadding = 4;
constexpr int kGap = 6;
constexpr int kButtonPadding = 10;  // left and right of a caption
constexpr int kCheckMark = 20;      // the box of a check button with its gap
constexpr int kEditWidth = 220;
constexpr int kRowHeight = 24;
constexpr std::size_t kLongestTaken = 200;  // characters of a selection that become the sought text

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

std::wstring TextOf(HWND hwnd) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(hwnd)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(hwnd, text.data(), static_cast<int>(text.size()))));
    return text;
}

bool IsChecked(HWND button) {
    return SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

BOOL CALLBACK GiveFont(HWND child, LPARAM font) {
    SendMessageW(child, WM_SETFONT, static_cast<WPARAM>(font), TRUE);
    return TRUE;
}

struct Control {
    const wchar_t* class_name;
    const wchar_t* caption;
    int id;
    DWORD style;
};

// In tab order, behind those of FindBar.
constexpr Control kControls[] = {
    {L"BUTTON", texts::kCloseFind, FindReplaceBar::kIdClose, WS_TABSTOP | WS_VISIBLE},
    {L"BUTTON", texts::kMatchCase, FindReplaceBar::kIdMatchCase, WS_TABSTOP | WS_VISIBLE | BS_AUTOCHECKBOX},
    {L"BUTTON", texts::kWholeWord, FindReplaceBar::kIdWholeWord, WS_TABSTOP | WS_VISIBLE | BS_AUTOCHECKBOX},
    {L"STATIC", L"", FindReplaceBar::kIdNote, WS_VISIBLE | SS_CENTERIMAGE | SS_ENDELLIPSIS | SS_NOPREFIX},
    {L"STATIC", texts::kReplaceLabel, FindReplaceBar::kIdReplaceLabel, SS_CENTERIMAGE},
    {L"EDIT", L"", FindReplaceBar::kIdReplaceText, WS_TABSTOP | ES_AUTOHSCROLL},
    {L"BUTTON", texts::kReplaceOne, FindReplaceBar::kIdReplaceOne, WS_TABSTOP},
    {L"BUTTON", texts::kReplaceAll, FindReplaceBar::kIdReplaceAll, WS_TABSTOP},
};

constexpr int kReplaceRow[] = {FindReplaceBar::kIdReplaceLabel, FindReplaceBar::kIdReplaceText,
                               FindReplaceBar::kIdReplaceOne, FindReplaceBar::kIdReplaceAll};

}  // namespace

bool FindReplaceBar::Create(HWND parent, int id, HFONT font, controls::SqlEditor& editor,
                            std::function<void()> on_shape) {
    editor_ = &editor;
    on_shape_ = std::move(on_shape);
    font_ = font;
    static const win32::WindowClass kClass{L"TesselFind", 0, nullptr, IDC_ARROW};
    return CreateWindowOf(kClass, L"", WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT,
                          parent, id);
}

// Most windows are closed before anybody looks for anything. A control that Windows refuses is missing, and
// what it would do with it.
void FindReplaceBar::CreateControls() {
    if (has_controls_ || !Handle()) return;
    has_controls_ = true;
    find_.Create(Handle(), font_, {texts::kFindLabel, texts::kFindNext, texts::kFindPrevious});
    for (const Control& control : kControls) {
        const bool is_edit = lstrcmpW(control.class_name, L"EDIT") == 0;
        CreateWindowExW(is_edit ? WS_EX_CLIENTEDGE : 0, control.class_name, control.caption,
                        WS_CHILD | control.style, 0, 0, 0, 0, Handle(),
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(control.id)), win32::ThisModule(),
                        nullptr);
    }
    find_.Show(true);
    SetFont(font_);
}

void FindReplaceBar::SetFont(HFONT font) {
    font_ = font;
    if (!Handle()) return;
    EnumChildWindows(Handle(), GiveFont, reinterpret_cast<LPARAM>(font));
    Layout();
}

int FindReplaceBar::Px(int dips) const {
    return win32::Scale(dips, win32::DpiOf(Handle()));
}

int FindReplaceBar::RowHeight() const {
    return Px(kRowHeight);
}

int FindReplaceBar::Height() const {
    const int rows = with_replace_ ? 3 : 2;
    return rows * RowHeight() + (rows - 1) * Px(kPadding) + 2 * Px(kPadding);
}

SIZE FindReplaceBar::SizeOf(HWND control) const {
    const win32::MeasuringDc dc(font_ ? static_cast<HGDIOBJ>(font_) : GetStockObject(DEFAULT_GUI_FONT));
    RECT text{};
    const std::wstring caption = TextOf(control);
    DrawTextW(dc.Get(), caption.c_str(), -1, &text, DT_SINGLELINE | DT_CALCRECT);
    return {text.right, text.bottom};
}

// The second row has the options and the note, the third one replaces.
void FindReplaceBar::Layout() {
    // There are no controls and captions yet before it is first opened.
    if (!Handle() || !Item(FindBar::kIdPrevious)) return;
    RECT client{};
    GetClientRect(Handle(), &client);
    const int height = RowHeight();
    const int gap = Px(kGap);
    const auto button_size = [&](HWND button) {
        return SIZE{SizeOf(button).cx + 2 * Px(kButtonPadding), height};
    };
    int left = Px(kPadding);
    int top = Px(kPadding);
    const auto place = [&](int id, int width, int control_height) {
        MoveWindow(Item(id), left, top + (height - control_height) / 2, width, control_height, TRUE);
        left += width + gap;
    };
    const int close = button_size(Item(kIdClose)).cx;
    const int right = client.right - Px(kPadding);
    find_.Layout({left, top, right - close - gap, top + height}, gap, Px(kEditWidth), button_size);
    left = std::max<int>(right - close, left);
    place(kIdClose, close, height);

    left = Px(kPadding);
    top += height + Px(kPadding);
    for (const int id : {kIdMatchCase, kIdWholeWord}) place(id, SizeOf(Item(id)).cx + Px(kCheckMark), height);
    place(kIdNote, std::max<int>(right - left, 0), height);

    left = Px(kPadding);
    top += height + Px(kPadding);
    const SIZE label = SizeOf(Item(kIdReplaceLabel));
    const int one = button_size(Item(kIdReplaceOne)).cx;
    const int all = button_size(Item(kIdReplaceAll)).cx;
    place(kIdReplaceLabel, label.cx, height);
    const int room = right - left - one - all - 2 * gap;
    place(kIdReplaceText, std::clamp(room, 0, Px(kEditWidth)), std::min<int>(label.cy + gap, height));
    place(kIdReplaceOne, one, height);
    place(kIdReplaceAll, all, height);
}

LRESULT FindReplaceBar::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_ERASEBKGND: {
            RECT client{};
            GetClientRect(Handle(), &client);
            FillRect(reinterpret_cast<HDC>(wparam), &client, GetSysColorBrush(COLOR_BTNFACE));
            return 1;
        }
        case WM_SIZE:
            Layout();
            return 0;
        case WM_COMMAND:
            OnCommand(LOWORD(wparam), HIWORD(wparam));
            return 0;
        default:
            return Window::OnMessage(message, wparam, lparam);
    }
}

void FindReplaceBar::OnCommand(int id, int notification) {
    if (id == FindBar::kIdText && notification == EN_CHANGE) Note(L"");
    if (notification != BN_CLICKED) return;
    switch (id) {
        case FindBar::kIdNext:
            return Find(true);
        case FindBar::kIdPrevious:
            return Find(false);
        case kIdReplaceOne:
            return ReplaceOne();
        case kIdReplaceAll:
            return ReplaceAll();
        case kIdClose:
            return Close();
        default:
            return;
    }
}

bool FindReplaceBar::OnKey(const MSG& message) {
    const bool in_bar = shown_ && IsChild(Handle(), message.hwnd);
    const bool in_editor = message.hwnd == editor_->Handle();
    if (message.message != WM_KEYDOWN || (!in_bar && !in_editor)) return false;
    const bool control = IsDown(VK_CONTROL) && !IsDown(VK_MENU);
    switch (message.wParam) {
        case 'F':
        case 'H':
            if (!control || IsDown(VK_SHIFT)) return false;
            Open(message.wParam == 'H');
            return true;
        case VK_F3:
            if (control) return false;
            Find(!IsDown(VK_SHIFT));
            return true;
        case VK_RETURN:
            return in_bar && OnEnter(message.hwnd, IsDown(VK_SHIFT));
        case VK_ESCAPE:
            // An open list of words is the innermost thing.
            if (!shown_ || (in_editor && editor_->IsListOpen())) return false;
            Close();
            return true;
        default:
            return false;
    }
}

// Enter would otherwise press the window's own button.
bool FindReplaceBar::OnEnter(HWND focus, bool shift) {
    switch (GetDlgCtrlID(focus)) {
        case FindBar::kIdNext:
        case FindBar::kIdPrevious:
        case kIdReplaceAll:
        case kIdClose:
            SendMessageW(focus, BM_CLICK, 0, 0);
            return true;
        case kIdReplaceText:
        case kIdReplaceOne:
            ReplaceOne();
            return true;
        default:
            Find(!shift);
            return true;
    }
}

void FindReplaceBar::Open(bool with_replace) {
    CreateControls();
    TakeSelection();
    with_replace_ = with_replace || (shown_ && with_replace_);
    for (const int id : kReplaceRow) ShowWindow(Item(id), with_replace_ ? SW_SHOWNA : SW_HIDE);
    Note(L"");
    Reveal();
    find_.Focus();
}

void FindReplaceBar::Reveal() {
    shown_ = true;
    ShowWindow(Handle(), SW_SHOWNA);
    on_shape_();
}

void FindReplaceBar::Close() {
    SetFocus(editor_->Handle());
    shown_ = false;
    with_replace_ = false;
    ShowWindow(Handle(), SW_HIDE);
    on_shape_();
}

void FindReplaceBar::TakeSelection() {
    const TextRange selection = editor_->Selection();
    if (selection.length == 0 || selection.length > kLongestTaken) return;
    const std::wstring text = editor_->Text().substr(selection.offset, selection.length);
    if (text.find_first_of(L"\r\n") == std::wstring::npos) find_.SetText(text);
}

controls::SearchFor FindReplaceBar::Sought() const {
    return {find_.Text(), IsChecked(Item(kIdMatchCase)), IsChecked(Item(kIdWholeWord))};
}

// A note is worth showing the bar for, but not worth taking the keyboard from the editor.
void FindReplaceBar::Note(const std::wstring& note) {
    SetWindowTextW(Item(kIdNote), note.c_str());
    if (!note.empty() && !shown_) Reveal();
}

void FindReplaceBar::Find(bool forward) {
    const controls::SearchFor what = Sought();
    if (what.text.empty()) return Open(with_replace_);
    const std::wstring text = editor_->Text();
    const TextRange selection = editor_->Selection();
    const auto found = forward ? controls::FindForward(text, what, selection.End())
                               : controls::FindBackward(text, what, selection.offset);
    if (!found) return Note(texts::kTextNotFound);
    editor_->SelectRange(found->range);
    const wchar_t* round = forward ? texts::kWentOnFromBeginning : texts::kWentOnFromEnd;
    Note(found->wrapped ? round : L"");
}

// What is selected is replaced when it matches; otherwise the first press only goes to the next match.
void FindReplaceBar::ReplaceOne() {
    const controls::SearchFor what = Sought();
    const TextRange selection = editor_->Selection();
    if (what.text.empty() || !controls::Matches(editor_->Text(), selection, what)) return Find(true);
    const std::wstring with = TextOf(Item(kIdReplaceText));
    editor_->ReplaceRange(selection, with);
    editor_->SelectRange({selection.offset + with.size(), 0});
    Find(true);
}

void FindReplaceBar::ReplaceAll() {
    const controls::SearchFor what = Sought();
    if (what.text.empty()) return find_.Focus();
    const controls::Replacement all =
        controls::ReplaceAll(editor_->Text(), what, TextOf(Item(kIdReplaceText)));
    if (all.count == 0) return Note(texts::kTextNotFound);
    editor_->ReplaceRange(all.range, all.text);
    Note(all.count == 1 ? texts::kReplacedOnce
                        : texts::kReplacedBefore + std::to_wstring(all.count) + texts::kReplacedAfter);
}

}  // namespace tessel::ui
