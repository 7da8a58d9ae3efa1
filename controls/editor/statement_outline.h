// What can be told of a statement that is still being written: which selects it has, the tables of each FROM
// with their aliases, and where among all that the caret stands.
//
// Works from the tokens and never fails. A parser could not serve here, since a statement that is being typed
// is wrong most of the time: what stands after the caret may belong to anything, brackets are open, and the
// FROM that says what "c." means comes last. So the outline looks for the few words that divide a statement
// and believes every name where a table can stand. Time is linear in the text.
//
// What could be written at the caret is decided in completion.h.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/diagnostic.h"
#include "sqlparser/lexer.h"

namespace tessel::controls {

inline constexpr int kNoScope = -1;

enum class OutlineClause { None, With, Select, From, On, Where, GroupBy, Having, OrderBy, Other };

struct OutlineTable {
    std::wstring name;       ///< as written, without owner and database; empty for a select
    std::wstring alias;      ///< as written; empty when there is none
    int derived = kNoScope;  ///< the select that stands in the table's place

    /// How the statement calls the table.
    const std::wstring& CalledAs() const { return alias.empty() ? name : alias; }
};

/// A select: the outermost one, an operand of UNION, or one in parentheses.
struct OutlineScope {
    int parent = kNoScope;  ///< the select around it
    std::vector<OutlineTable> tables;
    std::vector<std::wstring> columns;  ///< names of its columns, as far as they have one
    std::vector<std::wstring> titles;   ///< those that were given by AS
    bool all_fields = false;            ///< "*" is among its columns
};

/// WITH name AS (select).
struct OutlineCommonTable {
    std::wstring name;
    int scope = kNoScope;
};

/// Where the caret stands.
struct CaretPlace {
    bool can_complete = false;  ///< false inside strings, comments, dates and numbers
    TextRange name;             ///< the name or word at the caret; empty when there is none
    std::wstring typed;         ///< its part before the caret
    bool is_macro = false;      ///< it begins with "@"
    bool is_qualified = false;  ///< a point stands before it
    std::wstring qualifier;     ///< the name before that point
    OutlineClause clause = OutlineClause::None;
    int scope = kNoScope;
    bool in_select_itself = false;  ///< not inside parentheses of an expression
    bool wants_table = false;       ///< the name of a table can stand here
    bool wants_condition = false;   ///< a table was joined and has no ON yet
    bool wants_value = false;       ///< an expression begins or goes on here; false after a complete one
    bool opens_parenthesis = false;
    bool in_case = false;
    /// The tables of the join that ON speaks of: one of [first, right) with one of [right, end).
    std::size_t first_table = 0;
    std::size_t right_table = 0;
    std::size_t end_table = 0;
    sql::Keyword before = sql::Keyword::None;  ///< the word right before
};

struct StatementOutline {
    std::vector<OutlineScope> scopes;
    std::vector<OutlineCommonTable> common_tables;
    CaretPlace place;
};

/// The outline of a text with the caret at that offset, which is cut to the text's length.
[[nodiscard]] StatementOutline OutlineOf(std::wstring_view text, std::size_t caret);

}  // namespace tessel::controls
