// Small random databases: four to six tables of few rows, full of NULL and of repeated values, so that joins
// find none, one or several partners and groups have more than one row. Names are chosen to be awkward:
// blanks, accents, reserved words, a table called like a field, fields that several tables share.
#pragma once

#include <string>
#include <vector>

#include "schema/schema.h"
#include "tests/laws/random_source.h"

namespace tessel::laws {

enum class FieldKind { Number, Real, Text, Truth };

struct Field {
    std::wstring name;  ///< in brackets where it needs them
    FieldKind kind = FieldKind::Number;
};

struct Table {
    std::wstring name;
    std::vector<Field> fields;
    std::vector<std::vector<std::wstring>> rows;  ///< literals
};

struct Database {
    std::vector<Table> tables;

    /// Statements that create and fill the tables, in words that SQLite and MariaDB share.
    std::vector<std::wstring> Script() const;
    schema::Schema MakeSchema() const;
};

[[nodiscard]] Database RandomDatabase(Random& random);

/// A literal of the small range that the tables hold, never NULL.
[[nodiscard]] std::wstring RandomLiteral(Random& random, FieldKind kind);

}  // namespace tessel::laws
