#include "hostkit/ado/connection_string.h"

#include <vector>

#include "common/text.h"

namespace tessel::ado {

namespace {

struct Attribute {
    std::wstring name;
    std::wstring value;  ///< as written, with its quotes or braces
};

/// The end of a value: the next ";" outside quotes and braces.
std::size_t EndOfValue(std::wstring_view text, std::size_t at) {
    wchar_t close = 0;
    for (; at < text.size(); ++at) {
        if (close) {
            if (text[at] == close) close = 0;
        } else if (text[at] == L'{') {
            close = L'}';
        } else if (text[at] == L'"' || text[at] == L'\'') {
            close = text[at];
        } else if (text[at] == L';') {
            return at;
        }
    }
    return at;
}

std::wstring Unquoted(std::wstring_view value) {
    if (value.size() >= 2) {
        const wchar_t first = value.front(), last = value.back();
        const bool quoted =
            (first == L'{' && last == L'}') || ((first == L'"' || first == L'\'') && last == first);
        if (quoted) value = value.substr(1, value.size() - 2);
    }
    return std::wstring(value);
}

std::vector<Attribute> Parse(std::wstring_view text) {
    std::vector<Attribute> attributes;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = EndOfValue(text, at);
        const std::wstring_view part = text.substr(at, end - at);
        const std::size_t equals = part.find(L'=');
        if (equals != std::wstring_view::npos)
            attributes.push_back({Trim(part.substr(0, equals)), Trim(part.substr(equals + 1))});
        else if (!TrimView(part).empty())
            attributes.push_back({L"DSN", Trim(part)});
        at = end + 1;
    }
    return attributes;
}

std::wstring OdbcName(const std::wstring& name) {
    static const struct {
        const wchar_t* ole_db;
        const wchar_t* odbc;
    } kNames[] = {{L"data source", L"DSN"},
                  {L"user id", L"UID"},
                  {L"user", L"UID"},
                  {L"password", L"PWD"},
                  {L"initial catalog", L"DATABASE"}};
    for (const auto& row : kNames)
        if (SameName(name, row.ole_db)) return row.odbc;
    return name;
}

bool IsAboutOleDb(const std::wstring& name) {
    for (const wchar_t* word : {L"provider", L"persist security info", L"mode", L"prompt"})
        if (SameName(name, word)) return true;
    return false;
}

void Collect(std::wstring_view text, std::vector<Attribute>* attributes) {
    for (Attribute& attribute : Parse(text)) {
        if (SameName(attribute.name, L"extended properties"))
            Collect(Unquoted(attribute.value), attributes);
        else if (!IsAboutOleDb(attribute.name))
            attributes->push_back({OdbcName(attribute.name), std::move(attribute.value)});
    }
}

void Replace(std::vector<Attribute>* attributes, const wchar_t* name, std::wstring_view value) {
    if (value.empty()) return;
    std::erase_if(*attributes, [&](const Attribute& attribute) { return SameName(attribute.name, name); });
    attributes->push_back({name, std::wstring(value)});
}

}  // namespace

std::wstring OdbcConnectionString(std::wstring_view text, std::wstring_view user,
                                  std::wstring_view password) {
    std::vector<Attribute> attributes;
    Collect(text, &attributes);
    Replace(&attributes, L"UID", user);
    Replace(&attributes, L"PWD", password);
    std::wstring result;
    for (const Attribute& attribute : attributes) result += attribute.name + L'=' + attribute.value + L';';
    return result;
}

std::wstring ConnectionAttribute(std::wstring_view text, std::wstring_view name) {
    for (const Attribute& attribute : Parse(text))
        if (SameName(attribute.name, name)) return Unquoted(attribute.value);
    return {};
}

std::wstring FileStem(std::wstring_view path) {
    const std::size_t slash = path.find_last_of(L"/\\");
    if (slash != std::wstring_view::npos) path.remove_prefix(slash + 1);
    const std::size_t dot = path.find_last_of(L'.');
    if (dot != std::wstring_view::npos && dot > 0) path = path.substr(0, dot);
    return std::wstring(path);
}

}  // namespace tessel::ado
