#include "tests/win_editor/editor_window.h"

#include <Scintilla.h>

#include "common/win32/module.h"

namespace tessel::controls {

EditorWindow::EditorWindow(const std::wstring& ini_path) : editor_(std::make_unique<SqlEditor>()) {
    const win32::WindowClass window_class{L"TesselEditorTest", 0, GetSysColorBrush(COLOR_BTNFACE), IDC_ARROW};
    const bool created =
        CreateWindowOf(window_class, L"Editor", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN,
                       WS_EX_CONTROLPARENT, nullptr, 0, {20, 20, 820, 520});
    EXPECT_TRUE(created);
    EXPECT_TRUE(editor_->Create(Handle(), 100, ini_path, this));
    button_ = CreateWindowExW(0, L"BUTTON", L"Aceptar", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 10, 430, 100, 28,
                              Handle(), reinterpret_cast<HMENU>(INT_PTR{1}), win32::ThisModule(), nullptr);
    MoveWindow(editor_->Handle(), 0, 0, 784, 420, TRUE);
    SetForegroundWindow(Handle());
    SetFocus(editor_->Handle());
    UpdateWindow(Handle());
}

EditorWindow::~EditorWindow() {
    editor_.reset();
    Destroy();
}

LRESULT EditorWindow::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NOTIFY && editor_ && editor_->HandleNotify(reinterpret_cast<NMHDR*>(lparam))) return 0;
    return Window::OnMessage(message, wparam, lparam);
}

LRESULT EditorWindow::Send(UINT message, WPARAM wparam, LPARAM lparam) {
    return SendMessageW(editor_->Handle(), message, wparam, lparam);
}

std::string EditorWindow::Styles() {
    constexpr std::string_view kLetters = ".kftnsd#coMpE";
    Send(SCI_COLOURISE, 0, -1);
    std::string styles;
    const LRESULT length = Send(SCI_GETLENGTH);
    for (LRESULT at = 0; at < length; ++at)
        styles.push_back(kLetters[static_cast<std::size_t>(Send(SCI_GETSTYLEAT, static_cast<WPARAM>(at)))]);
    return styles;
}

bool EditorWindow::Until(HWND dialog, const std::function<bool()>& condition) {
    const ULONGLONG limit = GetTickCount64() + 60'000;
    while (!condition()) {
        if (GetTickCount64() > limit) return false;
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (IsDialogMessageW(dialog, &message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
    return true;
}

}  // namespace tessel::controls
