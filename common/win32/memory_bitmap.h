// A bitmap to paint into before it is shown.
#pragma once

#include <windows.h>

#include "common/win32/handles.h"

namespace tessel::win32 {

/// 32 bits a pixel, top row first, all 0, in this process's own memory: CreateCompatibleBitmap asks for the
/// monitors, which may take longer than the painting. Empty when there is no memory.
UniqueBitmap MemoryBitmap(int width, int height);

}  // namespace tessel::win32
