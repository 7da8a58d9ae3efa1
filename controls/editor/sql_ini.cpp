#include "controls/editor/sql_ini.h"

#include <vector>

#include "common/text.h"

namespace tessel::controls {

namespace {

constexpr const wchar_t* kKeywords =
    L"ALIKE ALL AND ANY AS ASC BETWEEN BY CASE CROSS DESC DISTINCT DISTINCTROW ELSE END EQV EXCEPT EXISTS "
    L"FALSE FROM "
    L"FULL GROUP HAVING IMP IN INNER INTERSECT INTO IS JOIN LEFT LIKE LIMIT MOD NATURAL NOT NULL OFFSET ON "
    L"OPTION OR "
    L"ORDER OUTER OWNERACCESS PARAMETERS PERCENT RIGHT SELECT SOME THEN TIES TOP TRUE UNION USING WHEN WHERE "
    L"WITH XOR";

constexpr const wchar_t* kFunctions =
    L"ABS ASC ATN AVG CAST CBOOL CBYTE CCUR CDATE CDBL CHR CINT CLNG CONVERT COALESCE COS COUNT CSNG CSTR "
    L"CVAR DATE "
    L"DATEADD DATEDIFF DATEPART DATESERIAL DATEVALUE DAY EXP FIRST FIX FORMAT HOUR IIF INSTR INT ISDATE "
    L"ISNULL "
    L"ISNUMERIC LAST LCASE LEFT LEN LOG LOWER LTRIM MAX MID MIN MINUTE MONTH MONTHNAME NOW NULLIF NZ "
    L"PARTITION REPLACE "
    L"RIGHT RND ROUND RTRIM SECOND SGN SIN SPACE SQR STDEV STDEVP STR STRCOMP STRING SUBSTRING SUM SWITCH "
    L"TAN TIME "
    L"TIMESERIAL TIMEVALUE TRIM UCASE UPPER VAL VAR VARP WEEKDAY WEEKDAYNAME YEAR";

constexpr const wchar_t* kTypes =
    L"BIGINT BINARY BIT BOOLEAN CHAR CURRENCY DATETIME DECIMAL DOUBLE FLOAT GUID INTEGER LONGTEXT NCHAR "
    L"NUMERIC "
    L"NVARCHAR SMALLINT TIMESTAMP TINYINT UNIQUEIDENTIFIER VARBINARY VARCHAR YESNO";

/// Names of the styles in the file, by SqlStyle.
constexpr std::array<std::wstring_view, kSqlStyleCount> kStyleNames = {
    L"texto", L"palabra",    L"función",  L"tipo",  L"nombre",    L"cadena", L"número",
    L"fecha", L"comentario", L"operador", L"macro", L"parámetro", L"error",
};

std::wstring_view TrimWhite(std::wstring_view text) {
    while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
    return text;
}

std::wstring_view WithoutComment(std::wstring_view line) {
    for (std::size_t i = 0; i < line.size(); ++i)
        if (line[i] == L';' && (i == 0 || IsWhiteSpace(line[i - 1]))) return line.substr(0, i);
    return line;
}

std::optional<std::uint32_t> ColourOf(std::wstring_view text) {
    if (text.size() != 7 || text[0] != L'#') return std::nullopt;
    std::uint32_t value = 0;
    for (wchar_t ch : text.substr(1)) {
        const wchar_t low = LowerChar(ch);
        std::uint32_t digit = 0;
        if (low >= L'0' && low <= L'9') {
            digit = static_cast<std::uint32_t>(low - L'0');
        } else if (low >= L'a' && low <= L'f') {
            digit = static_cast<std::uint32_t>(low - L'a') + 10;
        } else {
            return std::nullopt;
        }
        value = value * 16 + digit;
    }
    return value;
}

/// The look that a value describes, or nothing when a part of it makes no sense. "auto" is the system's
/// colour.
std::optional<StyleLook> LookOf(std::wstring_view value) {
    StyleLook look;
    int colours = 0;
    for (const std::wstring& piece : Split(Lower(value), L' ')) {
        const std::wstring_view part = TrimWhite(piece);
        if (part.empty()) continue;
        const bool automatic = part == L"auto";
        const auto colour = ColourOf(part);
        if (automatic || colour) {
            if (++colours > 2) return std::nullopt;
            (colours == 1 ? look.colour : look.background) = colour;
        } else if (part == L"negrita") {
            look.bold = true;
        } else if (part == L"cursiva") {
            look.italic = true;
        } else if (part == L"subrayado") {
            look.underline = true;
        } else if (part != L"normal") {
            return std::nullopt;
        }
    }
    return look;
}

/// Applies the lines of one section to a definition.
class IniReader {
public:
    explicit IniReader(ColouringDefinition& definition) : definition_(definition) {}

    void Apply(std::wstring_view key, std::wstring_view value) {
        if (key == L"palabras") return ReplaceOrAdd(definition_.words.keywords, keywords_replaced_, value);
        if (key == L"funciones") return ReplaceOrAdd(definition_.words.functions, functions_replaced_, value);
        if (key == L"tipos") return ReplaceOrAdd(definition_.words.types, types_replaced_, value);
        if (key == L"letra") {
            if (!value.empty()) definition_.font = value;
            return;
        }
        if (key == L"tamaño") return ApplySize(value);
        constexpr std::wstring_view kPrefix = L"estilo.";
        if (key.starts_with(kPrefix)) ApplyStyle(key.substr(kPrefix.size()), value);
    }

private:
    // The first line of a list takes the place of the built-in list, the following ones add to it.
    static void ReplaceOrAdd(WordList& words, bool& replaced, std::wstring_view value) {
        if (!replaced) words = {};
        replaced = true;
        words.Add(value);
    }

    void ApplySize(std::wstring_view value) {
        constexpr int kLeast = 6;
        constexpr int kMost = 72;
        int points = 0;
        for (wchar_t ch : value) {
            if (ch < L'0' || ch > L'9' || points > kMost) return;
            points = points * 10 + (ch - L'0');
        }
        if (points >= kLeast && points <= kMost) definition_.points = points;
    }

    void ApplyStyle(std::wstring_view name, std::wstring_view value) {
        const std::optional<StyleLook> look = LookOf(value);
        if (!look) return;
        if (name == L"margen") definition_.margin = *look;
        if (name == L"pareja") definition_.pair = *look;
        if (name == L"sinpareja") definition_.no_pair = *look;
        for (std::size_t i = 0; i < kSqlStyleCount; ++i)
            if (name == kStyleNames[i]) definition_.looks[i] = *look;
    }

    ColouringDefinition& definition_;
    bool keywords_replaced_ = false;
    bool functions_replaced_ = false;
    bool types_replaced_ = false;
};

}  // namespace

ColouringDefinition BuiltInColouring() {
    ColouringDefinition definition;
    definition.words.keywords.Add(kKeywords);
    definition.words.functions.Add(kFunctions);
    definition.words.types.Add(kTypes);
    const auto set = [&definition](SqlStyle style, std::uint32_t colour, bool bold = false) {
        StyleLook& look = definition.looks[static_cast<std::size_t>(style)];
        look.colour = colour;
        look.bold = bold;
    };
    set(SqlStyle::Keyword, 0x0033B3, true);
    set(SqlStyle::Function, 0x00627A);
    set(SqlStyle::Type, 0x6A3E9E);
    set(SqlStyle::Name, 0x7A4E00);
    set(SqlStyle::String, 0xA31515);
    set(SqlStyle::Number, 0x087A50);
    set(SqlStyle::Date, 0xA34A00);
    set(SqlStyle::Comment, 0x5A7A5A);
    definition.looks[static_cast<std::size_t>(SqlStyle::Comment)].italic = true;
    set(SqlStyle::Operator, 0x505050);
    set(SqlStyle::Macro, 0x9B1FA8, true);
    set(SqlStyle::Parameter, 0x9B1FA8);
    set(SqlStyle::Error, 0xC00000);
    definition.looks[static_cast<std::size_t>(SqlStyle::Error)].underline = true;
    definition.margin.colour = 0x6E7681;
    definition.margin.background = 0xF3F4F6;
    definition.pair.colour = 0x0033B3;
    definition.pair.background = 0xCFE3FF;
    definition.pair.bold = true;
    definition.no_pair.colour = 0xC00000;
    definition.no_pair.background = 0xFFDCDC;
    definition.no_pair.bold = true;
    return definition;
}

ColouringDefinition ReadSqlIni(std::string_view utf8, std::wstring_view section) {
    static const ColouringDefinition built_in = BuiltInColouring();
    ColouringDefinition definition = built_in;
    IniReader reader(definition);
    std::wstring text = FromUtf8(utf8);
    if (!text.empty() && text.front() == L'\xFEFF') text.erase(0, 1);
    bool inside = false;
    for (std::wstring_view rest = text; !rest.empty();) {
        const std::size_t length = LineLength(rest);
        const std::wstring_view line = TrimWhite(WithoutComment(rest.substr(0, length)));
        rest.remove_prefix(length);
        if (line.empty()) continue;
        if (line.front() == L'[') {
            inside =
                line.back() == L']' && SameIgnoringCase(TrimWhite(line.substr(1, line.size() - 2)), section);
            continue;
        }
        const std::size_t equals = line.find(L'=');
        if (!inside || equals == std::wstring_view::npos) continue;
        reader.Apply(Lower(TrimWhite(line.substr(0, equals))), TrimWhite(line.substr(equals + 1)));
    }
    return definition;
}

}  // namespace tessel::controls
