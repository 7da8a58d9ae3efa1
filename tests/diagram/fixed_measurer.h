// Text widths for tests: every character is as wide as every other.
#pragma once

#include "controls/diagram/diagram_box.h"

namespace tessel::controls::diagram {

class FixedMeasurer : public TextMeasurer {
public:
    int TitleWidth(std::wstring_view text) const override { return 8 * static_cast<int>(text.size()); }
    int RowWidth(std::wstring_view text) const override { return 7 * static_cast<int>(text.size()); }
};

}  // namespace tessel::controls::diagram
