// Whole statements: PARAMETERS, WITH, set operators, groups in parentheses, and the end of the text.
#include <algorithm>
#include <utility>

#include "sqlparser/grammar.h"
#include "sqlparser/messages.h"
#include "sqlparser/sql_parser.h"

namespace tessel::sql {
namespace {

// Dense text has a node in five characters; room that stays unused is not touched.
constexpr std::size_t kCharactersPerNode = 4;
constexpr std::size_t kMostReservedNodes = 1u << 21;

}  // namespace

std::unique_ptr<Statement> Grammar::Run(std::unique_ptr<Statement> statement) {
    if (blocked_) return nullptr;
    if (At(TokenKind::End)) {
        FailAt({0, 0}, std::wstring(messages::kEmpty));
        return nullptr;
    }
    statement->text = source_;
    statement->source = text_;
    statement_ = statement.get();
    statement->nodes.reserve(std::min(text_.size() / kCharactersPerNode + 16, kMostReservedNodes));
    if (At(Keyword::Parameters)) ParametersClause();
    if (!blocked_ && At(Keyword::Procedure) && IsNameToken(Peek())) ProcedureClause();
    if (!blocked_ && At(Keyword::Transform)) TransformClause();
    const bool starts = StartsQuery(token_) || At(TokenKind::LeftParen) || StartsTableStatement();
    if (!blocked_ && !starts) Fail(NotASelectMessage());
    if (blocked_) return nullptr;
    QueryBody();
    if (!blocked_ && statement->transform.length != 0 && statement->pivot.length == 0) {
        Fail(messages::kExpectedPivot);
    }
    if (!blocked_) EndOfText();
    statement->has_comments = lexer_.HasSkippedComment();
    statement->has_tight_numbers = lexer_.HasTightNumber();
    return statement;
}

// What kind of query the text is instead, by its first word.
std::wstring_view Grammar::NotASelectMessage() const {
    if (!At(TokenKind::Word)) return messages::kNotASelect;
    switch (token_.keyword) {
        case Keyword::Insert:
            return messages::kInsert;
        case Keyword::Update:
            return messages::kUpdate;
        case Keyword::Delete:
            return messages::kDelete;
        case Keyword::Create:
        case Keyword::Alter:
        case Keyword::Drop:
            return messages::kDefinition;
        case Keyword::Exec:
        case Keyword::Execute:
        case Keyword::Call:
            return messages::kExecute;
        default:
            return messages::kNotASelect;
    }
}

std::unique_ptr<Statement> Grammar::NewStatement() const {
    auto statement = std::make_unique<Statement>();
    statement->text = source_;
    statement->source = text_;
    return statement;
}

void Grammar::ParametersClause() {
    const std::uint32_t begin = token_.begin;
    Advance();
    if (!ParameterList()) return;
    if (!Expect(TokenKind::Semicolon, messages::kExpectedSemicolon)) return;
    statement_->parameters = Since(begin);
    AddBeyond(Beyond::Parameters, begin);
}

// PROCEDURE name [parameter type, …]; names the statement that follows.
void Grammar::ProcedureClause() {
    const std::uint32_t begin = token_.begin;
    Advance();
    Advance();
    if (IsNameToken(token_) && !ParameterList()) return;
    if (!Expect(TokenKind::Semicolon, messages::kExpectedProcedureEnd)) return;
    statement_->parameters = Since(begin);
    AddBeyond(Beyond::Procedure, begin);
}

bool Grammar::ParameterList() {
    do {
        // A form's control may be declared too: [Forms]![f]![c] DateTime.
        do {
            if (!IsNameToken(token_) && !At(TokenKind::Macro)) {
                Fail(messages::kExpectedParameter);
                return false;
            }
            Advance();
        } while (Accept(TokenKind::Bang) || Accept(TokenKind::Point));
        if (!TypeName()) return false;
    } while (Accept(TokenKind::Comma));
    return true;
}

// TRANSFORM aggregate [AS name] before the select of a crosstab; PIVOT comes after its clauses.
void Grammar::TransformClause() {
    const std::uint32_t begin = token_.begin;
    Advance();
    const NodeId value = Expression();
    if (value == kNoNode || IsStar(value)) return;
    TextRange alias;
    if (Accept(Keyword::As) && !AliasAfterAs(alias)) return;
    statement_->transform = Since(begin);
    AddBeyond(Beyond::Crosstab, begin);
    if (!At(Keyword::Select)) Fail(messages::kExpectedSelect);
}

// TABLE name stands where a select can, for all the rows of a table.
bool Grammar::StartsTableStatement() {
    return At(Keyword::Table) && IsNameToken(Peek());
}

void Grammar::TableStatement() {
    const int base_parens = parens_;
    const std::uint32_t begin = token_.begin;
    Advance();
    JoinGroup group;
    group.root = TableName();
    if (group.root < 0) return;
    statement_->JoinGroups.push_back(std::move(group));
    statement_->table_statement = Since(begin);
    AddBeyond(Beyond::TableStatement, begin);
    ClausesAfterFrom(base_parens);
}

bool Grammar::StartsQuery(const Token& token) {
    return IsKeyword(token, Keyword::Select) || IsKeyword(token, Keyword::With) ||
           IsKeyword(token, Keyword::Values);
}

// A nested query with nodes of its own. The stacks of operands are shared; every production leaves them as it
// found them.
std::unique_ptr<Statement> Grammar::Query() {
    auto query = NewStatement();
    Statement* const outer = statement_;
    statement_ = query.get();
    QueryBody();
    if (At(TokenKind::Semicolon) && Peek().kind == TokenKind::RightParen) Advance();
    statement_ = outer;
    return query;
}

void Grammar::QueryBody() {
    const Nesting nesting(*this, kSelectLevels);
    if (At(Keyword::With)) WithClause();
    QueryOperand();
    SetOperators();
}

void Grammar::QueryOperand() {
    if (At(TokenKind::LeftParen)) {
        Group();
    } else if (At(Keyword::Values)) {
        ValuesRows();
    } else if (At(Keyword::Select)) {
        SelectCore();
    } else if (StartsTableStatement()) {
        TableStatement();
    } else {
        Fail(messages::kExpectedSelect);
    }
}

void Grammar::Group() {
    const Nesting nesting(*this);
    Advance();
    QueryOperand();
    SetOperators();
    if (!CloseParen()) return;
    statement_->group_ends.push_back(statement_->union_operands.size());
    const bool has_tail =
        At(Keyword::Order) || At(Keyword::Limit) || At(Keyword::Offset) || At(Keyword::Fetch);
    if (!has_tail || statement_->tail) return;
    auto tail = NewStatement();
    Statement* const outer = statement_;
    statement_ = tail.get();
    Clauses(parens_);
    statement_ = outer;
    statement_->tail = std::move(tail);
}

void Grammar::WithClause() {
    const std::uint32_t begin = token_.begin;
    Advance();
    Accept(Keyword::Recursive);
    do {
        CommonTable table;
        if (!IsNameToken(token_)) return Fail(messages::kExpectedCommonTable);
        table.name = token_.Range();
        Advance();
        if (At(TokenKind::LeftParen)) {
            const std::uint32_t columns = token_.begin;
            if (!NamesInParens()) return;
            table.columns = Since(columns);
        }
        if (!Expect(Keyword::As, messages::kExpectedAs)) return;
        if (!Expect(TokenKind::LeftParen, messages::kExpectedLeftParen)) return;
        table.nested = AddNested(Query());
        statement_->common_tables.push_back(table);
        if (!CloseParen()) return;
    } while (Accept(TokenKind::Comma));
    statement_->with_range = Since(begin);
    AddBeyond(Beyond::With, begin);
}

// A ";" before UNION is forgiven: the engine's own window writes it.
void Grammar::SetOperators() {
    for (;;) {
        const Token& next = At(TokenKind::Semicolon) ? Peek() : token_;
        Beyond what = Beyond::Union;
        if (IsKeyword(next, Keyword::Intersect)) {
            what = Beyond::Intersect;
        } else if (IsKeyword(next, Keyword::Except)) {
            what = Beyond::Except;
        } else if (!IsKeyword(next, Keyword::Union)) {
            return;
        }
        Accept(TokenKind::Semicolon);
        const std::uint32_t begin = token_.begin;
        Advance();
        if (!Accept(Keyword::All)) Accept(Keyword::Distinct);
        const TextRange words = Since(begin);
        AddBeyond(what, words);
        statement_->union_operands.push_back(SetOperand());
        statement_->union_operands.back()->set_operator = words;
    }
}

std::unique_ptr<Statement> Grammar::SetOperand() {
    auto operand = NewStatement();
    Statement* const outer = statement_;
    statement_ = operand.get();
    QueryOperand();
    statement_ = outer;
    return operand;
}

void Grammar::ValuesRows() {
    const std::uint32_t begin = token_.begin;
    Advance();
    do {
        if (!At(TokenKind::LeftParen)) return Fail(messages::kExpectedLeftParen);
        const NodeId row = Make(NodeKind::Tuple, token_.begin);
        Advance();
        Children children;
        do {
            const NodeId value = Expression();
            Append(children, value, height_);
        } while (Accept(TokenKind::Comma));
        CloseParen();
        statement_->value_rows.push_back(Finish(row, children));
    } while (Accept(TokenKind::Comma));
    AddBeyond(Beyond::Values, begin);
}

int Grammar::AddNested(std::unique_ptr<Statement> nested) {
    statement_->nested.push_back(std::move(nested));
    return static_cast<int>(statement_->nested.size() - 1);
}

void Grammar::EndOfText() {
    while (Accept(TokenKind::Semicolon)) {
    }
    if (At(TokenKind::End)) return;
    if (At(TokenKind::RightParen)) return Fail(messages::kExtraRightParen);
    Fail(messages::kTextAfterEnd);
}

}  // namespace tessel::sql
