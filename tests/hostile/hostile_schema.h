// A schema of names that nobody would choose, as a catalogue gives them: raw, without brackets.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "common/identifiers.h"
#include "schema/schema.h"

namespace tessel::testing {

struct NamedText {
    const char* name;  ///< for the test's name
    std::wstring text;
};

inline void PrintTo(const NamedText& text, std::ostream* out) {
    *out << text.name;
}

inline std::wstring Repeated(std::size_t count, wchar_t ch) {
    return std::wstring(count, ch);
}

/// Every one of them can stand in a statement, between brackets.
inline std::vector<NamedText> HostileNames() {
    return {{"ClosingBracket", L"a]b"},
            {"OnlyClosingBrackets", L"]]]"},
            {"OpeningBracket", L"a[b"},
            {"LooksBracketed", L"[a]"},
            {"LooksQuoted", L"\"a\""},
            {"LooksQuotedOtherwise", L"`a`"},
            {"SingleQuote", L"O'Brien"},
            {"DoubleQuote", L"di\"jo"},
            {"Injection", L"a]; DROP TABLE Clientes; --"},
            {"Comment", L"a /* b"},
            {"LineComment", L"a -- b"},
            {"Ampersand", L"Ventas & &Cobros"},
            {"Tab", L"a\tb"},
            {"LineBreak", L"a\r\nb"},
            {"ControlCharacters", L"a\x1b\x07\x08z"},
            {"FormatString", L"%s%n%d%1"},
            {"Macro", L"@fecha"},
            {"MacroInBraces", L"@{todo}"},
            {"ParameterMark", L"a?:b"},
            {"Point", L"dbo.Clientes"},
            {"Star", L"*"},
            {"StarAtTheEnd", L"a.*"},
            {"Comma", L"a,b"},
            {"Semicolon", L"a;b"},
            {"Parentheses", L"f(x"},
            {"Equals", L"a=b"},
            {"Keyword", L"Select"},
            {"KeywordFrom", L"FROM"},
            {"AggregateWord", L"Sum"},
            {"CallOfAnAggregate", L"Sum(a)"},
            {"Number", L"2024"},
            {"StartsWithADigit", L"1a"},
            {"Hash", L"#1/1/2020#"},
            {"Exclamation", L"a!b"},
            {"RightToLeft", L"\u05d0\u05d1\u05d2"},
            {"RightToLeftMark", L"a\u202e\u200fb"},
            {"ZeroWidth", L"a\u200b\ufeffb"},
            {"Emoji", L"\U0001F600 ventas"},
            {"Combining", L"e\u0301\u0323"},
            {"DottedCapital", L"\u0130stanbul"},
            {"SharpS", L"stra\u00dfe"},
            {"LoneSurrogate", std::wstring(L"a") + static_cast<wchar_t>(0xD800)},
            {"NoBreakSpace", L"a\u00a0b"},
            {"Backslash", L"a\\b"},
            {"Pipe", L"a|b"},
            {"UnixPath", L"../../etc"},
            {"OneBlankInside", L"a b"},
            {"HundredLetters", Repeated(100, L'n')}};
}

/// Tables as raw names, each with its raw fields.
using HostileTables = std::vector<std::pair<std::wstring, std::vector<std::wstring>>>;

class HostileSource final : public schema::SchemaSource {
public:
    HostileSource(HostileTables tables, std::vector<schema::ForeignKey> keys)
        : tables_(std::move(tables)), keys_(std::move(keys)) {}

    Result<std::vector<schema::Object>> LoadObjects() override {
        std::vector<schema::Object> objects;
        for (const auto& [name, fields] : tables_)
            objects.push_back({WrittenName(name), name, schema::ObjectKind::Table});
        return objects;
    }
    Result<std::vector<schema::Field>> LoadFields(const schema::Object& object) override {
        std::vector<schema::Field> loaded;
        for (const auto& [name, fields] : tables_) {
            if (name != object.raw_name) continue;
            for (const std::wstring& raw : fields) {
                schema::Field field;
                field.raw_name = raw;
                field.name = WrittenName(raw);
                field.ado_type = 202;
                loaded.push_back(std::move(field));
            }
            break;
        }
        return loaded;
    }
    Result<std::vector<schema::ForeignKey>> LoadForeignKeys() override { return keys_; }

private:
    HostileTables tables_;
    std::vector<schema::ForeignKey> keys_;
};

inline schema::Schema MakeHostileSchema(HostileTables tables, std::vector<schema::ForeignKey> keys = {}) {
    return schema::Schema(std::make_unique<HostileSource>(std::move(tables), std::move(keys)));
}

}  // namespace tessel::testing
