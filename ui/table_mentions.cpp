#include "ui/table_mentions.h"

#include "common/identifiers.h"
#include "sqlparser/lexer.h"

namespace tessel::ui {

namespace {

bool IsName(sql::TokenKind kind) {
    using enum sql::TokenKind;
    return kind == Word || kind == BracketName || kind == BackQuoteName || kind == QuotedText;
}

}  // namespace

bool NamesTable(std::wstring_view text, std::wstring_view table) {
    sql::Lexer lexer(text);
    sql::Token before;
    for (sql::Token token = lexer.NextSignificant(); token.kind != sql::TokenKind::End;
         token = lexer.NextSignificant()) {
        const bool qualifies = token.kind == sql::TokenKind::Point || token.kind == sql::TokenKind::Bang;
        if (qualifies && IsName(before.kind) &&
            SameIdentifier(text.substr(before.begin, before.length), table))
            return true;
        before = token;
    }
    return false;
}

bool NamesTable(const model::DesignGrid& grid, std::wstring_view table) {
    using enum model::GridRow;
    for (int column = 0; column < grid.ColumnCount(); ++column)
        for (const model::GridRow row : {Campo, Condicion, Or})
            if (NamesTable(grid.Cell(row, column), table)) return true;
    return false;
}

}  // namespace tessel::ui
