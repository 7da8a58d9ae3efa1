#include "tests/win_access/event_log.h"

#include <algorithm>

#include "tests/win_access/accessible_walk.h"

namespace tessel::testing {

namespace {

EventLog* g_log = nullptr;

const wchar_t* NameOf(DWORD event) {
    switch (event) {
        case EVENT_SYSTEM_ALERT:
            return L"alert";
        case EVENT_OBJECT_SHOW:
            return L"show";
        case EVENT_OBJECT_HIDE:
            return L"hide";
        case EVENT_OBJECT_REORDER:
            return L"reorder";
        case EVENT_OBJECT_FOCUS:
            return L"focus";
        case EVENT_OBJECT_SELECTION:
            return L"selection";
        case EVENT_OBJECT_SELECTIONWITHIN:
            return L"selection within";
        case EVENT_OBJECT_STATECHANGE:
            return L"state";
        case EVENT_OBJECT_NAMECHANGE:
            return L"name";
        case EVENT_OBJECT_VALUECHANGE:
            return L"value";
        default:
            return nullptr;
    }
}

}  // namespace

EventLog::EventLog(DWORD process) {
    g_log = this;
    for (const DWORD event : {EVENT_SYSTEM_ALERT, EVENT_OBJECT_SHOW, EVENT_OBJECT_HIDE, EVENT_OBJECT_REORDER,
                              EVENT_OBJECT_FOCUS, EVENT_OBJECT_SELECTION, EVENT_OBJECT_SELECTIONWITHIN,
                              EVENT_OBJECT_STATECHANGE, EVENT_OBJECT_NAMECHANGE, EVENT_OBJECT_VALUECHANGE})
        hooks_.push_back(SetWinEventHook(static_cast<DWORD>(event), static_cast<DWORD>(event), nullptr,
                                         Arrived, process, 0, WINEVENT_OUTOFCONTEXT));
}

EventLog::~EventLog() {
    for (const HWINEVENTHOOK hook : hooks_) UnhookWinEvent(hook);
    g_log = nullptr;
}

void EventLog::Arrived(HWINEVENTHOOK, DWORD event, HWND hwnd, LONG object, LONG child, DWORD, DWORD) {
    if (g_log && object == OBJID_CLIENT && (!g_log->watched_ || g_log->watched_ == hwnd))
        g_log->Add(event, hwnd, child);
}

void EventLog::Add(DWORD event, HWND hwnd, LONG child) {
    const wchar_t* what = NameOf(event);
    if (!what) return;
    win32::ComPtr<IAccessible> object;
    VARIANT which{};
    std::wstring name = L"(gone)";
    if (AccessibleObjectFromEvent(hwnd, static_cast<DWORD>(OBJID_CLIENT), static_cast<DWORD>(child),
                                  object.Put(), &which) == S_OK) {
        win32::Bstr text;
        if (SUCCEEDED(object->get_accName(which, text.Put()))) name = text.View();
        VariantClear(&which);
    }
    lines_.push_back(std::wstring(what) + L" " + name);
}

std::size_t EventLog::CountOf(std::wstring_view line) const {
    return static_cast<std::size_t>(std::count(lines_.begin(), lines_.end(), line));
}

}  // namespace tessel::testing
