// The whole diagram as a picture for other programs: a metafile, which stays sharp at any size, and a bitmap
// for programs that know no metafiles.
#pragma once

#include <windows.h>

#include "controls/diagram/win32/diagram_painter.h"

namespace tessel::controls::diagram {

/// A metafile of everything the state shows, at 100 %; the caller owns it. nullptr when there is no table or
/// Windows refuses.
HENHMETAFILE MakeMetafile(DiagramPainter& painter, const DiagramState& state);
/// The same as a bitmap in memory, as CF_DIB wants it: header, then pixels from the bottom up. Zoomed out so
/// far that neither side is longer than 4000 pixels.
HGLOBAL MakeDib(DiagramPainter& painter, const DiagramState& state);

}  // namespace tessel::controls::diagram
