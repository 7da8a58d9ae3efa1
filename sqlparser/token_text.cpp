#include "sqlparser/token_text.h"

namespace tessel::sql {
namespace {

bool NeedsBlank(TokenKind before, TokenKind after) {
    // A point beside a digit would become part of the number.
    if (before == TokenKind::Point && after == TokenKind::Number) return true;
    if (before == TokenKind::Number && after == TokenKind::Point) return true;
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
    TokenKind before = TokenKind::LeftParen;
    for (Token token = lexer.NextSignificant(); token.kind != TokenKind::End;
         token = lexer.NextSignificant()) {
        if (!text.empty() && NeedsBlank(before, token.kind)) text += L' ';
        text += source.substr(token.begin, token.length);
        before = token.kind;
    }
    return text;
}

Token FirstToken(std::wstring_view source, std::size_t from, std::size_t to) {
    Lexer lexer(source.substr(0, to), from);
    return lexer.NextSignificant();
}

}  // namespace tessel::sql
