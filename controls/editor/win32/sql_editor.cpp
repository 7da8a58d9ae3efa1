#include "controls/editor/win32/sql_editor.h"

#include <algorithm>
#include <new>
#include <optional>

#include "common/win32/dpi.h"
#include "common/win32/module.h"
#include "common/win32/screen.h"
#include "common/win32/subclass.h"
#include "controls/editor/editor_text.h"
#include "controls/editor/text_layout.h"
#include "controls/editor/win32/editor_accessible.h"
#include "controls/editor/win32/editor_braces.h"
#include "controls/editor/win32/editor_commands.h"
#include "controls/editor/win32/editor_looks.h"
#include "controls/editor/win32/editor_menu.h"
#include "controls/editor/win32/scintilla_calls.h"

namespace tessel::controls {

namespace {

constexpr int kTabWidth = 4;
constexpr int kTextGap = 4;  // between margin and text, at 96 dpi
constexpr const wchar_t* kAccessibleName = L"Consulta SQL";

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

// The component gives these keys editing commands that nobody expects of a text box; Ctrl+L would delete the
// line.
constexpr int kKeysWithoutCommand[] = {'D', 'L', 'T', 'U'};

/// A character that a key with Ctrl produces and that is no text.
bool IsControlCharacter(WPARAM ch) {
    return ch < 32 || ch == 127;
}

}  // namespace

class SqlEditor::Impl {
public:
    ~Impl() {
        if (hwnd_) DestroyWindow(hwnd_);
    }

    bool Create(HWND parent, int id, const std::wstring& ini_path, SqlEditorEvents* events);
    void SetOptions();
    void ApplyDpi(int dpi);
    void SetText(std::wstring_view text);
    void LoadText(std::wstring_view text);
    void BeginReplacement();
    void EndReplacement();
    bool ReplaceBytes(std::string_view bytes);
    bool Holds(std::string_view bytes) const;
    bool HandleNotify(const SCNotification& notification);
    static LRESULT Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, void* data,
                             const win32::SubclassChain& next);
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam, const win32::SubclassChain& next);
    bool OnKey(WPARAM key);
    void Run(EditorCommand command);
    void ReplaceLayout(std::wstring_view text);
    LRESULT DialogCode(const MSG* key) const;
    void MoveFocus(bool back) const;
    void OnDestroyed();

    HWND hwnd_ = nullptr;
    ScintillaCalls editor_;
    EditorAccessible accessible_;
    ColouringDefinition definition_;
    SqlEditorEvents* events_ = nullptr;
    int dpi_ = 96;
    EditorErrors errors_;
    EditorCompletion completion_;
    bool setting_text_ = false;
    /// The editor as it was when the replacement in progress began.
    struct Before {
        std::string bytes;
        bool read_only = false;
        sptr_t anchor = 0;
        sptr_t caret = 0;
        sptr_t first_line = 0;
    };
    std::optional<Before> replaced_;
};

bool SqlEditor::Impl::Create(HWND parent, int id, const std::wstring& ini_path, SqlEditorEvents* events) {
    if (hwnd_ || !RegisterEditorClasses()) return false;
    events_ = events;
    definition_ = LoadColouring(ini_path);
    hwnd_ = CreateWindowExW(0, L"Scintilla", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN, 0, 0,
                            0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                            win32::ThisModule(), nullptr);
    if (!hwnd_) return false;
    editor_ = ScintillaCalls(hwnd_);
    if (!editor_ || !win32::Subclass(hwnd_, Procedure, this)) {
        DestroyWindow(hwnd_);
        hwnd_ = nullptr;
        editor_ = {};
        return false;
    }
    accessible_.Attach(hwnd_, kAccessibleName);
    SetOptions();
    completion_.Attach(editor_, &definition_.words);
    ApplyDpi(win32::DpiOf(hwnd_));
    return true;
}

void SqlEditor::Impl::SetOptions() {
    editor_.Send(SCI_SETCODEPAGE, SC_CP_UTF8);
    editor_.Send(SCI_SETMODEVENTMASK, SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT);
    editor_.Send(SCI_SETCOMMANDEVENTS, FALSE);
    // Enter writes CR LF; line ends that are there, or come by pasting, stay what they are.
    editor_.Send(SCI_SETEOLMODE, SC_EOL_CRLF);
    editor_.Send(SCI_SETPASTECONVERTENDINGS, FALSE);
    editor_.Send(SCI_SETTABWIDTH, kTabWidth);
    editor_.Send(SCI_SETUSETABS, TRUE);
    editor_.Send(SCI_SETWRAPMODE, SC_WRAP_NONE);
    editor_.Send(SCI_SETSCROLLWIDTH, 1);
    editor_.Send(SCI_SETSCROLLWIDTHTRACKING, TRUE);
    editor_.Send(SCI_SETMARGINTYPEN, 0, SC_MARGIN_NUMBER);
    editor_.Send(SCI_SETFONTQUALITY, SC_EFF_QUALITY_LCD_OPTIMIZED);
    editor_.Send(SCI_USEPOPUP, SC_POPUP_NEVER);
    for (int key : kKeysWithoutCommand) {
        editor_.Send(SCI_CLEARCMDKEY, static_cast<uptr_t>(key | (SCMOD_CTRL << 16)));
        editor_.Send(SCI_CLEARCMDKEY, static_cast<uptr_t>(key | ((SCMOD_CTRL | SCMOD_SHIFT) << 16)));
    }
}

// The component sizes its fonts for the dpi of its window by itself; the rest of the way is ours.
void SqlEditor::Impl::ApplyDpi(int dpi) {
    dpi_ = dpi;
    ApplyLooks(editor_, definition_, MulDiv(100, dpi, win32::SystemDpiOf(hwnd_)));
    DWORD caret_width = 1;
    SystemParametersInfoW(SPI_GETCARETWIDTH, 0, &caret_width, 0);
    editor_.Send(SCI_SETCARETWIDTH,
                 static_cast<uptr_t>(std::max(1, win32::Scale(static_cast<int>(caret_width), dpi))));
    editor_.Send(SCI_SETMARGINLEFT, 0, win32::Scale(kTextGap, dpi));
    FitNumberMargin(editor_, dpi);
    errors_.ApplyLooks(editor_, dpi, MulDiv(100, dpi, win32::SystemDpiOf(hwnd_)));
}

void SqlEditor::Impl::SetText(std::wstring_view text) {
    const std::string bytes = ToEditorBytes(text);
    const std::string before(editor_.Bytes());
    if (before == bytes) return;
    if (!ReplaceBytes(bytes)) {
        ReplaceBytes(before);
        throw std::bad_alloc();
    }
    editor_.Send(SCI_SETSCROLLWIDTH, 1);
    editor_.Send(SCI_SETEMPTYSELECTION, 0);
    editor_.Send(SCI_SETXOFFSET, 0);
    editor_.Send(SCI_SETFIRSTVISIBLELINE, 0);
    editor_.Send(SCI_CHOOSECARETX);
}

// The component keeps to itself that there was no memory, and may have emptied itself by then.
bool SqlEditor::Impl::ReplaceBytes(std::string_view bytes) {
    const bool read_only = editor_.Send(SCI_GETREADONLY) != 0;
    setting_text_ = true;
    editor_.Send(SCI_SETREADONLY, FALSE);
    editor_.Send(SCI_BEGINUNDOACTION);
    editor_.Send(SCI_TARGETWHOLEDOCUMENT);
    editor_.Send(SCI_REPLACETARGET, bytes.size(), bytes.data());
    editor_.Send(SCI_ENDUNDOACTION);
    editor_.Send(SCI_SETREADONLY, read_only);
    setting_text_ = false;
    return Holds(bytes);
}

bool SqlEditor::Impl::Holds(std::string_view bytes) const {
    try {
        return editor_.Bytes() == bytes;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void SqlEditor::Impl::LoadText(std::wstring_view text) {
    const bool first = editor_.Bytes().empty() && !editor_.Send(SCI_CANUNDO) && !editor_.Send(SCI_CANREDO);
    SetText(text);
    if (first) editor_.Send(SCI_EMPTYUNDOBUFFER);
}

// While nothing is recorded the component's history stays right only if the text comes back to what it was;
// hence the replacement is taken back silently and then done once more as a step.
void SqlEditor::Impl::BeginReplacement() {
    if (replaced_) return;
    replaced_ =
        Before{std::string(editor_.Bytes()), editor_.Send(SCI_GETREADONLY) != 0, editor_.Send(SCI_GETANCHOR),
               editor_.Send(SCI_GETCURRENTPOS), editor_.Send(SCI_GETFIRSTVISIBLELINE)};
    editor_.Send(SCI_SETREADONLY, TRUE);
    editor_.Send(SCI_SETUNDOCOLLECTION, FALSE);
}

void SqlEditor::Impl::EndReplacement() {
    if (!replaced_) return;
    const Before before = std::move(*replaced_);
    replaced_.reset();
    if (Holds(before.bytes)) {
        editor_.Send(SCI_SETUNDOCOLLECTION, TRUE);
        editor_.Send(SCI_SETFIRSTVISIBLELINE, static_cast<uptr_t>(before.first_line));
        editor_.Send(SCI_SETANCHOR, static_cast<uptr_t>(before.anchor));
        editor_.Send(SCI_SETCURRENTPOS, static_cast<uptr_t>(before.caret));
    } else {
        std::optional<std::string> after;
        try {
            after = std::string(editor_.Bytes());
        } catch (const std::bad_alloc&) {
            // The text stays as it is, without a step to take back.
        }
        const bool is_back = after && ReplaceBytes(before.bytes);
        editor_.Send(SCI_SETUNDOCOLLECTION, TRUE);
        if (!is_back) editor_.Send(SCI_EMPTYUNDOBUFFER);
        if (after && !ReplaceBytes(*after)) ReplaceBytes(*after);
        editor_.Send(SCI_SETEMPTYSELECTION, 0);
    }
    editor_.Send(SCI_SETREADONLY, before.read_only);
}

bool SqlEditor::Impl::HandleNotify(const SCNotification& notification) {
    switch (notification.nmhdr.code) {
        case SCN_STYLENEEDED:
            ColourUpTo(editor_, definition_.words, notification.position);
            break;
        case SCN_ZOOM:
            FitNumberMargin(editor_, dpi_);
            break;
        case SCN_MODIFIED:
            if (notification.linesAdded != 0) FitNumberMargin(editor_, dpi_);
            NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, hwnd_, OBJID_CLIENT, CHILDID_SELF);
            if (events_) setting_text_ ? events_->OnEditorTextSet() : events_->OnEditorTextChanged();
            break;
        case SCN_UPDATEUI:
            if (notification.updated & (SC_UPDATE_CONTENT | SC_UPDATE_SELECTION))
                ShowBraces(editor_, definition_.words);
            break;
        default:
            errors_.HandleNotify(editor_, notification);
            completion_.HandleNotify(notification);
            break;
    }
    return true;
}

LRESULT SqlEditor::Impl::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, void* data,
                                   const win32::SubclassChain& next) {
    auto* self = static_cast<Impl*>(data);
    if (message == WM_NCDESTROY) {
        self->OnDestroyed();
        return next(hwnd, message, wparam, lparam);
    }
    try {
        return self->OnMessage(message, wparam, lparam, next);
    } catch (...) {
        // Exhausted memory: the gesture is lost, the host lives on.
        return 0;
    }
}

LRESULT SqlEditor::Impl::OnMessage(UINT message, WPARAM wparam, LPARAM lparam,
                                   const win32::SubclassChain& next) {
    switch (message) {
        case WM_GETDLGCODE:
            return DialogCode(reinterpret_cast<const MSG*>(lparam));
        case WM_KEYDOWN:
            if (wparam == VK_TAB && IsDown(VK_CONTROL)) {
                MoveFocus(IsDown(VK_SHIFT));
                return 0;
            }
            if (OnKey(wparam)) return 0;
            break;
        case WM_CHAR:
            // Ctrl with a key that has no command would write a control character into the statement. Tab and
            // Enter do their work on the key itself.
            if (IsControlCharacter(wparam)) return 0;
            if (wparam == L' ' && IsDown(VK_CONTROL) && !IsDown(VK_MENU)) return 0;
            break;
        case WM_CONTEXTMENU:
            if (const auto command = ShowEditorMenu(
                    hwnd_, editor_, {static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))}))
                Run(*command);
            return 0;
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE: {
            const LRESULT result = next(hwnd_, message, wparam, lparam);
            ApplyDpi(dpi_);
            return result;
        }
        case win32::kDpiChangedAfterParent: {
            const LRESULT result = next(hwnd_, message, wparam, lparam);
            ApplyDpi(win32::DpiOf(hwnd_));
            return result;
        }
        default:
            break;
    }
    return next(hwnd_, message, wparam, lparam);
}

bool SqlEditor::Impl::OnKey(WPARAM key) {
    if (key == VK_RETURN && completion_.EnterBreaksLine()) return false;
    const auto command = CommandOfKey(key, IsDown(VK_CONTROL), IsDown(VK_SHIFT), IsDown(VK_MENU));
    if (command) Run(*command);
    return command.has_value();
}

void SqlEditor::Impl::Run(EditorCommand command) {
    if (command != EditorCommand::Complete) completion_.Close();
    switch (command) {
        case EditorCommand::Complete:
            return completion_.Open();
        case EditorCommand::ToggleComment:
            return ToggleCommentOfLines(editor_);
        case EditorCommand::Format:
            if (events_ && !editor_.Send(SCI_GETREADONLY)) events_->OnEditorFormat();
            return;
        case EditorCommand::GoToPartner:
            return GoToPartner(editor_, definition_.words, false);
        case EditorCommand::SelectToPartner:
            return GoToPartner(editor_, definition_.words, true);
    }
}

void SqlEditor::Impl::ReplaceLayout(std::wstring_view text) {
    const std::string before(editor_.Bytes());
    const std::string after = ToEditorBytes(text);
    if (before == after) return;
    const auto caret = static_cast<std::size_t>(editor_.Send(SCI_GETCURRENTPOS));
    const std::size_t place = SamePlace(before, caret, after);
    editor_.Send(SCI_BEGINUNDOACTION);
    editor_.Send(SCI_TARGETWHOLEDOCUMENT);
    editor_.Send(SCI_REPLACETARGET, after.size(), after.data());
    editor_.Send(SCI_SETEMPTYSELECTION, place);
    editor_.Send(SCI_ENDUNDOACTION);
    if (!Holds(after)) {
        ReplaceBytes(before);
        throw std::bad_alloc();
    }
    editor_.Send(SCI_SETSCROLLWIDTH, 1);
    editor_.Send(SCI_SCROLLCARET);
    editor_.Send(SCI_CHOOSECARETX);
}

// Every key is the editor's except Esc, which closes the dialog unless the list of names is open, and those
// that work with Alt.
LRESULT SqlEditor::Impl::DialogCode(const MSG* key) const {
    constexpr LRESULT kText = DLGC_WANTCHARS | DLGC_WANTARROWS;
    if (!key || (key->message != WM_KEYDOWN && key->message != WM_CHAR)) return kText;
    const bool is_dialogs = key->wParam == VK_ESCAPE && !completion_.IsOpen();
    return is_dialogs ? kText : kText | DLGC_WANTALLKEYS;
}

void SqlEditor::Impl::MoveFocus(bool back) const {
    const HWND next = GetNextDlgTabItem(GetAncestor(hwnd_, GA_ROOT), hwnd_, back);
    if (next) SetFocus(next);
}

void SqlEditor::Impl::OnDestroyed() {
    hwnd_ = nullptr;
    editor_ = {};
    completion_.Detach();
}

SqlEditor::SqlEditor() : impl_(std::make_unique<Impl>()) {}
SqlEditor::~SqlEditor() = default;

bool SqlEditor::Create(HWND parent, int id, const std::wstring& ini_path, SqlEditorEvents* events) {
    return impl_->Create(parent, id, ini_path, events);
}

HWND SqlEditor::Handle() const {
    return impl_->hwnd_;
}

std::wstring SqlEditor::Text() const {
    return FromEditorBytes(impl_->editor_.Bytes());
}

void SqlEditor::SetText(std::wstring_view text) {
    if (impl_->hwnd_) impl_->SetText(text);
}

void SqlEditor::LoadText(std::wstring_view text) {
    if (impl_->hwnd_) impl_->LoadText(text);
}

void SqlEditor::BeginReplacement() {
    if (impl_->hwnd_) impl_->BeginReplacement();
}

// Called on the way out of whatever fails: exhausted memory leaves the editor with the text it has.
void SqlEditor::EndReplacement() {
    if (!impl_->hwnd_) return;
    try {
        impl_->EndReplacement();
    } catch (...) {
        impl_->editor_.Send(SCI_SETUNDOCOLLECTION, TRUE);
        impl_->editor_.Send(SCI_EMPTYUNDOBUFFER);
        impl_->editor_.Send(SCI_SETREADONLY, FALSE);
    }
}

void SqlEditor::InsertText(std::wstring_view text) {
    if (!impl_->hwnd_) return;
    const std::string bytes = ToEditorBytes(text);
    impl_->editor_.Send(SCI_BEGINUNDOACTION);
    impl_->editor_.Send(SCI_REPLACESEL, 0, reinterpret_cast<sptr_t>(bytes.c_str()));
    impl_->editor_.Send(SCI_ENDUNDOACTION);
    impl_->editor_.Send(SCI_SCROLLCARET);
}

void SqlEditor::ReplaceLayout(std::wstring_view text) {
    if (impl_->hwnd_) impl_->ReplaceLayout(text);
}

void SqlEditor::SetCompletionSource(CompletionSource* source) {
    impl_->completion_.SetSource(source);
}

void SqlEditor::Refresh() {
    if (!impl_->hwnd_) return;
    impl_->editor_.Send(SCI_STARTSTYLING, 0);
    InvalidateRect(impl_->hwnd_, nullptr, FALSE);
}

void SqlEditor::SelectRange(TextRange range) {
    const ScintillaCalls& editor = impl_->editor_;
    const std::string_view bytes = editor.Bytes();
    const std::size_t begin = BytesOfUnits(bytes, range.offset);
    const std::size_t end = begin + BytesOfUnits(bytes.substr(begin), range.length);
    editor.Send(SCI_SETSEL, begin, static_cast<sptr_t>(end));
    editor.Send(SCI_SCROLLRANGE, static_cast<uptr_t>(begin), static_cast<sptr_t>(end));
}

TextRange SqlEditor::Selection() const {
    const ScintillaCalls& editor = impl_->editor_;
    const auto begin = static_cast<std::size_t>(editor.Send(SCI_GETSELECTIONSTART));
    const auto end = static_cast<std::size_t>(editor.Send(SCI_GETSELECTIONEND));
    const std::string_view bytes = editor.Bytes();
    return {UnitsInBytes(bytes.substr(0, begin)), UnitsInBytes(bytes.substr(begin, end - begin))};
}

void SqlEditor::ShowPlace(TextRange range) {
    const ScintillaCalls& editor = impl_->editor_;
    const std::string_view bytes = editor.Bytes();
    const std::size_t begin = BytesOfUnits(bytes, range.offset);
    const std::size_t end = begin + BytesOfUnits(bytes.substr(begin), range.length);
    editor.Send(SCI_SETSEL, end, static_cast<sptr_t>(begin));
    editor.Send(SCI_SCROLLRANGE, end, static_cast<sptr_t>(begin));
}

void SqlEditor::ReplaceRange(TextRange range, std::wstring_view text) {
    const ScintillaCalls& editor = impl_->editor_;
    const std::string_view bytes = editor.Bytes();
    const std::size_t begin = BytesOfUnits(bytes, range.offset);
    const std::size_t end = begin + BytesOfUnits(bytes.substr(begin), range.length);
    const std::string replacement = ToEditorBytes(text);
    editor.Send(SCI_BEGINUNDOACTION);
    editor.Send(SCI_SETTARGETRANGE, begin, static_cast<sptr_t>(end));
    editor.Send(SCI_REPLACETARGET, replacement.size(), replacement.data());
    editor.Send(SCI_ENDUNDOACTION);
}

void SqlEditor::ShowMarks(std::vector<EditorMark> marks) {
    if (impl_->hwnd_) impl_->errors_.Show(impl_->editor_, std::move(marks));
}

bool SqlEditor::IsListOpen() const {
    return impl_->editor_.Send(SCI_AUTOCACTIVE) != 0;
}

void SqlEditor::SetReadOnly(bool read_only) {
    impl_->editor_.Send(SCI_SETREADONLY, read_only);
}
bool SqlEditor::CanUndo() const {
    return impl_->editor_.Send(SCI_CANUNDO) != 0;
}
bool SqlEditor::CanRedo() const {
    return impl_->editor_.Send(SCI_CANREDO) != 0;
}
void SqlEditor::Undo() {
    impl_->editor_.Send(SCI_UNDO);
}
void SqlEditor::Redo() {
    impl_->editor_.Send(SCI_REDO);
}

void SqlEditor::OnDpiChanged(int dpi) {
    if (impl_->hwnd_ && dpi > 0) impl_->ApplyDpi(dpi);
}

bool SqlEditor::HandleNotify(NMHDR* header) {
    if (!header || !impl_->hwnd_ || header->hwndFrom != impl_->hwnd_) return false;
    try {
        return impl_->HandleNotify(*reinterpret_cast<const SCNotification*>(header));
    } catch (...) {
        // The component's frames lie between here and the next guard, and they are no place for our
        // exceptions.
        return true;
    }
}

}  // namespace tessel::controls
