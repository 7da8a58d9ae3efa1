// Tokens, errors, recovery and the making of nodes.
#include "sqlparser/grammar.h"

#include "sqlparser/messages.h"
#include "sqlparser/sql_parser.h"

namespace tessel::sql {
namespace {

// A statement in which everything is wrong needs no endless list.
constexpr std::size_t kMostErrors = 100;

// Operands and operators that wait at once; both stacks grow.
constexpr std::size_t kUsualDepth = 32;

constexpr std::uint64_t Bit(TokenKind kind) {
    return std::uint64_t{1} << static_cast<unsigned>(kind);
}

/// The kinds of token of which Advance takes notice.
constexpr std::uint64_t kWatched =
    Bit(TokenKind::LeftParen) | Bit(TokenKind::RightParen) | Bit(TokenKind::Unknown) | Bit(TokenKind::Macro);

std::wstring_view UnterminatedMessage(TokenKind kind) {
    switch (kind) {
        case TokenKind::BracketName:
            return messages::kUnclosedBracket;
        case TokenKind::BackQuoteName:
            return messages::kUnclosedBackQuote;
        case TokenKind::Comment:
            return messages::kUnclosedComment;
        case TokenKind::Date:
            return messages::kUnclosedDate;
        case TokenKind::Macro:
            return messages::kUnclosedMacro;
        default:
            return messages::kUnclosedString;
    }
}

}  // namespace

Grammar::Grammar(std::shared_ptr<const std::wstring> text, std::vector<Diagnostic>& errors)
    : source_(std::move(text)), text_(*source_), errors_(errors), lexer_(text_) {
    operands_.reserve(kUsualDepth);
    operators_.reserve(kUsualDepth);
    Advance();
}

Grammar::Nesting::Nesting(Grammar& grammar, int levels) : grammar_(grammar), levels_(levels) {
    grammar_.depth_ += levels_;
    if (grammar_.depth_ > kMaxDepth) grammar_.FailForGood(messages::kTooDeep);
}

// Tokens
// -----------------------------------------------------------------------------------------------------------

void Grammar::Advance() {
    if (blocked_) return;
    previous_ = token_;
    if (!has_peeked_) lexer_.NextSignificant();
    has_peeked_ = false;
    token_ = lexer_.Current();
    if ((kWatched >> static_cast<unsigned>(token_.kind) & 1) == 0 && token_.flags == 0) return;
    if (token_.kind == TokenKind::LeftParen) {
        ++parens_;
    } else if (token_.kind == TokenKind::RightParen) {
        --parens_;
    } else {
        CheckToken();
    }
}

/// Fails on a token that no production can make anything of.
void Grammar::CheckToken() {
    if (token_.flags & kUnterminated) {
        FailAt(token_.Range(), std::wstring(UnterminatedMessage(token_.kind)));
    } else if (token_.kind == TokenKind::Unknown) {
        const bool quote =
            std::wstring_view(L"“”‘’„«»´").find(text_[token_.begin]) != std::wstring_view::npos;
        FailAt(token_.Range(),
               std::wstring(quote ? messages::kTypographicQuote : messages::kUnknownCharacter));
    } else if (token_.kind == TokenKind::Macro && token_.length == 1) {
        FailAt(token_.Range(), std::wstring(messages::kMacroWithoutName));
    }
}

Token Grammar::PeekSecond() {
    Peek();
    Lexer ahead = lexer_;
    return ahead.NextSignificant();
}

bool Grammar::Expect(TokenKind kind, std::wstring_view message) {
    if (Accept(kind)) return true;
    Fail(message);
    return false;
}

bool Grammar::Expect(Keyword keyword, std::wstring_view message) {
    if (Accept(keyword)) return true;
    Fail(message);
    return false;
}

bool Grammar::CloseParen() {
    return Expect(TokenKind::RightParen, messages::kMissingRightParen);
}

// The end of a list or of an expression in parentheses; anything but the end of a clause is a surprise.
bool Grammar::CloseList() {
    if (Accept(TokenKind::RightParen)) return true;
    const bool ends = At(TokenKind::End) || At(TokenKind::Semicolon) || At(TokenKind::RightBrace) ||
                      (At(TokenKind::Word) && IsReserved(token_.keyword));
    if (ends) {
        Fail(messages::kMissingRightParen);
    } else {
        FailAt(token_.Range(), messages::UnexpectedInParens(TextOf(token_.Range())));
    }
    return false;
}

// A token that can be a name where only a name can stand.
bool Grammar::IsNameToken(const Token& token) const {
    switch (token.kind) {
        case TokenKind::Word:
            return !IsReserved(token.keyword);
        case TokenKind::BracketName:
        case TokenKind::BackQuoteName:
        case TokenKind::QuotedText:
            return true;
        default:
            return false;
    }
}

// Passes over "( … )" with everything inside; the opening parenthesis is the current token.
bool Grammar::SkipParens() {
    const int outside = parens_ - 1;
    while (!At(TokenKind::End) && !At(TokenKind::Blocked)) {
        const bool closes = At(TokenKind::RightParen) && parens_ == outside;
        Advance();
        if (closes) return true;
    }
    Fail(messages::kMissingRightParen);
    return false;
}

// (a, b, [c d]): the opening parenthesis is the current token.
bool Grammar::NamesInParens() {
    do {
        Advance();
        if (!IsNameToken(token_)) {
            Fail(messages::kExpectedNames);
            return false;
        }
        Advance();
    } while (At(TokenKind::Comma));
    return CloseList();
}

// Errors
// -----------------------------------------------------------------------------------------------------------

// At the end of the text the place is right after the last token.
void Grammar::Fail(std::wstring_view message) {
    if (blocked_) return;
    const TextRange range = At(TokenKind::End) ? TextRange{previous_.End(), 0} : token_.Range();
    FailAt(range, std::wstring(message));
}

void Grammar::FailExpression() {
    if (blocked_) return;
    if (At(TokenKind::RightParen) && parens_ < 0) {
        Fail(messages::kExtraRightParen);
        return;
    }
    std::wstring after;
    if (previous_.length > 0 && previous_.length <= 12) {
        const std::wstring_view previous = TextOf(previous_.Range());
        if (previous_.kind == TokenKind::Word) {
            const Keyword keyword = FindKeyword(previous.data(), previous.size());
            after = keyword == Keyword::None ? previous : KeywordText(keyword);
        } else if (previous == L"," || previous == L"(") {
            after = previous;
        } else {
            after = L"«" + std::wstring(previous) + L"»";
        }
    }
    Fail(messages::ExpectedExpression(after));
}

void Grammar::FailAt(TextRange range, std::wstring message) {
    if (blocked_) return;
    if (errors_.size() < kMostErrors) errors_.push_back(MakeDiagnostic(text_, range, std::move(message)));
    if (errors_.size() >= kMostErrors) finished_ = true;
    Block();
}

void Grammar::Report(TextRange range, std::wstring message) {
    if (blocked_ || errors_.size() >= kMostErrors) return;
    errors_.push_back(MakeDiagnostic(text_, range, std::move(message)));
}

void Grammar::FailForGood(std::wstring_view message) {
    Fail(message);
    finished_ = true;
}

void Grammar::Block() {
    blocked_ = true;
    stopped_ = token_;
    token_.kind = TokenKind::Blocked;
    token_.keyword = Keyword::None;
}

bool Grammar::StartsClauseWord(const Token& token) const {
    if (token.kind != TokenKind::Word) return false;
    switch (token.keyword) {
        case Keyword::From:
        case Keyword::Where:
        case Keyword::Group:
        case Keyword::Having:
        case Keyword::Order:
        case Keyword::Union:
        case Keyword::Intersect:
        case Keyword::Except:
            return true;
        default:
            return false;
    }
}

// Goes on at the next clause of the select that began at `base_parens` open parentheses. False when that
// select ends first: at its closing parenthesis, at ";" or at the end of the text.
//
// A clause word in deeper parentheses counts as well, because the missing parenthesis may be the very error;
// not so the clauses of a whole sub-select that is passed over.
bool Grammar::Recover(int base_parens) {
    if (!blocked_) return true;
    if (finished_) return false;
    std::vector<int> selects;
    for (;;) {
        if (blocked_) {
            // What is unreadable on the way has its own message; what is not closed has no end to go on from.
            if (finished_ || (stopped_.flags & kUnterminated)) return false;
            blocked_ = false;
            token_ = stopped_;
        }
        while (!selects.empty() && parens_ < selects.back()) selects.pop_back();
        if (At(TokenKind::End) || At(TokenKind::Semicolon)) {
            Block();
            return false;
        }
        if (At(TokenKind::RightParen) && parens_ < base_parens) {
            if (base_parens > 0) return false;
            parens_ = 0;
        }
        if (selects.empty() && StartsClauseWord(token_)) {
            parens_ = base_parens;
            return true;
        }
        if (At(Keyword::Select) && parens_ > base_parens) selects.push_back(parens_);
        Advance();
    }
}

}  // namespace tessel::sql
