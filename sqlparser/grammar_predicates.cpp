// What can follow an expression to make a condition of it: IS NULL, LIKE, BETWEEN, IN, with or without NOT.
#include "sqlparser/grammar.h"
#include "sqlparser/messages.h"

namespace tessel::sql {

bool Grammar::PredicateTail(std::size_t base) {
    if (!At(TokenKind::Word)) return false;
    std::uint8_t flags = 0;
    Keyword keyword = token_.keyword;
    if (keyword == Keyword::Not) {
        const Token next = Peek();
        keyword = next.keyword == Keyword::Is ? Keyword::None : next.keyword;
        flags = kNegated;
    }
    // After the condition of a join, IN 'file' is not a predicate: it names the database of all the tables.
    const bool in_file = keyword == Keyword::In && flags == 0 && parens_ == on_parens_ &&
                         (Peek().kind == TokenKind::String || Peek().kind == TokenKind::QuotedText);
    if (in_file) return false;
    switch (keyword) {
        case Keyword::Is:
        case Keyword::Like:
        case Keyword::ALike:
        case Keyword::Between:
        case Keyword::In:
            break;
        default:
            if (flags & kNegated) {
                Advance();
                Fail(messages::kExpectedLike);
            }
            return false;
    }
    ReduceTo(base, Level::Compare);
    if (blocked_) return false;
    const std::uint32_t begin = token_.begin;
    if (flags & kNegated) Advance();
    Advance();
    switch (keyword) {
        case Keyword::Is:
            IsTail(begin);
            break;
        case Keyword::ALike:
            LikeTail(flags | kALike, begin);
            break;
        case Keyword::Like:
            LikeTail(flags, begin);
            break;
        case Keyword::Between:
            BetweenTail(flags, begin);
            break;
        default:
            InTail(flags, begin);
            break;
    }
    return !blocked_;
}

Grammar::Children Grammar::TakeLeft() {
    const Operand left = operands_.back();
    operands_.pop_back();
    return {left.node, left.node, left.height};
}

void Grammar::PutPredicate(NodeKind kind, std::uint8_t op, std::uint8_t flags, std::uint32_t op_begin,
                           const Children& children) {
    if (blocked_) {
        // The operand that was taken has to be back, for whoever waits for it.
        operands_.push_back({children.first, kNoNode, children.height});
        return;
    }
    const NodeId node = Make(kind, At(children.first).begin, op);
    Finish(node, children);
    At(node).flags = flags;
    At(node).payload = op_begin;
    operands_.push_back({node, kNoNode, height_});
    CheckHeight(height_);
}

// IS [NOT] NULL; other engines also know IS [NOT] TRUE, which is kept as a comparison.
void Grammar::IsTail(std::uint32_t op_begin) {
    const bool negated = Accept(Keyword::Not);
    Children children = TakeLeft();
    if (Accept(Keyword::Null)) {
        PutPredicate(NodeKind::IsNull, 0, negated ? kNegated : 0, op_begin, children);
    } else if (At(Keyword::True) || At(Keyword::False)) {
        const NodeId value = Primary();
        Append(children, value, height_);
        const CompareOp op = negated ? CompareOp::NotEqual : CompareOp::Equal;
        PutPredicate(NodeKind::Compare, static_cast<std::uint8_t>(op), 0, op_begin, children);
    } else {
        Fail(messages::kExpectedNull);
        PutPredicate(NodeKind::IsNull, 0, 0, op_begin, children);
    }
}

void Grammar::LikeTail(std::uint8_t flags, std::uint32_t op_begin) {
    Children children = TakeLeft();
    const NodeId pattern = Expression(Level::Concat);
    Append(children, pattern, height_);
    const bool braced = At(TokenKind::LeftBrace) && IsKeyword(Peek(), Keyword::Escape);
    if (braced) Advance();
    if (Accept(Keyword::Escape)) {
        const NodeId escape = Expression(Level::Concat);
        Append(children, escape, height_);
    }
    if (braced) Expect(TokenKind::RightBrace, messages::kMissingRightBrace);
    PutPredicate(NodeKind::Like, 0, flags, op_begin, children);
}

void Grammar::BetweenTail(std::uint8_t flags, std::uint32_t op_begin) {
    Children children = TakeLeft();
    const NodeId low = Expression(Level::Concat);
    Append(children, low, height_);
    Expect(Keyword::And, messages::kExpectedAnd);
    const NodeId high = Expression(Level::Concat);
    Append(children, high, height_);
    PutPredicate(NodeKind::Between, 0, flags, op_begin, children);
}

// IN (a, b, …), IN (SELECT …); a macro or a parameter may stand for the whole list.
void Grammar::InTail(std::uint8_t flags, std::uint32_t op_begin) {
    const Nesting nesting(*this);
    Children children = TakeLeft();
    NodeKind kind = NodeKind::InList;
    if (At(TokenKind::Macro) || At(TokenKind::Parameter)) {
        const NodeId list = Primary();
        Append(children, list, height_);
    } else if (Expect(TokenKind::LeftParen, messages::kExpectedInList)) {
        if (StartsQuery(token_)) {
            kind = NodeKind::InSelect;
            const NodeId select = SelectNode();
            Append(children, select, height_);
        } else {
            do {
                const NodeId item = Expression();
                Append(children, item, height_);
            } while (Accept(TokenKind::Comma));
        }
        CloseList();
    }
    PutPredicate(kind, 0, flags, op_begin, children);
}

}  // namespace tessel::sql
