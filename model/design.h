// A whole design: what composition reads and analysis writes.
#pragma once

#include "model/design_grid.h"
#include "model/diagram.h"

namespace tessel::model {

struct Design {
    DesignGrid grid;
    Diagram diagram;
    bool distinct = false;  ///< ChkDistinct
};

}  // namespace tessel::model
