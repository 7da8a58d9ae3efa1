// Listens to what the windows of this process tell assistive programs, as a screen reader does.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tessel::testing {

class EventLog {
public:
    /// From now on, the events of a process that matter to readers.
    explicit EventLog(DWORD process = GetCurrentProcessId());
    ~EventLog();
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;

    /// Events of the client areas of that window alone; nullptr for all.
    void Watch(HWND hwnd) { watched_ = hwnd; }
    void Clear() { lines_.clear(); }
    /// "focus Condición, columna 3, Clientes.Pais": the event and the name of the object as the system's
    /// library finds it when the event arrives.
    const std::vector<std::wstring>& Lines() const { return lines_; }
    std::size_t CountOf(std::wstring_view line) const;

private:
    static void CALLBACK Arrived(HWINEVENTHOOK, DWORD event, HWND hwnd, LONG object, LONG child, DWORD,
                                 DWORD);
    void Add(DWORD event, HWND hwnd, LONG child);

    std::vector<HWINEVENTHOOK> hooks_;
    HWND watched_ = nullptr;
    std::vector<std::wstring> lines_;
};

}  // namespace tessel::testing
