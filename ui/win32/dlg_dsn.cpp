#include "ui/win32/dlg_dsn.h"

#include "common/win32/activation_context.h"
#include "common/win32/input_gate.h"
#include "common/win32/screen.h"
#include "common/win32/window.h"
#include "macros/macros.h"
#include "ui/win32/designer_window.h"

namespace tessel::ui {

// These scopes span the window's whole life: every control of it is a themed one, every window of it follows
// the scale of its monitor, and none takes input while a call of ours is with the host.
class dlgDsn::Impl {
public:
    explicit Impl(DesignerOwner* owner) : window(owner) { window.Create(); }

    win32::PerMonitorScope scale;
    win32::ActivationContext context;
    win32::InputGate gate;
    DesignerWindow window;
};

dlgDsn::dlgDsn(DesignerOwner* owner) : impl_(std::make_unique<Impl>(owner)) {}
dlgDsn::~dlgDsn() = default;

bool dlgDsn::IsCreated() const {
    return impl_->window.IsCreated();
}
HWND dlgDsn::Handle() const {
    return impl_->window.Handle();
}

void dlgDsn::LoadSchema(const schema::Schema* schema, std::wstring_view caption) {
    if (IsCreated()) impl_->window.LoadSchema(schema, caption);
}

void dlgDsn::SetConnection(IDispatch* connection) {
    impl_->window.SetConnection(connection);
}

void dlgDsn::SetDsn(std::wstring_view sSql) {
    if (!IsCreated()) return;
    impl_->window.LayOut();
    impl_->window.Presenter().SetDsn(sSql);
}

bool dlgDsn::ShowModal() {
    // The window's panes shape the pointer as it moves over them; the host's own shape comes back without a
    // move.
    const HCURSOR before = GetCursor();
    const bool accepted = impl_->window.ShowModal();
    SetCursor(before);
    return accepted;
}

std::vector<std::wstring> dlgDsn::GetMacros(std::wstring_view sql) const {
    return macros::GetMacros(sql);
}
std::wstring dlgDsn::ReplaceMacros(std::wstring_view sql) {
    return macros::ReplaceMacros(sql, impl_->window.MacroSource());
}

bool dlgDsn::Accepted() const {
    return impl_->window.Presenter().Accepted();
}
std::wstring dlgDsn::ResultSQL() const {
    return impl_->window.Presenter().ResultSQL();
}
void dlgDsn::SetResultSQL(std::wstring_view text) {
    impl_->window.Presenter().SetResultSQL(text);
}

void UnregisterWindowClasses() {
    controls::ReleaseEditorClasses();
    win32::UnregisterClasses();
    win32::ActivationContext::ReleaseShared();
}

}  // namespace tessel::ui
