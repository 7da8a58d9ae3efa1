// The tables and views of a connection: which rows of the catalogue are objects of the user's, and how
// statements name them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "schema/win32/ado_schema_source.h"

namespace tessel::schema {

/// An object with the name by which statements reach it.
struct NamedEntry {
    CatalogueEntry entry;
    std::wstring written_name;
};

/// Asks for all tables and views. Nothing when no way works; LastError of the catalogue then tells why.
std::optional<std::vector<NamedEntry>> ReadObjects(AdoCatalogue& catalogue);

}  // namespace tessel::schema
