// Takes pictures of the preview in its states. Not a test: someone looks at them.
#include <windows.h>

#include <cstdio>

#include "common/win32/activation_context.h"
#include "hostkit/drive/input.h"
#include "hostkit/drive/script.h"
#include "tests/win_preview/generated_recordset.h"
#include "ui/win32/dlg_pvw.h"
#include "ui/win32/recordset_rows.h"

namespace {

using namespace tessel;
using namespace tessel::testing;

std::vector<tests::GeneratedColumn> Orders() {
    auto columns = tests::NumberedColumns();
    columns.insert(columns.begin(), {L"IdPedido", 3, [](LONG row) { return win32::UniqueVariant(row); }});
    columns.push_back({L"Fecha", 7, [](LONG row) {
                           win32::UniqueVariant date;
                           date.Address()->vt = VT_DATE;
                           date.Address()->date = 45000 + row + (row % 3 == 0 ? 0.25 : 0);
                           return date;
                       }});
    columns.push_back({L"Pagado", 11, [](LONG row) { return win32::UniqueVariant(row % 2 == 0); }});
    columns.push_back({L"Descuento", 5, [](LONG row) { return win32::UniqueVariant(row / 8.0); }});
    return columns;
}

/// Opens the preview, lets `steps` add to the script, takes a picture and closes it.
void Picture(const std::wstring& file, const std::function<void(Script&, ui::dlgPVW&)>& steps) {
    const tests::FakePtr recordset = tests::MakeGeneratedRecordset(Orders(), 1000000);
    const auto rows = ui::RecordsetRows::Over(win32::Dispatch(recordset.Get()));
    if (!rows) return;
    ui::dlgPVW window(*rows.Value());
    Script script;
    script.OnTrouble([&] { PostMessageW(window.Handle(), WM_CLOSE, 0, 0); });
    script.Until([&] { return window.Handle() && IsWindowVisible(window.Handle()); }, "visible");
    steps(script, window);
    script.Do([&] {
        RedrawWindow(window.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    });
    script.Do([&] {
        std::printf("%ls %s\n", file.c_str(), SavePicture(window.Handle(), file) ? "saved" : "NOT saved");
    });
    script.Do([&] { PostMessageW(window.Handle(), WM_CLOSE, 0, 0); });
    script.Start();
    static_cast<void>(window.Show(nullptr));
    if (!script.Finished()) std::printf("%s\n", script.Trouble().c_str());
}

/// The visible tooltip of this process, or nullptr.
HWND VisibleTip() {
    HWND tip = nullptr;
    while ((tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr)
        if (IsWindowVisible(tip)) return tip;
    return nullptr;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    const std::wstring folder = count > 1 ? std::wstring(arguments[1]) + L"\\" : L"";
    const win32::ActivationContext context;
    Picture(folder + L"rows.bmp", [](Script& script, ui::dlgPVW&) {
        script.Do([] { PressKey(VK_DOWN); });
        script.Do([] { PressKey(VK_RIGHT); });
        script.Do([] { PressKey(VK_RIGHT); });
    });
    Picture(folder + L"find.bmp", [](Script& script, ui::dlgPVW& window) {
        script.Do([] { PressKey('F', false, true); });
        script.Until([&] { return GetFocus() == Descendant(window.Handle(), ui::FindBar::kIdText); },
                     "the edit");
        script.Do([] { TypeText(L"fila 2025"); });
        script.Do([] { PressKey(VK_RETURN); });
        script.Until([&] { return window.CurrentCell().row == 2024; }, "found");
    });
    Picture(folder + L"end.bmp", [](Script& script, ui::dlgPVW&) {
        script.Do([] { PressKey(VK_END); });
        script.Do([] { PressKey(VK_UP, true); });
    });
    Picture(folder + L"small.bmp", [](Script& script, ui::dlgPVW& window) {
        script.Do([&] { MoveWindow(window.Handle(), 0, 0, 10, 10, TRUE); });
        script.Do([] { PressKey('F', false, true); });
    });
    Picture(folder + L"tipped.bmp", [&](Script& script, ui::dlgPVW& window) {
        script.Do([&] {
            RECT cell{};
            ListView_GetSubItemRect(window.List(), 3, 3, LVIR_BOUNDS, &cell);
            MouseMove(ScreenPoint(window.List(), cell));
        });
        script.Do([&] {
            RECT cell{};
            ListView_GetSubItemRect(window.List(), 3, 3, LVIR_BOUNDS, &cell);
            POINT point = ScreenPoint(window.List(), cell);
            MouseMove({point.x + 3, point.y + 1});
        });
        script.Until([] { return VisibleTip() != nullptr; }, "the tip");
        script.Do([&] { SavePicture(VisibleTip(), folder + L"tip.bmp"); });
    });
    return 0;
}
