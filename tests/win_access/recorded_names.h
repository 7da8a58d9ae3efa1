// Stands in for the system's service that keeps the names of standard controls, which Wine has not: the
// product asks COM for the service and finds this one.
#pragma once

#include <windows.h>

#include <map>
#include <string>

namespace tessel::testing {

class RecordedNames {
public:
    RecordedNames();
    ~RecordedNames();
    RecordedNames(const RecordedNames&) = delete;
    RecordedNames& operator=(const RecordedNames&) = delete;

    /// The name that the product gave to a window; empty when it gave none.
    static std::wstring Of(HWND hwnd);
    /// Windows that have a name still.
    static std::size_t Count();

private:
    DWORD registration_ = 0;
};

}  // namespace tessel::testing
