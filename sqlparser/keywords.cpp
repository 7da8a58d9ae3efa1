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

constexpr std::size_t kTableSize = 512;
constexpr std::size_t kLongest = 11;

constexpr wchar_t Upper(wchar_t ch) {
    return ch >= L'a' && ch <= L'z' ? static_cast<wchar_t>(ch - 32) : ch;
}

// Length, first, second and last letter tell most of the words apart; collisions go to the next slot.
constexpr std::size_t Slot(const wchar_t* text, std::size_t length) {
    const auto letter = [](wchar_t ch) { return static_cast<std::uint32_t>(ch) & 31u; };
    return (letter(text[0]) * 7 + letter(text[1 % length]) * 37 + letter(text[length - 1]) * 101 +
            length * 61) %
           kTableSize;
}

consteval std::array<std::uint8_t, kTableSize> MakeTable() {
    std::array<std::uint8_t, kTableSize> table{};
    std::uint8_t number = 0;
    for (const Entry& entry : kEntries) {
        std::size_t slot = Slot(entry.text.data(), entry.text.size());
        while (table[slot] != 0) slot = (slot + 1) % kTableSize;
        table[slot] = ++number;
    }
    return table;
}

constexpr std::array<std::uint8_t, kTableSize> kTable = MakeTable();

bool Same(const Entry& entry, const wchar_t* text, std::size_t length) {
    if (entry.text.size() != length) return false;
    for (std::size_t i = 0; i < length; ++i) {
        if (entry.text[i] != Upper(text[i])) return false;
    }
    return true;
}

}  // namespace

Keyword FindKeyword(const wchar_t* text, std::size_t length) {
    if (length == 0 || length > kLongest) return Keyword::None;
    for (std::size_t slot = Slot(text, length); kTable[slot] != 0; slot = (slot + 1) % kTableSize) {
        const Entry& entry = kEntries[kTable[slot] - 1];
        if (Same(entry, text, length)) return entry.keyword;
    }
    return Keyword::None;
}

std::wstring_view KeywordText(Keyword keyword) {
    for (const Entry& entry : kEntries) {
        if (entry.keyword == keyword) return entry.text;
    }
    return {};
}

}  // namespace tessel::sql
