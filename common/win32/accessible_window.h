// Shows an AccessibleTree to assistive programs as the IAccessible of a window (Microsoft Active
// Accessibility), and tells them what happens in it. Programs that ask by UI Automation are served by the
// system's bridge from the one to the other.
//
//   LRESULT Thing::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
//       if (LRESULT result = 0; accessible_.OnMessage(Handle(), message, wparam, lparam, result))
//           return result;
//       switch (message) {
//           case WM_SETFOCUS: …; accessible_.ReportFocus(); return 0;
//           …
//   ThingTree tree_;                              // before accessible_
//   win32::AccessibleWindow accessible_{tree_};
//
// Objects that a program keeps when the window is gone answer CO_E_OBJNOTCONNECTED from then on; they hold
// neither the window nor the tree.
#pragma once

#include <windows.h>

#include <memory>

#include "common/accessible_tree.h"

namespace tessel::win32 {

struct AccessibleConnection;

class AccessibleWindow {
public:
    /// The tree is not owned and must live as long as this.
    explicit AccessibleWindow(AccessibleTree& tree);
    ~AccessibleWindow();
    AccessibleWindow(const AccessibleWindow&) = delete;
    AccessibleWindow& operator=(const AccessibleWindow&) = delete;

    /// Takes part in the window's messages; to be called with each. True when the message is dealt with.
    bool OnMessage(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result);

    /// Tells that the focused element has the keyboard now. Once for an element, and only while the keyboard
    /// is in this very window; the same element again after the keyboard was elsewhere.
    void ReportFocus();
    /// Tells of one of the EVENT_… of an element. Nothing happens before the window has had a message.
    void Report(DWORD event, AccessibleId id = kAccessibleSelf) const;

    /// The message by which an element's action is done when the program that asked for it has its answer:
    /// it may open a dialog.
    static constexpr UINT kActMessage = WM_APP + 0x70;

private:
    void Disconnect();
    bool OnGetObject(WPARAM wparam, LRESULT& result);

    AccessibleTree& tree_;
    HWND hwnd_ = nullptr;
    std::shared_ptr<AccessibleConnection> connection_;
    bool focus_reported_ = false;
    AccessibleId reported_ = kAccessibleSelf;
};

}  // namespace tessel::win32
