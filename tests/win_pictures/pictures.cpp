// Takes pictures of the designer window in its states. Not a test: someone looks at them.
#include <windows.h>

#include <commctrl.h>

#include <cstdio>

#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

namespace {

using namespace tessel;
using namespace tessel::testing;

/// Opens the designer on a statement, lets `steps` add to the script, takes a picture and closes it.
void Picture(const std::wstring& file, std::wstring_view statement,
             const std::function<void(Script&, ui::DesignerWindow&)>& steps) {
    const schema::Schema schema = SmallSchema();
    ui::DesignerWindow window(nullptr);
    if (!window.Create()) return;
    window.LoadSchema(&schema, L"ventas");
    window.Presenter().SetDsn(statement);
    Script script;
    script.OnTrouble([&] { PostMessageW(window.Handle(), WM_CLOSE, 0, 0); });
    script.Until([&] { return IsWindowVisible(window.Handle()) != FALSE; }, "visible");
    steps(script, window);
    script.Do([&] {
        RedrawWindow(window.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    });
    script.Do([&] {
        std::printf("%ls %s\n", file.c_str(), SavePicture(window.Handle(), file) ? "saved" : "NOT saved");
    });
    script.Do([&] { PostMessageW(window.Handle(), WM_CLOSE, 0, 0); });
    script.Start();
    window.ShowModal();
    if (!script.Finished()) std::printf("%s\n", script.Trouble().c_str());
}

/// Opens the designer on a statement, lets `open` open another window over it, takes a picture of that one
/// and closes both.
void PictureOf(const std::wstring& file, std::wstring_view statement,
               const std::function<void(ui::DesignerWindow&)>& open, const std::function<HWND()>& find) {
    const schema::Schema schema = SmallSchema();
    ui::DesignerWindow window(nullptr);
    if (!window.Create()) return;
    window.LoadSchema(&schema, L"ventas");
    window.Presenter().SetDsn(statement);
    Script script;
    script.OnTrouble([&] { PostMessageW(window.Handle(), WM_CLOSE, 0, 0); });
    script.Until([&] { return IsWindowVisible(window.Handle()) != FALSE; }, "visible");
    script.Do([&] { open(window); });
    script.Until([&] { return find() && IsWindowVisible(find()); }, "the other window is visible");
    script.Do(
        [&] { RedrawWindow(find(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN); });
    script.Do(
        [&] { std::printf("%ls %s\n", file.c_str(), SavePicture(find(), file) ? "saved" : "NOT saved"); });
    script.Do([] { PressKey(VK_ESCAPE); });
    script.Until([&] { return !find(); }, "the other window is closed");
    script.Do([&] { PostMessageW(window.Handle(), WM_CLOSE, 0, 0); });
    script.Start();
    window.ShowModal();
    if (!script.Finished()) std::printf("%s\n", script.Trouble().c_str());
}

HWND FindMenu() {
    const HWND menu = FindWindowW(L"#32768", nullptr);
    return menu && IsWindowVisible(menu) ? menu : nullptr;
}

HWND FindDialog() {
    return FindWindowW(L"TesselDialog", nullptr);
}

POINT OnDiagram(ui::DesignerWindow& window, POINT client) {
    ClientToScreen(window.DiagramControl().Handle(), &client);
    return client;
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
    Picture(folder + L"design.bmp", kTotalsByCustomer, [](Script&, ui::DesignerWindow&) {});
    Picture(folder + L"empty.bmp", L"", [](Script&, ui::DesignerWindow&) {});
    Picture(folder + L"sql.bmp", kTotalsByCustomer, [](Script& script, ui::DesignerWindow& designer) {
        const HWND window = designer.Handle();
        script.Do([=] { ClickTab(window, 1); });
        script.Until([=] { return IsWindowVisible(Descendant(window, ui::kIdEditor)) != FALSE; });
    });
    Picture(folder + L"reason.bmp", L"SELECT a FROM t UNION SELECT b FROM u",
            [](Script& script, ui::DesignerWindow& designer) {
                const HWND window = designer.Handle();
                script.Do([=] { ClickTab(window, 0); });
                script.Until([=] { return IsWindowVisible(Descendant(window, ui::kIdEditor)) == FALSE; });
            });
    Picture(folder + L"small.bmp", kTotalsByCustomer, [](Script& script, ui::DesignerWindow& designer) {
        const HWND window = designer.Handle();
        script.Do([=] { MoveWindow(window, 0, 0, 10, 10, TRUE); });
    });
    PictureOf(
        folder + L"menu_relation.bmp", kTotalsByCustomer,
        [](ui::DesignerWindow& window) {
            const int key = window.Presenter().Design().diagram.Relations()[0].key;
            RightClick(OnDiagram(window, window.DiagramControl().RelationPoint(key)));
        },
        FindMenu);
    PictureOf(
        folder + L"menu_table.bmp", kTotalsByCustomer,
        [](ui::DesignerWindow& window) {
            const RECT box = window.DiagramControl().TableRect(L"Pedidos");
            RightClick(OnDiagram(window, {box.left + 30, box.top + 8}));
        },
        FindMenu);
    PictureOf(
        folder + L"relation.bmp", kTotalsByCustomer,
        [](ui::DesignerWindow& window) {
            window.Presenter().RelationActivated(window.Presenter().Design().diagram.Relations()[0].key);
        },
        FindDialog);
    PictureOf(
        folder + L"add_table.bmp", kTotalsByCustomer,
        [](ui::DesignerWindow& window) {
            PostMessageW(Descendant(window.Handle(), ui::kIdAddTable), BM_CLICK, 0, 0);
        },
        FindDialog);
    PictureOf(
        folder + L"add_related_table.bmp", kTotalsByCustomer,
        [](ui::DesignerWindow& window) {
            window.Presenter().Design().diagram.SelectTable(L"Pedidos");
            window.Presenter().MenuChosen(ui::MenuCommand::mnuAddRelTable);
        },
        FindDialog);
    Picture(folder + L"relating.bmp", L"SELECT Clientes.Nombre FROM Clientes, Productos, Pedidos",
            [](Script& script, ui::DesignerWindow& window) {
                script.Do([&window] {
                    window.Presenter().Design().diagram.SelectTable(L"Clientes");
                    window.Presenter().MenuChosen(ui::MenuCommand::mnuRelacionar);
                    const auto& diagram = window.DiagramControl();
                    MouseClick(ScreenPoint(diagram.Handle(), diagram.FieldRect(L"Clientes", L"IdCliente")));
                    MouseMove(ScreenPoint(diagram.Handle(), diagram.FieldRect(L"Productos", L"IdProducto")));
                });
            });
    return 0;
}
