// What is to be said about a statement's text while it is being written: the errors of the parser, or the
// reason why the design cannot show a text that has none. Marks, the line under the editor and F8 show it,
// and lblNo tells the reason of the text that was refused.
//
// A text without errors that no design can show is no mistake of the user's: it is told apart everywhere.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/diagnostic.h"
#include "schema/schema.h"

namespace tessel::ui {

/// Characters up to which a text is analysed, and up to which it is parsed, when typing pauses. A longer one
/// is analysed when the user goes to the design, as ever.
inline constexpr std::size_t kMostAnalysedWhileTyping = 65'536;
inline constexpr std::size_t kMostParsedWhileTyping = 2'097'152;

struct TextCheck {
    enum class Kind {
        Nothing,        ///< an empty text, or one that the design can show
        Errors,         ///< `places` are the parser's errors, in the order of the text
        NotShown,       ///< right, but the design cannot show what stands at the one place
        NotShownWhole,  ///< the design would show it without the clause at the one place
        TooLong,        ///< not looked at
    };
    Kind kind = Kind::Nothing;
    std::vector<Diagnostic> places;
};

/// Checks the text as the design tab of a window with that schema would take it. `schema` may be nullptr.
/// Nothing of the window's own design is touched.
[[nodiscard]] TextCheck CheckText(std::wstring_view text, const schema::Schema* schema);

/// The stretch to mark for a place: never empty unless the text is, since the place of something missing is
/// between two characters or at the end; the word before it is marked then. Cut to the text.
[[nodiscard]] TextRange MarkedRange(std::wstring_view text, TextRange range);

/// Which place F8 goes to from a selection, such as it leaves itself: the next one of the text (backwards,
/// the one before), round the end. Nothing when there are none.
[[nodiscard]] std::optional<std::size_t> NextPlace(const TextCheck& check, TextRange selection,
                                                   bool backwards);
/// The place that the line tells when the caret is there: the one under it, else the first.
[[nodiscard]] std::size_t PlaceAt(const TextCheck& check, std::size_t caret);

/// The line under the editor about one of the places; empty when there is nothing to say.
[[nodiscard]] std::wstring CheckLine(const TextCheck& check, std::size_t place);
/// What a tip over a marked place says, in lines of moderate length.
[[nodiscard]] std::wstring PlaceTip(const TextCheck& check, std::size_t place);

/// What lblNo says below its fixed text: the reason with line and column, and the beginning of the construct.
/// `is_error` tells an error of the text from one that the design cannot show.
[[nodiscard]] std::wstring ReasonText(std::wstring_view text, const Diagnostic& reason, bool is_error);

}  // namespace tessel::ui
