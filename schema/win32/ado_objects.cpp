#include "schema/win32/ado_objects.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/identifiers.h"
#include "common/text.h"
#include "schema/name_table.h"
#include "schema/win32/reading_order.h"

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

bool IsSystemSchema(std::wstring_view schema) {
    static constexpr std::array kSystem = {L"information_schema", L"pg_catalog", L"pg_toast",
                                           L"performance_schema", L"mysql",      L"sys"};
    return std::any_of(kSystem.begin(), kSystem.end(),
                       [&](const wchar_t* name) { return SameName(schema, name); });
}

/// Tables that engines keep among the user's: the Jet engine's own and its temporary ones, and SQLite's.
bool IsSystemName(std::wstring_view name) {
    static constexpr std::array<std::wstring_view, 3> kBeginnings = {L"msys", L"~", L"sqlite_"};
    const std::wstring_view trimmed = TrimView(name);
    return std::any_of(kBeginnings.begin(), kBeginnings.end(), [&](std::wstring_view beginning) {
        return SameIgnoringCase(trimmed.substr(0, beginning.size()), beginning);
    });
}

constexpr const wchar_t* kColumns[] = {L"TABLE_NAME", L"TABLE_SCHEMA", L"TABLE_CATALOG", L"TABLE_TYPE"};
enum Column : std::size_t { kName, kSchema, kCatalogue, kType };

/// Remembers the answer to the last text: a catalogue says the same of many rows.
template <class Answer>
class LastAnswer {
public:
    explicit LastAnswer(Answer (*ask)(std::wstring_view)) : ask_(ask), answer_(ask({})) {}

    const Answer& Of(std::wstring_view text) {
        if (text != text_) {
            answer_ = ask_(text);
            text_ = text;
        }
        return answer_;
    }

private:
    Answer (*ask_)(std::wstring_view);
    std::wstring_view text_;
    Answer answer_;
};

std::vector<CatalogueObject> ObjectsOf(const TextRows& rows) {
    std::vector<CatalogueObject> objects;
    objects.reserve(rows.RowCount());
    LastAnswer kind_of(KindOf);
    LastAnswer is_system_schema(IsSystemSchema);
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
        CatalogueObject object{rows.At(row, kCatalogue), rows.At(row, kSchema), rows.At(row, kName)};
        const std::optional<ObjectKind> kind = kind_of.Of(rows.At(row, kType));
        if (!kind || object.name.empty() || IsSystemName(object.name) || is_system_schema.Of(object.schema))
            continue;
        object.kind = *kind;
        // An engine without catalogues fills the column with this word and calls its databases schemas.
        if (object.catalogue == L"def") object.catalogue = std::exchange(object.schema, std::wstring_view());
        objects.push_back(object);
    }
    return objects;
}

/// Leaves out other databases of the same server, when the connection tells which one is its own.
void KeepOwnCatalogue(const win32::Dispatch& connection, std::vector<CatalogueObject>& objects) {
    const auto own = connection.Get(L"DefaultDatabase").Text();
    if (!own || TrimView(*own).empty()) return;
    const auto is_own = [&](const CatalogueObject& object) {
        return !object.catalogue.empty() && SameName(object.catalogue, *own);
    };
    if (std::none_of(objects.begin(), objects.end(), is_own)) return;
    std::erase_if(
        objects, [&](const CatalogueObject& object) { return !object.catalogue.empty() && !is_own(object); });
}

/// True for schemas whose tables need no qualification.
bool IsDefaultSchema(std::wstring_view schema) {
    return schema.empty() || SameName(schema, L"dbo") || SameName(schema, L"public") ||
           SameName(schema, L"main");
}

void QualifyWhereNeeded(std::vector<CatalogueObject>& objects) {
    const bool several = std::any_of(objects.begin(), objects.end(), [&](const CatalogueObject& object) {
        return object.schema != objects.front().schema && !SameName(object.schema, objects.front().schema);
    });
    if (!several) return;
    for (CatalogueObject& object : objects) object.is_qualified = !IsDefaultSchema(object.schema);
}

/// Keeps the first of the objects that statements would reach by the same name.
void DropSecondNames(std::vector<CatalogueObject>& objects) {
    NameTable seen(objects.size());
    std::vector<CatalogueObject> kept;
    kept.reserve(objects.size());
    for (const CatalogueObject& object : objects) {
        // A qualified name is never the same as one that is not.
        const std::wstring_view schema = object.is_qualified ? object.schema : std::wstring_view();
        const auto hash = NameHash(object.name) ^ NameHash(schema);
        const auto is_same = [&](std::uint32_t number) {
            const CatalogueObject& other = kept[number];
            return other.is_qualified == object.is_qualified && SameIgnoringCase(other.name, object.name) &&
                   SameIgnoringCase(other.is_qualified ? other.schema : std::wstring_view(), schema);
        };
        if (seen.Add(hash, static_cast<std::uint32_t>(kept.size()), is_same)) kept.push_back(object);
    }
    objects = std::move(kept);
}

/// Tables before views, each in the order of their names for the user's eyes.
void SortForReading(std::vector<CatalogueObject>& objects) {
    std::vector<NameToOrder> names;
    names.reserve(objects.size());
    for (const CatalogueObject& object : objects)
        names.push_back({static_cast<unsigned>(object.kind), object.name, object.schema});
    std::vector<CatalogueObject> sorted;
    sorted.reserve(objects.size());
    for (const std::uint32_t number : ReadingOrder(names)) sorted.push_back(objects[number]);
    objects = std::move(sorted);
}

}  // namespace

std::wstring CatalogueObject::WrittenName() const {
    std::wstring written = tessel::WrittenName(name);
    return is_qualified ? tessel::WrittenName(schema) + L'.' + written : written;
}

std::optional<CatalogueObjects> ReadObjects(AdoCatalogue& catalogue) {
    CatalogueObjects read;
    bool answered = catalogue.ReadRowset(Rowset::Tables, {}, kColumns, &read.rows);
    read.objects = ObjectsOf(read.rows);
    if (read.objects.empty()) {
        answered |= catalogue.ReadQuery({L"SELECT TABLE_CATALOG, TABLE_SCHEMA, TABLE_NAME, TABLE_TYPE"
                                         L" FROM information_schema.tables",
                                         L"SELECT name AS TABLE_NAME, type AS TABLE_TYPE FROM sqlite_master"
                                         L" WHERE type IN ('table', 'view')"},
                                        kColumns, &read.rows);
        read.objects = ObjectsOf(read.rows);
    }
    if (!answered) return std::nullopt;
    KeepOwnCatalogue(catalogue.Connection(), read.objects);
    QualifyWhereNeeded(read.objects);
    DropSecondNames(read.objects);
    SortForReading(read.objects);
    return read;
}

}  // namespace tessel::schema
