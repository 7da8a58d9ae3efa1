// Read before the editing component's own sources when they are compiled. The component registers its window
// classes for the whole process, and a host that brings its own copy of the component would then refuse ours;
// registered for this module only, both live side by side.
//
// The component's buffer header is read here, in a mended copy (cmake/scintilla.cmake says of what); where
// the sources ask for their own, its guard keeps that out.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <Debugging.h>
#include <SplitVector.h>

#undef CS_GLOBALCLASS
#define CS_GLOBALCLASS 0
