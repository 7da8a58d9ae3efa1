// The names that the SQL editor completes: the schema's, the fixed macros and the host's parameters.
#pragma once

#include <windows.h>

#include "controls/editor/win32/editor_completion.h"
#include "ui/views.h"

namespace tessel::ui {

class DesignerCompletion final : public controls::CompletionSource {
public:
    /// Not owned; may be nullptr.
    explicit DesignerCompletion(DesignerOwner* owner) : owner_(owner) {}
    void SetSchema(const schema::Schema* schema) { schema_ = schema; }

    controls::CompletionNames Names() override;

private:
    DesignerOwner* owner_;
    const schema::Schema* schema_ = nullptr;
};

}  // namespace tessel::ui
