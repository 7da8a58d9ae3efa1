#include "tests/win_component/recorded_window.h"

#include <stdexcept>

#include "common/text.h"
#include "ui/win32/dlg_dsn.h"

namespace tessel::tests {

RecordedWindow& TheWindow() {
    static RecordedWindow window;
    return window;
}

namespace {

void Record(const std::string& call, const std::string& detail = {}) {
    TheWindow().steps.push_back(detail.empty() ? call : call + " " + detail);
    if (TheWindow().throws_in == call) throw std::runtime_error("as told");
}

}  // namespace
}  // namespace tessel::tests

namespace tessel::ui {

using tests::Record;
using tests::TheWindow;

class dlgDsn::Impl {};

dlgDsn::dlgDsn(DesignerOwner* owner) {
    TheWindow().owner = owner;
    Record("create");
}
dlgDsn::~dlgDsn() {
    TheWindow().steps.push_back("unload");
}
bool dlgDsn::IsCreated() const {
    return !TheWindow().refuses_creation;
}
HWND dlgDsn::Handle() const {
    return nullptr;
}
void dlgDsn::LoadSchema(const schema::Schema* schema, std::wstring_view caption) {
    Record("LoadSchema", std::to_string(schema->Objects().size()) + " " + ToUtf8(caption));
}
void dlgDsn::SetConnection(IDispatch* connection) {
    Record("SetConnection", connection ? "yes" : "no");
}
void dlgDsn::SetDsn(std::wstring_view sql) {
    Record("SetDsn", ToUtf8(sql));
}
bool dlgDsn::ShowModal() {
    Record("ShowModal");
    if (TheWindow().during_modal) TheWindow().during_modal();
    return Accepted();
}
bool dlgDsn::Accepted() const {
    return TheWindow().accepts;
}
std::wstring dlgDsn::ResultSQL() const {
    Record("ResultSQL");
    return TheWindow().result;
}
void dlgDsn::SetResultSQL(std::wstring_view text) {
    Record("SetResultSQL", ToUtf8(text));
}

void UnregisterWindowClasses() {
    Record("UnregisterWindowClasses");
}

}  // namespace tessel::ui
