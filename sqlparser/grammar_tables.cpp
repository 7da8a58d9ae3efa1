// The leaves of FROM: tables, derived tables, groups in parentheses.
#include "sqlparser/grammar.h"
#include "sqlparser/messages.h"

namespace tessel::sql {

int Grammar::TablePrimary() {
    if (At(Keyword::Lateral) && Peek().kind == TokenKind::LeftParen) {
        AddBeyond(Beyond::Other, token_.Range());
        Advance();
    }
    if (At(TokenKind::LeftParen)) {
        const Token next = Peek();
        const std::uint32_t begin = token_.begin;
        if (StartsQuery(next)) return DerivedTable(begin);
        return EnclosedFrom(TokenKind::RightParen, messages::kMissingRightParen);
    }
    if (At(TokenKind::LeftBrace) && IsKeyword(Peek(), Keyword::Oj)) {
        return EnclosedFrom(TokenKind::RightBrace, messages::kMissingRightBrace);
    }
    if (IsBracketedSelect()) return BracketedSelect();
    return TableName();
}

// ( tables and joins ), or one table in parentheses of its own; {oj joins } is the ODBC spelling.
int Grammar::EnclosedFrom(TokenKind close, std::wstring_view missing) {
    const Nesting nesting(*this);
    const std::uint32_t begin = token_.begin;
    Advance();
    if (close == TokenKind::RightBrace) Advance();
    int root = FromItem();
    while (root >= 0 && At(TokenKind::Comma)) {
        FromNode join;
        join.kind = JoinKind::None;
        join.joint = token_.Range();
        AddBeyond(Beyond::CrossJoin, join.joint);
        Advance();
        const int right = FromItem();
        if (right < 0) return -1;
        root = AddJoin(join, root, right);
    }
    if (root < 0 || !Expect(close, missing)) return -1;
    FromNode& node = statement_->From[static_cast<std::size_t>(root)];
    node.parenthesised = true;
    node.outer = Since(begin);
    return root;
}

int Grammar::TableName() {
    TableRef table;
    const std::uint32_t begin = token_.begin;
    TableNameParts(table);
    if (blocked_) return -1;
    if (At(TokenKind::LeftParen)) {
        if (!SkipParens()) return -1;
        table.name = {table.name.offset, previous_.End() - table.name.offset};
        AddBeyond(Beyond::TableFunction, begin);
    }
    TableSuffix(table);
    return AddTable(table, begin);
}

// name, owner.name, database.owner.name; an empty owner (database..name) is allowed.
void Grammar::TableNameParts(TableRef& table) {
    const auto is_part = [this](bool first) {
        if (At(TokenKind::Macro) || At(TokenKind::Parameter) || At(TokenKind::Number)) return true;
        return IsNameToken(token_) || (!first && At(TokenKind::Word) && token_.begin == previous_.End());
    };
    if (!is_part(true)) return Fail(messages::kExpectedTable);
    if (token_.length <= 2 && !At(TokenKind::Word) && IsNameToken(token_)) return Fail(messages::kEmptyName);
    const std::uint32_t begin = token_.begin;
    table.name = token_.Range();
    Advance();
    // Whatever stands before the owner counts as the database.
    std::uint32_t before_name = begin;
    while (At(TokenKind::Point)) {
        table.owner = table.name;
        table.database = {begin, before_name - begin};
        before_name = token_.begin;
        Advance();
        if (At(TokenKind::Point)) {
            table.database = {begin, table.owner.End() - begin};
            table.owner = {};
            before_name = token_.begin;
            Advance();
        }
        if (!is_part(false)) return Fail(messages::kExpectedTable);
        table.name = token_.Range();
        Advance();
    }
}

int Grammar::DerivedTable(std::uint32_t begin) {
    TableRef table;
    Advance();
    table.derived = true;
    table.nested = AddNested(Query());
    if (!CloseParen()) return -1;
    table.name = Since(begin);
    AddBeyond(Beyond::DerivedTable, table.name);
    TableSuffix(table);
    return AddTable(table, begin);
}

// The engine's own spelling of a derived table: [SELECT …]. AS q.
bool Grammar::IsBracketedSelect() {
    if (!At(TokenKind::BracketName) || token_.length < 9) return false;
    Lexer inside(text_.substr(0, token_.End() - 1), token_.begin + 1);
    if (!IsKeyword(inside.NextSignificant(), Keyword::Select) || Peek().kind != TokenKind::Point)
        return false;
    // [Select one].[t] is a qualified name.
    const Token after = PeekSecond();
    return after.begin != Peek().End() || !IsNameToken(after);
}

int Grammar::BracketedSelect() {
    TableRef table;
    const std::uint32_t begin = token_.begin;
    const Token bracket = token_;
    const Token point = Peek();
    const Lexer after = lexer_;
    const int parens = parens_;
    lexer_ = Lexer(text_.substr(0, bracket.End() - 1), begin + 1);
    has_peeked_ = false;
    Advance();
    table.derived = true;
    table.nested = AddNested(Query());
    Accept(TokenKind::Semicolon);
    if (!At(TokenKind::End)) Fail(messages::kTextAfterEnd);
    if (finished_) return -1;
    // Whatever was wrong inside has been said; the text after the bracket is read in any case.
    blocked_ = false;
    lexer_ = after;
    parens_ = parens;
    has_peeked_ = false;
    token_ = point;
    Advance();
    previous_ = point;
    table.name = Since(begin);
    AddBeyond(Beyond::DerivedTable, table.name);
    TableSuffix(table);
    return AddTable(table, begin);
}

// IN 'file', alias, columns, hint.
void Grammar::TableSuffix(TableRef& table) {
    if (At(Keyword::In)) InDatabase(table.external);
    TableAlias(table);
    if (At(Keyword::In) && table.external.length == 0) InDatabase(table.external);
    if (At(Keyword::With) && Peek().kind == TokenKind::LeftParen) {
        const std::uint32_t begin = token_.begin;
        Advance();
        if (!SkipParens()) return;
        table.hint = Since(begin);
        AddBeyond(Beyond::Hint, table.hint);
    }
}

void Grammar::TableAlias(TableRef& table) {
    if (Accept(Keyword::As)) {
        if (!AliasAfterAs(table.alias)) return;
    } else if (IsBareAlias()) {
        table.alias = token_.Range();
        Advance();
    } else {
        return;
    }
    if (!At(TokenKind::LeftParen)) return;
    const std::uint32_t begin = token_.begin;
    if (!NamesInParens()) return;
    table.columns = Since(begin);
    AddBeyond(Beyond::Other, table.columns);
}

// IN 'file', IN "file" "EXCEL 5.0;", IN "" [dBase IV;DATABASE=…].
void Grammar::InDatabase(TextRange& external) {
    const std::uint32_t begin = token_.begin;
    Advance();
    const auto is_text = [this] {
        return At(TokenKind::String) || At(TokenKind::QuotedText) || At(TokenKind::BracketName) ||
               At(TokenKind::Macro) || At(TokenKind::Parameter);
    };
    if (!is_text()) return Fail(messages::kExpectedFile);
    Advance();
    // After the file a quoted text is the connection; an alias in quotes would be read as one.
    if (At(TokenKind::String) || At(TokenKind::QuotedText) || At(TokenKind::BracketName)) Advance();
    external = Since(begin);
    AddBeyond(Beyond::InDatabase, external);
}

int Grammar::AddTable(TableRef& table, std::uint32_t begin) {
    if (blocked_) return -1;
    table.range = Since(begin);
    statement_->Tables.push_back(table);
    FromNode leaf;
    leaf.table = static_cast<int>(statement_->Tables.size() - 1);
    leaf.first_table = leaf.table;
    leaf.stop_table = leaf.table + 1;
    leaf.range = leaf.outer = table.range;
    statement_->From.push_back(leaf);
    return static_cast<int>(statement_->From.size() - 1);
}

}  // namespace tessel::sql
