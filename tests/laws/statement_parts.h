// A generated statement in its parts. The parts, not the text, are what the generator makes: so a statement
// can be written out in another way that means the same, extended by its sort keys, and shrunk when a law
// fails.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/laws/random_source.h"

namespace tessel::laws {

struct Condition {
    enum class Kind { Leaf, And, Or, Not };
    Kind kind = Kind::Leaf;
    std::wstring text;  ///< of a leaf
    std::vector<Condition> children;
    bool parens = false;  ///< written in parentheses even where none are needed
};

struct FromPart {
    enum class Kind { Table, Inner, Left, Right };
    Kind kind = Kind::Table;
    std::wstring table;
    std::wstring alias;
    std::vector<FromPart> operands;  ///< two, of a join
    Condition on;
    bool parens = false;
};

struct SelectPart {
    std::wstring text;
    std::wstring alias;
};

struct SortPart {
    std::wstring text;
    bool descending = false;
    int column = -1;  ///< the select item that the text stands for by number or alias; -1 for an expression
};

struct StatementParts {
    std::wstring distinct;  ///< "", "DISTINCT" or "DISTINCTROW"
    std::vector<SelectPart> select;
    std::vector<FromPart> from;
    std::optional<Condition> where;
    std::vector<std::wstring> group;
    std::optional<Condition> having;
    std::vector<SortPart> order;
    std::wstring tail;        ///< what no design shows: UNION, LIMIT
    bool order_known = true;  ///< the sort keys can be read off an extended select list
};

/// The statement's text. With `noise`, parentheses are added where they change nothing.
[[nodiscard]] std::wstring TextOf(const StatementParts& statement, Random* noise = nullptr);

/// The same statement with its sort keys as further columns: their number is order.size().
[[nodiscard]] std::wstring TextWithSortKeys(const StatementParts& statement);

/// Statements that are simpler by one part each; they need not be valid.
[[nodiscard]] std::vector<StatementParts> Simpler(const StatementParts& statement);

}  // namespace tessel::laws
