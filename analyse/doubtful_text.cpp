#include "analyse/doubtful_text.h"

#include <algorithm>

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

bool IsDoubtfulBlank(wchar_t ch) {
    return ch == L'\v' || (static_cast<std::uint32_t>(ch) >= 0x80 && sql::Is(ch, sql::kBlank));
}

bool HasDoubtfulBlank(std::wstring_view text) {
    std::uint32_t bits = 0;
    std::size_t at = 0;
    const auto code = [&](std::size_t index) { return static_cast<std::uint32_t>(text[index]); };
    for (; at + 4 <= text.size(); at += 4) bits |= code(at) | code(at + 1) | code(at + 2) | code(at + 3);
    for (; at < text.size(); ++at) bits |= code(at);
    if (bits > 0xFF) return std::ranges::any_of(text, IsDoubtfulBlank);
    // In Latin-1 there are but these two.
    return text.find(L'\v') != std::wstring_view::npos || text.find(L'\u00A0') != std::wstring_view::npos;
}

bool IsDigitBeforeLetter(wchar_t first, wchar_t second) {
    return first >= L'0' && first <= L'9' && sql::Is(second, sql::kWordStart);
}

/// Hardly a text has comments, such a blank or a letter right behind a number; the others need no second
/// look.
bool MayBeDoubtful(const sql::Statement& statement) {
    const std::wstring_view text = statement.source;
    if (statement.has_comments || HasDoubtfulBlank(text)) return true;
    return statement.has_tight_numbers && std::ranges::adjacent_find(text, IsDigitBeforeLetter) != text.end();
}

}  // namespace

Outcome CheckText(const sql::Statement& statement) {
    const std::wstring_view text = statement.source;
    if (const std::size_t null = text.find(L'\0'); null < text.size())
        return Refusal{{null, 1}, std::wstring(messages::kNullCharacter)};
    if (!MayBeDoubtful(statement)) return std::nullopt;
    sql::Lexer lexer(text);
    Token before;
    for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next()) {
        if (token.kind == TokenKind::Comment && IsDoubtful(text, token, before))
            return Refusal{token.Range(), std::wstring(messages::kDoubtfulComment)};
        if (token.kind == TokenKind::Space) {
            const std::wstring_view blanks = text.substr(token.begin, token.length);
            const auto blank = std::ranges::find_if(blanks, IsDoubtfulBlank);
            if (blank != blanks.end()) {
                const auto offset = token.begin + static_cast<std::size_t>(blank - blanks.begin());
                return Refusal{{offset, 1}, std::wstring(messages::kDoubtfulBlank)};
            }
        }
        const bool follows_number = before.kind == TokenKind::Number && before.End() == token.begin;
        if (follows_number && token.kind == TokenKind::Word)
            return Refusal{token.Range(), std::wstring(messages::kNumberBeforeWord)};
        before = token;
    }
    return std::nullopt;
}

}  // namespace tessel::analyse
