// The public records in which composition, analysis and hosts exchange a design. Field names are those of the
// type library.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tessel::model {

/// Kinds of relation as stored in the diagram. Other stored values compose as an inner join.
enum JoinKind : std::int32_t { kInnerJoin = 0, kLeftJoin = 1, kRightJoin = 2 };

/// One output column of the design.
struct ColInfo {
    std::wstring Expresion;  ///< the "Campo:" cell, verbatim
    std::wstring Alias;
    std::wstring Table;                    ///< the "Tabla:" cell; no clause uses it
    bool Visible = true;                   ///< false only for "No"
    std::wstring GroupBy;                  ///< the "Agrupación:" word
    std::int16_t OrderBy = 0;              ///< 0 none, 1 ascending, 2 descending
    std::vector<std::wstring> Conditions;  ///< the non-empty criteria cells, top to bottom
};

/// One relation of the diagram.
struct RelInfo {
    std::wstring LeftTable;
    std::wstring LeftField;
    std::wstring RightTable;
    std::wstring RightField;
    std::int32_t JType = kInnerJoin;
    bool Used = false;  ///< set while composing

    friend bool operator==(const RelInfo&, const RelInfo&) = default;
};

/// One join step of a chain.
struct JInfo {
    std::wstring OnExp;
    std::wstring Table;
    std::int32_t JType = kInnerJoin;
};

/// A join chain.
struct JPath {
    std::wstring StartTable;
    std::vector<JInfo> Joins;
};

}  // namespace tessel::model
