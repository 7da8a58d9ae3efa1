// What the stand-in for the designer window saw and what it is to do. The tests of DesingQry link it instead
// of the real window, which has tests of its own.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tessel::ui {
class DesignerOwner;
}

namespace tessel::tests {

struct RecordedWindow {
    std::vector<std::string> steps;  ///< one line a call, in order
    bool refuses_creation = false;
    std::string throws_in;  ///< the call that throws
    bool accepts = false;
    std::wstring result = L"resultado";
    std::function<void()> during_modal;
    ui::DesignerOwner* owner = nullptr;
};

/// The one of the running test; reset it in each.
RecordedWindow& TheWindow();

}  // namespace tessel::tests
