#include <windows.h>

#include <commctrl.h>

#include "benchmarks/win32/designer_host.h"
#include "benchmarks/win32/groups.h"
#include "benchmarks/win32/plain_odbc.h"
#include "hostkit/drive/input.h"
#include "ui/win32/designer_ids.h"

namespace tessel::bench {

namespace {

constexpr int kRepetitions = 7;
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

// Both sides get a connection of their own each time: the engine reads its schema when it is first asked.
void MeasureSchema(const Databases& databases, Measurements* measurements) {
    DesignerHost host;
    const std::wstring file = databases.large_folder + L"/esquema.db";
    static_cast<void>(
        host.Design(host.Open(databases.ventas), L""));  // the first window loads libraries and fonts
    for (int i = 0; i < kRepetitions; ++i) {
        {
            const PlainConnection connection(OdbcStringOf(file));
            const double begun = Now();
            const std::size_t objects = ListObjects(connection).size();
            measurements->Add("PlainSchema", Now() - begun, {{"objects", static_cast<double>(objects)}});
        }
        const win32::Dispatch connection = host.Open(file);
        const double seconds = host.Design(connection, L"", [&](testing::Script& script) {
            if (i > 0) return;
            script.Do([&] { TypeIntoSearch(measurements); });
            script.Do([&] { SetWindowTextW(Browser(kIdSearch), L""); });
            script.Do([&] { OpenTableInBrowser(measurements); });
        });
        measurements->Add("LargeSchemaToFirstPaint", seconds);
    }
}

}  // namespace tessel::bench
