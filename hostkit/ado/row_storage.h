// Rows kept in memory, packed: one byte of type and the bare value a cell, one number a row. A client cursor
// over some ten thousand rows needs a fraction of what Variants would.
#pragma once

#include <cstddef>
#include <vector>

#include "common/win32/com.h"
#include "hostkit/ado/column.h"

namespace tessel::ado {

class RowStorage {
public:
    std::size_t RowCount() const { return starts_.size(); }
    /// Adds a row; each value is of one of the types that ReadCell makes.
    void Add(const std::vector<win32::UniqueVariant>& row);
    /// The values of a row. `count` is the number of columns.
    std::vector<win32::UniqueVariant> Row(std::size_t index, std::size_t count) const;

private:
    void Append(const VARIANT& value);
    void AppendBytes(const void* bytes, std::size_t count);
    win32::UniqueVariant Read(std::size_t* at) const;

    std::vector<std::size_t> starts_;
    std::vector<unsigned char> bytes_;
};

/// Complete rows with their columns: what a client cursor or a schema rowset holds.
struct RowSet {
    SharedColumns columns;
    RowStorage rows;
};

}  // namespace tessel::ado
