// What schemaProps shows of an item of the schema browser, as lines of a name and a value. Asks the schema
// for what the item needs (the fields of that one object, the foreign keys) and for nothing else; knows no
// window.
#pragma once

#include <string>
#include <vector>

#include "controls/browser/browser_model.h"

namespace tessel::controls {

struct SchemaProperty {
    std::wstring name;
    std::wstring value;
    friend bool operator==(const SchemaProperty&, const SchemaProperty&) = default;
};

/// The properties of a table, a view, a field, a relation, a group or the root; none when the schema does not
/// have the item.
[[nodiscard]] std::vector<SchemaProperty> PropertiesOf(const schema::Schema& schema, const BrowserItem& item);

}  // namespace tessel::controls
