// The select list: quantifiers, items, aliases, INTO.
#include "sqlparser/grammar.h"
#include "sqlparser/messages.h"

namespace tessel::sql {

void Grammar::SelectCore() {
    const int base_parens = parens_;
    Advance();
    Quantifiers();
    SelectList();
    if (At(Keyword::Into)) IntoClause();
    Clauses(base_parens);
}

// DISTINCT, ALL and TOP, in any order.
void Grammar::Quantifiers() {
    for (;;) {
        if (At(Keyword::Distinct) || At(Keyword::DistinctRow)) {
            statement_->Distinct = true;
            statement_->distinct_range = token_.Range();
            Advance();
        } else if (At(Keyword::All)) {
            Advance();
        } else if (!At(Keyword::Top) || !TopClause()) {
            return;
        }
    }
}

// TOP is a name unless a count follows it, or a name that should be one.
bool Grammar::TopClause() {
    const Token next = Peek();
    const bool counted = next.kind == TokenKind::Number || next.kind == TokenKind::LeftParen ||
                         next.kind == TokenKind::Macro || next.kind == TokenKind::Parameter ||
                         next.kind == TokenKind::String || IsNameToken(next);
    if (!counted) return false;
    const std::uint32_t begin = token_.begin;
    Advance();
    const bool parenthesised = Accept(TokenKind::LeftParen);
    const bool known = At(TokenKind::Number);
    if (!known && !At(TokenKind::Macro) && !At(TokenKind::Parameter)) {
        Fail(messages::kExpectedNumber);
        return true;
    }
    if (known) statement_->Top = NumberValue(token_.Range());
    Advance();
    if (parenthesised) CloseParen();
    if (Accept(Keyword::Percent)) statement_->Percent = true;
    if (At(Keyword::With)) {
        Advance();
        if (!Expect(Keyword::Ties, messages::kExpectedTies)) return true;
        statement_->WithTies = true;
    }
    statement_->top_range = Since(begin);
    if (!known) AddBeyond(Beyond::Other, statement_->top_range);
    return true;
}

void Grammar::SelectList() {
    do {
        SelectItem();
    } while (Accept(TokenKind::Comma));
}

void Grammar::SelectItem() {
    Item item;
    const std::uint32_t begin = token_.begin;
    if (At(TokenKind::Star)) {
        item.node = Make(NodeKind::Star, begin);
        Advance();
        Finish(item.node, {});
    } else {
        item.node = Expression();
    }
    if (blocked_) return;
    item.expression = Since(begin);
    const bool star = At(item.node).kind == NodeKind::Star;
    if (!star && !ItemAlias(item.alias)) return;
    item.range = Since(begin);
    statement_->Columns.push_back(item);
}

bool Grammar::ItemAlias(TextRange& alias) {
    if (Accept(Keyword::As)) return AliasAfterAs(alias);
    if (!IsBareAlias()) return true;
    alias = token_.Range();
    Advance();
    return true;
}

// After AS any word is a name, except that "AS FROM t" more likely lacks the alias.
bool Grammar::AliasAfterAs(TextRange& alias) {
    bool accepted =
        IsNameToken(token_) || At(TokenKind::String) || At(TokenKind::Macro) || At(TokenKind::Number);
    if (At(TokenKind::Word) && !accepted) {
        const Token next = Peek();
        const bool ends = next.kind == TokenKind::Comma || IsKeyword(next, Keyword::From);
        accepted = ends || (!StartsClauseWord(token_) && !At(Keyword::Into) && !At(Keyword::Select) &&
                            !At(Keyword::On));
    }
    if (!accepted) {
        Fail(messages::kExpectedAlias);
        return false;
    }
    alias = token_.Range();
    Advance();
    return true;
}

// A name right after an expression or a table. Words that begin a clause or a join only together with what
// follows them are names otherwise.
bool Grammar::IsBareAlias() {
    if (At(TokenKind::BracketName) || At(TokenKind::BackQuoteName) || At(TokenKind::QuotedText)) return true;
    if (!At(TokenKind::Word) || IsReserved(token_.keyword)) return false;
    switch (token_.keyword) {
        case Keyword::None:
            return true;
        case Keyword::Full:
        case Keyword::Cross:
        case Keyword::Natural:
        case Keyword::Outer: {
            const Keyword next = Peek().keyword;
            return next != Keyword::Join && next != Keyword::Outer && next != Keyword::Apply &&
                   next != Keyword::Inner && next != Keyword::Left && next != Keyword::Right &&
                   next != Keyword::Full;
        }
        case Keyword::Limit:
        case Keyword::Offset: {
            const TokenKind next = Peek().kind;
            return next != TokenKind::Number && next != TokenKind::Parameter && next != TokenKind::Macro &&
                   next != TokenKind::LeftParen && !IsKeyword(Peek(), Keyword::All);
        }
        case Keyword::Fetch:
            return Peek().keyword != Keyword::First && Peek().keyword != Keyword::Next;
        case Keyword::For:
            // Before anything but a reserved word it begins a clause.
            return Peek().kind != TokenKind::Word || IsReserved(Peek().keyword);
        case Keyword::Window:
            return !IsKeyword(PeekSecond(), Keyword::As);
        case Keyword::Pivot:
            return statement_->transform.length == 0;
        case Keyword::Using:
            return Peek().kind != TokenKind::LeftParen;
        case Keyword::Collate:
        case Keyword::Escape:
        case Keyword::Over:
            return false;
        default:
            return true;
    }
}

void Grammar::IntoClause() {
    const std::uint32_t begin = token_.begin;
    Advance();
    const std::uint32_t name = token_.begin;
    TableRef table;
    TableNameParts(table);
    if (At(Keyword::In)) InDatabase(table.external);
    if (blocked_) return;
    statement_->into = Since(name);
    AddBeyond(Beyond::Into, begin);
}

}  // namespace tessel::sql
