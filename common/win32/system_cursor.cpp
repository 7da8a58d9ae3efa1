#include "common/win32/system_cursor.h"

#include <map>

namespace tessel::win32 {

HCURSOR SystemCursor(LPCWSTR id) {
    static std::map<LPCWSTR, HCURSOR> cursors;
    HCURSOR& cursor = cursors[id];
    if (!cursor) cursor = LoadCursorW(nullptr, id);
    return cursor;
}

}  // namespace tessel::win32
