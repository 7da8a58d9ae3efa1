// Grammar: the recursive descent over the tokens, one function for each production; sql_parser.h is its face.
//
// Files: grammar.cpp holds the tokens, errors and recovery; grammar_statement.cpp whole statements and set
// operators; grammar_select.cpp the select list; grammar_clauses.cpp the clauses; grammar_tail.cpp what may
// end a statement; grammar_from.cpp joins; grammar_tables.cpp tables; grammar_joins.cpp which tables a
// condition joins; grammar_expression.cpp operators; grammar_predicates.cpp LIKE, IN and the like;
// grammar_primary.cpp operands; grammar_calls.cpp calls and what may follow them.
//
// Errors. A production that meets a wrong token calls Fail. The message is kept, and from then on the current
// token is `Blocked`, which no production accepts, so that all of them return without checks of their own.
// The clause loop then calls Recover, which goes on at the next clause.
//
// Depth. Operators need no recursion: operands and operators wait on two stacks shared by all levels. Only
// what brackets something (parentheses, calls, CASE, sub-selects, joins) recurses, and Enter counts it. The
// height of the tree is limited as well, because those who walk it do recurse.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "sqlparser/lexer.h"
#include "sqlparser/statement.h"

namespace tessel::sql {

class Grammar {
public:
    Grammar(std::shared_ptr<const std::wstring> text, std::vector<Diagnostic>& errors);

    /// The statement of the whole text, put into an empty one; null when there is none.
    std::unique_ptr<Statement> Run(std::unique_ptr<Statement> statement);

private:
    /// Binding of the operators, loosest first.
    enum class Level : std::uint8_t {
        None,
        Imp,
        Eqv,
        Xor,
        Or,
        And,
        Not,
        Compare,
        Concat,
        Add,
        Modulo,
        IntDivide,
        Multiply,
        Sign,
        Power
    };
    struct Operator {
        NodeKind kind = NodeKind::Error;
        std::uint8_t op = 0;
        Level level = Level::None;
        std::uint32_t begin = 0;
    };
    struct Operand {
        NodeId node = kNoNode;
        NodeId last_child = kNoNode;  ///< of a run that can still grow
        int height = 0;
    };
    /// The children of a node under construction.
    struct Children {
        NodeId first = kNoNode;
        NodeId last = kNoNode;
        int height = 0;
    };
    class Nesting;

    // grammar.cpp: tokens
    void Advance();
    void CheckToken();
    const Token& Peek() {
        if (!has_peeked_) lexer_.NextSignificant();
        has_peeked_ = true;
        return lexer_.Current();
    }
    Token PeekSecond();
    bool At(TokenKind kind) const { return token_.kind == kind; }
    /// Only words have a keyword; None is never asked for.
    bool At(Keyword keyword) const { return token_.keyword == keyword; }
    static bool IsKeyword(const Token& token, Keyword keyword) { return token.keyword == keyword; }
    bool Accept(TokenKind kind) {
        if (!At(kind)) return false;
        Advance();
        return true;
    }
    bool Accept(Keyword keyword) {
        if (!At(keyword)) return false;
        Advance();
        return true;
    }
    bool Expect(TokenKind kind, std::wstring_view message);
    bool Expect(Keyword keyword, std::wstring_view message);
    bool CloseParen();
    bool CloseList();
    std::wstring_view TextOf(TextRange range) const { return text_.substr(range.offset, range.length); }
    TextRange Since(std::uint32_t begin) const {
        const std::uint32_t end = previous_.End();
        return {begin, end > begin ? end - begin : 0u};
    }
    bool IsNameToken(const Token& token) const;
    bool SkipParens();
    bool NamesInParens();

    // grammar.cpp: errors
    void Fail(std::wstring_view message);
    void FailExpression();
    void FailAt(TextRange range, std::wstring message);
    /// Keeps a message and goes on.
    void Report(TextRange range, std::wstring message);
    void FailForGood(std::wstring_view message);
    void Block();
    bool Recover(int base_parens);
    bool StartsClauseWord(const Token& token) const;
    bool Failed() const { return blocked_; }

    // grammar.cpp: nodes
    NodeId Make(NodeKind kind, std::uint32_t begin, std::uint8_t op = 0) {
        statement_->nodes.push_back({kind, op, 0, begin, 0, kNoNode, kNoNode, 0});
        return static_cast<NodeId>(statement_->nodes.size() - 1);
    }
    NodeId Finish(NodeId id, const Children& children) {
        Node& node = At(id);
        node.first_child = children.first;
        node.length = static_cast<std::uint32_t>(Since(node.begin).length);
        height_ = children.height + 1;
        return id;
    }
    void Append(Children& children, NodeId id, int height) {
        if (id == kNoNode) return;
        (children.first == kNoNode ? children.first : At(children.last).next) = id;
        children.last = id;
        if (height > children.height) children.height = height;
    }
    Node& At(NodeId id) { return statement_->nodes[id]; }
    void AddBeyond(Beyond what, TextRange range) { statement_->beyond.push_back({what, range}); }
    /// Range from `begin` to the end of the last token.
    void AddBeyond(Beyond what, std::uint32_t begin) { AddBeyond(what, Since(begin)); }

    // grammar_statement.cpp
    void ParametersClause();
    void ProcedureClause();
    bool ParameterList();
    void TransformClause();
    bool StartsTableStatement();
    void TableStatement();
    std::wstring_view NotASelectMessage() const;
    static bool StartsQuery(const Token& token);
    std::unique_ptr<Statement> NewStatement() const;
    std::unique_ptr<Statement> Query();
    void QueryBody();
    void QueryOperand();
    void Group();
    void WithClause();
    void SetOperators();
    std::unique_ptr<Statement> SetOperand();
    void ValuesRows();
    int AddNested(std::unique_ptr<Statement> nested);
    void EndOfText();

    // grammar_select.cpp
    void SelectCore();
    void Quantifiers();
    bool TopClause();
    void SelectList();
    void SelectItem();
    bool ItemAlias(TextRange& alias);
    bool AliasAfterAs(TextRange& alias);
    bool IsBareAlias();
    void IntoClause();

    // grammar_clauses.cpp
    void Clauses(int base_parens);
    void ClausesAfterFrom(int base_parens);
    void ClausesFrom(int last_rank, int base_parens);
    void PivotClause();
    bool Clause(int& last_rank);
    void CheckOrder(int rank, int& last_rank);
    void FromClause();
    void ConditionClause(NodeId& node, TextRange& range);
    void GroupByClause();
    void OrderByClause();
    void OrderItem();
    double NumberValue(TextRange range) const;

    // grammar_tail.cpp
    bool TailClause();
    bool AcceptWord(std::wstring_view word);
    void LimitClause(Beyond what);
    void FetchClause();
    void ForClause();
    void RowLock();
    void ResultForm();
    void WindowClause();
    void WithTailClause();

    // grammar_from.cpp
    struct JoinWords {
        JoinKind kind = JoinKind::Inner;
        Beyond beyond = Beyond::Other;  ///< when kind is None
        bool needs_condition = true;
        TextRange range;
    };
    int FromItem();
    int JoinChain(int left);
    int JoinStep(int left);
    bool StartsJoin();
    JoinWords ReadJoinWords();
    bool StartsCondition() const;
    void JoinCondition(const JoinWords& words, FromNode& join);
    int AddJoin(FromNode join, int left, int right);
    void CollectJoins(std::size_t first, JoinGroup& group);

    // grammar_tables.cpp
    int TablePrimary();
    int EnclosedFrom(TokenKind close, std::wstring_view missing);
    int TableName();
    void TableNameParts(TableRef& table);
    int DerivedTable(std::uint32_t begin);
    bool IsBracketedSelect();
    int BracketedSelect();
    void TableSuffix(TableRef& table);
    void TableAlias(TableRef& table);
    void InDatabase(TextRange& external);
    int AddTable(TableRef& table, std::uint32_t begin);

    // grammar_joins.cpp
    struct TableSpan {
        int first = 0;
        int stop = 0;
    };
    /// The tables that a qualifier names among the left and among the right operand's; -1 for none.
    struct Sides {
        int left = -1;
        int right = -1;
        bool OnlyLeft() const { return left >= 0 && right < 0; }
        bool OnlyRight() const { return right >= 0 && left < 0; }
    };
    Join ResolveJoin(const FromNode& node) const;
    NodeId SingleEquality(NodeId on) const;
    FieldRef FieldOf(NodeId name) const;
    Sides SidesOf(NodeId name, TableSpan left, TableSpan right) const;
    int TableNamed(std::wstring_view wanted, TableSpan span, bool hidden) const;
    void FindTables(NodeId on, TableSpan left, TableSpan right, Join& join) const;

    // grammar_expression.cpp
    NodeId Expression(Level lowest = Level::Imp);
    bool ReadOperator(Operator& op);
    bool OperandFollows();
    bool AtPrefix() const {
        return At(TokenKind::Minus) || At(TokenKind::Plus) || At(TokenKind::Tilde) || At(Keyword::Not);
    }
    void PushPrefixes();
    void ReduceTo(std::size_t base, Level level);
    void ReducePrefix(const Operator& op);
    void ReduceBinary(const Operator& op);
    bool IsStar(NodeId node);
    void CheckHeight(int height);

    // grammar_predicates.cpp
    bool AtPredicateTail() const { return At(Keyword::Not) || IsPredicateWord(token_.keyword); }
    bool PredicateTail(std::size_t base);
    void IsTail(std::uint32_t op_begin);
    void LikeTail(std::uint8_t flags, std::uint32_t op_begin);
    void BetweenTail(std::uint8_t flags, std::uint32_t op_begin);
    void InTail(std::uint8_t flags, std::uint32_t op_begin);
    Children TakeLeft();
    void PutPredicate(NodeKind kind, std::uint8_t op, std::uint8_t flags, std::uint32_t op_begin,
                      const Children& children);

    // grammar_primary.cpp
    NodeId Primary();
    NodeId Literal(NodeKind kind);
    NodeId WordPrimary();
    NodeId ParenPrimary();
    NodeId SubqueryNode(NodeKind kind, std::uint32_t begin, std::uint8_t op = 0);
    NodeId SelectNode();
    bool IsNamePart(bool after_point) const;
    NodeId NameOrCall();
    NodeId Name();
    NodeId NamePart(NameJoin join);
    NodeId CaseExpression();
    NodeId MacroPrimary();
    NodeId BracePrimary();
    NodeId BracedLiteral();
    bool OnIsAValue();
    NodeId PostfixCasts(NodeId node);
    bool TypeName();

    // grammar_calls.cpp
    NodeId Call(NodeId name, Keyword callee);
    void CallArguments(Children& children, std::uint8_t& flags, Keyword callee);
    NodeId CastCall();
    NodeId CallTail(NodeId call);
    void WindowParens(Children& children);

    std::shared_ptr<const std::wstring> source_;
    std::wstring_view text_;
    std::vector<Diagnostic>& errors_;
    Lexer lexer_;
    Token token_;
    Token stopped_;            ///< the token at which the parser stopped, while blocked
    bool has_peeked_ = false;  ///< the lexer is one token ahead
    bool blocked_ = false;
    bool finished_ = false;  ///< an error after which there is no sense in going on
    Token previous_;
    int parens_ = 0;
    int on_parens_ = -1;  ///< parens_ where the condition of ON that is being read began
    int depth_ = 0;
    int height_ = 0;  ///< of the tree of the last operand
    Statement* statement_ = nullptr;
    std::vector<Operand> operands_;
    std::vector<Operator> operators_;
};

/// One level of nesting for the time of a production; says so when there are too many.
class Grammar::Nesting {
public:
    explicit Nesting(Grammar& grammar, int levels = 1);
    ~Nesting() { grammar_.depth_ -= levels_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    Grammar& grammar_;
    int levels_;
};

}  // namespace tessel::sql
