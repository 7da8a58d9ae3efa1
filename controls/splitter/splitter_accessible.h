// A splitter's bar as assistive programs see it: a separator whose value is the first pane's share of the
// room, in per cent.
#pragma once

#include <string>

#include "common/accessible_tree.h"
#include "controls/splitter/splitter_state.h"

namespace tessel::controls {

class SplitterAccessible final : public AccessibleTree {
public:
    explicit SplitterAccessible(const SplitterState& state) : state_(state) {}
    void SetName(std::wstring name) { name_ = std::move(name); }

    AccessibleElement Describe(AccessibleId id) const override;
    /// "35 %".
    std::wstring ValueOf(AccessibleId id) const override;

private:
    const SplitterState& state_;
    std::wstring name_ = L"Divisor";
};

}  // namespace tessel::controls
