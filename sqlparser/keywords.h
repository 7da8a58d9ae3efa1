// The words that mean something to the grammar. Few are reserved: a word is reserved when taking it for a
// name would make the text ambiguous; the others (TOP, LIMIT, YEAR…) are names unless they stand where only
// the clause can.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tessel::sql {

enum class Keyword : std::uint8_t {
    None,
    // Reserved: never a bare name or a bare alias.
    Select,
    From,
    Where,
    Group,
    Having,
    Order,
    By,
    As,
    On,
    And,
    Or,
    Not,
    Xor,
    Eqv,
    Imp,
    Mod,
    Like,
    ALike,
    Is,
    In,
    Between,
    Case,
    When,
    Then,
    Else,
    End,
    Inner,
    Join,
    Union,
    Intersect,
    Except,
    Distinct,
    DistinctRow,
    All,
    With,
    Into,
    Asc,
    Desc,
    Left,
    Right,
    Null,
    True,
    False,
    LastReserved = False,
    // Known by their place only.
    Any,
    Some,
    Exists,
    Full,
    Cross,
    Natural,
    Outer,
    Using,
    Top,
    Percent,
    Ties,
    OwnerAccess,
    Option,
    Limit,
    Offset,
    Fetch,
    First,
    Next,
    Last,
    For,
    Escape,
    Over,
    Cast,
    TryCast,
    Collate,
    Values,
    Parameters,
    Recursive,
    Lateral,
    Apply,
    Nulls,
    Filter,
    Within,
    Update,
    Xml,
    Json,
    Share,
    Browse,
    Read,
    Date,
    Time,
    Timestamp,
    Interval,
    N,
    Symmetric,
    Extract,
    Trim,
    Substring,
    Position,
    Overlay,
    Convert,
    Separator,
    Window,
    Rollup,
    Table,
    Transform,
    Pivot,
    Fn,
    Oj,
    BitAnd,
    BitOr,
    BitXor,
    Insert,
    Delete,
    Create,
    Alter,
    Drop,
    Exec,
    Execute,
    Call,
    Procedure,
};

/// The letters of a word, five bits each, collected while the word is read: letter case is gone, and a
/// keyword is found by comparing one number. Only letters and "_" have a place in it.
class WordKey {
public:
    static constexpr std::size_t kLongest = 11;

    constexpr void Add(wchar_t letter) {
        letters_ = letters_ << kBits | (static_cast<std::uint32_t>(letter) & kMask);
    }
    constexpr std::uint64_t Number() const { return letters_; }

private:
    static constexpr unsigned kBits = 5;
    static constexpr std::uint32_t kMask = 31;

    std::uint64_t letters_ = 0;
};

/// The keyword of those letters, at most WordKey::kLongest, or None.
[[nodiscard]] Keyword FindKeyword(WordKey key);

/// The keyword of a word in any letter case, or None.
[[nodiscard]] Keyword FindKeyword(const wchar_t* text, std::size_t length);

[[nodiscard]] constexpr bool IsReserved(Keyword keyword) {
    return keyword != Keyword::None && keyword <= Keyword::LastReserved;
}

/// Like, ALike, Is, In and Between: they follow an operand and make a condition of it.
[[nodiscard]] constexpr bool IsPredicateWord(Keyword keyword) {
    return keyword >= Keyword::Like && keyword <= Keyword::Between;
}

/// The keyword in capitals.
[[nodiscard]] std::wstring_view KeywordText(Keyword keyword);

}  // namespace tessel::sql
