#include "tests/laws/expression_pairs.h"

#include <vector>

#include "analyse/canonical.h"
#include "common/text.h"
#include "sqlparser/sql_parser.h"

namespace tessel::laws {

namespace {

// Pairs are looked at in both ways round; of long statements the first expressions do.
constexpr std::size_t kMostExpressions = 60;

std::vector<sql::NodeId> ExpressionsOf(const sql::Statement& statement) {
    std::vector<sql::NodeId> expressions;
    for (sql::NodeId id = 0; id < statement.nodes.size() && expressions.size() < kMostExpressions; ++id) {
        switch (statement.At(id).kind) {
            case sql::NodeKind::Error:
            case sql::NodeKind::NamePart:
            case sql::NodeKind::Select:
            case sql::NodeKind::When:
            case sql::NodeKind::Omitted:
                break;
            default:
                expressions.push_back(id);
        }
    }
    return expressions;
}

}  // namespace

std::string MisjudgedPair(const std::wstring& text, const schema::Schema* schema) {
    sql::SqlParser parser;
    if (parser.Parse(text) || !parser.GetStatement()) return {};
    const sql::Statement& statement = *parser.GetStatement();
    analyse::Forms forms;
    const analyse::StatementScope scope(statement, schema, forms);
    const analyse::Canonical canonical(scope);
    const std::vector<sql::NodeId> expressions = ExpressionsOf(statement);
    for (const sql::NodeId one : expressions) {
        for (const sql::NodeId other : expressions) {
            const bool same_form = canonical.Expression(one) == canonical.Expression(other);
            const bool same_truth = canonical.Condition(one) == canonical.Condition(other);
            const char* wrong = nullptr;
            if (canonical.HaveSameForm(one, other) != same_form) wrong = "form";
            if (canonical.HaveSameTruth(one, other) != same_truth) wrong = "truth";
            if (canonical.AreUnlike(one, other) && (same_form || same_truth)) wrong = "unlikeness";
            if (!wrong) continue;
            return std::string(wrong) + " of\n" + ToUtf8(statement.Slice(statement.At(one).Range())) +
                   "\nand\n" + ToUtf8(statement.Slice(statement.At(other).Range())) + "\nin\n" + ToUtf8(text);
        }
    }
    return {};
}

}  // namespace tessel::laws
