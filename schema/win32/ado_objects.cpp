#include "schema/win32/ado_objects.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <set>
#include <tuple>
#include <unordered_set>

#include "common/identifiers.h"
#include "common/text.h"

namespace tessel::schema {

namespace {

/// The kind of an object by its type word, or nothing for what belongs to the system or is no object.
std::optional<ObjectKind> KindOf(std::wstring_view type_word) {
    static constexpr std::array kTables = {L"TABLE",   L"BASE TABLE",       L"SYNONYM",      L"ALIAS",
                                           L"LINK",    L"LINKED",           L"PASS-THROUGH", L"FOREIGN TABLE",
                                           L"FOREIGN", L"PARTITIONED TABLE"};
    static constexpr std::array kViews = {L"VIEW", L"MATERIALIZED VIEW"};
    for (const wchar_t* word : kTables)
        if (SameName(type_word, word)) return ObjectKind::Table;
    for (const wchar_t* word : kViews)
        if (SameName(type_word, word)) return ObjectKind::View;
    return std::nullopt;
}

bool IsSystemSchema(const std::wstring& schema) {
    static constexpr std::array kSystem = {L"information_schema", L"pg_catalog", L"pg_toast",
                                           L"performance_schema", L"mysql",      L"sys"};
    return std::any_of(kSystem.begin(), kSystem.end(),
                       [&](const wchar_t* name) { return SameName(schema, name); });
}

/// Tables that engines keep among the user's: the Jet engine's own and its temporary ones, and SQLite's.
bool IsSystemName(const std::wstring& name) {
    const std::wstring folded = Folded(name);
    return folded.starts_with(L"msys") || folded.starts_with(L"~") || folded.starts_with(L"sqlite_");
}

std::optional<CatalogueEntry> EntryOfRow(const AdoRows& row) {
    CatalogueEntry entry;
    entry.name = row.Text(L"TABLE_NAME").value_or(L"");
    entry.schema = row.Text(L"TABLE_SCHEMA").value_or(L"");
    entry.catalogue = row.Text(L"TABLE_CATALOG").value_or(L"");
    const auto kind = KindOf(row.Text(L"TABLE_TYPE").value_or(L""));
    if (!kind || entry.name.empty() || IsSystemName(entry.name) || IsSystemSchema(entry.schema))
        return std::nullopt;
    entry.kind = *kind;
    // An engine without catalogues fills the column with this word and calls its databases schemas.
    if (entry.catalogue == L"def") entry.catalogue = std::exchange(entry.schema, std::wstring());
    return entry;
}

/// Leaves out other databases of the same server, when the connection tells which one is its own.
void KeepOwnCatalogue(const win32::Dispatch& connection, std::vector<CatalogueEntry>& entries) {
    const auto own = connection.Get(L"DefaultDatabase").Text();
    if (!own || TrimView(*own).empty()) return;
    const auto is_own = [&](const CatalogueEntry& entry) { return SameName(entry.catalogue, *own); };
    if (std::none_of(entries.begin(), entries.end(), is_own)) return;
    std::erase_if(entries,
                  [&](const CatalogueEntry& entry) { return !entry.catalogue.empty() && !is_own(entry); });
}

/// True for schemas whose tables need no qualification.
bool IsDefaultSchema(const std::wstring& schema) {
    return schema.empty() || SameName(schema, L"dbo") || SameName(schema, L"public") ||
           SameName(schema, L"main");
}

/// Room for the order key of a name of usual length.
constexpr std::size_t kUsualKeyBytes = 512;

/// A key whose bytes stand in the order in which the user's language puts names, letter case aside. Comparing
/// two names costs as much as making a key, and sorting compares each many times.
std::string OrderKey(const std::wstring& name) {
    constexpr DWORD kFlags = LCMAP_SORTKEY | NORM_IGNORECASE;
    if (name.empty()) return {};
    const int length = static_cast<int>(name.size());
    std::string key(kUsualKeyBytes, '\0');
    const auto make = [&] {
        return LCMapStringW(LOCALE_USER_DEFAULT, kFlags, name.data(), length,
                            reinterpret_cast<wchar_t*>(key.data()), static_cast<int>(key.size()));
    };
    int bytes = make();
    if (bytes == 0) {
        key.resize(static_cast<std::size_t>(
            LCMapStringW(LOCALE_USER_DEFAULT, kFlags, name.data(), length, nullptr, 0)));
        bytes = make();
    }
    key.resize(static_cast<std::size_t>(bytes));
    return key;
}

/// Tables before views, each in the order of their names for the user's eyes.
void SortForReading(std::vector<NamedEntry>& named) {
    struct Place {
        ObjectKind kind;
        std::string name, schema;
        std::size_t index;
    };
    std::vector<Place> places;
    places.reserve(named.size());
    for (std::size_t i = 0; i < named.size(); ++i) {
        const CatalogueEntry& entry = named[i].entry;
        places.push_back({entry.kind, OrderKey(entry.name), OrderKey(entry.schema), i});
    }
    std::sort(places.begin(), places.end(), [](const Place& a, const Place& b) {
        return std::tie(a.kind, a.name, a.schema, a.index) < std::tie(b.kind, b.name, b.schema, b.index);
    });
    std::vector<NamedEntry> sorted;
    sorted.reserve(named.size());
    for (const Place& place : places) sorted.push_back(std::move(named[place.index]));
    named = std::move(sorted);
}

}  // namespace

std::optional<std::vector<NamedEntry>> ReadObjects(AdoCatalogue& catalogue) {
    std::vector<CatalogueEntry> entries;
    const auto reader = [&](const AdoRows& row) {
        if (auto entry = EntryOfRow(row)) entries.push_back(std::move(*entry));
    };
    bool read = catalogue.ReadRowset(Rowset::Tables, {}, reader);
    if (entries.empty()) {
        read |= catalogue.ReadQuery({L"SELECT TABLE_CATALOG, TABLE_SCHEMA, TABLE_NAME, TABLE_TYPE"
                                     L" FROM information_schema.tables",
                                     L"SELECT name AS TABLE_NAME, type AS TABLE_TYPE FROM sqlite_master"
                                     L" WHERE type IN ('table', 'view')"},
                                    {}, reader);
    }
    if (!read) return std::nullopt;

    KeepOwnCatalogue(catalogue.Connection(), entries);
    std::set<std::wstring> schemas;
    for (const CatalogueEntry& entry : entries) schemas.insert(Folded(entry.schema));
    std::unordered_set<std::wstring> seen;
    std::vector<NamedEntry> named;
    seen.reserve(entries.size());
    named.reserve(entries.size());
    for (CatalogueEntry& entry : entries) {
        std::wstring name = WrittenName(entry.name);
        if (schemas.size() > 1 && !IsDefaultSchema(entry.schema))
            name = WrittenName(entry.schema) + L'.' + name;
        if (seen.insert(Folded(name)).second) named.push_back({std::move(entry), std::move(name)});
    }
    SortForReading(named);
    return named;
}

}  // namespace tessel::schema
