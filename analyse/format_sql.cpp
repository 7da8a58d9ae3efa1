#include "analyse/format_sql.h"

#include "analyse/normal_form.h"
#include "sqlparser/dump.h"
#include "sqlparser/formatter.h"
#include "sqlparser/lexer.h"
#include "sqlparser/sql_parser.h"

namespace tessel::analyse {

namespace {

using sql::Token;
using sql::TokenKind;

Token NextBesideSpace(sql::Lexer& lexer) {
    Token token = lexer.Next();
    while (token.kind == TokenKind::Space) token = lexer.Next();
    return token;
}

bool HaveSameTokens(std::wstring_view before, std::wstring_view after) {
    sql::Lexer left(before);
    sql::Lexer right(after);
    for (;;) {
        const Token a = NextBesideSpace(left);
        const Token b = NextBesideSpace(right);
        if (a.kind != b.kind) return false;
        if (a.kind == TokenKind::End) return true;
        if (before.substr(a.begin, a.length) != after.substr(b.begin, b.length)) return false;
    }
}

bool HaveSameMeaning(const sql::Statement& before, const sql::Statement& after) {
    if (sql::Dump(before) != sql::Dump(after)) return false;
    Forms forms;
    const StatementScope before_scope(before, nullptr, forms);
    const StatementScope after_scope(after, nullptr, forms);
    const NormalForm left = Normalise(before_scope, Canonical(before_scope));
    const NormalForm right = Normalise(after_scope, Canonical(after_scope));
    // What no design has a place for is compared as text, which the layout may change.
    if (!left.beyond.empty()) return !right.beyond.empty();
    return !FirstDifference(left, right, {});
}

}  // namespace

Formatted FormatSQL(std::wstring_view text) {
    Formatted result{std::wstring(text), std::nullopt, true};
    sql::SqlParser before;
    if (before.Parse(text) || !before.GetStatement()) {
        if (!before.Errors().empty()) result.error = before.Errors().front();
        if (!result.error) result.error = MakeDiagnostic(text, {}, L"");
        return result;
    }
    std::wstring formatted = sql::Format(text);
    sql::SqlParser after;
    result.is_faithful = HaveSameTokens(text, formatted) && !after.Parse(formatted) && after.GetStatement() &&
                         HaveSameMeaning(*before.GetStatement(), *after.GetStatement());
    if (result.is_faithful) result.text = std::move(formatted);
    return result;
}

}  // namespace tessel::analyse
