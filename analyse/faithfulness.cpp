#include "analyse/faithfulness.h"

#include "analyse/side_by_side.h"
#include "analyse/statement_scope.h"
#include "compose/compose.h"

namespace tessel::analyse {

namespace {

TextRange RangeOf(const std::vector<sql::Item>& items) {
    if (items.empty()) return {};
    const std::size_t begin = items.front().range.offset;
    return {begin, items.back().range.End() - begin};
}

TextRange RangeOf(const sql::Statement& statement, Clause clause) {
    switch (clause) {
        case Clause::Whole:
            return {0, statement.source.size()};
        case Clause::Select:
            return RangeOf(statement.Columns);
        case Clause::Distinct:
            return statement.distinct_range;
        case Clause::From:
            return statement.from_range;
        case Clause::Where:
            return statement.where != sql::kNoNode ? statement.where_range : statement.from_range;
        case Clause::GroupBy:
            return statement.GroupItems.empty() ? RangeOf(statement.Columns) : RangeOf(statement.GroupItems);
        case Clause::Having:
            return statement.having_range;
        case Clause::OrderBy:
            return RangeOf(statement.OrderItems);
    }
    return {};
}

}  // namespace

Outcome CheckFaithful(const StatementScope& scope, const Canonical& canonical, const model::Design& design,
                      LeftOut left_out, Composed& composed) {
    const sql::Statement& original = scope.Source();
    compose::BuildSQL(design, composed.text);
    // Word for word what composition wrote, as most texts are that go to and fro between the tabs: the same
    // statement, whatever it says.
    const bool is_whole = !left_out.where && !left_out.having;
    if (is_whole && composed.text == original.source) return std::nullopt;
    if (is_whole && ReadsAlike(scope, canonical, composed.text)) return std::nullopt;
    const bool failed = composed.parser.Parse(composed.text);
    const sql::Statement* statement = composed.parser.GetStatement();
    if (failed || !statement || !statement->beyond.empty() || statement->Top > 0) {
        return Refusal{{0, original.source.size()}, std::wstring(messages::kNotReadBack)};
    }
    const StatementScope composed_scope(*statement, design.diagram.BoundSchema(), scope.Numbers());
    const Canonical composed_canonical(composed_scope);
    const auto difference =
        FirstDifference(Normalise(scope, canonical), Normalise(composed_scope, composed_canonical), left_out);
    if (!difference) return std::nullopt;
    return Refusal{RangeOf(original, *difference), ChangedClauseMessage(*difference)};
}

}  // namespace tessel::analyse
