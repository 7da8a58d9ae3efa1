#include "sqlparser/lexer.h"

namespace tessel::sql {
namespace {

// A date is short; a "#" whose partner is further away belongs to something else.
constexpr std::uint32_t kLongestDate = 40;

bool IsLineBreak(wchar_t ch) {
    return ch == L'\n' || ch == L'\r';
}

}  // namespace

Token Lexer::Make(TokenKind kind, std::uint32_t stop, std::uint8_t flags) {
    Token token;
    token.kind = kind;
    token.flags = flags;
    token.begin = at_;
    token.length = stop - at_;
    at_ = stop;
    return token;
}

Token Lexer::NextSignificant() {
    for (;;) {
        while (at_ < end_ && state_.inside == LexerState::Inside::Nothing && Is(text_[at_], kBlank)) ++at_;
        const Token token = Next();
        if (token.kind == TokenKind::Space) continue;
        if (token.kind == TokenKind::Comment && !(token.flags & kUnterminated)) continue;
        return token;
    }
}

Token Lexer::Next() {
    if (at_ >= end_) return Make(TokenKind::End, end_);
    if (state_.inside != LexerState::Inside::Nothing) return Continue();
    const wchar_t ch = text_[at_];
    const std::uint8_t bits = ClassOf(ch);
    if (bits & kWordStart) return Word(at_ + 1);
    if (bits & kBlank) return Space();
    if (bits & kDigit) return NumberOrName();
    switch (ch) {
        case L'\'':
            return Quoted(TokenKind::String, at_ + 1, L'\'', LexerState::Inside::String);
        case L'"':
            return Quoted(TokenKind::QuotedText, at_ + 1, L'"', LexerState::Inside::QuotedText);
        case L'[':
            return Quoted(TokenKind::BracketName, at_ + 1, L']', LexerState::Inside::BracketName);
        case L'`':
            return Quoted(TokenKind::BackQuoteName, at_ + 1, L'`', LexerState::Inside::BackQuoteName);
        case L'#':
            return Hash();
        case L'@':
            return AtSign();
        case L':':
            return ColonMark();
        case L'&':
            return AmpersandMark();
        case L'.':
            return PointMark();
        case L'?':
            state_.after_operand = true;
            return Make(TokenKind::Parameter, at_ + 1);
        case L')':
            state_.after_operand = true;
            return Make(TokenKind::RightParen, at_ + 1);
        case L'}':
            state_.after_operand = true;
            return Make(TokenKind::RightBrace, at_ + 1);
        case L'-':
            if (At(at_ + 1) == L'-') return LineComment();
            break;
        case L'/':
            if (At(at_ + 1) == L'*') return BlockComment(at_ + 2);
            break;
        default:
            break;
    }
    state_.after_operand = false;
    return Operator(ch);
}

// The rest of something that began on an earlier line.
Token Lexer::Continue() {
    const LexerState::Inside inside = state_.inside;
    state_.inside = LexerState::Inside::Nothing;
    switch (inside) {
        case LexerState::Inside::Comment:
            return BlockComment(at_);
        case LexerState::Inside::String:
            return Quoted(TokenKind::String, at_, L'\'', inside);
        case LexerState::Inside::QuotedText:
            return Quoted(TokenKind::QuotedText, at_, L'"', inside);
        case LexerState::Inside::BracketName:
            return Quoted(TokenKind::BracketName, at_, L']', inside);
        case LexerState::Inside::BackQuoteName:
            return Quoted(TokenKind::BackQuoteName, at_, L'`', inside);
        default:
            return BraceMacro(at_);
    }
}

// The closing mark doubled stands for itself.
Token Lexer::Quoted(TokenKind kind, std::uint32_t content, wchar_t close, LexerState::Inside inside) {
    state_.after_operand = true;
    for (std::uint32_t i = content; i < end_; ++i) {
        if (text_[i] != close) continue;
        if (At(i + 1) != close) return Make(kind, i + 1);
        ++i;
    }
    state_.inside = inside;
    return Make(kind, end_, kUnterminated);
}

Token Lexer::BlockComment(std::uint32_t content) {
    for (std::uint32_t i = content; i + 1 < end_; ++i) {
        if (text_[i] == L'*' && text_[i + 1] == L'/') return Make(TokenKind::Comment, i + 2);
    }
    state_.inside = LexerState::Inside::Comment;
    return Make(TokenKind::Comment, end_, kUnterminated);
}

Token Lexer::LineComment() {
    std::uint32_t i = at_ + 2;
    while (i < end_ && !IsLineBreak(text_[i])) ++i;
    return Make(TokenKind::Comment, i);
}

Token Lexer::Space() {
    std::uint32_t i = at_ + 1;
    while (i < end_ && Is(text_[i], kBlank)) ++i;
    return Make(TokenKind::Space, i);
}

Token Lexer::Word(std::uint32_t from) {
    std::uint32_t i = from;
    while (i < end_ && Is(text_[i], kWordPart)) ++i;
    const Keyword keyword = FindKeyword(text_ + at_, i - at_);
    state_.after_operand = !IsReserved(keyword) || keyword == Keyword::End;
    Token token = Make(TokenKind::Word, i);
    token.keyword = keyword;
    return token;
}

// Digits followed by letters are a name (90DaysAvg, 87089_Items), unless the letters are an exponent or AND
// or OR.
Token Lexer::NumberOrName() {
    state_.after_operand = true;
    std::uint32_t i = at_;
    if (text_[i] == L'0' && (At(i + 1) | 32) == L'x' && Is(At(i + 2), kHexDigit)) {
        i += 3;
        while (i < end_ && Is(text_[i], kHexDigit)) ++i;
        if (!Is(At(i), kWordPart)) return Make(TokenKind::Number, i);
        i = at_;
    }
    while (i < end_ && Is(text_[i], kDigit)) ++i;
    const std::uint32_t whole = i;
    if (At(i) == L'.' && !Is(At(i + 1), kWordStart)) {
        ++i;
        while (i < end_ && Is(text_[i], kDigit)) ++i;
    }
    if ((At(i) | 32) == L'e') {
        std::uint32_t e = i + 1;
        if (At(e) == L'+' || At(e) == L'-') ++e;
        if (Is(At(e), kDigit)) {
            while (e < end_ && Is(text_[e], kDigit)) ++e;
            if (!Is(At(e), kWordPart)) return Make(TokenKind::Number, e);
        }
    }
    if (i != whole || !Is(At(i), kWordPart)) return Make(TokenKind::Number, i);
    const std::uint32_t digits_end = i;
    while (i < end_ && Is(text_[i], kWordPart)) ++i;
    // Statements put together in programs often lack the blank: WHERE a=1AND b=2.
    const Keyword tail = FindKeyword(text_ + digits_end, i - digits_end);
    if (tail == Keyword::And || tail == Keyword::Or) return Make(TokenKind::Number, digits_end);
    return Make(TokenKind::Word, i, kDigitFirst);
}

// The end of the date that starts here, or 0 when this is no date: digits, or a month's name and then digits,
// up to the closing "#" on the same line.
std::uint32_t Lexer::DateEnd() const {
    std::uint32_t i = at_ + 1;
    while (At(i) == L' ') ++i;
    if (!Is(At(i), kDigit)) {
        const std::uint32_t letters = i;
        while (Is(At(i), kWordStart)) ++i;
        if (i == letters) return 0;
        const wchar_t separator = At(i);
        if (separator != L' ' && separator != L'-' && separator != L'/' && separator != L',') return 0;
        while (At(i) == L' ' || At(i) == L'-' || At(i) == L'/' || At(i) == L',') ++i;
        if (!Is(At(i), kDigit)) return 0;
    }
    for (; i < end_ && i - at_ <= kLongestDate && !IsLineBreak(text_[i]); ++i) {
        if (text_[i] == L'#') return i + 1;
    }
    return 0;
}

Token Lexer::Hash() {
    state_.after_operand = true;
    if (const std::uint32_t stop = DateEnd(); stop != 0) return Make(TokenKind::Date, stop);
    if (Is(At(at_ + 1), kWordStart)) {
        std::uint32_t stop = at_ + 1;
        while (Is(At(stop), kWordPart)) ++stop;
        // Between two signs stands a date, and words alone are none.
        return text_[stop - 1] == L'#' ? Make(TokenKind::Date, stop, kUnterminated) : Word(at_ + 1);
    }
    // No partner: the mark with the digits after it, so that the message points at something.
    std::uint32_t i = at_ + 1;
    while (i < end_ && (Is(text_[i], kDigit) || text_[i] == L'/' || text_[i] == L'-' || text_[i] == L':'))
        ++i;
    return Make(TokenKind::Date, i, kUnterminated);
}

Token Lexer::AtSign() {
    state_.after_operand = true;
    if (At(at_ + 1) == L'{') return BraceMacro(at_ + 2);
    std::uint32_t i = at_ + 1;
    while (i < end_ && !Is(text_[i], kMacroEnd)) ++i;
    return Make(TokenKind::Macro, i);
}

Token Lexer::BraceMacro(std::uint32_t content) {
    state_.after_operand = true;
    for (std::uint32_t i = content; i < end_; ++i) {
        if (text_[i] == L'}') return Make(TokenKind::Macro, i + 1);
    }
    state_.inside = LexerState::Inside::BraceMacro;
    return Make(TokenKind::Macro, end_, kUnterminated);
}

Token Lexer::ColonMark() {
    if (At(at_ + 1) == L':') {
        state_.after_operand = false;
        return Make(TokenKind::DoubleColon, at_ + 2);
    }
    if (Is(At(at_ + 1), kWordPart)) {
        std::uint32_t i = at_ + 1;
        while (i < end_ && Is(text_[i], kWordPart)) ++i;
        state_.after_operand = true;
        return Make(TokenKind::Parameter, i);
    }
    state_.after_operand = false;
    return Make(TokenKind::Colon, at_ + 1);
}

// &HFF and &O17 where a value can stand, else the operator that joins texts.
Token Lexer::AmpersandMark() {
    const wchar_t base = static_cast<wchar_t>(At(at_ + 1) | 32);
    if (!state_.after_operand && (base == L'h' || base == L'o')) {
        std::uint32_t i = at_ + 2;
        while (i < end_ && Is(text_[i], kHexDigit)) ++i;
        if (i > at_ + 2 && !Is(At(i), kWordPart)) {
            if (At(i) == L'&') ++i;
            state_.after_operand = true;
            return Make(TokenKind::Number, i);
        }
    }
    state_.after_operand = false;
    return Make(TokenKind::Ampersand, at_ + 1);
}

// ".5" is a number unless it follows a name at once.
Token Lexer::PointMark() {
    const wchar_t before = at_ > 0 ? text_[at_ - 1] : L' ';
    const bool after_name = Is(before, kWordPart) || before == L']' || before == L'`' || before == L'"';
    if (!after_name && Is(At(at_ + 1), kDigit)) {
        std::uint32_t i = at_ + 1;
        while (i < end_ && Is(text_[i], kDigit)) ++i;
        if ((At(i) | 32) == L'e') {
            std::uint32_t e = i + 1;
            if (At(e) == L'+' || At(e) == L'-') ++e;
            const std::uint32_t digits = e;
            while (e < end_ && Is(text_[e], kDigit)) ++e;
            if (e > digits) i = e;
        }
        state_.after_operand = true;
        return Make(TokenKind::Number, i);
    }
    state_.after_operand = false;
    return Make(TokenKind::Point, at_ + 1);
}

Token Lexer::Operator(wchar_t ch) {
    const wchar_t next = At(at_ + 1);
    switch (ch) {
        case L'(':
            return Make(TokenKind::LeftParen, at_ + 1);
        case L',':
            return Make(TokenKind::Comma, at_ + 1);
        case L';':
            return Make(TokenKind::Semicolon, at_ + 1);
        case L'{':
            return Make(TokenKind::LeftBrace, at_ + 1);
        case L'=':
            if (next == L'<') return Make(TokenKind::LessEqual, at_ + 2);
            if (next == L'>') return Make(TokenKind::GreaterEqual, at_ + 2);
            return Make(TokenKind::Equal, at_ + (next == L'=' ? 2 : 1));
        case L'<':
            if (next == L'=') return Make(TokenKind::LessEqual, at_ + 2);
            if (next == L'>') return Make(TokenKind::NotEqual, at_ + 2);
            return Make(TokenKind::Less, at_ + 1);
        case L'>':
            if (next == L'=') return Make(TokenKind::GreaterEqual, at_ + 2);
            if (next == L'<') return Make(TokenKind::NotEqual, at_ + 2);
            return Make(TokenKind::Greater, at_ + 1);
        case L'!':
            if (next == L'=') return Make(TokenKind::NotEqual, at_ + 2);
            return Make(TokenKind::Bang, at_ + 1);
        case L'|':
            if (next == L'|') return Make(TokenKind::Concat, at_ + 2);
            return Make(TokenKind::Pipe, at_ + 1);
        case L'+':
            return Make(TokenKind::Plus, at_ + 1);
        case L'-':
            return Make(TokenKind::Minus, at_ + 1);
        case L'*':
            return Make(TokenKind::Star, at_ + 1);
        case L'/':
            return Make(TokenKind::Slash, at_ + 1);
        case L'\\':
            return Make(TokenKind::Backslash, at_ + 1);
        case L'^':
            return Make(TokenKind::Caret, at_ + 1);
        case L'%':
            return Make(TokenKind::Percent, at_ + 1);
        case L'~':
            return Make(TokenKind::Tilde, at_ + 1);
        default:
            return Make(TokenKind::Unknown, at_ + 1);
    }
}

}  // namespace tessel::sql
