// dlgDsn, the designer window: created hidden, given its schema, connection and statement, shown modally,
// read, and destroyed. Implements the presenter's views over the controls; every window procedure is guarded,
// so nothing throws out of here.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "schema/schema.h"
#include "ui/views.h"

namespace tessel::ui {

class dlgDsn {
public:
    /// Creates the window hidden and loads it. `IsCreated()` is false when Windows refused.
    explicit dlgDsn(DesignerOwner* owner);
    ~dlgDsn();
    dlgDsn(const dlgDsn&) = delete;
    dlgDsn& operator=(const dlgDsn&) = delete;

    bool IsCreated() const;
    HWND Handle() const;

    /// Fills schemaView with the schema under a root of that caption and binds dgmTables. Not owned; must
    /// outlive the window.
    void LoadSchema(const schema::Schema* schema, std::wstring_view caption);
    /// The host's ADO connection, for the preview. AddRef'd. May be nullptr.
    void SetConnection(IDispatch* connection);
    /// Puts a statement into editor and design (blank: nothing happens).
    void SetDsn(std::wstring_view sSql);

    /// Runs the modal loop until the window hides. The thread's other top-level windows are disabled
    /// meanwhile and get their state and the focus back on every path. Returns Accepted().
    bool ShowModal();

    /// The macros of a text, and the text with those expanded that the designer can evaluate.
    std::vector<std::wstring> GetMacros(std::wstring_view sql) const;
    std::wstring ReplaceMacros(std::wstring_view sql);

    bool Accepted() const;
    std::wstring ResultSQL() const;
    void SetResultSQL(std::wstring_view text);

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

/// Unregisters the window classes that were registered on first use. Call before the library may be unloaded.
void UnregisterWindowClasses();

}  // namespace tessel::ui
