// Takes pictures of the designer window in its states. Not a test: someone looks at them.
#include <windows.h>

#include <commctrl.h>

#include <cstdio>

#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

namespace {

using namespace tessel;
using namespace tessel::testing;

/// Opens the designer on a statement, lets `steps` add to the script, takes a picture and closes it.
void Picture(const std::wstring& file, std::wstring_view statement, const std::function<void(Script&, HWND)>& steps) {
    const schema::Schema schema = SmallSchema();
    ui::DesignerWindow window(nullptr);
    if (!window.Create()) return;
    window.LoadSchema(&schema, L"ventas");
    window.Presenter().SetDsn(statement);
    Script script;
    script.OnTrouble([&] { PostMessageW(window.Handle(), WM_CLOSE, 0, 0); });
    script.Until([&] { return IsWindowVisible(window.Handle()) != FALSE; }, "visible");
    steps(script, window.Handle());
    script.Do([&] { RedrawWindow(window.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN); });
    script.Do([&] { std::printf("%ls %s\n", file.c_str(), SavePicture(window.Handle(), file) ? "saved" : "NOT saved"); });
    script.Do([&] { PostMessageW(window.Handle(), WM_CLOSE, 0, 0); });
    script.Start();
    window.ShowModal();
    if (!script.Finished()) std::printf("%s\n", script.Trouble().c_str());
}

void ClickTab(HWND window, int tab) {
    const HWND tabs = Descendant(window, ui::kIdTabs);
    RECT item{};
    SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&item));
    MouseClick(ScreenPoint(tabs, item));
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    const std::wstring folder = count > 1 ? std::wstring(arguments[1]) + L"\\" : L"";
    const win32::ActivationContext context;
    Picture(folder + L"design.bmp", kTotalsByCustomer, [](Script&, HWND) {});
    Picture(folder + L"empty.bmp", L"", [](Script&, HWND) {});
    Picture(folder + L"sql.bmp", kTotalsByCustomer, [](Script& script, HWND window) {
        script.Do([=] { ClickTab(window, 1); });
        script.Until([=] { return IsWindowVisible(Descendant(window, ui::kIdEditor)) != FALSE; });
    });
    Picture(folder + L"reason.bmp", L"SELECT a FROM t UNION SELECT b FROM u", [](Script& script, HWND window) {
        script.Do([=] { ClickTab(window, 0); });
        script.Until([=] { return IsWindowVisible(Descendant(window, ui::kIdEditor)) == FALSE; });
    });
    Picture(folder + L"small.bmp", kTotalsByCustomer,
            [](Script& script, HWND window) { script.Do([=] { MoveWindow(window, 0, 0, 10, 10, TRUE); }); });
    return 0;
}
