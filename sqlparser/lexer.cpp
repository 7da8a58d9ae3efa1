#include "sqlparser/lexer.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>

namespace tessel::sql {
namespace {

// A date is short; a "#" whose partner is further away belongs to something else.
constexpr std::uint32_t kLongestDate = 40;

bool IsLineBreak(wchar_t ch) {
    return ch == L'\n' || ch == L'\r';
}

/// The tokens of the characters of class kMark.
consteval std::array<TokenKind, 128> MakeMarks() {
    std::array<TokenKind, 128> marks{};
    marks['('] = TokenKind::LeftParen;
    marks[')'] = TokenKind::RightParen;
    marks[','] = TokenKind::Comma;
    marks[';'] = TokenKind::Semicolon;
    marks['{'] = TokenKind::LeftBrace;
    marks['}'] = TokenKind::RightBrace;
    marks['?'] = TokenKind::Parameter;
    marks['+'] = TokenKind::Plus;
    marks['*'] = TokenKind::Star;
    marks['\\'] = TokenKind::Backslash;
    marks['^'] = TokenKind::Caret;
    marks['%'] = TokenKind::Percent;
    marks['~'] = TokenKind::Tilde;
    return marks;
}

constexpr std::array<TokenKind, 128> kMarks = MakeMarks();

constexpr bool EndsOperand(TokenKind kind) {
    return kind == TokenKind::RightParen || kind == TokenKind::RightBrace || kind == TokenKind::Parameter;
}

}  // namespace

// The small members go into the token in one piece together with `begin`, as whoever copies the token reads
// them: a processor that reads in one piece what was written in several waits until all of it has arrived.
inline const Token& Lexer::Make(TokenKind kind, std::uint32_t stop, std::uint8_t flags, Keyword keyword) {
    static_assert(std::endian::native == std::endian::little && offsetof(Token, keyword) == 1 &&
                  offsetof(Token, flags) == 2 && offsetof(Token, begin) == 4);
    const std::uint64_t head = static_cast<std::uint64_t>(kind) | static_cast<std::uint64_t>(keyword) << 8 |
                               static_cast<std::uint64_t>(flags) << 16 |
                               static_cast<std::uint64_t>(at_) << 32;
    std::memcpy(static_cast<void*>(&token_), &head, sizeof head);
    token_.length = stop - at_;
    at_ = stop;
    return token_;
}

// `from` is behind the first character, or the signs before it.
inline const Token& Lexer::Word(std::uint32_t from) {
    const wchar_t* const text = text_;
    const std::uint32_t end = end_;
    WordKey key;
    std::uint8_t common = ClassOf(text[at_]);
    key.Add(text[at_]);
    std::uint32_t i = from;
    for (; i < end; ++i) {
        const std::uint8_t bits = ClassOf(text[i]);
        if ((bits & kWordPart) == 0) break;
        common &= bits;
        key.Add(text[i]);
    }
    const bool may_be_keyword = (common & kAsciiLetter) != 0 && i - at_ <= WordKey::kLongest;
    const Keyword keyword = may_be_keyword ? FindKeyword(key) : Keyword::None;
    state_.after_operand = !IsReserved(keyword) || keyword == Keyword::End;
    return Make(TokenKind::Word, i, 0, keyword);
}

// The token that begins with a character of that class, at `at_`.
inline const Token& Lexer::Begin(std::uint8_t bits) {
    const wchar_t ch = text_[at_];
    if (bits & kWordStart) return Word(at_ + 1);
    if (bits & kMark) {
        const TokenKind kind = kMarks[static_cast<std::size_t>(ch)];
        state_.after_operand = EndsOperand(kind);
        return Make(kind, at_ + 1);
    }
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

const Token& Lexer::Next() {
    if (at_ >= end_) return Make(TokenKind::End, end_);
    if (state_.inside != LexerState::Inside::Nothing) return Continue();
    return Begin(ClassOf(text_[at_]));
}

const Token& Lexer::NextSignificant() {
    for (;;) {
        if (state_.inside != LexerState::Inside::Nothing && at_ < end_) {
            Continue();
        } else {
            std::uint8_t bits = kBlank;
            std::uint32_t at = at_;
            while (at < end_ && ((bits = ClassOf(text_[at])) & kBlank) != 0) ++at;
            at_ = at;
            if (at >= end_) return Make(TokenKind::End, end_);
            Begin(bits);
        }
        if (token_.kind != TokenKind::Comment || (token_.flags & kUnterminated) != 0) return token_;
        has_skipped_comment_ = true;
    }
}

// The rest of something that began on an earlier line.
const Token& Lexer::Continue() {
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
const Token& Lexer::Quoted(TokenKind kind, std::uint32_t content, wchar_t close, LexerState::Inside inside) {
    state_.after_operand = true;
    for (std::uint32_t i = content; i < end_; ++i) {
        if (text_[i] != close) continue;
        if (At(i + 1) != close) return Make(kind, i + 1);
        ++i;
    }
    state_.inside = inside;
    return Make(kind, end_, kUnterminated);
}

const Token& Lexer::BlockComment(std::uint32_t content) {
    for (std::uint32_t i = content; i + 1 < end_; ++i) {
        if (text_[i] == L'*' && text_[i + 1] == L'/') return Make(TokenKind::Comment, i + 2);
    }
    state_.inside = LexerState::Inside::Comment;
    return Make(TokenKind::Comment, end_, kUnterminated);
}

const Token& Lexer::LineComment() {
    std::uint32_t i = at_ + 2;
    while (i < end_ && !IsLineBreak(text_[i])) ++i;
    return Make(TokenKind::Comment, i);
}

const Token& Lexer::Space() {
    std::uint32_t i = at_ + 1;
    while (i < end_ && Is(text_[i], kBlank)) ++i;
    return Make(TokenKind::Space, i);
}

const Token& Lexer::Number(std::uint32_t stop) {
    if (stop < end_ && (text_[stop] == L'#' || Is(text_[stop], kWordStart))) has_tight_number_ = true;
    return Make(TokenKind::Number, stop);
}

// Digits followed by letters are a name (90DaysAvg, 87089_Items), unless the letters are an exponent or AND
// or OR.
const Token& Lexer::NumberOrName() {
    state_.after_operand = true;
    std::uint32_t i = at_;
    if (text_[i] == L'0' && (At(i + 1) | 32) == L'x' && Is(At(i + 2), kHexDigit)) {
        i += 3;
        while (i < end_ && Is(text_[i], kHexDigit)) ++i;
        if (!Is(At(i), kWordPart)) return Number(i);
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
            if (!Is(At(e), kWordPart)) return Number(e);
        }
    }
    if (i != whole || !Is(At(i), kWordPart)) return Number(i);
    const std::uint32_t digits_end = i;
    while (i < end_ && Is(text_[i], kWordPart)) ++i;
    // Statements put together in programs often lack the blank: WHERE a=1AND b=2.
    const Keyword tail = FindKeyword(text_ + digits_end, i - digits_end);
    if (tail == Keyword::And || tail == Keyword::Or) return Number(digits_end);
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

const Token& Lexer::Hash() {
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

const Token& Lexer::AtSign() {
    state_.after_operand = true;
    if (At(at_ + 1) == L'{') return BraceMacro(at_ + 2);
    std::uint32_t i = at_ + 1;
    while (i < end_ && !Is(text_[i], kMacroEnd)) ++i;
    return Make(TokenKind::Macro, i);
}

const Token& Lexer::BraceMacro(std::uint32_t content) {
    state_.after_operand = true;
    for (std::uint32_t i = content; i < end_; ++i) {
        if (text_[i] == L'}') return Make(TokenKind::Macro, i + 1);
    }
    state_.inside = LexerState::Inside::BraceMacro;
    return Make(TokenKind::Macro, end_, kUnterminated);
}

const Token& Lexer::ColonMark() {
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
const Token& Lexer::AmpersandMark() {
    const wchar_t base = static_cast<wchar_t>(At(at_ + 1) | 32);
    if (!state_.after_operand && (base == L'h' || base == L'o')) {
        std::uint32_t i = at_ + 2;
        while (i < end_ && Is(text_[i], kHexDigit)) ++i;
        if (i > at_ + 2 && !Is(At(i), kWordPart)) {
            if (At(i) == L'&') ++i;
            state_.after_operand = true;
            return Number(i);
        }
    }
    state_.after_operand = false;
    return Make(TokenKind::Ampersand, at_ + 1);
}

// ".5" is a number unless it follows a name at once.
const Token& Lexer::PointMark() {
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
        return Number(i);
    }
    state_.after_operand = false;
    return Make(TokenKind::Point, at_ + 1);
}

const Token& Lexer::Operator(wchar_t ch) {
    const wchar_t next = At(at_ + 1);
    switch (ch) {
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
        case L'-':
            return Make(TokenKind::Minus, at_ + 1);
        case L'/':
            return Make(TokenKind::Slash, at_ + 1);
        default:
            return Make(TokenKind::Unknown, at_ + 1);
    }
}

}  // namespace tessel::sql
