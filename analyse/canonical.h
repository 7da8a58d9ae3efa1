// Expressions and conditions in a form in which two texts of the same meaning are the same text.
//
// Levelled out: white space, letter case of words, brackets, redundant parentheses, table aliases, a
// qualifier that could be left out, operands of AND and OR in another order, sides of a comparison exchanged,
// NOT before a predicate, and a condition compared with True or False. Everything else counts, literals to
// the letter, and of the parameters written "?" also which one it is, for their values are given by place.
// Nested selects are compared token by token.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "analyse/statement_scope.h"

namespace tessel::analyse {

class Canonical {
public:
    explicit Canonical(const StatementScope& scope);

    [[nodiscard]] std::wstring Expression(sql::NodeId id) const;
    /// How a table is written, by its index: by its own name, or by its alias too where the name does not
    /// tell it from another.
    [[nodiscard]] const std::wstring& Table(int table) const {
        return table_marks_[static_cast<std::size_t>(table)];
    }
    /// The form of "t.*" for a table by its index.
    [[nodiscard]] std::wstring AllFields(int table) const;
    /// As Expression, for a place where only the truth of the value counts: b and b <> False are the same.
    [[nodiscard]] std::wstring Condition(sql::NodeId id) const;
    /// The conditions that must all hold, nothing for kNoNode.
    [[nodiscard]] std::set<std::wstring> Conjuncts(sql::NodeId id) const;
    /// The same as nodes without their parentheses. Jet's AND works on the bits of numbers, so that it is
    /// taken apart only when all operands but one are truth values.
    [[nodiscard]] std::vector<sql::NodeId> ConjunctNodes(sql::NodeId id) const;

    /// True when the value can only be a truth value: a predicate, connectives of such values, or a field
    /// that the schema says is boolean.
    [[nodiscard]] bool IsTruthValue(sql::NodeId id) const;

private:
    void Append(sql::NodeId id, std::wstring& out) const;
    void AppendChildren(sql::NodeId id, std::wstring_view head, std::wstring& out) const;
    void AppendName(sql::NodeId id, std::wstring& out) const;
    void AppendCompare(sql::NodeId id, bool negated, std::wstring& out) const;
    void AppendLogical(sql::NodeId id, std::wstring& out) const;
    void AppendNot(sql::NodeId id, std::wstring& out) const;
    void AppendTested(sql::NodeId id, bool negated, std::wstring& out) const;
    void AppendTokens(TextRange range, std::wstring& out) const;
    void AppendTruth(sql::NodeId id, bool negated, std::wstring& out) const;
    bool IsTruthTest(sql::NodeId id, sql::NodeId& tested, bool& negated) const;

    const StatementScope& scope_;
    const sql::Statement& statement_;
    std::vector<std::wstring> table_marks_;
    std::vector<std::size_t> places_;  ///< offsets of the parameters "?" in the source
};

}  // namespace tessel::analyse
