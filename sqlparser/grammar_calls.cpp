// Calls: arguments, CAST, and the OVER, FILTER and WITHIN GROUP that may follow.
#include "sqlparser/grammar.h"
#include "sqlparser/messages.h"

namespace tessel::sql {

NodeId Grammar::Call(NodeId name, Keyword callee) {
    const Nesting nesting(*this);
    if (blocked_) return kNoNode;
    const std::uint32_t begin = At(name).begin;
    Children children;
    std::uint8_t flags = 0;
    Append(children, name, 0);
    Advance();
    if (!At(TokenKind::RightParen)) CallArguments(children, flags, callee);
    if (!CloseList()) return kNoNode;
    const NodeId call = Finish(Make(NodeKind::Call, begin), children);
    At(call).flags = flags;
    return At(TokenKind::Word) ? CallTail(call) : call;
}

// Jet's functions may leave out arguments between commas: InStr(, a, b). A few standard functions separate
// their arguments by words: EXTRACT(YEAR FROM d), SUBSTRING(a FROM 1 FOR 2).
void Grammar::CallArguments(Children& children, std::uint8_t& flags, Keyword callee) {
    if (At(TokenKind::Star)) {
        flags |= kStarArgument;
        Advance();
        return;
    }
    if (At(Keyword::Distinct)) {
        flags |= kDistinct;
        Advance();
    } else if (At(Keyword::All) && Peek().kind != TokenKind::LeftParen) {
        Advance();
    }
    const bool by_words = callee == Keyword::Extract || callee == Keyword::Trim ||
                          callee == Keyword::Substring || callee == Keyword::Overlay ||
                          callee == Keyword::Convert;
    for (;;) {
        const NodeId argument =
            At(TokenKind::Comma) ? Finish(Make(NodeKind::Omitted, token_.begin), {}) : Expression();
        if (blocked_) return;
        Append(children, argument, height_);
        if (Accept(TokenKind::Comma)) continue;
        if (by_words && (Accept(Keyword::From) || Accept(Keyword::For) || Accept(Keyword::Using))) continue;
        return;
    }
}

// CAST(x AS type)
NodeId Grammar::CastCall() {
    const Nesting nesting(*this);
    const std::uint32_t begin = token_.begin;
    Advance();
    Advance();
    Children children;
    const NodeId value = Expression();
    Append(children, value, height_);
    if (!Expect(Keyword::As, messages::kExpectedAs)) return kNoNode;
    const std::uint32_t type = token_.begin;
    if (!TypeName() || !CloseParen()) return kNoNode;
    const NodeId node =
        Finish(Make(NodeKind::Cast, begin, static_cast<std::uint8_t>(CastForm::Function)), children);
    At(node).payload = type;
    return node;
}

NodeId Grammar::CallTail(NodeId call) {
    const bool over = At(Keyword::Over);
    const bool filter = At(Keyword::Filter) && Peek().kind == TokenKind::LeftParen;
    const bool within = At(Keyword::Within) && IsKeyword(Peek(), Keyword::Group);
    if (!over && !filter && !within) return call;
    const std::uint32_t begin = token_.begin;
    Children children;
    Append(children, call, height_);
    while (At(Keyword::Over) || At(Keyword::Filter) || At(Keyword::Within)) {
        if (At(Keyword::Within)) Advance();
        Advance();
        if (At(TokenKind::LeftParen)) {
            WindowParens(children);
        } else if (IsNameToken(token_)) {
            Advance();
        } else {
            Fail(messages::kExpectedLeftParen);
        }
        if (blocked_) return kNoNode;
    }
    AddBeyond(Beyond::Window, begin);
    return Finish(Make(NodeKind::Window, At(call).begin), children);
}

// ( [WHERE condition] [PARTITION BY …] [ORDER BY …] [ROWS …] ): the expressions become nodes, the words stay
// text.
void Grammar::WindowParens(Children& children) {
    const Nesting nesting(*this);
    Advance();
    while (!At(TokenKind::RightParen) && !At(TokenKind::End) && !At(TokenKind::Blocked)) {
        const bool list = At(Keyword::Where) || (At(TokenKind::Word) && IsKeyword(Peek(), Keyword::By));
        if (!list) {
            // A window's name, or the frame: ROWS BETWEEN 1 PRECEDING AND CURRENT ROW.
            if (!At(TokenKind::Word) && !At(TokenKind::Number)) return Fail(messages::kMissingRightParen);
            Advance();
            continue;
        }
        if (!Accept(Keyword::Where)) {
            Advance();
            Advance();
        }
        do {
            const NodeId item = Expression();
            Append(children, item, height_);
            if (!Accept(Keyword::Asc)) Accept(Keyword::Desc);
            if (Accept(Keyword::Nulls) && !Accept(Keyword::First)) Accept(Keyword::Last);
        } while (Accept(TokenKind::Comma));
    }
    CloseParen();
}

}  // namespace tessel::sql
