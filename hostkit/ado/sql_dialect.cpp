#include "hostkit/ado/sql_dialect.h"

#include "common/text.h"

namespace tessel::ado {

namespace {

constexpr std::wstring_view kDistinctRow = L"distinctrow";

/// The position after a text that is closed by `close`, where a doubled `close` stands for itself. An
/// unclosed text reaches to the end.
std::size_t AfterQuoted(std::wstring_view sql, std::size_t at, wchar_t close) {
    for (++at; at < sql.size(); ++at) {
        if (sql[at] != close) continue;
        if (at + 1 < sql.size() && sql[at + 1] == close) {
            ++at;
            continue;
        }
        return at + 1;
    }
    return sql.size();
}

std::size_t After(std::wstring_view sql, std::size_t at, std::wstring_view end) {
    const std::size_t found = sql.find(end, at);
    return found == std::wstring_view::npos ? sql.size() : found + end.size();
}

bool IsWordCharacter(wchar_t ch) {
    return (ch >= L'0' && ch <= L'9') || (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z') ||
           ch == L'_' || ch == L'@' || ch == L'$' || ch == L'#' || ch >= 0xC0;
}

/// The end of the quoted text, comment or word that starts here; `at` + 1 for any other character.
std::size_t AfterToken(std::wstring_view sql, std::size_t at) {
    const std::wstring_view rest = sql.substr(at);
    switch (sql[at]) {
        case L'\'':
        case L'"':
        case L'`':
            return AfterQuoted(sql, at, sql[at]);
        case L'[':
            return AfterQuoted(sql, at, L']');
        default:
            break;
    }
    if (rest.starts_with(L"--")) return After(sql, at, L"\n");
    if (rest.starts_with(L"/*")) return After(sql, at + 2, L"*/");
    if (!IsWordCharacter(sql[at])) return at + 1;
    while (at < sql.size() && IsWordCharacter(sql[at])) ++at;
    return at;
}

}  // namespace

std::wstring StatementForEngine(std::wstring_view sql) {
    std::wstring result;
    result.reserve(sql.size());
    for (std::size_t at = 0; at < sql.size();) {
        const std::size_t end = AfterToken(sql, at);
        const std::wstring_view token = sql.substr(at, end - at);
        const bool is_member = !result.empty() && result.back() == L'.';
        if (!is_member && token.size() == kDistinctRow.size() && SameIgnoringCase(token, kDistinctRow))
            result += token.substr(0, std::wstring_view(L"DISTINCT").size());
        else
            result += token;
        at = end;
    }
    return result;
}

}  // namespace tessel::ado
