#include <windows.h>

#include <commctrl.h>

#include "benchmarks/win32/designer_host.h"
#include "benchmarks/win32/groups.h"
#include "benchmarks/win32/plain_odbc.h"
#include "hostkit/drive/input.h"
#include "ui/win32/designer_ids.h"

namespace tessel::bench {

namespace {

constexpr int kRepetitions = 21;
/// What a closed window still gives the system to do must not count for what is measured next.
constexpr DWORD kRest_ms = 200;
constexpr int kIdSearch = 11;
constexpr int kIdTree = 12;

/// What a user types who looks for one table of the ten thousand, and takes back.
constexpr wchar_t kTyped[] = L"factura_00123\b\b\b\b\b";

HWND Browser(int id) {
    return testing::Descendant(testing::Descendant(DesignerWindow(), ui::kIdBrowser), id);
}

void TypeIntoSearch(Measurements* measurements) {
    const HWND search = Browser(kIdSearch);
    for (const wchar_t* key = kTyped; *key; ++key) {
        const double seconds =
            SecondsUntilPainted(DesignerWindow(), [&] { SendMessageW(search, WM_CHAR, *key, 0); });
        measurements->Add("SearchKeyInLargeSchema", seconds);
    }
}

void OpenTableInBrowser(Measurements* measurements) {
    const HWND tree = Browser(kIdTree);
    HTREEITEM item = TreeView_GetChild(tree, TreeView_GetChild(tree, TreeView_GetRoot(tree)));
    for (int i = 0; i < 3 && item; ++i) {
        const double seconds =
            SecondsUntilPainted(DesignerWindow(), [&] { TreeView_Expand(tree, item, TVE_EXPAND); });
        measurements->Add(i == 0 ? "OpenFirstTableOfLargeSchema" : "OpenTableOfLargeSchema", seconds);
        item = TreeView_GetNextSibling(tree, item);
    }
}

}  // namespace

// Both sides have a connection of their own that is open before anything is measured, as a host's is. (One
// that was closed would leave the driver's heap in a state in which the next list takes twice as long.) The
// window without tables is opened in turn with that of the large schema, so that both have the same weather.
void MeasureSchema(const Databases& databases, Measurements* measurements) {
    DesignerHost host;
    const std::wstring file = databases.large_folder + L"/esquema.db";
    const PlainConnection plain(OdbcStringOf(file));
    const win32::Dispatch large = host.Open(file);
    const win32::Dispatch small = host.Open(databases.ventas);
    static_cast<void>(host.Design(small, L""));  // the first window loads libraries and fonts
    for (int i = 0; i < kRepetitions; ++i) {
        Sleep(kRest_ms);
        const double begun = Now();
        const std::size_t objects = ListObjects(plain).size();
        measurements->Add("PlainSchema", Now() - begun, {{"objects", static_cast<double>(objects)}});
        Sleep(kRest_ms);
        measurements->Add("LargeSchemaToFirstPaint", host.Design(large, L""));
        Sleep(kRest_ms);
        measurements->Add("WindowBesideLargeSchema", host.Design(small, L""));
    }
    static_cast<void>(host.Design(large, L"", [&](testing::Script& script) {
        script.Do([&] { TypeIntoSearch(measurements); });
        script.Do([&] { SetWindowTextW(Browser(kIdSearch), L""); });
        script.Do([&] { OpenTableInBrowser(measurements); });
    }));
}

}  // namespace tessel::bench
