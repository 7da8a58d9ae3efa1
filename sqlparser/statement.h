// The analysed statement, as the parser hands it to the designer: the select list, the tables and joins of
// FROM, the condition trees, grouping, ordering and the flags. Texts are slices of the source, so that what
// the user wrote is what a cell shows.
//
// Constructs that a single SELECT's design has no place for (UNION, WITH, derived tables, INTO, LIMIT, …) are
// parsed too and listed in `beyond`, each with its range; the analysis refuses them by that list.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/diagnostic.h"
#include "sqlparser/ast.h"

namespace tessel::sql {

/// An entry of the select list, of GROUP BY or of ORDER BY.
struct Item {
    TextRange range;  ///< the whole item
    TextRange
        expression;   ///< without alias (select list) ; for ORDER BY the text with its trailing DESC or ASC
    TextRange alias;  ///< as written, brackets and quotes included; empty when there is none
    NodeId node = kNoNode;
    bool descending = false;  ///< ORDER BY only
    TextRange nulls;          ///< NULLS FIRST or NULLS LAST
};

/// One table of FROM, in the order in which the names stand in the text.
struct TableRef {
    TextRange range;       ///< the whole reference with its alias
    TextRange database;    ///< empty when absent
    TextRange owner;       ///< empty when absent
    TextRange name;        ///< as written, brackets included; for a derived table its whole text
    TextRange alias;       ///< empty when absent
    bool derived = false;  ///< ( SELECT … ) or [SELECT …].
    int nested = -1;       ///< derived: index in Statement::nested
    TextRange external;    ///< IN 'file' …
    TextRange columns;     ///< (a, b) after the alias
    TextRange hint;        ///< WITH (…)
};

/// A side of a join's single equality; empty ranges when the ON text is not one equality between two columns.
struct FieldRef {
    TextRange table;  ///< the qualifier, empty when unqualified
    TextRange field;
};

/// Join kinds of the contract. Other joins (FULL, CROSS, NATURAL) are listed in Statement::beyond.
enum class JoinKind : int { None = 0, Inner = 1, Left = 2, Right = 3 };

struct Join {
    JoinKind kind = JoinKind::Inner;  ///< None for FULL, CROSS and NATURAL
    int left_table = -1;   ///< index in Statement::Tables: the table that ON names on the left operand's side
    int right_table = -1;  ///< likewise for the right operand
    TextRange on;          ///< the condition text
    NodeId on_node = kNoNode;
    FieldRef left_field;  ///< the side of the equality that belongs to left_table
    FieldRef right_field;
};

/// One comma-separated item of FROM; a plain table has no joins. Joins are listed inner operands first, in
/// the order in which they would be carried out.
struct JoinGroup {
    std::vector<Join> joins;
    int root = -1;  ///< index in Statement::From of the item's tree
};

/// FROM as a tree: leaves are tables, inner nodes are joins.
struct FromNode {
    bool is_join = false;
    int table = -1;  ///< leaf: index in Tables
    int left = -1;   ///< join: operands, indexes in Statement::From
    int right = -1;
    JoinKind kind = JoinKind::None;
    NodeId on_node = kNoNode;
    TextRange on;     ///< join: the condition's text
    TextRange range;  ///< without enclosing parentheses
    TextRange outer;  ///< with them
    TextRange joint;  ///< join: the words between the operands (INNER JOIN, FULL OUTER JOIN…, or a comma)
    TextRange using_columns;  ///< join: (a, b) of USING
    bool parenthesised = false;
    int first_table = 0;  ///< the tables below are those from first_table up to, not including, stop_table
    int stop_table = 0;
    int height = 0;  ///< of the tree below; limited like every nesting
};

/// What a design has no place for.
enum class Beyond {
    Union,
    Intersect,
    Except,
    With,
    DerivedTable,
    Into,
    Limit,
    Offset,
    Fetch,
    Parameters,
    Procedure,
    InDatabase,
    FullJoin,
    CrossJoin,
    NaturalJoin,
    JoinUsing,
    OnMissing,
    Window,
    ForUpdate,
    Values,
    TableStatement,
    Crosstab,
    Hint,
    WithOwnerAccess,
    TableFunction,
    Other
};

struct BeyondItem {
    Beyond what = Beyond::Other;
    TextRange range;
};

/// A node of a condition tree, for the syntax tree and the criteria. A predicate is one node; a connective
/// ("AND", "OR", …, as written) stands between its operands as a node of its own; a parenthesised group of
/// more than one predicate is a node with text "(" (or "NOT (") , its contents as sub-nodes and the second
/// text ")". Parentheses around a single predicate belong to the predicate's text.
struct ConditionNode {
    enum class Kind { Predicate, Connective, Group };
    Kind kind = Kind::Predicate;
    std::wstring text;
    std::vector<ConditionNode> sub;
    std::wstring second;
    TextRange range;
    NodeId node = kNoNode;
};

/// An entry of WITH: name (columns) AS (select).
struct CommonTable {
    TextRange name;
    TextRange columns;  ///< with its parentheses; empty when absent
    int nested = -1;    ///< index in Statement::nested
};

class Statement {
public:
    Statement() = default;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    Statement(Statement&&) noexcept = default;
    Statement& operator=(Statement&&) noexcept = default;

    /// Takes over the room of the lists of a statement that is not needed any more, and leaves them empty.
    void TakeRoomOf(Statement& old);

    /// The whole text that was parsed; kept alive by `text`, which nested statements share.
    std::wstring_view source;
    std::shared_ptr<const std::wstring> text;
    std::wstring_view Slice(TextRange range) const { return source.substr(range.offset, range.length); }
    std::wstring Text(TextRange range) const { return std::wstring(Slice(range)); }

    std::vector<Item> Columns;
    std::vector<FromNode> From;
    std::vector<JoinGroup> JoinGroups;
    std::vector<TableRef> Tables;
    NodeId where = kNoNode;
    NodeId having = kNoNode;
    std::vector<Item> GroupItems;
    std::vector<Item> OrderItems;
    bool WithTies = false;
    double Top = 0;
    bool Percent = false;
    bool has_comments = false;       ///< of the whole text; only the outermost statement tells
    bool has_tight_numbers = false;  ///< likewise: a word follows a number without a blank
    bool Distinct = false;
    TextRange distinct_range;
    TextRange top_range;
    TextRange where_range;  ///< the condition's text
    TextRange having_range;
    TextRange from_range;
    TextRange group_suffix;     ///< WITH ROLLUP
    TextRange into;             ///< after INTO
    TextRange from_external;    ///< IN 'file' … after the last join, for all the tables
    TextRange parameters;       ///< PARAMETERS … ; or PROCEDURE name … ;
    TextRange transform;        ///< TRANSFORM aggregate before the select of a crosstab
    TextRange pivot;            ///< PIVOT … at its end
    TextRange table_statement;  ///< TABLE name, which has no select list
    /// LIMIT, OFFSET, FETCH, FOR, WINDOW, WITH OWNERACCESS OPTION…: one range for those that follow each
    /// other.
    std::vector<TextRange> trailing;
    std::vector<BeyondItem> beyond;

    std::vector<Node> nodes;
    /// Selects nested in expressions and in FROM hold their own lists and share `source` offsets with this
    /// statement, but have nodes of their own.
    std::vector<std::unique_ptr<Statement>> nested;
    std::vector<CommonTable> common_tables;
    TextRange with_range;  ///< WITH … before the select
    /// The operands after the first of a UNION chain, in order; `set_operator` of each is what stands before
    /// it.
    std::vector<std::unique_ptr<Statement>> union_operands;
    TextRange set_operator;  ///< of an operand: UNION ALL, …
    /// A parenthesis that opens before SELECT and closes after that many union_operands, innermost first.
    std::vector<std::size_t> group_ends;
    /// ORDER BY, LIMIT… after such a parenthesis; a statement without columns.
    std::unique_ptr<Statement> tail;
    /// Rows of VALUES (…), (…) where a select can stand: Tuple nodes.
    std::vector<NodeId> value_rows;

    const Node& At(NodeId id) const { return nodes[id]; }

    /// The condition trees of WHERE and HAVING, built on request; empty when the clause is absent.
    std::vector<ConditionNode> Where() const;
    std::vector<ConditionNode> Having() const;
};

}  // namespace tessel::sql
