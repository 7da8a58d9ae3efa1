#include "controls/editor/win32/editor_braces.h"

#include <algorithm>
#include <optional>

#include "controls/editor/brace_match.h"
#include "controls/editor/editor_text.h"
#include "controls/editor/win32/editor_looks.h"

namespace tessel::controls {

namespace {

/// How far a partner is looked for, in bytes: a key next to a parenthesis must not read a whole long text.
constexpr std::size_t kFarthest = 32 * 1024;

struct Braces {
    sptr_t at = 0;
    std::optional<sptr_t> partner;  ///< nothing when there is none
};

bool IsCode(const ScintillaCalls& editor, std::size_t position) {
    return editor.Send(SCI_GETSTYLEINDEXAT, position) == static_cast<sptr_t>(SqlStyle::Operator);
}

std::optional<Braces> BracketsAt(const ScintillaCalls& editor, sptr_t at) {
    const sptr_t line = editor.Send(SCI_LINEFROMPOSITION, static_cast<uptr_t>(at));
    const sptr_t begin = editor.Send(SCI_POSITIONFROMLINE, static_cast<uptr_t>(line));
    const sptr_t end = editor.Send(SCI_GETLINEENDPOSITION, static_cast<uptr_t>(line));
    if (static_cast<std::size_t>(end - begin) > kFarthest) return std::nullopt;
    sql::LexerState state;
    if (line > 0)
        state = UnpackState(static_cast<int>(editor.Send(SCI_GETLINESTATE, static_cast<uptr_t>(line - 1))));
    const std::string_view bytes = editor.Bytes(begin, end);
    const std::size_t unit = UnitsInBytes(bytes.substr(0, static_cast<std::size_t>(at - begin)));
    const auto name = BracketNameAt(FromEditorBytes(bytes), state, unit);
    if (!name) return std::nullopt;
    if (!name->is_closed) return Braces{at, std::nullopt};
    const std::size_t other = unit == name->range.offset ? name->range.End() - 1 : name->range.offset;
    return Braces{at, begin + static_cast<sptr_t>(BytesOfUnits(bytes, other))};
}

std::optional<Braces> BracesAt(const ScintillaCalls& editor, const SqlWords& words, sptr_t at) {
    const sptr_t length = editor.Send(SCI_GETLENGTH);
    if (at < 0 || at >= length) return std::nullopt;
    const char ch = static_cast<char>(editor.Send(SCI_GETCHARAT, static_cast<uptr_t>(at)));
    const bool is_bracket = ch == '[' || ch == ']';
    if (!is_bracket && !IsParenthesis(ch)) return std::nullopt;
    ColourUpTo(editor, words, std::min(length, at + 1));
    if (is_bracket) return BracketsAt(editor, at);
    if (!IsCode(editor, static_cast<std::size_t>(at))) return std::nullopt;
    if (ch == '(' || ch == '{')
        ColourUpTo(editor, words, std::min(length, at + static_cast<sptr_t>(kFarthest)));
    const Partner partner = FindPartner(editor.Bytes(), static_cast<std::size_t>(at), kFarthest,
                                        [&editor](std::size_t place) { return IsCode(editor, place); });
    switch (partner.result) {
        case PartnerSearch::Found:
            return Braces{at, static_cast<sptr_t>(partner.at)};
        case PartnerSearch::Missing:
            return Braces{at, std::nullopt};
        case PartnerSearch::TooFar:
            break;
    }
    return std::nullopt;
}

/// The parenthesis before the caret counts first, for it is the one that was just typed.
std::optional<Braces> BracesAtCaret(const ScintillaCalls& editor, const SqlWords& words) {
    const sptr_t caret = editor.Send(SCI_GETCURRENTPOS);
    if (const auto before = BracesAt(editor, words, caret - 1)) return before;
    return BracesAt(editor, words, caret);
}

}  // namespace

void ShowBraces(const ScintillaCalls& editor, const SqlWords& words) {
    const auto braces = BracesAtCaret(editor, words);
    if (!braces) {
        editor.Send(SCI_BRACEHIGHLIGHT, static_cast<uptr_t>(INVALID_POSITION), INVALID_POSITION);
    } else if (braces->partner) {
        editor.Send(SCI_BRACEHIGHLIGHT, static_cast<uptr_t>(braces->at), *braces->partner);
    } else {
        editor.Send(SCI_BRACEBADLIGHT, static_cast<uptr_t>(braces->at));
    }
}

// The caret lands on the outer side of the partner, so that the same key goes back to where it came from.
void GoToPartner(const ScintillaCalls& editor, const SqlWords& words, bool select) {
    const auto braces = BracesAtCaret(editor, words);
    if (!braces || !braces->partner) return;
    const sptr_t first = std::min(braces->at, *braces->partner);
    const sptr_t behind = std::max(braces->at, *braces->partner) + 1;
    const bool forward = braces->at == first;
    if (select) {
        editor.Send(SCI_SETSEL, static_cast<uptr_t>(forward ? first : behind), forward ? behind : first);
    } else {
        editor.Send(SCI_GOTOPOS, static_cast<uptr_t>(forward ? behind : first));
    }
    editor.Send(SCI_CHOOSECARETX);
}

}  // namespace tessel::controls
