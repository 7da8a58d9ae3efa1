// SQL composition: design in, statement text out. A pure function of the grid, the diagram and the distinct
// option; it never reads the editor and never changes the design. The exact layout, blanks included, is
// relied upon.
#pragma once

#include <string>
#include <vector>

#include "model/design.h"
#include "model/records.h"

namespace tessel::compose {

using Columns = std::vector<model::ColInfo>;

/// The whole statement, or an empty text when there is no visible column or no table.
[[nodiscard]] std::wstring BuildSQL(const model::Design& design);
/// The same in place of what `statement` holds.
void BuildSQL(const model::Design& design, std::wstring& statement);

/// The grid as records: columns whose "Campo:" is blank are left out.
[[nodiscard]] Columns ReadDesignColumns(const model::DesignGrid& grid);

// Clause builders; each returns its clause's text without the keyword, or an empty text.
[[nodiscard]] std::wstring ColumnExpression(const model::ColInfo& column);
[[nodiscard]] std::wstring SelectItem(const model::ColInfo& column);
[[nodiscard]] bool IsTotalsQuery(const Columns& columns);
[[nodiscard]] std::wstring GroupByClause(const Columns& columns);
[[nodiscard]] std::wstring OrderByClause(const Columns& columns);
[[nodiscard]] std::wstring CriterionText(const std::wstring& expression, const std::wstring& criterion);
[[nodiscard]] std::wstring WhereClause(const Columns& columns);
[[nodiscard]] std::wstring HavingClause(const Columns& columns);

// FROM.
[[nodiscard]] std::wstring TableList(const model::Diagram& diagram);
[[nodiscard]] std::wstring JoinClause(const model::Diagram& diagram);
[[nodiscard]] std::vector<model::JPath> BuildJoinChains(const model::Diagram& diagram);
/// 2 gives "LEFT", 3 "RIGHT", anything else "INNER".
[[nodiscard]] std::wstring JoinKeyword(int code);

// The reverse of the " DESC" suffix. Both trim the caller's item first.
[[nodiscard]] bool IsDescending(std::wstring& item);
[[nodiscard]] std::wstring StripDescending(std::wstring& item);

}  // namespace tessel::compose
