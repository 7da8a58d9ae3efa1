// Undo and redo in the designer window: their keys, and telling the presenter when a step is done.
#include <windows.h>

#include <iterator>

#include "ui/win32/designer_window.h"

namespace tessel::ui {

namespace {

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

/// A field where one types text has an undo of its own.
bool IsTextField(HWND hwnd) {
    wchar_t name[16] = L"";
    GetClassNameW(hwnd, name, static_cast<int>(std::size(name)));
    return lstrcmpiW(name, L"Edit") == 0;
}

enum class HistoryKey { None, Undo, Redo };

HistoryKey KeyOf(const MSG& message) {
    const bool shift = IsDown(VK_SHIFT);
    const bool alt = IsDown(VK_MENU);
    if (message.message == WM_SYSKEYDOWN && message.wParam == VK_BACK && !IsDown(VK_CONTROL))
        return shift ? HistoryKey::Redo : HistoryKey::Undo;
    // With Alt as well it is AltGr, which types.
    if (message.message != WM_KEYDOWN || !IsDown(VK_CONTROL) || alt) return HistoryKey::None;
    if (message.wParam == 'Z') return shift ? HistoryKey::Redo : HistoryKey::Undo;
    return message.wParam == 'Y' && !shift ? HistoryKey::Redo : HistoryKey::None;
}

}  // namespace

bool DesignerWindow::OnHistoryKey(const MSG& message) {
    if (message.message == WM_KEYUP && (message.wParam == VK_CONTROL || message.wParam == VK_SHIFT))
        AwaitStep();
    const HistoryKey key = KeyOf(message);
    if (key == HistoryKey::None || presenter_.CurrentTab() != Tab::Design || IsTextField(message.hwnd))
        return false;
    if (message.hwnd != Handle() && !IsChild(Handle(), message.hwnd)) return false;
    key == HistoryKey::Undo ? Undo() : Redo();
    return true;
}

// While something is dragged the design is not the user's last word.
void DesignerWindow::Undo() {
    if (GetCapture() || !grid_.CommitEdit()) return;
    presenter_.Undo();
    UpdateCommands();
}

void DesignerWindow::Redo() {
    if (GetCapture() || !grid_.CommitEdit()) return;
    presenter_.Redo();
    UpdateCommands();
}

// Later, because the model is in the middle of the change that it announces.
void DesignerWindow::AwaitStep() {
    if (step_waits_ || !IsCreated()) return;
    step_waits_ = PostMessageW(Handle(), kStepMessage, 0, 0) != FALSE;
}

void DesignerWindow::OnStepMessage() {
    step_waits_ = false;
    if (!IsMovingByKeys()) presenter_.StepDone();
}

// Moving and resizing a box by keys takes many presses while Ctrl or Shift is held: together they are one
// step.
bool DesignerWindow::IsMovingByKeys() const {
    return GetFocus() == diagram_.Handle() && (IsDown(VK_CONTROL) || IsDown(VK_SHIFT)) && !GetCapture();
}

}  // namespace tessel::ui
