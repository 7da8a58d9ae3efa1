// The law of the rows: a statement that the analysis accepts without a message, and the statement composed
// from its design, give the same rows. Rows are compared as multisets; where ORDER BY decides, as lists in
// which rows of equal sort keys may stand in any order. Names that the statement gives to its columns stay.
#pragma once

#include <map>
#include <string>

#include "schema/schema.h"
#include "tests/laws/engine.h"
#include "tests/laws/statement_parts.h"

namespace tessel::laws {

enum class Verdict { NotParsed, Refused, WithMessage, NeitherPrepared, Same, Different };

struct Judgement {
    Verdict verdict = Verdict::NotParsed;
    std::wstring reason;     ///< of a refusal
    std::wstring composed;   ///< the design's statement
    std::string difference;  ///< what differs, with both results
};

/// Analyses, composes and compares. `schema` may be nullptr: the analysis then knows no fields.
[[nodiscard]] Judgement Judge(const StatementParts& statement, const schema::Schema* schema, Engine& engine);

/// The simplest statement found that still gives different rows.
[[nodiscard]] StatementParts Shrunk(StatementParts statement, const schema::Schema* schema, Engine& engine);

/// What became of the statements of a run.
struct Tally {
    std::map<Verdict, int> verdicts;
    struct Reason {
        int count = 0;
        std::wstring shortest;  ///< a statement refused for it
    };
    std::map<std::wstring, Reason> reasons;

    void Add(const StatementParts& statement, const Judgement& judgement);
    std::string Report() const;
};

}  // namespace tessel::laws
