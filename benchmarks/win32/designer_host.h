// A host that opens the designer through the library alone, as any program would, and measures what its user
// waits for. The library and the ADO objects are loaded from this program's folder; the latter are registered
// for the time of the Wine prefix, since the component creates recordsets by name.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "common/win32/dispatch.h"
#include "hostkit/drive/script.h"
#include "tessel_h.h"

namespace tessel::bench {

class DesignerHost {
public:
    /// Loads both libraries. Failures end the program.
    DesignerHost();

    /// An open connection to a SQLite file.
    win32::Dispatch Open(const std::wstring& database) const;

    /// Opens the designer, runs the script of `steps` in it and closes it. Answers the seconds from the call
    /// to the moment at which everything of the window had been painted.
    double Design(const win32::Dispatch& connection, const std::wstring& sql,
                  const std::function<void(testing::Script&)>& steps = {});

private:
    win32::ComPtr<_Quillon> designer_;
};

/// The ODBC connection string of a SQLite file.
[[nodiscard]] std::wstring OdbcStringOf(const std::wstring& database);

/// The designer's window while it is open, else nullptr.
[[nodiscard]] HWND DesignerWindow();
/// The preview's window while it is open, else nullptr.
[[nodiscard]] HWND PreviewWindow();

/// Paints everything of the window that waits for it, now.
void PaintNow(HWND window);
/// The seconds that an action takes until the window shows what it did.
[[nodiscard]] double SecondsUntilPainted(HWND window, const std::function<void()>& action);

/// Tells when a window first stands there painted; between its life's ends, messages of this thread are
/// watched.
class FirstPaint {
public:
    /// `window` finds the window that is waited for.
    explicit FirstPaint(std::function<HWND()> window);
    ~FirstPaint();
    FirstPaint(const FirstPaint&) = delete;
    FirstPaint& operator=(const FirstPaint&) = delete;

    /// Now() at that moment; 0 while it has not come.
    double At() const { return at_; }

private:
    static LRESULT CALLBACK OnMessageFetched(int code, WPARAM wparam, LPARAM lparam);
    void Look();

    std::function<HWND()> window_;
    FirstPaint* before_;  ///< the one that waits around this one
    HHOOK hook_ = nullptr;
    double at_ = 0;
    bool looking_ = false;
};

}  // namespace tessel::bench
