#include "sqlparser/keywords.h"

#include <array>

namespace tessel::sql {
namespace {

struct Entry {
    std::wstring_view text;
    Keyword keyword = Keyword::None;
};

constexpr Entry kEntries[] = {
    {L"SELECT", Keyword::Select},
    {L"FROM", Keyword::From},
    {L"WHERE", Keyword::Where},
    {L"GROUP", Keyword::Group},
    {L"HAVING", Keyword::Having},
    {L"ORDER", Keyword::Order},
    {L"BY", Keyword::By},
    {L"AS", Keyword::As},
    {L"ON", Keyword::On},
    {L"AND", Keyword::And},
    {L"OR", Keyword::Or},
    {L"NOT", Keyword::Not},
    {L"XOR", Keyword::Xor},
    {L"EQV", Keyword::Eqv},
    {L"IMP", Keyword::Imp},
    {L"MOD", Keyword::Mod},
    {L"LIKE", Keyword::Like},
    {L"ALIKE", Keyword::ALike},
    {L"IS", Keyword::Is},
    {L"IN", Keyword::In},
    {L"BETWEEN", Keyword::Between},
    {L"CASE", Keyword::Case},
    {L"WHEN", Keyword::When},
    {L"THEN", Keyword::Then},
    {L"ELSE", Keyword::Else},
    {L"END", Keyword::End},
    {L"INNER", Keyword::Inner},
    {L"JOIN", Keyword::Join},
    {L"UNION", Keyword::Union},
    {L"INTERSECT", Keyword::Intersect},
    {L"EXCEPT", Keyword::Except},
    {L"DISTINCT", Keyword::Distinct},
    {L"DISTINCTROW", Keyword::DistinctRow},
    {L"ALL", Keyword::All},
    {L"WITH", Keyword::With},
    {L"INTO", Keyword::Into},
    {L"ASC", Keyword::Asc},
    {L"DESC", Keyword::Desc},
    {L"LEFT", Keyword::Left},
    {L"RIGHT", Keyword::Right},
    {L"NULL", Keyword::Null},
    {L"TRUE", Keyword::True},
    {L"FALSE", Keyword::False},
    {L"ANY", Keyword::Any},
    {L"SOME", Keyword::Some},
    {L"EXISTS", Keyword::Exists},
    {L"FULL", Keyword::Full},
    {L"CROSS", Keyword::Cross},
    {L"NATURAL", Keyword::Natural},
    {L"OUTER", Keyword::Outer},
    {L"USING", Keyword::Using},
    {L"TOP", Keyword::Top},
    {L"PERCENT", Keyword::Percent},
    {L"TIES", Keyword::Ties},
    {L"OWNERACCESS", Keyword::OwnerAccess},
    {L"OPTION", Keyword::Option},
    {L"LIMIT", Keyword::Limit},
    {L"OFFSET", Keyword::Offset},
    {L"FETCH", Keyword::Fetch},
    {L"FIRST", Keyword::First},
    {L"NEXT", Keyword::Next},
    {L"LAST", Keyword::Last},
    {L"FOR", Keyword::For},
    {L"ESCAPE", Keyword::Escape},
    {L"OVER", Keyword::Over},
    {L"CAST", Keyword::Cast},
    {L"TRY_CAST", Keyword::TryCast},
    {L"COLLATE", Keyword::Collate},
    {L"VALUES", Keyword::Values},
    {L"PARAMETERS", Keyword::Parameters},
    {L"RECURSIVE", Keyword::Recursive},
    {L"LATERAL", Keyword::Lateral},
    {L"APPLY", Keyword::Apply},
    {L"NULLS", Keyword::Nulls},
    {L"FILTER", Keyword::Filter},
    {L"WITHIN", Keyword::Within},
    {L"UPDATE", Keyword::Update},
    {L"XML", Keyword::Xml},
    {L"JSON", Keyword::Json},
    {L"SHARE", Keyword::Share},
    {L"BROWSE", Keyword::Browse},
    {L"READ", Keyword::Read},
    {L"DATE", Keyword::Date},
    {L"TIME", Keyword::Time},
    {L"TIMESTAMP", Keyword::Timestamp},
    {L"INTERVAL", Keyword::Interval},
    {L"N", Keyword::N},
    {L"SYMMETRIC", Keyword::Symmetric},
    {L"EXTRACT", Keyword::Extract},
    {L"TRIM", Keyword::Trim},
    {L"SUBSTRING", Keyword::Substring},
    {L"POSITION", Keyword::Position},
    {L"OVERLAY", Keyword::Overlay},
    {L"CONVERT", Keyword::Convert},
    {L"SEPARATOR", Keyword::Separator},
    {L"WINDOW", Keyword::Window},
    {L"ROLLUP", Keyword::Rollup},
    {L"TABLE", Keyword::Table},
    {L"TRANSFORM", Keyword::Transform},
    {L"PIVOT", Keyword::Pivot},
    {L"FN", Keyword::Fn},
    {L"OJ", Keyword::Oj},
    {L"BAND", Keyword::BitAnd},
    {L"BOR", Keyword::BitOr},
    {L"BXOR", Keyword::BitXor},
    {L"INSERT", Keyword::Insert},
    {L"DELETE", Keyword::Delete},
    {L"CREATE", Keyword::Create},
    {L"ALTER", Keyword::Alter},
    {L"DROP", Keyword::Drop},
    {L"EXEC", Keyword::Exec},
    {L"EXECUTE", Keyword::Execute},
    {L"CALL", Keyword::Call},
    {L"PROCEDURE", Keyword::Procedure},
};

constexpr unsigned kTableBits = 9;
constexpr std::size_t kTableSize = std::size_t{1} << kTableBits;

struct TableSlot {
    std::uint64_t key = 0;
    Keyword keyword = Keyword::None;
};

/// Fibonacci hashing: the upper bits of the product depend on all letters. Collisions go to the next slot.
constexpr std::size_t FirstSlot(std::uint64_t key) {
    return static_cast<std::size_t>(key * 0x9E3779B97F4A7C15u >> (64 - kTableBits));
}

consteval std::array<TableSlot, kTableSize> MakeTable() {
    std::array<TableSlot, kTableSize> table{};
    for (const Entry& entry : kEntries) {
        WordKey key;
        for (const wchar_t ch : entry.text) key.Add(ch);
        std::size_t slot = FirstSlot(key.Number());
        while (table[slot].key != 0) slot = (slot + 1) % kTableSize;
        table[slot] = {key.Number(), entry.keyword};
    }
    return table;
}

constexpr std::array<TableSlot, kTableSize> kTable = MakeTable();

constexpr bool IsLetter(wchar_t ch) {
    return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z') || ch == L'_';
}

}  // namespace

Keyword FindKeyword(WordKey key) {
    for (std::size_t slot = FirstSlot(key.Number());; slot = (slot + 1) % kTableSize) {
        const TableSlot& entry = kTable[slot];
        if (entry.key == key.Number() || entry.key == 0) return entry.keyword;
    }
}

Keyword FindKeyword(const wchar_t* text, std::size_t length) {
    if (length == 0 || length > WordKey::kLongest) return Keyword::None;
    WordKey key;
    for (std::size_t i = 0; i < length; ++i) {
        if (!IsLetter(text[i])) return Keyword::None;
        key.Add(text[i]);
    }
    return FindKeyword(key);
}

std::wstring_view KeywordText(Keyword keyword) {
    for (const Entry& entry : kEntries) {
        if (entry.keyword == keyword) return entry.text;
    }
    return {};
}

}  // namespace tessel::sql
