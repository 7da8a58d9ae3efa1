// Stands in for the designer window in builds without it: no window can be created, so every call answers its own
// statement.
#include "ui/win32/dlg_dsn.h"

namespace tessel::ui {

class dlgDsn::Impl {};

dlgDsn::dlgDsn(DesignerOwner*) {}
dlgDsn::~dlgDsn() = default;
bool dlgDsn::IsCreated() const { return false; }
HWND dlgDsn::Handle() const { return nullptr; }
void dlgDsn::LoadSchema(const schema::Schema*, std::wstring_view) {}
void dlgDsn::SetConnection(IDispatch*) {}
void dlgDsn::SetDsn(std::wstring_view) {}
bool dlgDsn::ShowModal() { return false; }
bool dlgDsn::Accepted() const { return false; }
std::wstring dlgDsn::ResultSQL() const { return {}; }
void dlgDsn::SetResultSQL(std::wstring_view) {}

void UnregisterWindowClasses() {}

}  // namespace tessel::ui
