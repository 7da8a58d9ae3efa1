#include "controls/editor/win32/editor_completion.h"

#include <algorithm>

#include "controls/editor/editor_text.h"
#include "sqlparser/char_class.h"

namespace tessel::controls {

namespace {

/// The part of the text around the caret that is looked at, in bytes on either side.
constexpr sptr_t kLookAround = 64 * 1024;
/// More entries than anybody looks through; typing narrows the list.
constexpr std::size_t kMostShown = 500;
constexpr int kListType = 1;
constexpr int kVisibleRows = 10;
// Neither is in any name.
constexpr char kSeparator = '\n';
constexpr char kTypeSeparator = '\x01';

/// A character that goes on with a name that begins so.
bool GoesOn(std::wstring_view typed, wchar_t ch) {
    const bool in_brackets = !typed.empty() && (typed.front() == L'[' || typed.starts_with(L"@{"));
    if (in_brackets) return ch != L']' && ch != L'}' && ch != L'\r' && ch != L'\n';
    return sql::Is(ch, sql::kWordPart) || ch == L'@' || ch == L'[' || ch == L'{';
}

}  // namespace

void EditorCompletion::Attach(const ScintillaCalls& editor, const SqlWords* words) {
    editor_ = editor;
    words_ = words;
    editor_.Send(SCI_AUTOCSETSEPARATOR, static_cast<uptr_t>(kSeparator));
    editor_.Send(SCI_AUTOCSETTYPESEPARATOR, static_cast<uptr_t>(kTypeSeparator));
    editor_.Send(SCI_AUTOCSETIGNORECASE, TRUE);
    editor_.Send(SCI_AUTOCSETORDER, SC_ORDER_CUSTOM);
    // The entries are matched here, so the component's own search must not close the list.
    editor_.Send(SCI_AUTOCSETAUTOHIDE, FALSE);
    editor_.Send(SCI_AUTOCSETMAXHEIGHT, kVisibleRows);
}

void EditorCompletion::Open() {
    if (Start()) Show(true);
}

bool EditorCompletion::Start() {
    if (!source_ || editor_.Send(SCI_GETREADONLY)) return false;
    const sptr_t caret = editor_.Send(SCI_GETCURRENTPOS);
    const auto line_start = [this](sptr_t position) {
        const sptr_t line = editor_.Send(SCI_LINEFROMPOSITION, static_cast<uptr_t>(position));
        return editor_.Send(SCI_POSITIONFROMLINE, static_cast<uptr_t>(line));
    };
    const sptr_t length = editor_.Send(SCI_GETLENGTH);
    const sptr_t from = caret > kLookAround ? line_start(caret - kLookAround) : 0;
    const sptr_t to = length - caret > kLookAround ? line_start(caret + kLookAround) : length;
    const std::string_view before = editor_.Bytes(from, caret);
    std::wstring text = FromEditorBytes(before);
    const std::size_t caret_units = text.size();
    text += FromEditorBytes(editor_.Bytes(caret, std::max(caret, to)));

    CompletionNames names = source_->Names();
    names.words = words_;
    Completion completion = Complete(text, caret_units, names);
    if (completion.candidates.empty()) return false;
    const std::wstring_view view(text);
    const auto bytes_of = [&](std::size_t first, std::size_t last) {
        return static_cast<sptr_t>(ToEditorBytes(view.substr(first, last - first)).size());
    };
    begin_ = caret - bytes_of(completion.replaced.offset, caret_units);
    rest_ = bytes_of(caret_units, completion.replaced.End());
    candidates_ = std::move(completion.candidates);
    return true;
}

std::wstring EditorCompletion::Typed() const {
    const sptr_t caret = editor_.Send(SCI_GETCURRENTPOS);
    return caret > begin_ ? FromEditorBytes(editor_.Bytes(begin_, caret)) : std::wstring();
}

void EditorCompletion::Show(bool take_single) {
    const std::wstring typed = Typed();
    const std::vector<std::size_t> matching = Matching(candidates_, typed);
    if (matching.empty()) return Close();
    if (take_single && matching.size() == 1 && !typed.empty()) {
        Close();
        return Take(ToEditorBytes(InsertedText(candidates_[matching.front()], typed)));
    }
    std::string list;
    for (std::size_t i = 0; i < std::min(matching.size(), kMostShown); ++i) {
        const Candidate& candidate = candidates_[matching[i]];
        if (i > 0) list += kSeparator;
        list += ToEditorBytes(InsertedText(candidate, typed));
        list += kTypeSeparator;
        list += std::to_string(static_cast<int>(candidate.kind));
    }
    editor_.Send(SCI_USERLISTSHOW, kListType, list.c_str());
}

void EditorCompletion::HandleNotify(const SCNotification& notification) {
    switch (notification.nmhdr.code) {
        case SCN_CHARADDED:
            return OnCharacter(notification.ch);
        case SCN_AUTOCCHARDELETED:
            if (editor_.Send(SCI_GETCURRENTPOS) < begin_) return Close();
            return Show(false);
        case SCN_USERLISTSELECTION:
            return Take(notification.text ? notification.text : "");
        default:
            return;
    }
}

void EditorCompletion::OnCharacter(int character) {
    if (character == '.' || character == '!') {
        Close();
        if (Start()) Show(false);
        return;
    }
    if (!IsOpen()) return;
    const std::wstring typed = Typed();
    if (typed.empty() || !GoesOn(typed, typed.back())) return Close();
    Show(false);
}

bool EditorCompletion::EnterBreaksLine() {
    if (!IsOpen()) return false;
    const std::wstring typed = Typed();
    const sptr_t length = editor_.Send(SCI_AUTOCGETCURRENTTEXT);
    std::string current(static_cast<std::size_t>(std::max<sptr_t>(length, 0)) + 1, '\0');
    editor_.Send(SCI_AUTOCGETCURRENTTEXT, 0, current.data());
    current.resize(current.size() - 1);
    if (rest_ != 0 || ToEditorBytes(typed) != current) return false;
    Close();
    return true;
}

void EditorCompletion::Take(std::string_view bytes) {
    const sptr_t caret = editor_.Send(SCI_GETCURRENTPOS);
    if (bytes.empty() || caret < begin_) return;
    const std::string text(bytes);
    editor_.Send(SCI_BEGINUNDOACTION);
    editor_.Send(SCI_SETTARGETRANGE, static_cast<uptr_t>(begin_), caret + rest_);
    editor_.Send(SCI_REPLACETARGET, text.size(), text.data());
    editor_.Send(SCI_SETEMPTYSELECTION, static_cast<uptr_t>(begin_) + text.size());
    editor_.Send(SCI_ENDUNDOACTION);
    editor_.Send(SCI_CHOOSECARETX);
    editor_.Send(SCI_SCROLLCARET);
}

}  // namespace tessel::controls
