// A whole DesingQry call on the built library, with everything late bound made of fakes, driven from inside
// its modal loops: run the statement, look at the preview, close every message, then accept or cancel.
//
// Not a fixture of one scenario: the driver looks at what is open and goes on, whatever appears, so that it
// gets through a session in which any call misbehaves.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/win32/fake_ado.h"
#include "tests/win_component/component_library.h"

namespace tessel::tests {

/// Makes "ADODB.Recordset" create what `make` answers, in this process, as long as it lives.
class RecordsetClass {
public:
    explicit RecordsetClass(std::function<win32::ComPtr<IDispatch>()> make);
    ~RecordsetClass();
    RecordsetClass(const RecordsetClass&) = delete;
    RecordsetClass& operator=(const RecordsetClass&) = delete;

private:
    DWORD cookie_ = 0;
};

/// A window of the host's own with an edit control that has the focus.
class HostWindow {
public:
    HostWindow();
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND Handle() const { return window_; }
    /// Puts the focus into the edit control and gives the pointer a shape of the host's.
    void Focus() const;
    /// What is not as the host left it, in words; empty when everything is.
    std::string Disturbance() const;

private:
    HWND window_ = nullptr;
    HWND edit_ = nullptr;
};

/// What happened during a call.
struct SessionLog {
    bool designer_shown = false;
    int previews = 0;
    int trees = 0;
    int dialogs = 0;  ///< to add tables
    std::vector<std::wstring> messages;
    bool stuck = false;  ///< it did not come to its end, and was closed by force
};

/// A step of the user's in the open designer; it may open dialogs, which the driver closes.
using SessionStep = std::function<void(HWND designer)>;

SessionStep PressButton(int id);
/// Draws the whole window, which a session may else be too short for.
SessionStep DrawEverything();
/// Opens every item of the schema browser, selects the first ones, and counts them.
SessionStep OpenWholeBrowser(int* items = nullptr);
SessionStep ChooseTab(int tab);
/// Puts the focus into the grid and goes through its rows, which refills their lists.
SessionStep WalkGridRows();

/// What DesingQry answered, and what happened meanwhile.
struct SessionAnswer {
    HRESULT result = E_FAIL;
    std::wstring sql;
    std::wstring caption;
    SessionLog log;
};

/// Calls DesingQry and drives it; the last step must close the designer.
SessionAnswer RunSession(_Quillon* quillon, IDispatch* connection, const std::wstring& sql,
                         const std::vector<SessionStep>& steps);

/// A connection on two related tables, with an errors collection of two errors.
FakeConnection SessionConnection();
/// Three rows of two columns, which notes the statements that it is opened on.
FakePtr SessionRecordset(std::vector<std::wstring>* statements);
/// A parameter of a host's own class: no cParameter, but with the same members.
FakePtr ForeignParameter(const wchar_t* name, const wchar_t* type, const wchar_t* value);

}  // namespace tessel::tests
