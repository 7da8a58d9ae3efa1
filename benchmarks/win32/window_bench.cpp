// The window's benchmarks: opens the designer through the library as a host does, and draws large diagrams.
//
//   window_bench RESULTS DATABASES VENTAS GROUP...
//
// Appends what it measured to the file RESULTS. DATABASES is the folder of scripts/bench_databases, VENTAS
// the sample database. The groups: schema, designer, diagram, and preview_plain, preview_window, which hold a
// million rows and want a process each, since they tell how much memory they took.
#include <windows.h>

#include <objbase.h>

#include <cstdio>
#include <string>
#include <vector>

#include "benchmarks/win32/groups.h"

int wmain(int count, wchar_t** arguments) {
    using namespace tessel::bench;
    if (count < 5) {
        printf("usage: window_bench RESULTS DATABASES VENTAS GROUP...\n");
        return 2;
    }
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const Databases databases{arguments[2], arguments[3]};
    Measurements measurements;
    for (int i = 4; i < count; ++i) {
        const std::wstring wanted = arguments[i];
        bool known = false;
        for (const Group& group : kGroups) {
            if (wanted != group.name) continue;
            known = true;
            group.run(databases, &measurements);
        }
        if (known) continue;
        printf("no such group: %ls\n", arguments[i]);
        return 2;
    }
    measurements.Print();
    return measurements.AppendTo(arguments[1]) ? 0 : 1;
}
