// What may end a statement: LIMIT, OFFSET, FETCH, FOR, WINDOW and WITH OWNERACCESS OPTION. None of them fits
// into a design, so that only their place is kept; they are read all the same, word by word, because a text
// that is taken for one of them by its first word alone would hide a mistake.
#include "common/text.h"
#include "sqlparser/grammar.h"
#include "sqlparser/messages.h"

namespace tessel::sql {

// What limits, locks or qualifies the whole statement. Words that are not reserved begin such a clause only
// together with what follows them.
bool Grammar::TailClause() {
    if (!At(TokenKind::Word)) return false;
    const std::uint32_t begin = token_.begin;
    const std::uint32_t end_before = previous_.End();
    switch (token_.keyword) {
        case Keyword::Limit:
            LimitClause(Beyond::Limit);
            break;
        case Keyword::Offset:
            LimitClause(Beyond::Offset);
            break;
        case Keyword::Fetch:
            FetchClause();
            break;
        case Keyword::For:
            ForClause();
            break;
        case Keyword::Window:
            WindowClause();
            break;
        case Keyword::With:
            WithTailClause();
            break;
        default:
            return false;
    }
    if (blocked_) return true;
    std::vector<TextRange>& trailing = statement_->trailing;
    if (trailing.empty() || trailing.back().End() != end_before) trailing.push_back({begin, 0});
    trailing.back().length = previous_.End() - trailing.back().offset;
    return true;
}

// ROWS, ONLY, LOCKED…: words that mean something here and nowhere else. They are not in the list of keywords.
bool Grammar::AcceptWord(std::wstring_view word) {
    if (!At(TokenKind::Word) || token_.length != word.size()) return false;
    if (!SameIgnoringCase(TextOf(token_.Range()), word)) return false;
    Advance();
    return true;
}

// LIMIT n [, m], OFFSET n [ROWS].
void Grammar::LimitClause(Beyond what) {
    const std::uint32_t begin = token_.begin;
    Advance();
    if (!Accept(Keyword::All)) Expression();
    if (what == Beyond::Limit && Accept(TokenKind::Comma)) Expression();
    if (what == Beyond::Offset && !AcceptWord(L"ROWS")) AcceptWord(L"ROW");
    AddBeyond(what, begin);
}

// FETCH FIRST [n [PERCENT]] ROWS ONLY, FETCH NEXT n ROWS WITH TIES.
void Grammar::FetchClause() {
    const std::uint32_t begin = token_.begin;
    Advance();
    if (!Accept(Keyword::First) && !Accept(Keyword::Next)) return Fail(messages::kExpectedFirstOrNext);
    if (At(TokenKind::LeftParen)) {
        Expression();
    } else if (At(TokenKind::Number) || At(TokenKind::Parameter) || At(TokenKind::Macro)) {
        Advance();
    }
    Accept(Keyword::Percent);
    if (!AcceptWord(L"ROWS") && !AcceptWord(L"ROW")) return Fail(messages::kExpectedRowsOnly);
    const bool ties = Accept(Keyword::With) && Accept(Keyword::Ties);
    if (!ties && !AcceptWord(L"ONLY")) return Fail(messages::kExpectedRowsOnly);
    AddBeyond(Beyond::Fetch, begin);
}

// FOR UPDATE OF a, b NOWAIT; FOR SHARE; FOR READ ONLY; FOR BROWSE; FOR XML PATH('fila'), ROOT('filas').
void Grammar::ForClause() {
    const std::uint32_t begin = token_.begin;
    Advance();
    if (Accept(Keyword::Xml) || Accept(Keyword::Json)) {
        ResultForm();
    } else if (Accept(Keyword::Read) || Accept(Keyword::Fetch)) {
        if (!AcceptWord(L"ONLY")) return Fail(messages::kExpectedForWhat);
    } else if (!Accept(Keyword::Browse)) {
        RowLock();
    }
    AddBeyond(Beyond::ForUpdate, begin);
}

// UPDATE, SHARE, NO KEY UPDATE, KEY SHARE; then which tables, and what to do about rows that are locked
// already.
void Grammar::RowLock() {
    if (AcceptWord(L"NO")) {
        if (!AcceptWord(L"KEY") || !Accept(Keyword::Update)) return Fail(messages::kExpectedForWhat);
    } else if (AcceptWord(L"KEY")) {
        if (!Accept(Keyword::Share)) return Fail(messages::kExpectedForWhat);
    } else if (!Accept(Keyword::Update) && !Accept(Keyword::Share)) {
        return Fail(messages::kExpectedForWhat);
    }
    if (AcceptWord(L"OF")) {
        do {
            do {
                if (!IsNameToken(token_)) return Fail(messages::kExpectedTable);
                Advance();
            } while (Accept(TokenKind::Point));
        } while (Accept(TokenKind::Comma));
    }
    if (AcceptWord(L"NOWAIT")) return;
    if (AcceptWord(L"WAIT")) {
        Expect(TokenKind::Number, messages::kExpectedForWhat);
    } else if (AcceptWord(L"SKIP") && !AcceptWord(L"LOCKED")) {
        Fail(messages::kExpectedForWhat);
    }
}

// The form of the result: one or two words, each with an argument in parentheses where it takes one.
void Grammar::ResultForm() {
    do {
        if (!At(TokenKind::Word) || IsReserved(token_.keyword)) return Fail(messages::kExpectedForWhat);
        while (At(TokenKind::Word) && !IsReserved(token_.keyword)) Advance();
        if (At(TokenKind::LeftParen) && !SkipParens()) return;
    } while (Accept(TokenKind::Comma));
}

// WINDOW w AS (PARTITION BY a), v AS (w ORDER BY b).
void Grammar::WindowClause() {
    const std::uint32_t begin = token_.begin;
    Advance();
    do {
        if (!IsNameToken(token_)) return Fail(messages::kExpectedWindow);
        Advance();
        if (!Accept(Keyword::As) || !At(TokenKind::LeftParen)) return Fail(messages::kExpectedWindow);
        Children not_shown;
        WindowParens(not_shown);
    } while (Accept(TokenKind::Comma));
    AddBeyond(Beyond::Window, begin);
}

// WITH OWNERACCESS OPTION.
void Grammar::WithTailClause() {
    const std::uint32_t begin = token_.begin;
    Advance();
    if (!Expect(Keyword::OwnerAccess, messages::kExpectedOwnerAccess)) return;
    if (!Expect(Keyword::Option, messages::kExpectedOption)) return;
    AddBeyond(Beyond::WithOwnerAccess, begin);
}

}  // namespace tessel::sql
