#include "tests/laws/same_rows.h"

#include <algorithm>
#include <sstream>

#include "analyse/analyse_sql.h"
#include "common/identifiers.h"
#include "common/text.h"
#include "compose/compose.h"

namespace tessel::laws {

namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr int kMostShrinkSteps = 60;

Rows Sorted(Rows rows) {
    std::ranges::sort(rows);
    return rows;
}

std::string Print(const RowSet& result) {
    if (!result.prepared) return "  error: " + result.error + "\n";
    std::string text = " ";
    for (const std::string& name : result.names) text += " [" + name + "]";
    text += '\n';
    for (const auto& row : result.rows) {
        text += " ";
        for (const std::string& value : row) text += " " + value + " |";
        text += '\n';
    }
    return text;
}

/// Whether `rows` are in the order that the keyed rows have: each run of rows with equal keys stands in its
/// place.
bool InOrder(const Rows& keyed, std::size_t keys, const Rows& rows) {
    if (keyed.size() != rows.size()) return false;
    const auto key_of = [&](std::size_t index) {
        return std::vector<std::string>(keyed[index].end() - static_cast<std::ptrdiff_t>(keys),
                                        keyed[index].end());
    };
    for (std::size_t begin = 0; begin < rows.size();) {
        std::size_t end = begin + 1;
        while (end < rows.size() && key_of(end) == key_of(begin)) ++end;
        Rows expected;
        for (std::size_t index = begin; index < end; ++index) {
            expected.emplace_back(keyed[index].begin(),
                                  keyed[index].end() - static_cast<std::ptrdiff_t>(keys));
        }
        const Rows found(rows.begin() + static_cast<std::ptrdiff_t>(begin),
                         rows.begin() + static_cast<std::ptrdiff_t>(end));
        if (Sorted(expected) != Sorted(found)) return false;
        begin = end;
    }
    return true;
}

bool NamesStay(const StatementParts& statement, const RowSet& before, const RowSet& after) {
    const bool star = std::ranges::any_of(statement.select, [](const SelectPart& item) {
        return item.text == L"*" || item.text.ends_with(L".*");
    });
    for (std::size_t index = 0; index < statement.select.size() && !star; ++index) {
        if (!statement.select[index].alias.empty() && before.names[index] != after.names[index]) return false;
    }
    return true;
}

std::string Difference(const StatementParts& statement, const std::wstring& composed, Engine& engine,
                       bool& prepared) {
    const RowSet before = engine.Query(TextOf(statement));
    const RowSet after = engine.Query(composed);
    prepared = before.prepared;
    const auto report = [&](const char* what) {
        return std::string(what) + "\nthe statement gives\n" + Print(before) + "the design gives\n" +
               Print(after);
    };
    // MariaDB does not know a grouped expression in HAVING; there is nothing to compare then.
    if (!before.prepared) return {};
    if (!after.prepared) return report("only one of the two is a valid statement");
    if (before.names.size() != after.names.size()) return report("the number of columns differs");
    if (Sorted(before.rows) != Sorted(after.rows)) return report("the rows differ");
    if (!NamesStay(statement, before, after)) return report("a column's name differs");
    if (statement.order.empty() || !statement.order_known || !statement.distinct.empty()) return {};
    const RowSet keyed = engine.Query(TextWithSortKeys(statement));
    if (keyed.prepared && !InOrder(keyed.rows, statement.order.size(), after.rows)) {
        return report("the order differs");
    }
    return {};
}

const char* NameOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::NotParsed:
            return "not parsed";
        case Verdict::Refused:
            return "refused";
        case Verdict::WithMessage:
            return "accepted with a message";
        case Verdict::NeitherPrepared:
            return "accepted, invalid before and after";
        case Verdict::Same:
            return "accepted, same rows";
        case Verdict::Different:
            return "accepted, DIFFERENT";
    }
    return "";
}

}  // namespace

Judgement Judge(const StatementParts& statement, const schema::Schema* schema, Engine& engine) {
    Judgement judgement;
    model::Design design;
    design.diagram.Bind(schema);
    const analyse::Analysis analysis = analyse::AnalyseSQL(TextOf(statement), design);
    if (analysis.error) judgement.reason = analysis.error->message;
    if (!analysis.accepted) {
        judgement.verdict = analysis.parsed ? Verdict::Refused : Verdict::NotParsed;
        return judgement;
    }
    if (!analysis.messages.empty()) {
        judgement.verdict = Verdict::WithMessage;
        return judgement;
    }
    judgement.composed = compose::BuildSQL(design);
    bool prepared = false;
    judgement.difference = Difference(statement, judgement.composed, engine, prepared);
    judgement.verdict = !judgement.difference.empty() ? Verdict::Different
                        : prepared                    ? Verdict::Same
                                                      : Verdict::NeitherPrepared;
    return judgement;
}

StatementParts Shrunk(StatementParts statement, const schema::Schema* schema, Engine& engine) {
    for (int step = 0; step < kMostShrinkSteps; ++step) {
        const std::vector<StatementParts> simpler = Simpler(statement);
        const auto found = std::ranges::find_if(simpler, [&](const StatementParts& candidate) {
            return Judge(candidate, schema, engine).verdict == Verdict::Different;
        });
        if (found == simpler.end()) break;
        statement = *found;
    }
    return statement;
}

void Tally::Add(const StatementParts& statement, const Judgement& judgement) {
    ++verdicts[judgement.verdict];
    if (judgement.reason.empty()) return;
    Reason& reason = reasons[judgement.reason];
    ++reason.count;
    std::wstring text = TextOf(statement);
    if (reason.shortest.empty() || text.size() < reason.shortest.size()) reason.shortest = std::move(text);
}

std::string Tally::Report() const {
    std::ostringstream text;
    for (const auto& [verdict, count] : verdicts) text << "  " << NameOf(verdict) << ": " << count << '\n';
    std::vector<std::pair<std::wstring, Reason>> ordered(reasons.begin(), reasons.end());
    std::ranges::sort(ordered, std::greater<>(), [](const auto& entry) { return entry.second.count; });
    for (const auto& [sentence, reason] : ordered) {
        text << "    " << reason.count << "  " << ToUtf8(sentence) << "\n      " << ToUtf8(reason.shortest)
             << '\n';
    }
    return text.str();
}

}  // namespace tessel::laws
