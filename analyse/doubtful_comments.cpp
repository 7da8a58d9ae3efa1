#include "analyse/doubtful_comments.h"

#include "sqlparser/lexer.h"

namespace tessel::analyse {
namespace {

using sql::Token;
using sql::TokenKind;

bool IsBlank(wchar_t ch) {
    return ch <= L' ';
}

bool EndsInLoneReturn(std::wstring_view text, const Token& comment) {
    const std::size_t end = comment.End();
    return end + 1 < text.size() && text[end] == L'\r' && text[end + 1] != L'\n';
}

bool CanEndOperand(TokenKind kind) {
    switch (kind) {
        case TokenKind::Word:
        case TokenKind::Number:
        case TokenKind::String:
        case TokenKind::QuotedText:
        case TokenKind::BracketName:
        case TokenKind::BackQuoteName:
        case TokenKind::RightParen:
        case TokenKind::RightBrace:
        case TokenKind::Macro:
        case TokenKind::Parameter:
        case TokenKind::Date:
            return true;
        default:
            return false;
    }
}

bool IsDoubtful(std::wstring_view text, const Token& comment, const Token& before) {
    const std::wstring_view slice = text.substr(comment.begin, comment.length);
    if (slice.starts_with(L"/*"))
        return slice.starts_with(L"/*!") || slice.starts_with(L"/*M!") || slice.find(L"/*", 2) < slice.size();
    if (EndsInLoneReturn(text, comment)) return true;
    const bool between = before.End() == comment.begin && CanEndOperand(before.kind);
    return between && slice.size() > 2 && !IsBlank(slice[2]) && slice[2] != L'-';
}

}  // namespace

std::optional<TextRange> DoubtfulComment(std::wstring_view text) {
    sql::Lexer lexer(text);
    Token before;
    for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next()) {
        if (token.kind == TokenKind::Comment && IsDoubtful(text, token, before)) return token.Range();
        before = token;
    }
    return std::nullopt;
}

}  // namespace tessel::analyse
