#include "sqlparser/format_tokens.h"

namespace tessel::sql {

namespace {

bool IsNameLike(TokenKind kind) {
    return kind == TokenKind::Word || kind == TokenKind::BracketName || kind == TokenKind::BackQuoteName ||
           kind == TokenKind::QuotedText;
}

bool HoldsBreak(std::wstring_view text) {
    return text.find_first_of(L"\r\n") != std::wstring_view::npos;
}

}  // namespace

FormatTokens::FormatTokens(std::wstring_view text) : text_(text) {
    Lexer lexer(text);
    bool blank = false;
    bool line_begins = true;
    for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next()) {
        const std::wstring_view piece = text.substr(token.begin, token.length);
        if (token.kind == TokenKind::Space) {
            blank = true;
            if (HoldsBreak(piece)) {
                line_begins = true;
                if (!tokens_.empty() && tokens_.back().token.kind == TokenKind::Comment)
                    tokens_.back().ends_line = true;
            }
            continue;
        }
        FormatToken entry;
        entry.token = token;
        entry.blank_before = blank;
        entry.has_break = HoldsBreak(piece);
        entry.own_line = token.kind == TokenKind::Comment && line_begins;
        entry.ends_line = token.kind == TokenKind::Comment && piece.starts_with(L"--");
        entry.partner = tokens_.size();
        tokens_.push_back(entry);
        if (token.kind == TokenKind::RightBrace) MergeEscapedDate();
        blank = line_begins = false;
    }
    if (!tokens_.empty() && tokens_.back().token.kind == TokenKind::Comment) tokens_.back().ends_line = true;
    FindPartners();
    std::size_t column = 0;
    std::size_t breaks = 0;
    std::size_t inner = 0;
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
        if (HasBlankBefore(i)) ++column;
        columns_.push_back(column);
        column += tokens_[i].token.length;
        if (tokens_[i].own_line || (i > 0 && tokens_[i - 1].ends_line)) ++breaks;
        breaks_.push_back(breaks);
        inner_breaks_.push_back(inner);
        if (tokens_[i].has_break) ++inner;
    }
    inner_breaks_.push_back(inner);
}

// {d '2024-01-31'} is one value, white space and all, as a date between signs is.
void FormatTokens::MergeEscapedDate() {
    const std::size_t last = tokens_.size() - 1;
    std::size_t open = last;
    std::size_t parts = 0;
    while (open > 0 && parts < 3)
        if (!IsComment(--open)) ++parts;
    if (parts < 3 || !Is(open, TokenKind::LeftBrace)) return;
    const auto next = [this](std::size_t index) {
        do ++index;
        while (IsComment(index));
        return index;
    };
    const std::size_t word = next(open);
    if (!Is(word, TokenKind::Word) || !Is(next(word), TokenKind::String)) return;
    FormatToken& date = tokens_[open];
    date.token.kind = TokenKind::Date;
    date.token.length = tokens_[last].token.End() - date.token.begin;
    date.has_break = HoldsBreak(Text(open));
    tokens_.resize(open + 1);
}

void FormatTokens::FindPartners() {
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
        const TokenKind kind = tokens_[i].token.kind;
        const Keyword keyword = KeywordAt(i);
        if (kind == TokenKind::LeftParen || keyword == Keyword::Case) {
            open.push_back(i);
        } else if (kind == TokenKind::RightParen || keyword == Keyword::End) {
            const bool is_case = keyword == Keyword::End;
            while (!open.empty() && Is(open.back(), TokenKind::LeftParen) == is_case) open.pop_back();
            if (open.empty()) continue;
            tokens_[open.back()].partner = i;
            open.pop_back();
        }
    }
}

Keyword FormatTokens::KeywordAt(std::size_t index) const {
    if (index >= tokens_.size() || tokens_[index].token.kind != TokenKind::Word) return Keyword::None;
    if (index > 0) {
        const Token& before = tokens_[index - 1].token;
        if (before.kind == TokenKind::Point || before.kind == TokenKind::Bang) {
            // "[SELECT …]. AS q" has a blank there, and a name has none.
            if (!tokens_[index].blank_before) return Keyword::None;
        }
        if (before.kind == TokenKind::Word && before.keyword == Keyword::As) return Keyword::None;
    }
    return tokens_[index].token.keyword;
}

/// Whether the token ends a value, so that a sign after it is an operator.
bool FormatTokens::IsOperand(std::size_t index) const {
    const TokenKind kind = tokens_[index].token.kind;
    if (kind == TokenKind::Word) {
        const Keyword keyword = KeywordAt(index);
        return !IsReserved(keyword) || keyword == Keyword::End || keyword == Keyword::Null ||
               keyword == Keyword::True || keyword == Keyword::False;
    }
    switch (kind) {
        case TokenKind::BracketName:
        case TokenKind::BackQuoteName:
        case TokenKind::String:
        case TokenKind::QuotedText:
        case TokenKind::Number:
        case TokenKind::Date:
        case TokenKind::Macro:
        case TokenKind::Parameter:
        case TokenKind::RightParen:
        case TokenKind::RightBrace:
        case TokenKind::Star:
            return true;
        default:
            return false;
    }
}

bool FormatTokens::IsUnary(std::size_t index) const {
    const TokenKind kind = tokens_[index].token.kind;
    if (kind == TokenKind::Tilde) return true;
    if (kind != TokenKind::Minus && kind != TokenKind::Plus) return false;
    return index == 0 || !IsOperand(index - 1);
}

bool FormatTokens::HasBlankBefore(std::size_t index) const {
    if (index == 0) return false;
    const FormatToken& entry = tokens_[index];
    const TokenKind before = tokens_[index - 1].token.kind;
    const TokenKind kind = entry.token.kind;
    if (kind == TokenKind::Comment) return true;
    // A macro's name would swallow what follows it.
    if (IsBareMacro(index - 1)) return kind != TokenKind::RightParen && kind != TokenKind::Comma;
    switch (kind) {
        case TokenKind::Comma:
        case TokenKind::Semicolon:
        case TokenKind::RightParen:
            return false;
        case TokenKind::Point:
        case TokenKind::Bang:
        case TokenKind::DoubleColon:
        case TokenKind::Colon:
        case TokenKind::LeftBrace:
        case TokenKind::RightBrace:
        case TokenKind::Unknown:
            return entry.blank_before;
        default:
            break;
    }
    if (before == TokenKind::Comment) return true;
    switch (before) {
        case TokenKind::LeftParen:
            return false;
        case TokenKind::Point:
        case TokenKind::Bang:
        case TokenKind::DoubleColon:
        case TokenKind::Colon:
        case TokenKind::LeftBrace:
        case TokenKind::Unknown:
            return entry.blank_before;
        default:
            break;
    }
    if (IsUnary(index - 1)) return entry.blank_before;
    // f(x) and f (x), N'text' and a 'text': what was together stays so.
    if (IsNameLike(before)) {
        const Keyword keyword = KeywordAt(index - 1);
        const bool can_call = !IsReserved(keyword) || keyword == Keyword::Left || keyword == Keyword::Right ||
                              keyword == Keyword::Asc;
        if (kind == TokenKind::LeftParen && can_call) return entry.blank_before;
        if ((kind == TokenKind::String || kind == TokenKind::QuotedText) && can_call)
            return entry.blank_before;
    }
    return true;
}

std::size_t FormatTokens::Width(std::size_t begin, std::size_t end) const {
    if (begin >= end) return 0;
    const std::size_t last = end - 1;
    return columns_[last] + tokens_[last].token.length - columns_[begin];
}

bool FormatTokens::CanBeFlat(std::size_t begin, std::size_t end) const {
    if (begin >= end) return true;
    return breaks_[end - 1] == breaks_[begin] && inner_breaks_[end] == inner_breaks_[begin];
}

bool FormatTokens::IsBareMacro(std::size_t index) const {
    return Is(index, TokenKind::Macro) && !Text(index).starts_with(L"@{");
}

}  // namespace tessel::sql
