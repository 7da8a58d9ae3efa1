// The tables and views of a connection: which rows of the catalogue are objects of the user's, and how
// statements name them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "schema/schema.h"
#include "schema/win32/ado_catalogue.h"

namespace tessel::schema {

/// An object as its row of the catalogue has it. The texts belong to the rows.
struct CatalogueObject {
    std::wstring_view catalogue;
    std::wstring_view schema;
    std::wstring_view name;
    ObjectKind kind = ObjectKind::Table;
    bool is_qualified = false;  ///< statements need its schema too

    /// The name by which statements reach it.
    [[nodiscard]] std::wstring WrittenName() const;
};

struct CatalogueObjects {
    TextRows rows;
    std::vector<CatalogueObject> objects;  ///< tables before views, each in the order of names
};

/// Asks for all tables and views. Nothing when no way works; LastError of the catalogue then tells why.
std::optional<CatalogueObjects> ReadObjects(AdoCatalogue& catalogue);

}  // namespace tessel::schema
