#include "analyse/nested_aggregates.h"

#include "common/mdl_global.h"
#include "sqlparser/lexer.h"

namespace tessel::analyse {

std::wstring WithHiddenAggregates(const std::wstring& text) {
    std::wstring hidden;
    std::size_t at = 0;
    sql::Lexer lexer(text);
    for (sql::Token token = lexer.Next(); token.kind != sql::TokenKind::End; token = lexer.Next()) {
        if (token.kind != sql::TokenKind::Word || token.begin == 0) continue;
        // What stands before the word, the word, and the sign after it.
        if (!IsAggregate(std::wstring_view(text).substr(token.begin - 1, token.length + 2))) continue;
        const bool after_blank = text[token.begin - 1] == L' ';
        hidden.append(text, at, token.begin - (after_blank ? 1 : 0) - at);
        hidden += L'\t';
        at = token.begin;
    }
    return hidden.append(text, at);
}

}  // namespace tessel::analyse
