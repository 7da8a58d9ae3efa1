// The analysis with its faithfulness check, and SQLite as a witness that knows nothing of it.
#include <algorithm>
#include <array>

#include "analyse/analyse_sql.h"
#include "sqlparser/lexer.h"
#include "sqlparser/sql_parser.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/sample_database.h"
#include "tests/laws/expression_pairs.h"
#include "tests/laws/reading.h"
#include "tests/laws/side_by_side.h"
#include "tests/laws/sqlite_engine.h"

using namespace tessel;
using fuzz::Check;

namespace {

laws::SqliteEngine& Witness() {
    static laws::SqliteEngine engine;
    static const bool loaded = (engine.Load(fuzz::SampleDatabase().Script()), true);
    static_cast<void>(loaded);
    return engine;
}

/// Words whose results are SQLite's own affair: they differ from call to call, or from one plan to the other.
bool RowsAreDecided(std::wstring_view text) {
    static constexpr std::array<std::wstring_view, 14> kUndecided = {
        L"random", L"now",   L"current", L"changes", L"rowid", L"oid", L"group",
        L"avg",    L"count", L"sum",     L"total",   L"min",   L"max", L"date"};
    sql::Lexer lexer(text);
    for (sql::Token token = lexer.NextSignificant(); token.kind != sql::TokenKind::End;
         token = lexer.NextSignificant()) {
        const std::wstring word = Lower(text.substr(token.begin, token.length));
        for (const std::wstring_view undecided : kUndecided)
            if (word.find(undecided) != std::wstring::npos) return false;
    }
    return true;
}

void BothGiveTheSameRows(const std::wstring& text, const std::wstring& composed) {
    laws::RowSet original = Witness().Query(text);
    laws::RowSet designed = Witness().Query(composed);
    // Rows are not asked for where fetching the first already fails (an overflow, a malformed pattern).
    Check(original.prepared == designed.prepared, "both are prepared or neither", text, composed);
    if (!original.prepared || !RowsAreDecided(text)) return;
    std::ranges::sort(original.rows);
    std::ranges::sort(designed.rows);
    Check(original.rows == designed.rows, "both give the same rows", text, composed);
}

// Of the composed text, and of what a careless hand might have made of it.
void NothingUnfoundedIsTaken(const std::wstring& text, const std::wstring& composed,
                             const schema::Schema* schema) {
    laws::Random random(text.size() * 1021 + composed.size());
    std::wstring other = composed;
    for (int spoilt = 0; spoilt < 4; ++spoilt, other = laws::Spoilt(composed, random)) {
        const std::string wrong = laws::UnfoundedReading(text, other, schema);
        Check(wrong.empty(), wrong.c_str());
    }
}

void Look(const std::wstring& text, const schema::Schema* schema) {
    const std::string misjudged = laws::MisjudgedPair(text, schema);
    Check(misjudged.empty(), misjudged.c_str());
    const laws::Reading reading = laws::Read(text, schema);
    const analyse::Analysis& analysis = reading.analysis;
    if (!analysis.accepted) {
        Check(analysis.error.has_value(), "a refusal says why", text);
        Check(analysis.error->range.End() <= text.size(), "the refused place lies in the text", text);
        return;
    }
    Check(analysis.parsed, "what is accepted was parsed", text);
    if (!analysis.messages.empty()) return;
    NothingUnfoundedIsTaken(text, reading.composed, schema);
    const std::string instability = laws::Instability(reading, schema);
    Check(instability.empty(), instability.c_str(), text, reading.composed);
    // Without the schema a bare name's table is a guess, which other fields of the table may prove wrong.
    if (schema) BothGiveTheSameRows(text, reading.composed);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = fuzz::InputText(data, size);
    Look(text, &fuzz::SampleSchema());
    Look(text, nullptr);
    return 0;
}
