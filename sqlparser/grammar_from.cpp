// Joins of FROM, nested any way.
#include <algorithm>

#include "sqlparser/grammar.h"
#include "sqlparser/messages.h"
#include "sqlparser/sql_parser.h"

namespace tessel::sql {

/// One comma-separated item; the index of its tree in Statement::From, or -1.
int Grammar::FromItem() {
    return JoinChain(TablePrimary());
}

int Grammar::JoinChain(int left) {
    while (left >= 0 && StartsJoin()) left = JoinStep(left);
    return blocked_ ? -1 : left;
}

bool Grammar::StartsJoin() {
    if (!At(TokenKind::Word)) return false;
    switch (token_.keyword) {
        case Keyword::Inner:
        case Keyword::Join:
        case Keyword::Left:
        case Keyword::Right:
            return true;
        case Keyword::Full:
        case Keyword::Cross:
        case Keyword::Natural:
        case Keyword::Outer:
            return !IsBareAlias();
        default:
            return false;
    }
}

Grammar::JoinWords Grammar::ReadJoinWords() {
    JoinWords words;
    const std::uint32_t begin = token_.begin;
    if (Accept(Keyword::Natural)) {
        words.kind = JoinKind::None;
        words.beyond = Beyond::NaturalJoin;
        words.needs_condition = false;
    }
    const bool natural = words.beyond == Beyond::NaturalJoin;
    if (At(Keyword::Cross) || At(Keyword::Outer)) {
        words.kind = JoinKind::None;
        words.needs_condition = false;
        words.beyond = Beyond::CrossJoin;
        Advance();
        if (Accept(Keyword::Apply)) {
            words.range = Since(begin);
            return words;
        }
    } else if (Accept(Keyword::Full)) {
        Accept(Keyword::Outer);
        words.kind = JoinKind::None;
        if (!natural) words.beyond = Beyond::FullJoin;
    } else if (Accept(Keyword::Left)) {
        Accept(Keyword::Outer);
        if (!natural) words.kind = JoinKind::Left;
    } else if (Accept(Keyword::Right)) {
        Accept(Keyword::Outer);
        if (!natural) words.kind = JoinKind::Right;
    } else {
        Accept(Keyword::Inner);
    }
    Expect(Keyword::Join, messages::kExpectedJoin);
    words.range = Since(begin);
    return words;
}

// "left JOIN right ON …". When another join follows the right operand at once, its condition comes first:
// A JOIN B JOIN C ON … ON ….
int Grammar::JoinStep(int left) {
    const Nesting nesting(*this);
    const JoinWords words = ReadJoinWords();
    int right = TablePrimary();
    while (right >= 0 && words.needs_condition && StartsJoin()) right = JoinStep(right);
    if (blocked_ || right < 0) return -1;
    FromNode join;
    join.kind = words.kind;
    join.joint = words.range;
    if (words.kind == JoinKind::None) AddBeyond(words.beyond, words.range);
    JoinCondition(words, join);
    if (blocked_) return -1;
    return AddJoin(join, left, right);
}

void Grammar::JoinCondition(const JoinWords& words, FromNode& join) {
    if (Accept(Keyword::On)) {
        const std::uint32_t begin = token_.begin;
        const int outer_on = on_parens_;
        on_parens_ = parens_;
        join.on_node = Expression();
        on_parens_ = outer_on;
        join.on = Since(begin);
    } else if (At(Keyword::Using) && Peek().kind == TokenKind::LeftParen) {
        const std::uint32_t begin = token_.begin;
        Advance();
        const std::uint32_t columns = token_.begin;
        if (!NamesInParens()) return;
        join.using_columns = Since(columns);
        AddBeyond(Beyond::JoinUsing, begin);
    } else if (words.needs_condition) {
        if (StartsCondition()) return Fail(messages::kExpectedOn);
        AddBeyond(Beyond::OnMissing, words.range);
    }
}

// What cannot follow a table, so that it is the condition without its ON.
bool Grammar::StartsCondition() const {
    switch (token_.kind) {
        case TokenKind::Word:
            return token_.keyword == Keyword::None;
        case TokenKind::BracketName:
        case TokenKind::QuotedText:
        case TokenKind::LeftParen:
        case TokenKind::Point:
        case TokenKind::Bang:
        case TokenKind::Equal:
            return true;
        default:
            return false;
    }
}

int Grammar::AddJoin(FromNode join, int left, int right) {
    std::vector<FromNode>& from = statement_->From;
    const FromNode& first = from[static_cast<std::size_t>(left)];
    const FromNode& second = from[static_cast<std::size_t>(right)];
    join.is_join = true;
    join.left = left;
    join.right = right;
    join.first_table = first.first_table;
    join.stop_table = second.stop_table;
    join.height = std::max(first.height, second.height) + 1;
    const std::size_t begin = first.parenthesised ? first.outer.offset : first.range.offset;
    join.range = {begin, previous_.End() - begin};
    join.outer = join.range;
    if (join.height > kMaxDepth) {
        FailForGood(messages::kTooDeep);
        return -1;
    }
    from.push_back(join);
    return static_cast<int>(from.size() - 1);
}

// Inner operands first: the order in which the joins would be carried out. A node stands behind its operands
// in Statement::From, so the nodes of one tree, from `first` on, are already in that order.
void Grammar::CollectJoins(std::size_t first, JoinGroup& group) {
    for (std::size_t i = first; i < statement_->From.size(); ++i) {
        const FromNode& node = statement_->From[i];
        if (node.is_join) group.joins.push_back(ResolveJoin(node));
    }
}

}  // namespace tessel::sql
