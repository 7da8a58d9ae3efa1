// The clauses after the select list, each of them once and in order.
#include <cmath>

#include "sqlparser/grammar.h"
#include "sqlparser/messages.h"

namespace tessel::sql {
namespace {

constexpr std::wstring_view kClauseNames[] = {L"SELECT", L"FROM",     L"WHERE", L"GROUP BY",
                                              L"HAVING", L"ORDER BY", L"PIVOT"};
constexpr int kFromRank = 1;
constexpr int kWhereRank = 2;
constexpr int kGroupRank = 3;
constexpr int kHavingRank = 4;
constexpr int kOrderRank = 5;
constexpr int kPivotRank = 6;

}  // namespace

// Reads clauses until the select ends. After an error it goes on at the next clause.
void Grammar::Clauses(int base_parens) {
    ClausesFrom(0, base_parens);
}

void Grammar::ClausesAfterFrom(int base_parens) {
    ClausesFrom(kFromRank, base_parens);
}

void Grammar::ClausesFrom(int last_rank, int base_parens) {
    for (;;) {
        if (!Recover(base_parens)) return;
        if (Clause(last_rank) || TailClause()) continue;
        if (blocked_) continue;
        if (At(TokenKind::End) || At(TokenKind::Semicolon)) return;
        if (At(Keyword::Union) || At(Keyword::Intersect) || At(Keyword::Except)) return;
        if (At(TokenKind::RightParen)) {
            if (parens_ < base_parens && base_parens > 0) return;
            Fail(messages::kExtraRightParen);
        } else if (last_rank == 0) {
            Fail(messages::kExpectedFrom);
        } else if (last_rank == kFromRank) {
            Fail(messages::kExpectedJoinOrClause);
        } else {
            FailAt(token_.Range(), messages::Unexpected(TextOf(token_.Range())));
        }
    }
}

bool Grammar::Clause(int& last_rank) {
    if (!At(TokenKind::Word)) return false;
    switch (token_.keyword) {
        case Keyword::From:
            CheckOrder(kFromRank, last_rank);
            FromClause();
            return true;
        case Keyword::Where:
            CheckOrder(kWhereRank, last_rank);
            ConditionClause(statement_->where, statement_->where_range);
            return true;
        case Keyword::Group:
            CheckOrder(kGroupRank, last_rank);
            GroupByClause();
            return true;
        case Keyword::Having:
            CheckOrder(kHavingRank, last_rank);
            ConditionClause(statement_->having, statement_->having_range);
            return true;
        case Keyword::Order:
            CheckOrder(kOrderRank, last_rank);
            OrderByClause();
            return true;
        case Keyword::Pivot:
            if (statement_->transform.length == 0) return false;
            CheckOrder(kPivotRank, last_rank);
            PivotClause();
            return true;
        default:
            return false;
    }
}

void Grammar::CheckOrder(int rank, int& last_rank) {
    if (rank == last_rank) {
        Report(token_.Range(), messages::RepeatedClause(kClauseNames[rank]));
    } else if (rank < last_rank) {
        Report(token_.Range(), messages::MisplacedClause(kClauseNames[rank], kClauseNames[last_rank]));
    } else {
        last_rank = rank;
    }
}

void Grammar::FromClause() {
    Advance();
    const std::uint32_t begin = token_.begin;
    do {
        const std::size_t first = statement_->From.size();
        const int root = FromItem();
        if (root < 0) break;
        JoinGroup group;
        group.root = root;
        CollectJoins(first, group);
        statement_->JoinGroups.push_back(std::move(group));
    } while (Accept(TokenKind::Comma));
    if (At(Keyword::In)) InDatabase(statement_->from_external);
    statement_->from_range = Since(begin);
}

void Grammar::ConditionClause(NodeId& node, TextRange& range) {
    Advance();
    const std::uint32_t begin = token_.begin;
    const NodeId condition = Expression();
    if (condition == kNoNode || IsStar(condition)) return;
    node = condition;
    range = Since(begin);
}

void Grammar::GroupByClause() {
    Advance();
    if (!Expect(Keyword::By, messages::kExpectedGroupBy)) return;
    do {
        Item item;
        const std::uint32_t begin = token_.begin;
        item.node = Expression();
        if (blocked_) return;
        item.range = item.expression = Since(begin);
        statement_->GroupItems.push_back(item);
    } while (Accept(TokenKind::Comma));
    if (At(Keyword::With) && IsKeyword(Peek(), Keyword::Rollup)) {
        const std::uint32_t begin = token_.begin;
        Advance();
        Advance();
        AddBeyond(Beyond::Other, begin);
        statement_->group_suffix = Since(begin);
    }
}

void Grammar::OrderByClause() {
    Advance();
    if (!Expect(Keyword::By, messages::kExpectedOrderBy)) return;
    do {
        OrderItem();
    } while (Accept(TokenKind::Comma));
}

void Grammar::OrderItem() {
    Item item;
    const std::uint32_t begin = token_.begin;
    item.node = Expression();
    if (blocked_) return;
    if (At(Keyword::Desc)) item.descending = true;
    if (At(Keyword::Desc) || At(Keyword::Asc)) Advance();
    item.expression = Since(begin);
    if (At(Keyword::Nulls)) {
        const std::uint32_t nulls = token_.begin;
        Advance();
        if (!Accept(Keyword::First) && !Accept(Keyword::Last)) return Fail(messages::kExpectedFirstOrLast);
        item.nulls = Since(nulls);
        AddBeyond(Beyond::Other, item.nulls);
    }
    item.range = Since(begin);
    statement_->OrderItems.push_back(item);
}

// PIVOT expression [IN (heading, …)]: the headings read as a condition of the expression.
void Grammar::PivotClause() {
    const std::uint32_t begin = token_.begin;
    Advance();
    const NodeId heading = Expression();
    if (heading == kNoNode || IsStar(heading)) return;
    statement_->pivot = Since(begin);
}

double Grammar::NumberValue(TextRange range) const {
    double value = 0;
    double scale = 0;
    for (const wchar_t ch : TextOf(range)) {
        if (ch == L'.') {
            scale = 1;
        } else if (ch >= L'0' && ch <= L'9') {
            value = value * 10 + (ch - L'0');
            scale *= 10;
        } else if (ch == L'e' || ch == L'E') {
            break;
        }
    }
    if (scale > 1) value /= scale;
    const std::wstring_view text = TextOf(range);
    const std::size_t exponent = text.find_first_of(L"eE");
    if (exponent == std::wstring_view::npos) return value;
    int power = 0;
    const bool negative = text[exponent + 1] == L'-';
    for (const wchar_t ch : text.substr(exponent + 1)) {
        if (ch >= L'0' && ch <= L'9' && power < 1000) power = power * 10 + (ch - L'0');
    }
    return value * std::pow(10.0, negative ? -power : power);
}

}  // namespace tessel::sql
