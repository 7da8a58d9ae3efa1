#include "controls/editor/completion_words.h"

namespace tessel::controls {

namespace {

using sql::Keyword;

constexpr std::wstring_view kBy[] = {L"BY"};
constexpr std::wstring_view kJoin[] = {L"JOIN"};
constexpr std::wstring_view kOuterJoin[] = {L"JOIN", L"OUTER JOIN"};
constexpr std::wstring_view kNull[] = {L"NULL", L"NOT NULL"};
constexpr std::wstring_view kNegated[] = {L"LIKE", L"IN", L"BETWEEN", L"EXISTS"};
constexpr std::wstring_view kOperand[] = {L"SELECT", L"ALL"};

}  // namespace

Phrases SecondWords(Keyword first) {
    switch (first) {
        case Keyword::Group:
        case Keyword::Order:
            return kBy;
        case Keyword::Inner:
        case Keyword::Cross:
        case Keyword::Natural:
        case Keyword::Outer:
            return kJoin;
        case Keyword::Left:
        case Keyword::Right:
        case Keyword::Full:
            return kOuterJoin;
        case Keyword::Is:
            return kNull;
        case Keyword::Not:
            return kNegated;
        case Keyword::Union:
            return kOperand;
        default:
            return {};
    }
}

Phrases FirstWordsAfter(OutlineClause clause) {
    static constexpr std::wstring_view kSelect[] = {L"FROM", L"AS"};
    static constexpr std::wstring_view kJoins[] = {L"INNER JOIN", L"LEFT JOIN", L"RIGHT JOIN", L"WHERE",
                                                   L"AS"};
    static constexpr std::wstring_view kOn[] = {L"INNER JOIN", L"LEFT JOIN", L"RIGHT JOIN", L"AND", L"WHERE"};
    static constexpr std::wstring_view kOrder[] = {L"DESC", L"ASC"};
    switch (clause) {
        case OutlineClause::Select:
            return kSelect;
        case OutlineClause::From:
            return kJoins;
        case OutlineClause::On:
            return kOn;
        case OutlineClause::OrderBy:
            return kOrder;
        default:
            return {};
    }
}

Phrases ClausesAfter(OutlineClause clause) {
    static constexpr std::wstring_view kSelect[] = {L"INTO"};
    static constexpr std::wstring_view kFrom[] = {L"GROUP BY",  L"HAVING",    L"ORDER BY",  L"UNION",
                                                  L"UNION ALL", L"FULL JOIN", L"CROSS JOIN"};
    static constexpr std::wstring_view kInto[] = {L"FROM"};
    static constexpr std::wstring_view kWhere[] = {L"GROUP BY", L"HAVING", L"ORDER BY", L"UNION",
                                                   L"UNION ALL"};
    static constexpr std::wstring_view kGroup[] = {L"HAVING", L"ORDER BY", L"UNION", L"UNION ALL"};
    static constexpr std::wstring_view kHaving[] = {L"ORDER BY", L"UNION", L"UNION ALL"};
    static constexpr std::wstring_view kOrder[] = {L"LIMIT"};
    switch (clause) {
        case OutlineClause::Select:
            return kSelect;
        case OutlineClause::From:
        case OutlineClause::On:
            return kFrom;
        case OutlineClause::Other:
            return kInto;
        case OutlineClause::Where:
            return kWhere;
        case OutlineClause::GroupBy:
            return kGroup;
        case OutlineClause::Having:
            return kHaving;
        case OutlineClause::OrderBy:
            return kOrder;
        default:
            return {};
    }
}

}  // namespace tessel::controls
