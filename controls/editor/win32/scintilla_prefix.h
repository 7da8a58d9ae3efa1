// Read before the editing component's own sources when they are compiled. The component registers its window
// classes for the whole process, and a host that brings its own copy of the component would then refuse ours;
// registered for this module only, both live side by side.
#pragma once

#include <windows.h>

#undef CS_GLOBALCLASS
#define CS_GLOBALCLASS 0
