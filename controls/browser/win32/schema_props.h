// schemaProps: the window that lists the properties of what is selected in the schema browser, a name and a
// value a line. What the lines are is schema_properties.h's business.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "common/win32/handles.h"
#include "common/win32/window.h"
#include "controls/browser/schema_properties.h"

namespace tessel::controls {

class SchemaProps final : public win32::Window {
public:
    ~SchemaProps() override;

    /// Creates the control without size.
    bool Create(HWND parent, int id);
    /// Shows the properties of an item; empties the list when either is nullptr. Neither is kept.
    void Show(const schema::Schema* schema, const BrowserItem* item);
    /// What is shown, from the top.
    const std::vector<SchemaProperty>& Shown() const { return shown_; }

    HWND List() const { return list_; }
    void OnDpiChanged(int dpi);

private:
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    LRESULT OnNotify(NMHDR* header);
    void FillList();
    void FitColumns();
    void FitColumnsInto(int width);
    void CopySelected() const;

    HWND list_ = nullptr;
    win32::UniqueFont font_;
    int dpi_ = 96;
    std::vector<SchemaProperty> shown_;
};

}  // namespace tessel::controls
