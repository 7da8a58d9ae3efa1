// What could be written at the caret: tables where a table can stand, the fields of a table after its point,
// fields, functions and words in an expression, macros after "@". The statement may be unfinished or wrong
// (statement_outline.h); the list is then what its words suggest.
//
// Names are inserted as statements need them: in brackets where they must be, and qualified where more than
// one table of FROM has the field. Words of the language are inserted in capitals, or in small letters for
// somebody who types them small. After ON the foreign keys between the joined tables come first.
//
// The list comes whole, in the order in which it is to be shown; Matching narrows it to what was typed, so
// that the editor asks once and narrows with every key.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "common/diagnostic.h"
#include "controls/editor/sql_colouring.h"
#include "schema/schema.h"

namespace tessel::controls {

enum class CompletionKind { Relation, Field, Alias, Table, View, Function, Keyword, Macro, Parameter };

struct Candidate {
    CompletionKind kind = CompletionKind::Keyword;
    std::wstring text;    ///< what is shown and inserted
    std::wstring search;  ///< what is compared with the typed text, as SearchForm makes it
};

struct Completion {
    TextRange replaced;  ///< what a candidate takes the place of
    std::wstring typed;  ///< its part before the caret
    std::vector<Candidate> candidates;
};

/// The names that can be completed beside those of the statement itself. Nothing is owned.
struct CompletionNames {
    const schema::Schema* schema = nullptr;  ///< may be nullptr
    std::vector<std::wstring> macros;        ///< without "@"
    std::vector<std::wstring> parameters;    ///< the host's, without "@"
    const SqlWords* words = nullptr;         ///< further functions; may be nullptr
};

/// Without candidates where nothing can be completed: inside strings, comments, dates and numbers.
[[nodiscard]] Completion Complete(std::wstring_view text, std::size_t caret, const CompletionNames& names);

/// Indexes of the candidates that match what was typed, best first: those that begin with it, those in which
/// a word does, those that hold it. Letter case, accents and brackets do not count. All of them for an empty
/// text.
[[nodiscard]] std::vector<std::size_t> Matching(const std::vector<Candidate>& candidates,
                                                std::wstring_view typed);

/// A candidate's text as it is inserted for somebody who typed that: a word of the language follows the
/// letter case.
[[nodiscard]] std::wstring InsertedText(const Candidate& candidate, std::wstring_view typed);

/// Lower case, without accents and without the marks that names begin and end with.
[[nodiscard]] std::wstring SearchForm(std::wstring_view text);

}  // namespace tessel::controls
