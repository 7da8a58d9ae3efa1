#include <windows.h>

#include <commctrl.h>

#include "benchmarks/win32/designer_host.h"
#include "benchmarks/win32/groups.h"
#include "benchmarks/win32/plain_odbc.h"
#include "hostkit/drive/input.h"
#include "ui/win32/designer_ids.h"

namespace tessel::bench {

namespace {

constexpr wchar_t kStatement[] = L"SELECT * FROM Millon";
constexpr int kJumps = 40;

std::wstring MillionOf(const Databases& databases) {
    return databases.large_folder + L"/millon.db";
}

HWND RowList() {
    return FindWindowExW(PreviewWindow(), nullptr, WC_LISTVIEWW, nullptr);
}

/// Rows here and there, none near one shown before.
void Jump(Measurements* measurements) {
    const HWND list = RowList();
    const int count = ListView_GetItemCount(list);
    for (int i = 1; i <= kJumps; ++i) {
        const int row = static_cast<int>(static_cast<long long>(count) * (i * 17 % kJumps) / kJumps);
        const double seconds =
            SecondsUntilPainted(PreviewWindow(), [&] { ListView_EnsureVisible(list, row, FALSE); });
        measurements->Add("JumpInMillionRows", seconds);
    }
}

}  // namespace

void MeasurePlainFetch(const Databases& databases, Measurements* measurements) {
    const PlainConnection connection(OdbcStringOf(MillionOf(databases)));
    const double before = CurrentMemory();
    const double begun = Now();
    CompactRows rows;
    FetchAll(connection, kStatement, &rows);
    const double seconds = Now() - begun;
    measurements->Add("PlainFetchOfMillionRows", seconds,
                      {{"peak_bytes", PeakMemory() - before},
                       {"bytes", CurrentMemory() - before},
                       {"stored", static_cast<double>(rows.Size())},
                       {"rows", static_cast<double>(rows.RowCount())}});
}

void MeasurePreview(const Databases& databases, Measurements* measurements) {
    DesignerHost host;
    const win32::Dispatch connection = host.Open(MillionOf(databases));
    const FirstPaint first_paint(PreviewWindow);
    double before = 0, begun = 0;
    static_cast<void>(host.Design(connection, kStatement, [&](testing::Script& script) {
        script.Do([&] {
            before = CurrentMemory();
            begun = Now();
            SendMessageW(DesignerWindow(), WM_COMMAND, ui::kIdRunQuery, 0);
        });
        script.Until([&] { return first_paint.At() > 0; }, "the preview is painted");
        script.Do([&] {
            measurements->Add("PreviewOfMillionRows", first_paint.At() - begun,
                              {{"peak_bytes", PeakMemory() - before},
                               {"bytes", CurrentMemory() - before},
                               {"rows", static_cast<double>(ListView_GetItemCount(RowList()))}});
            Jump(measurements);
        });
        script.Do([] { PostMessageW(PreviewWindow(), WM_COMMAND, IDCANCEL, 0); });
        script.Until([] { return !PreviewWindow(); }, "the preview is closed");
    }));
}

}  // namespace tessel::bench
