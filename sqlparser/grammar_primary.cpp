// Operands: literals, names, parentheses, CASE, casts.
#include <algorithm>

#include "sqlparser/grammar.h"
#include "sqlparser/messages.h"

namespace tessel::sql {

NodeId Grammar::Primary() {
    NodeId node = kNoNode;
    switch (token_.kind) {
        case TokenKind::Word:
            node = WordPrimary();
            break;
        case TokenKind::BracketName:
        case TokenKind::BackQuoteName:
            node = NameOrCall();
            break;
        case TokenKind::QuotedText: {
            const TokenKind next = Peek().kind;
            node = next == TokenKind::Point || next == TokenKind::Bang ? NameOrCall()
                                                                       : Literal(NodeKind::String);
            break;
        }
        case TokenKind::Number:
            node = Peek().kind == TokenKind::Point ? NameOrCall() : Literal(NodeKind::Number);
            break;
        case TokenKind::String:
            node = Literal(NodeKind::String);
            break;
        case TokenKind::Date:
            node = Literal(NodeKind::Date);
            break;
        case TokenKind::Macro:
            node = MacroPrimary();
            break;
        case TokenKind::Parameter:
            node = Literal(NodeKind::Parameter);
            break;
        case TokenKind::LeftParen:
            node = ParenPrimary();
            break;
        case TokenKind::LeftBrace:
            node = BracePrimary();
            break;
        default:
            FailExpression();
            return kNoNode;
    }
    if (blocked_) return kNoNode;
    return At(TokenKind::DoubleColon) || At(Keyword::Collate) ? PostfixCasts(node) : node;
}

NodeId Grammar::Literal(NodeKind kind) {
    const NodeId node = Make(kind, token_.begin);
    At(node).length = token_.length;
    height_ = 1;
    Advance();
    return node;
}

NodeId Grammar::WordPrimary() {
    const Token next = Peek();
    const bool called = next.kind == TokenKind::LeftParen;
    const bool qualifies = next.kind == TokenKind::Point || next.kind == TokenKind::Bang;
    switch (token_.keyword) {
        case Keyword::None:
            return NameOrCall();
        case Keyword::Null:
            if (!called && !qualifies) return Literal(NodeKind::Null);
            break;
        case Keyword::True:
            if (!called && !qualifies) return Literal(NodeKind::True);
            break;
        case Keyword::False:
            if (!called && !qualifies) return Literal(NodeKind::False);
            break;
        case Keyword::On:
            if (OnIsAValue()) return Literal(NodeKind::True);
            break;
        case Keyword::Case:
            if (!qualifies) return CaseExpression();
            break;
        case Keyword::Exists:
            if (called) {
                const std::uint32_t begin = token_.begin;
                Advance();
                return SubqueryNode(NodeKind::Exists, begin);
            }
            if (StartsQuery(next)) {
                Advance();
                Fail(messages::kExpectedLeftParen);
                return kNoNode;
            }
            break;
        case Keyword::Any:
        case Keyword::Some:
        case Keyword::All:
            if (called && StartsQuery(PeekSecond())) {
                Quantifier quantifier = Quantifier::Any;
                if (At(Keyword::Some)) quantifier = Quantifier::Some;
                if (At(Keyword::All)) quantifier = Quantifier::All;
                const std::uint32_t begin = token_.begin;
                Advance();
                return SubqueryNode(NodeKind::Quantified, begin, static_cast<std::uint8_t>(quantifier));
            }
            break;
        case Keyword::Cast:
        case Keyword::TryCast:
            if (called) return CastCall();
            break;
        case Keyword::Date:
        case Keyword::Time:
        case Keyword::Timestamp:
        case Keyword::Interval:
        case Keyword::N:
            // DATE '2020-01-31', N'text': the word belongs to the literal.
            if (next.kind == TokenKind::String) {
                const NodeKind kind =
                    At(Keyword::N) || At(Keyword::Interval) ? NodeKind::String : NodeKind::Date;
                const NodeId node = Make(kind, token_.begin);
                Advance();
                Advance();
                return Finish(node, {});
            }
            break;
        default:
            break;
    }
    // Left(…), Right(…) and Asc(…) are functions; a reserved word before a point is a table's name.
    const bool function = called && (At(Keyword::Left) || At(Keyword::Right) || At(Keyword::Asc));
    if (IsReserved(token_.keyword) && !qualifies && !function) {
        FailExpression();
        return kNoNode;
    }
    return NameOrCall();
}

// The engine knows On beside True and Yes. Before an operand it is a misplaced ON instead.
bool Grammar::OnIsAValue() {
    const Token next = Peek();
    switch (next.kind) {
        case TokenKind::Word:
            return IsReserved(next.keyword) && next.keyword != Keyword::Not && next.keyword != Keyword::On &&
                   next.keyword != Keyword::Case && next.keyword != Keyword::Null &&
                   next.keyword != Keyword::True && next.keyword != Keyword::False;
        case TokenKind::RightParen:
        case TokenKind::Comma:
        case TokenKind::Semicolon:
        case TokenKind::End:
        case TokenKind::Equal:
        case TokenKind::NotEqual:
        case TokenKind::Ampersand:
        case TokenKind::Plus:
        case TokenKind::Minus:
        case TokenKind::Star:
            return true;
        default:
            return false;
    }
}

// ( expression ), ( SELECT … ) or ( a, b ).
NodeId Grammar::ParenPrimary() {
    const Nesting nesting(*this);
    if (blocked_) return kNoNode;
    const std::uint32_t begin = token_.begin;
    if (StartsQuery(Peek())) return SubqueryNode(NodeKind::Subquery, begin);
    Advance();
    Children children;
    int items = 0;
    do {
        const NodeId item = Expression();
        if (blocked_) return kNoNode;
        Append(children, item, height_);
        ++items;
    } while (Accept(TokenKind::Comma));
    if (!CloseList()) return kNoNode;
    return Finish(Make(items > 1 ? NodeKind::Tuple : NodeKind::Paren, begin), children);
}

/// "( SELECT … )" as the only child of a node that begins at `begin`; the parenthesis is the current token.
NodeId Grammar::SubqueryNode(NodeKind kind, std::uint32_t begin, std::uint8_t op) {
    Children children;
    if (!StartsQuery(Peek())) {
        Advance();
        Fail(messages::kExpectedSelect);
        return kNoNode;
    }
    Advance();
    const NodeId select = SelectNode();
    Append(children, select, height_);
    if (!CloseParen()) return kNoNode;
    return Finish(Make(kind, begin, op), children);
}

NodeId Grammar::SelectNode() {
    const std::uint32_t begin = token_.begin;
    const int nested = AddNested(Query());
    const NodeId node = Make(NodeKind::Select, begin);
    At(node).payload = static_cast<std::uint32_t>(nested);
    return Finish(node, {});
}

NodeId Grammar::NameOrCall() {
    const Keyword callee = token_.keyword;
    const NodeId name = Name();
    if (blocked_ || !At(TokenKind::LeftParen) || At(name).kind == NodeKind::Star) return name;
    return Call(name, callee);
}

bool Grammar::IsNamePart(bool after_point) const {
    if (At(TokenKind::Word) || IsNameToken(token_) || At(TokenKind::Macro)) return true;
    return after_point && At(TokenKind::Number);
}

// a, a.b, [a]![b].c, t.*
NodeId Grammar::Name() {
    const std::uint32_t begin = token_.begin;
    const NodeId name = Make(NodeKind::Name, begin);
    Children parts;
    const NodeId first = NamePart(NameJoin::First);
    Append(parts, first, 0);
    while (At(TokenKind::Point) || At(TokenKind::Bang)) {
        const bool point = At(TokenKind::Point);
        Advance();
        if (point && At(TokenKind::Star)) {
            At(name).kind = NodeKind::Star;
            Advance();
            break;
        }
        // "a. FROM t" lacks a name; "a.From" has one.
        const bool apart = token_.begin != previous_.End() && IsReserved(token_.keyword);
        if (apart || !IsNamePart(point)) {
            Fail(messages::kExpectedName);
            return kNoNode;
        }
        const NodeId part = NamePart(point ? NameJoin::Point : NameJoin::Bang);
        if (blocked_) return kNoNode;
        Append(parts, part, 0);
    }
    return Finish(name, parts);
}

NodeId Grammar::NamePart(NameJoin join) {
    if (token_.length == 2 && (At(TokenKind::BracketName) || At(TokenKind::BackQuoteName))) {
        Fail(messages::kEmptyName);
        return kNoNode;
    }
    const NodeId part = Make(NodeKind::NamePart, token_.begin, static_cast<std::uint8_t>(join));
    At(part).length = token_.length;
    Advance();
    return part;
}

// CASE [value] WHEN … THEN … [ELSE …] END
NodeId Grammar::CaseExpression() {
    const Nesting nesting(*this);
    const std::uint32_t begin = token_.begin;
    Advance();
    Children children;
    std::uint8_t flags = 0;
    if (!At(Keyword::When)) {
        const NodeId operand = Expression();
        Append(children, operand, height_);
        flags |= kHasOperand;
    }
    if (!At(Keyword::When)) Fail(messages::kExpectedWhen);
    while (At(Keyword::When)) {
        const std::uint32_t when_begin = token_.begin;
        Advance();
        Children pair;
        const NodeId condition = Expression();
        Append(pair, condition, height_);
        Expect(Keyword::Then, messages::kExpectedThen);
        const NodeId result = Expression();
        Append(pair, result, height_);
        if (blocked_) return kNoNode;
        const NodeId when = Finish(Make(NodeKind::When, when_begin), pair);
        Append(children, when, height_);
    }
    if (Accept(Keyword::Else)) {
        const NodeId otherwise = Expression();
        Append(children, otherwise, height_);
        flags |= kHasElse;
    }
    if (!Expect(Keyword::End, messages::kExpectedEnd)) return kNoNode;
    const NodeId node = Finish(Make(NodeKind::Case, begin), children);
    At(node).flags = flags;
    return node;
}

// A macro may also stand for a name: @{tabla}.campo, @f(x), @tabla.*. A point belongs to the macro's own
// name, so that it can be its last character.
NodeId Grammar::MacroPrimary() {
    const Token next = Peek();
    const bool ends_in_point = text_[token_.End() - 1] == L'.';
    if (next.begin != token_.End()) return Literal(NodeKind::Macro);
    if (ends_in_point && next.kind == TokenKind::Star) {
        const NodeId star = Make(NodeKind::Star, token_.begin);
        const NodeId part = Make(NodeKind::NamePart, token_.begin);
        At(part).length = token_.length - 1;
        Advance();
        Advance();
        return Finish(star, {part, part, 0});
    }
    const bool name =
        next.kind == TokenKind::Point || next.kind == TokenKind::Bang || next.kind == TokenKind::LeftParen;
    return name ? NameOrCall() : Literal(NodeKind::Macro);
}

// {fn f(x)}: the braces add nothing to the call.
NodeId Grammar::BracePrimary() {
    if (!IsKeyword(Peek(), Keyword::Fn)) return BracedLiteral();
    const Nesting nesting(*this);
    const std::uint32_t begin = token_.begin;
    Advance();
    Advance();
    Children children;
    const NodeId call = Expression();
    Append(children, call, height_);
    if (!Expect(TokenKind::RightBrace, messages::kMissingRightBrace)) return kNoNode;
    return Finish(Make(NodeKind::Escape, begin), children);
}

// {d '2020-01-31'}, {ts '…'}, {t '…'}, {guid {…}}: the escapes of ODBC, kept as they stand.
NodeId Grammar::BracedLiteral() {
    const NodeId node = Make(NodeKind::Date, token_.begin);
    int open = 0;
    do {
        if (At(TokenKind::LeftBrace)) ++open;
        if (At(TokenKind::RightBrace)) --open;
        if (At(TokenKind::End) || At(TokenKind::Blocked)) {
            Fail(messages::kMissingRightBrace);
            return kNoNode;
        }
        Advance();
    } while (open > 0);
    return Finish(node, {});
}

// x::type, x COLLATE name, one after the other.
NodeId Grammar::PostfixCasts(NodeId node) {
    while (At(TokenKind::DoubleColon) || At(Keyword::Collate)) {
        const CastForm form = At(TokenKind::DoubleColon) ? CastForm::Colons : CastForm::Collate;
        Advance();
        const std::uint32_t type = token_.begin;
        if (!TypeName()) return kNoNode;
        Children children;
        Append(children, node, height_);
        node = Finish(Make(NodeKind::Cast, At(node).begin, static_cast<std::uint8_t>(form)), children);
        At(node).payload = type;
        CheckHeight(height_);
        if (blocked_) return kNoNode;
    }
    return node;
}

// A type: words, then a size in parentheses: Text(255), double precision, decimal(10, 2), int[].
bool Grammar::TypeName() {
    if (!IsNameToken(token_)) {
        Fail(messages::kExpectedType);
        return false;
    }
    Advance();
    const std::wstring_view second[] = {L"precision", L"varying", L"unsigned", L"signed", L"integer"};
    if (At(TokenKind::Word) && token_.keyword == Keyword::None) {
        const std::wstring_view word = TextOf(token_.Range());
        const auto same = [&](std::wstring_view known) {
            return known.size() == word.size() &&
                   std::equal(known.begin(), known.end(), word.begin(),
                              [](wchar_t a, wchar_t b) { return a == b || a == (b | 32); });
        };
        if (std::any_of(std::begin(second), std::end(second), same)) Advance();
    }
    if (At(TokenKind::LeftParen) && Peek().kind == TokenKind::Number) {
        Advance();
        Advance();
        if (Accept(TokenKind::Comma) && !Expect(TokenKind::Number, messages::kExpectedType)) return false;
        return CloseParen();
    }
    if (At(TokenKind::BracketName) && token_.length == 2) Advance();
    return !blocked_;
}

}  // namespace tessel::sql
