#include "ui/win32/editor_error_line.h"

#include <utility>
#include <vector>

namespace tessel::ui {

namespace {

constexpr UINT_PTR kTimer = 1;
constexpr UINT kPause = 400;  // milliseconds

LinkLabel::Sign SignOf(TextCheck::Kind kind) {
    switch (kind) {
        case TextCheck::Kind::Nothing:
            return LinkLabel::Sign::None;
        case TextCheck::Kind::Errors:
            return LinkLabel::Sign::Error;
        case TextCheck::Kind::NotShown:
        case TextCheck::Kind::NotShownWhole:
        case TextCheck::Kind::TooLong:
            return LinkLabel::Sign::Note;
    }
    return LinkLabel::Sign::None;
}

}  // namespace

bool EditorErrorLine::Create(HWND parent, int id, controls::SqlEditor& editor,
                             std::function<void()> on_told) {
    editor_ = &editor;
    on_told_ = std::move(on_told);
    return LinkLabel::Create(parent, id, Look::Plain, COLOR_BTNFACE, [this] {
        Refresh();
        GoTo(told_);
    });
}

void EditorErrorLine::TextTyped() {
    Await(kPause);
}

void EditorErrorLine::TextSet() {
    Await(USER_TIMER_MINIMUM);
}

void EditorErrorLine::Await(UINT milliseconds) {
    if (!Handle()) return;
    waits_ = true;
    SetTimer(Handle(), kTimer, milliseconds, nullptr);
}

LRESULT EditorErrorLine::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    if (message != WM_TIMER || wparam != kTimer) return LinkLabel::OnMessage(message, wparam, lparam);
    Refresh();
    return 0;
}

void EditorErrorLine::Refresh() {
    if (!waits_) return;
    waits_ = false;
    KillTimer(Handle(), kTimer);
    Check();
}

void EditorErrorLine::Check() {
    const std::wstring text = editor_->Text();
    check_ = CheckText(text, schema_);
    std::vector<controls::EditorMark> marks;
    for (std::size_t i = 0; i < check_.places.size(); ++i)
        marks.push_back({MarkedRange(text, check_.places[i].range), check_.kind == TextCheck::Kind::Errors,
                         PlaceTip(check_, i)});
    editor_->ShowMarks(std::move(marks));
    Tell(PlaceAt(check_, editor_->Selection().offset));
}

void EditorErrorLine::Tell(std::size_t place) {
    told_ = place;
    SetContents(CheckLine(check_, place), SignOf(check_.kind), !check_.places.empty());
    if (on_told_) on_told_();
}

void EditorErrorLine::GoToNext(bool backwards) {
    Refresh();
    if (const auto next = NextPlace(check_, editor_->Selection(), backwards)) GoTo(*next);
}

void EditorErrorLine::GoTo(std::size_t place) {
    if (place >= check_.places.size()) return;
    Tell(place);
    editor_->ShowPlace(check_.places[place].range);
    SetFocus(editor_->Handle());
}

}  // namespace tessel::ui
