// Random statements over a random database, in the ways people write them: joins of every shape, aliases,
// names with and without their table, conditions of every kind, totals, sorting by expression, number or
// alias. Only totals queries whose columns are decided by their groups are made, so that every engine must
// give the same rows.
#pragma once

#include <string>
#include <vector>

#include "tests/laws/random_database.h"
#include "tests/laws/statement_parts.h"

namespace tessel::laws {

class RandomStatements {
public:
    RandomStatements(Random& random, const Database& database) : random_(random), database_(database) {}

    /// Without `bare_joins` the conditions of joins name their tables: what a bare name in them means is a
    /// guess for whoever does not know the tables' fields.
    [[nodiscard]] StatementParts Next(bool bare_joins);

private:
    /// A table in FROM and what the statement calls it.
    struct Source {
        const Table* table = nullptr;
        std::wstring name;
    };
    using Sources = std::vector<Source>;
    struct FieldRef {
        std::wstring text;
        FieldKind kind = FieldKind::Number;
    };

    // Names and values.
    FieldRef AnyField(const Sources& sources);
    /// A field of the kind, or an empty text when there is none.
    std::wstring FieldOf(const Sources& sources, FieldKind kind);
    std::wstring Name(const Source& source, const Field& field);
    std::wstring NumberValue(int depth);
    std::wstring Value(FieldKind kind, int depth);
    std::wstring Aggregate();
    std::wstring Alias();

    // FROM.
    void MakeFrom(StatementParts& statement);
    std::wstring TableAlias(const Table& table);
    FromPart Tree(std::size_t begin, std::size_t end);
    Condition On(const Sources& left, const Sources& right);
    std::wstring Equality(const Sources& left, const Sources& right);

    // Conditions.
    Condition Clause(bool having);
    Condition ConditionTree(int depth, bool having);
    Condition Predicate(bool having);
    std::wstring Comparison(bool having);
    std::wstring Test(const Sources& sources);
    std::wstring SubSelect();
    std::wstring Sign();
    std::wstring Pattern();

    // The other clauses.
    void MakeList(StatementParts& statement);
    void MakeTotals(StatementParts& statement);
    void MakeOrder(StatementParts& statement);
    void MakeTail(StatementParts& statement);

    Random& random_;
    const Database& database_;
    Sources sources_;
    std::vector<std::wstring> group_;
    std::vector<std::wstring> patterns_;  ///< of Like, still unused in this statement
    bool bare_names_ = false;             ///< this statement leaves out the table where it can
};

}  // namespace tessel::laws
