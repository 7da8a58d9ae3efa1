// A top-level window with a button and an SQL editor in it, and the loop that lets the user's input arrive.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "common/win32/activation_context.h"
#include "common/win32/window.h"
#include "controls/editor/win32/sql_editor.h"

namespace tessel::controls {

class EditorWindow final : public win32::Window, public SqlEditorEvents {
public:
    explicit EditorWindow(const std::wstring& ini_path = L"");
    ~EditorWindow() override;

    SqlEditor& Editor() { return *editor_; }
    void DestroyEditor() { editor_.reset(); }
    HWND Button() const { return button_; }
    int Changes() const { return changes_; }

    /// A message of the component, such as SCI_GETSTYLEAT.
    LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0);
    /// Styles of the whole text, one letter a byte as in the tests of the colouring.
    std::string Styles();

    void OnEditorTextChanged() override { ++changes_; }
    int Formats() const { return formats_; }
    void OnEditorFormat() override { ++formats_; }

    /// Pumps messages, as a dialog does, until the condition holds. False after a generous while.
    static bool Until(HWND dialog, const std::function<bool()>& condition);
    bool Until(const std::function<bool()>& condition) { return Until(Handle(), condition); }

private:
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;

    win32::ActivationContext context_;
    std::unique_ptr<SqlEditor> editor_;
    HWND button_ = nullptr;
    int changes_ = 0;
    int formats_ = 0;
};

}  // namespace tessel::controls
