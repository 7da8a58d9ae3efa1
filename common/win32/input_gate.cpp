#include "common/win32/input_gate.h"

#include "common/win32/foreign_call.h"
#include "common/win32/module.h"

namespace tessel::win32 {

namespace {

/// What begins something. A button that is let go ends what it began, or a control would wait for it for
/// ever.
bool IsInput(UINT message) {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
           (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST && message != WM_LBUTTONUP);
}

bool IsOurs(HWND window) {
    const HWND root = GetAncestor(window, GA_ROOT);
    return root && reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(root, GWLP_HINSTANCE)) == ThisModule();
}

LRESULT CALLBACK Look(int code, WPARAM removes, LPARAM lparam) {
    auto& message = *reinterpret_cast<MSG*>(lparam);
    if (code >= 0 && removes == PM_REMOVE && ForeignCall::IsRunning() && IsInput(message.message) &&
        IsOurs(message.hwnd))
        message.message = WM_NULL;
    return CallNextHookEx(nullptr, code, removes, lparam);
}

}  // namespace

InputGate::InputGate() : hook_(SetWindowsHookExW(WH_GETMESSAGE, Look, nullptr, GetCurrentThreadId())) {}

InputGate::~InputGate() {
    if (hook_) UnhookWindowsHookEx(hook_);
}

}  // namespace tessel::win32
