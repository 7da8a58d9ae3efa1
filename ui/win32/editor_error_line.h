// The line under the SQL editor: looks at the text when typing pauses, has the editor mark what is wrong, and
// says it. Pressing it goes to the place, F8 to the next one. Works on the window's own thread; how long a
// text it looks at is limited (text_check.h), so that typing never waits.
#pragma once

#include <windows.h>

#include <functional>

#include "controls/editor/win32/sql_editor.h"
#include "ui/text_check.h"
#include "ui/win32/link_label.h"

namespace tessel::ui {

class EditorErrorLine final : public LinkLabel {
public:
    /// `on_told` runs when the line says something else, which may need another height. The editor must
    /// outlive the line.
    bool Create(HWND parent, int id, controls::SqlEditor& editor, std::function<void()> on_told);
    /// Not owned; may be nullptr.
    void SetSchema(const schema::Schema* schema) { schema_ = schema; }

    /// The user changed the text: it is looked at when a pause follows.
    void TextTyped();
    /// The text is another one: it is looked at as soon as messages come.
    void TextSet();
    /// F8: selects the next place, or backwards the one before, and puts the keyboard into the editor.
    void GoToNext(bool backwards);

private:
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    void Await(UINT milliseconds);
    /// Looks at the text now if it changed since it was last looked at.
    void Refresh();
    void Check();
    void Tell(std::size_t place);
    void GoTo(std::size_t place);

    controls::SqlEditor* editor_ = nullptr;
    const schema::Schema* schema_ = nullptr;
    std::function<void()> on_told_;
    TextCheck check_;
    std::size_t told_ = 0;
    bool waits_ = false;
};

}  // namespace tessel::ui
