// The completion list of the SQL editor: the component's own list window, filled from completion.h and
// narrowed with every key. It opens after a point and when it is asked for, never by itself while one types,
// so that Enter goes on being Enter.
//
// Tab, Enter and a double click take the selected entry, one undoable step; Enter does not when the entry is
// already typed out. Any character that no name has closes the list, and so does Esc, which closes nothing
// else.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "controls/editor/completion.h"
#include "controls/editor/win32/scintilla_calls.h"

namespace tessel::controls {

/// Who knows the names that can be completed.
class CompletionSource {
public:
    virtual ~CompletionSource() = default;
    virtual CompletionNames Names() = 0;
};

class EditorCompletion {
public:
    /// Sets the component's options. `words` must outlive the completion.
    void Attach(const ScintillaCalls& editor, const SqlWords* words);
    void Detach() { editor_ = {}; }
    /// Not owned; without a source no list opens.
    void SetSource(CompletionSource* source) { source_ = source; }

    bool IsOpen() const { return editor_.Send(SCI_AUTOCACTIVE) != 0; }
    /// Asked for by the user: a single match is taken at once.
    void Open();
    void Close() const { editor_.Send(SCI_AUTOCCANCEL); }
    /// True when Enter is to break the line although the list is open; the list is closed then.
    bool EnterBreaksLine();
    void HandleNotify(const SCNotification& notification);

private:
    bool Start();
    std::wstring Typed() const;
    void Show(bool take_single);
    void OnCharacter(int character);
    void Take(std::string_view bytes);

    ScintillaCalls editor_;
    const SqlWords* words_ = nullptr;
    CompletionSource* source_ = nullptr;
    std::vector<Candidate> candidates_;
    sptr_t begin_ = 0;  ///< byte offset of the name that is being typed
    sptr_t rest_ = 0;   ///< bytes of it behind the caret
};

}  // namespace tessel::controls
