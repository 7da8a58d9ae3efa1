#include "ui/win32/designer_completion.h"

#include <iterator>

#include "macros/macros.h"

namespace tessel::ui {

controls::CompletionNames DesignerCompletion::Names() {
    controls::CompletionNames names;
    names.schema = schema_;
    names.macros.assign(std::begin(macros::kFixedMacros), std::end(macros::kFixedMacros));
    if (owner_) names.parameters = owner_->ParameterNames();
    return names;
}

}  // namespace tessel::ui
