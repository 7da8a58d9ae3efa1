#include "common/win32/accessible_window.h"

#include <oleacc.h>

#include "common/win32/accessible_object.h"
#include "common/win32/foreign_call.h"

namespace tessel::win32 {

AccessibleWindow::AccessibleWindow(AccessibleTree& tree) : tree_(tree) {}

AccessibleWindow::~AccessibleWindow() {
    Disconnect();
}

bool AccessibleWindow::OnMessage(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
    hwnd_ = hwnd;
    switch (message) {
        case WM_GETOBJECT:
            // Only 32 bits of the identifier arrive, with or without its sign.
            return static_cast<LONG>(lparam) == static_cast<LONG>(OBJID_CLIENT) &&
                   OnGetObject(wparam, result);
        case kActMessage:
            result = 0;
            // As every gesture, see ForeignCall.
            if (ForeignCall::IsRunning()) return true;
            if (const auto id = static_cast<AccessibleId>(wparam); tree_.Has(id)) tree_.Act(id);
            return true;
        case WM_KILLFOCUS:
            focus_reported_ = false;
            return false;
        case WM_DESTROY:
            Disconnect();
            return false;
        case WM_NCDESTROY:
            hwnd_ = nullptr;
            return false;
        default:
            return false;
    }
}

bool AccessibleWindow::OnGetObject(WPARAM wparam, LRESULT& result) {
    if (!connection_) {
        connection_ = std::make_shared<AccessibleConnection>();
        connection_->hwnd = hwnd_;
        connection_->tree = &tree_;
    }
    const ComPtr<AccessibleObject> object = AccessibleObjectOf(connection_, kAccessibleSelf);
    if (!object) return false;
    result = LresultFromObject(__uuidof(IAccessible), wparam, static_cast<IAccessible*>(object.Get()));
    return true;
}

void AccessibleWindow::Disconnect() {
    if (!connection_) return;
    connection_->tree = nullptr;
    connection_->hwnd = nullptr;
    connection_.reset();
}

void AccessibleWindow::ReportFocus() {
    if (!hwnd_ || GetFocus() != hwnd_) return;
    const AccessibleId focused = tree_.Focused();
    if (focus_reported_ && focused == reported_) return;
    focus_reported_ = true;
    reported_ = focused;
    Report(EVENT_OBJECT_FOCUS, focused);
}

void AccessibleWindow::Report(DWORD event, AccessibleId id) const {
    if (hwnd_) NotifyWinEvent(event, hwnd_, OBJID_CLIENT, id);
}

}  // namespace tessel::win32
