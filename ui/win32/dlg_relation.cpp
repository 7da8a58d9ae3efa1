#include "ui/win32/dlg_relation.h"

#include <algorithm>
#include <string>

#include "common/win32/gdi.h"
#include "common/win32/module.h"
#include "ui/relation_texts.h"

namespace tessel::ui {

namespace {

constexpr int kIdFields = 311;
constexpr int kIdFirstKind = 312;
constexpr int kWidth = 460;         // dips, outside
constexpr int kMinimumWidth = 300;  // dips, outside
constexpr int kHeight = 320;        // dips, until the texts are measured
constexpr int kMargin = 12;         // dips
constexpr int kGap = 8;             // dips
constexpr int kIndent = 12;         // dips
constexpr int kRadioMark = 22;      // dips: the circle and its distance from the text
constexpr model::JoinKind kKinds[] = {model::kInnerJoin, model::kLeftJoin, model::kRightJoin};

}  // namespace

std::optional<model::JoinKind> dlgRelation::Ask(HWND owner, const model::RelInfo& relation) {
    relation_ = relation;
    answer_.reset();
    Run(owner, texts::kRelationTitle, {kWidth, kHeight}, {kMinimumWidth, 0});
    return answer_;
}

HWND dlgRelation::AddText(const wchar_t* window_class, const wchar_t* text, DWORD style, int id) {
    const HWND control =
        CreateWindowExW(0, window_class, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, Handle(),
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), win32::ThisModule(), nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(Font()), FALSE);
    return control;
}

bool dlgRelation::OnCreateControls() {
    fields_caption_ = AddText(L"STATIC", texts::kRelationFields, SS_NOPREFIX, -1);
    fields_ = AddText(L"STATIC", RelationFields(relation_).c_str(), SS_NOPREFIX, kIdFields);
    kind_caption_ = AddText(L"STATIC", texts::kRelationKind, SS_NOPREFIX, -1);
    for (std::size_t i = 0; i < kinds_.size(); ++i) {
        const DWORD first = i == 0 ? WS_GROUP | WS_TABSTOP : 0;
        kinds_[i] = AddText(L"BUTTON", KindSentence(relation_, kKinds[i]).c_str(),
                            BS_AUTORADIOBUTTON | BS_MULTILINE | BS_TOP | BS_NOTIFY | first,
                            kIdFirstKind + static_cast<int>(i));
    }
    accept_ = AddButton(texts::kRelationAccept, IDOK, true);
    cancel_ = AddButton(texts::kRelationCancel, IDCANCEL, false);
    if (!fields_ || !kinds_[0] || !kinds_[1] || !kinds_[2] || !accept_ || !cancel_) return false;
    // The arrow keys walk through the kinds only.
    SetWindowLongPtrW(accept_, GWL_STYLE, GetWindowLongPtrW(accept_, GWL_STYLE) | WS_GROUP);
    const auto current = std::ranges::find(kKinds, relation_.JType);
    const std::size_t shown = current == std::end(kKinds) ? 0 : static_cast<std::size_t>(current - kKinds);
    SendMessageW(kinds_[shown], BM_SETCHECK, BST_CHECKED, 0);

    RECT window{};
    GetWindowRect(Handle(), &window);
    SetWindowPos(Handle(), nullptr, 0, 0, window.right - window.left,
                 NeededHeight(window.right - window.left), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    return true;
}

int dlgRelation::TextHeight(HWND control, int width) const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)), L'\0');
    GetWindowTextW(control, text.data(), static_cast<int>(text.size()) + 1);
    RECT area{0, 0, std::max(width, 1), 0};
    DrawTextW(win32::MeasuringDc(Font()).Get(), text.c_str(), -1, &area, DT_WORDBREAK | DT_CALCRECT);
    return area.bottom;
}

int dlgRelation::Arrange(int width, bool move) {
    const int left = Px(kMargin);
    const int inner = width - 2 * left;
    int top = left;
    const auto place = [&](HWND control, int indent, int mark, int gap) {
        const int height = TextHeight(control, inner - indent - mark) + (mark ? Px(2) : 0);
        if (move) MoveWindow(control, left + indent, top, inner - indent, height, TRUE);
        top += height + gap;
    };
    place(fields_caption_, 0, 0, Px(kGap) / 2);
    place(fields_, Px(kIndent), 0, 2 * Px(kGap));
    place(kind_caption_, 0, 0, Px(kGap));
    for (const HWND kind : kinds_) place(kind, Px(kIndent), Px(kRadioMark), Px(kGap));
    return top + Px(kGap) + ButtonSize(accept_).cy + Px(kMargin);
}

int dlgRelation::NeededHeight(int outer_width) {
    RECT client{};
    RECT window{};
    GetClientRect(Handle(), &client);
    GetWindowRect(Handle(), &window);
    const int frame_width = window.right - window.left - client.right;
    const int frame_height = window.bottom - window.top - client.bottom;
    return Arrange(outer_width - frame_width, false) + frame_height;
}

void dlgRelation::OnLayout(SIZE client) {
    Arrange(client.cx, true);
    const SIZE accept = ButtonSize(accept_);
    const SIZE cancel = ButtonSize(cancel_);
    const int top = client.cy - accept.cy - Px(kMargin);
    const int cancel_left = client.cx - cancel.cx - Px(kMargin);
    MoveWindow(cancel_, cancel_left, top, cancel.cx, cancel.cy, TRUE);
    MoveWindow(accept_, cancel_left - Px(kGap) - accept.cx, top, accept.cx, accept.cy, TRUE);
    InvalidateRect(Handle(), nullptr, TRUE);
}

LRESULT dlgRelation::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    const LRESULT result = ModalDialog::OnMessage(message, wparam, lparam);
    // The texts wrap, so how much height they need depends on the width that the window is about to have.
    if (message == WM_WINDOWPOSCHANGING && accept_) {
        auto* position = reinterpret_cast<WINDOWPOS*>(lparam);
        if (!(position->flags & SWP_NOSIZE) && !IsIconic(Handle()))
            position->cy = std::max(position->cy, NeededHeight(position->cx));
    }
    return result;
}

int dlgRelation::ChosenIndex() const {
    for (std::size_t i = 0; i < kinds_.size(); ++i)
        if (SendMessageW(kinds_[i], BM_GETCHECK, 0, 0) == BST_CHECKED) return static_cast<int>(i);
    return 0;
}

HWND dlgRelation::FirstFocus() const {
    return kinds_[static_cast<std::size_t>(ChosenIndex())];
}

void dlgRelation::OnCommand(int id, int notification) {
    if (id == IDCANCEL) return Close();
    const bool accepts = id == IDOK || (id >= kIdFirstKind && notification == BN_DBLCLK);
    if (!accepts) return;
    answer_ = kKinds[ChosenIndex()];
    Close();
}

}  // namespace tessel::ui
