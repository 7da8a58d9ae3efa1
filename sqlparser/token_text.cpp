#include "sqlparser/token_text.h"

namespace tessel::sql {
namespace {

bool NeedsBlank(const Token& left, const Token& right) {
    const TokenKind before = left.kind;
    const TokenKind after = right.kind;
    // Whether a point beside a digit is part of the number depends on what stands between them.
    const bool before_digit = after == TokenKind::Number || (right.flags & kDigitFirst) != 0;
    if (before == TokenKind::Point && before_digit) return left.End() != right.begin;
    // A number and a macro would take the point for their own.
    const bool takes_point = before == TokenKind::Number || before == TokenKind::Macro;
    if (takes_point && after == TokenKind::Point) return left.End() != right.begin;
    // "! =" is no inequality.
    if (before == TokenKind::Bang && after == TokenKind::Equal) return true;
    switch (after) {
        case TokenKind::RightParen:
        case TokenKind::Comma:
        case TokenKind::Semicolon:
        case TokenKind::Point:
        case TokenKind::Bang:
            return false;
        default:
            break;
    }
    return before != TokenKind::LeftParen && before != TokenKind::Point && before != TokenKind::Bang;
}

}  // namespace

std::wstring CanonicalTokens(std::wstring_view source, TextRange range) {
    std::wstring text;
    Lexer lexer(source.substr(0, range.End()), range.offset);
    Token before;
    for (Token token = lexer.NextSignificant(); token.kind != TokenKind::End;
         token = lexer.NextSignificant()) {
        if (!text.empty() && NeedsBlank(before, token)) text += L' ';
        text += source.substr(token.begin, token.length);
        before = token;
    }
    return text;
}

Token FirstToken(std::wstring_view source, std::size_t from, std::size_t to) {
    Lexer lexer(source.substr(0, to), from);
    return lexer.NextSignificant();
}

}  // namespace tessel::sql
