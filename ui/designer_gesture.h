// One step of the user's on the design: from its construction to its destruction, whatever changes belongs
// together and is undone together. Gestures inside a gesture belong to the outer one.
#pragma once

#include "ui/designer_presenter.h"

namespace tessel::ui {

class DesignerPresenter::Gesture {
public:
    explicit Gesture(DesignerPresenter& presenter) : presenter_(presenter) {
        // What a control changed by itself before is a step of its own.
        presenter_.StepDone();
        ++presenter_.gestures_;
    }
    ~Gesture() {
        --presenter_.gestures_;
        try {
            presenter_.StepDone();
        } catch (...) {
            // Without memory for the step, it becomes part of the next one.
        }
    }
    Gesture(const Gesture&) = delete;
    Gesture& operator=(const Gesture&) = delete;

private:
    DesignerPresenter& presenter_;
};

}  // namespace tessel::ui
