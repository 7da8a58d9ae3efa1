// The SQL editor as assistive programs see it: a text field with a name, whose value is its text.
//
// The component has no description of its own. Programs that know it read lines and caret from it directly;
// the others find this one. It is attached to the component's window from outside and goes with it.
#pragma once

#include <windows.h>

#include <string>

#include "common/accessible_tree.h"
#include "common/win32/accessible_window.h"
#include "common/win32/subclass.h"

namespace tessel::controls {

class EditorAccessible final : public AccessibleTree {
public:
    EditorAccessible() = default;
    EditorAccessible(const EditorAccessible&) = delete;
    EditorAccessible& operator=(const EditorAccessible&) = delete;
    ~EditorAccessible() override;

    /// False when the window cannot be watched.
    bool Attach(HWND editor, std::wstring name);

    AccessibleElement Describe(AccessibleId id) const override;
    /// The text, as far as a program that reads it aloud can want it.
    std::wstring ValueOf(AccessibleId id) const override;

private:
    static LRESULT Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, void* data,
                             const win32::SubclassChain& next);

    HWND editor_ = nullptr;
    std::wstring name_;
    win32::AccessibleWindow accessible_{*this};
};

}  // namespace tessel::controls
