#include "ui/text_check.h"

#include <algorithm>

#include "analyse/analyse_sql.h"
#include "common/text.h"
#include "model/design.h"
#include "sqlparser/sql_parser.h"
#include "ui/text_check_texts.h"

namespace tessel::ui {

namespace {

constexpr std::size_t kMostOfConstruct = 60;  // characters of a construct that are told
constexpr std::size_t kTipWidth = 64;         // characters of a line of a tip

std::wstring Number(std::size_t value) {
    return std::to_wstring(value);
}

TextRange CutTo(std::wstring_view text, TextRange range) {
    const std::size_t offset = std::min(range.offset, text.size());
    return {offset, std::min(range.length, text.size() - offset)};
}

std::wstring PlaceOf(const Diagnostic& diagnostic) {
    return Number(diagnostic.line) + texts::kColumnPlace + Number(diagnostic.column);
}

/// The clause of a right statement that the design would leave out.
TextRange LeftOutRange(std::wstring_view text, std::wstring_view message) {
    sql::SqlParser parser;
    if (parser.Parse(text) || !parser.GetStatement()) return {};
    const sql::Statement& statement = *parser.GetStatement();
    return message == analyse::kHavingTooComplex ? statement.having_range : statement.where_range;
}

std::vector<Diagnostic> ErrorsOf(std::wstring_view text) {
    sql::SqlParser parser;
    if (!parser.Parse(text)) return {};
    std::vector<Diagnostic> errors = parser.Errors();
    for (Diagnostic& error : errors) error.range = CutTo(text, error.range);
    std::ranges::stable_sort(errors, {}, [](const Diagnostic& error) { return error.range.offset; });
    return errors;
}

TextCheck CheckDesign(std::wstring_view text, const schema::Schema* schema) {
    model::Design design;
    design.diagram.Bind(schema);
    design.grid.LoadColumns();
    const analyse::Analysis analysis = analyse::AnalyseSQL(text, design);
    if (!analysis.accepted) {
        if (!analysis.error) return {};
        Diagnostic reason = *analysis.error;
        reason.range = CutTo(text, reason.range);
        return {TextCheck::Kind::NotShown, {std::move(reason)}};
    }
    if (analysis.messages.empty()) return {};
    const std::wstring& message = analysis.messages.front();
    return {TextCheck::Kind::NotShownWhole,
            {MakeDiagnostic(text, LeftOutRange(text, message), message + L'.')}};
}

/// White space as single blanks, cut to a moderate length.
std::wstring Shortened(std::wstring_view construct) {
    std::wstring shown;
    for (const wchar_t ch : construct) {
        if (shown.size() > kMostOfConstruct) break;
        if (!IsWhiteSpace(ch)) {
            shown += ch;
        } else if (!shown.empty() && shown.back() != L' ') {
            shown += L' ';
        }
    }
    if (shown.size() <= kMostOfConstruct) return Trim(shown);
    return Trim(CutToUtf16(shown, kMostOfConstruct)) + L'…';
}

/// The text in lines that end between words.
std::wstring Wrapped(std::wstring_view text, std::size_t width) {
    std::wstring lines;
    std::size_t line_length = 0;
    for (const std::wstring& word : Split(text, L' ')) {
        if (!lines.empty()) {
            const bool fits = line_length + 1 + word.size() <= width;
            lines += fits ? L' ' : L'\n';
            line_length = fits ? line_length + 1 : 0;
        }
        lines += word;
        line_length += word.size();
    }
    return lines;
}

}  // namespace

TextCheck CheckText(std::wstring_view text, const schema::Schema* schema) {
    if (IsAllWhiteSpace(text)) return {};
    if (text.size() > kMostParsedWhileTyping) return {TextCheck::Kind::TooLong, {}};
    if (std::vector<Diagnostic> errors = ErrorsOf(text); !errors.empty())
        return {TextCheck::Kind::Errors, std::move(errors)};
    if (text.size() > kMostAnalysedWhileTyping) return {};
    return CheckDesign(text, schema);
}

TextRange MarkedRange(std::wstring_view text, TextRange range) {
    const auto [begin, length] = CutTo(text, range);
    const std::size_t end = begin + length;
    const auto has_ink = [text](std::size_t at) { return !IsWhiteSpace(text[at]); };
    for (std::size_t at = begin; at < end; ++at)
        if (has_ink(at)) return {begin, length};
    std::size_t word_end = begin;
    while (word_end > 0 && !has_ink(word_end - 1)) --word_end;
    std::size_t word = word_end;
    while (word > 0 && has_ink(word - 1)) --word;
    if (word < word_end) return {word, word_end - word};
    // Nothing before it: the word behind it.
    word = end;
    while (word < text.size() && !has_ink(word)) ++word;
    word_end = word;
    while (word_end < text.size() && has_ink(word_end)) ++word_end;
    return {word, word_end - word};
}

std::optional<std::size_t> NextPlace(const TextCheck& check, TextRange selection, bool backwards) {
    const std::size_t count = check.places.size();
    if (count == 0) return std::nullopt;
    // Several errors may lie at one place; the last of them is behind the others.
    std::size_t passed = 0;
    bool is_at_place = false;
    for (std::size_t i = 0; i < count; ++i) {
        const TextRange& range = check.places[i].range;
        if (range == selection) {
            if (backwards && !is_at_place) return (i + count - 1) % count;
            is_at_place = true;
            passed = i + 1;
        } else if (!is_at_place && range.offset < selection.offset) {
            passed = i + 1;
        }
    }
    return backwards ? (passed + count - 1) % count : passed % count;
}

std::size_t PlaceAt(const TextCheck& check, std::size_t caret) {
    for (std::size_t i = 0; i < check.places.size(); ++i) {
        const TextRange& range = check.places[i].range;
        if (caret >= range.offset && caret <= range.End()) return i;
    }
    return 0;
}

std::wstring CheckLine(const TextCheck& check, std::size_t place) {
    if (check.kind == TextCheck::Kind::TooLong) return texts::kTooLongToCheck;
    if (check.kind == TextCheck::Kind::Nothing || place >= check.places.size()) return {};
    const Diagnostic& diagnostic = check.places[place];
    if (check.kind != TextCheck::Kind::Errors) {
        const bool whole = check.kind == TextCheck::Kind::NotShown;
        return (whole ? texts::kNotShown : texts::kNotShownWhole) + PlaceOf(diagnostic) + texts::kPlaceEnd +
               diagnostic.message;
    }
    std::wstring line = texts::kErrorPlace + PlaceOf(diagnostic) + L": " + diagnostic.message;
    const std::size_t others = check.places.size() - 1;
    if (others == 1) line += texts::kOneMoreError;
    if (others > 1) line += texts::kMoreErrorsBefore + Number(others) + texts::kMoreErrorsAfter;
    return line;
}

std::wstring PlaceTip(const TextCheck& check, std::size_t place) {
    if (place >= check.places.size()) return {};
    const std::wstring& message = check.places[place].message;
    return Wrapped(check.kind == TextCheck::Kind::Errors ? message : CheckLine(check, place), kTipWidth);
}

std::wstring ReasonText(std::wstring_view text, const Diagnostic& reason, bool is_error) {
    std::wstring told = is_error ? texts::kReasonError : texts::kReasonNotShown;
    told += PlaceOf(reason) + L": " + reason.message;
    const TextRange range = MarkedRange(text, reason.range);
    const std::wstring construct = Shortened(text.substr(range.offset, range.length));
    if (!construct.empty()) told += L"\r\n" + (texts::kReasonInText + (L"«" + construct + L"»"));
    return told;
}

}  // namespace tessel::ui
