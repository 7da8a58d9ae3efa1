// Expressions and conditions as forms (forms.h) that are the same for two texts of the same meaning.
//
// Levelled out: white space, letter case of words, brackets, redundant parentheses, table aliases, a
// qualifier that could be left out, operands of AND and OR in another order, sides of a comparison exchanged,
// NOT before a predicate, and a condition compared with True or False. Everything else counts, literals to
// the letter, and of the parameters written "?" also which one it is, for their values are given by place.
// Nested selects are compared token by token.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "analyse/forms.h"
#include "analyse/statement_scope.h"

namespace tessel::analyse {

/// Forms of which only the membership counts, sorted and without repetitions.
using FormSet = std::vector<Form>;
/// Brings a list of forms into that shape.
void MakeSet(FormSet& forms);
[[nodiscard]] bool Holds(const FormSet& set, Form form);

class Canonical {
public:
    explicit Canonical(const StatementScope& scope);

    [[nodiscard]] Form Expression(sql::NodeId id) const;
    /// A table by its index: by its own name, or by its alias too where the name does not tell it from
    /// another.
    [[nodiscard]] Form Table(int table) const { return tables_[static_cast<std::size_t>(table)]; }
    /// The form of "t.*" for a table by its index.
    [[nodiscard]] Form AllFields(int table) const;
    /// As Expression, for a place where only the truth of the value counts: b and b <> False are the same.
    [[nodiscard]] Form Condition(sql::NodeId id) const;
    /// The conditions that must all hold, nothing for kNoNode.
    [[nodiscard]] FormSet Conjuncts(sql::NodeId id) const;
    /// The same as nodes without their parentheses. Jet's AND works on the bits of numbers, so that it is
    /// taken apart only when all operands but one are truth values.
    [[nodiscard]] std::vector<sql::NodeId> ConjunctNodes(sql::NodeId id) const;

    /// Whether Expression, or Condition, answers the same for both. Forms are made only where a look at the
    /// nodes does not tell.
    [[nodiscard]] bool HaveSameForm(sql::NodeId one, sql::NodeId other) const;
    [[nodiscard]] bool HaveSameTruth(sql::NodeId one, sql::NodeId other) const;
    /// True when a quick look tells that the expressions have different forms, and likewise their truths.
    /// False says nothing.
    [[nodiscard]] bool AreUnlike(sql::NodeId one, sql::NodeId other) const;

    /// True when the value can only be a truth value: a predicate, connectives of such values, or a field
    /// that the schema says is boolean.
    [[nodiscard]] bool IsTruthValue(sql::NodeId id) const;

private:
    Form Make(sql::NodeId id) const;
    Form MakeLiteral(const sql::Node& node) const;
    Form MakeChildren(sql::NodeId id, std::uint32_t head) const;
    Form MakeName(sql::NodeId id) const;
    Form MakeCompare(sql::NodeId id, bool negated) const;
    Form MakeLogical(sql::NodeId id) const;
    Form MakeNot(sql::NodeId id) const;
    Form MakeCall(sql::NodeId id) const;
    Form MakeTested(sql::NodeId id, bool negated) const;
    Form MakeTokens(TextRange range) const;
    Form MakeTruth(sql::NodeId id, bool negated) const;
    bool HaveSameText(sql::NodeId one, sql::NodeId other) const;
    bool KeepsItsKind(const sql::Node& node) const;
    bool HaveUnlikeLastParts(const sql::Node& one, const sql::Node& other) const;
    bool HaveUnlikeParts(sql::NodeId one, sql::NodeId other) const;
    bool IsTruthTest(sql::NodeId id, sql::NodeId& tested, bool& negated) const;
    bool IsTruthFunction(const sql::Node& call) const;
    bool MayBeText(sql::NodeId id) const;
    bool CallMayBeText(const sql::Node& call) const;
    const std::vector<std::wstring>& TableMarks() const;

    const StatementScope& scope_;
    const sql::Statement& statement_;
    Forms& forms_;
    std::vector<Form> tables_;
    std::vector<std::size_t> places_;  ///< offsets of the parameters "?" in the source
    /// What Expression answered, by node, as long as TableOfName answers the same; made when first asked.
    mutable std::vector<Form> expressions_;
    mutable int settled_ = 0;
    mutable std::vector<std::wstring> table_marks_;  ///< the tables in the text of tokens, made when needed
    mutable std::wstring scratch_;
};

}  // namespace tessel::analyse
