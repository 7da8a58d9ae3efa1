#include "controls/browser/browser_model.h"

#include "common/identifiers.h"
#include "common/text.h"

namespace tessel::controls {

namespace {

// Base letters of U+00E0 to U+00FF, so that "categorias" finds Categorías. What has no base letter stays; ñ
// is a letter of its own to a Spanish reader and still found by n, as telephone books on screens do.
constexpr std::wstring_view kBaseLetters = L"aaaaaa\u00E6ceeeeiiii\u00F0nooooo\u00F7ouuuuy\u00FEy";
constexpr wchar_t kFirstAccented = L'\u00E0';
constexpr wchar_t kLastAccented = L'\u00FF';

/// Adds the form in which names are searched: lower case, no accents, no brackets, no white space around.
void AppendSearchText(std::wstring_view text, std::wstring& target) {
    for (wchar_t ch : TrimView(text)) {
        if (ch == L'[' || ch == L']') continue;
        ch = LowerChar(ch);
        if (ch >= kFirstAccented && ch <= kLastAccented)
            ch = kBaseLetters[static_cast<std::size_t>(ch - kFirstAccented)];
        target.push_back(ch);
    }
}

}  // namespace

void BrowserModel::Load(const schema::Schema* schema, std::wstring_view caption) {
    schema_ = schema;
    caption_ = caption;
    search_texts_.clear();
    search_ends_.clear();
    ApplyFilter();
}

bool BrowserModel::SetFilter(std::wstring_view filter) {
    filter_ = filter;
    std::wstring needle;
    AppendSearchText(filter, needle);
    if (needle == needle_) return false;
    needle_ = std::move(needle);
    const auto tables_before = std::move(tables_);
    const auto views_before = std::move(views_);
    ApplyFilter();
    return tables_ != tables_before || views_ != views_before;
}

void BrowserModel::ApplyFilter() {
    tables_.clear();
    views_.clear();
    // The window opens unfiltered, so that the texts to search in can wait for the first search.
    if (IsFiltered() && search_ends_.empty()) {
        search_ends_.reserve(ObjectCount());
        for (std::size_t i = 0; i < ObjectCount(); ++i) {
            AppendSearchText(ObjectAt(i).name, search_texts_);
            search_ends_.push_back(search_texts_.size());
        }
    }
    for (std::size_t i = 0; i < ObjectCount(); ++i) {
        if (!Passes(i)) continue;
        (ObjectAt(i).kind == schema::ObjectKind::View ? views_ : tables_).push_back(i);
    }
}

bool BrowserModel::Passes(std::size_t object) const {
    if (!IsFiltered()) return true;
    const std::size_t begin = object == 0 ? 0 : search_ends_[object - 1];
    const std::wstring_view text(search_texts_.data() + begin, search_ends_[object] - begin);
    return text.find(needle_) != std::wstring_view::npos;
}

std::wstring BrowserModel::GroupCaption(schema::ObjectKind kind) const {
    const bool views = kind == schema::ObjectKind::View;
    return std::wstring(views ? L"Vistas" : L"Tablas") + L" (" +
           std::to_wstring((views ? views_ : tables_).size()) + L")";
}

std::vector<BrowserField> BrowserModel::FieldsOf(std::size_t object) const {
    std::vector<BrowserField> fields;
    if (object >= ObjectCount()) return fields;
    for (const schema::Field& field : schema_->Fields(ObjectAt(object).name))
        fields.push_back(
            {field.name, FieldTypeText(field), field.primary_key, field.foreign_key, SortOf(field)});
    return fields;
}

std::size_t BrowserModel::FindObject(std::wstring_view name) const {
    const schema::Object* found = schema_ ? schema_->Find(name) : nullptr;
    if (!found) return kNone;
    const auto index = static_cast<std::size_t>(found - schema_->Objects().data());
    return Passes(index) ? index : kNone;
}

std::size_t BrowserModel::FindField(std::size_t object, std::wstring_view name) const {
    const std::wstring& owner = ObjectAt(object).name;
    const schema::Field* found = schema_->FindField(owner, name);
    return found ? static_cast<std::size_t>(found - schema_->Fields(owner).data()) : kNone;
}

BrowserItem BrowserModel::ItemOfObject(std::size_t object) const {
    const schema::Object& found = ObjectAt(object);
    const bool view = found.kind == schema::ObjectKind::View;
    return {view ? BrowserItem::Kind::View : BrowserItem::Kind::Table, found.name, L""};
}

BrowserItem BrowserModel::ItemOfField(std::size_t object, std::size_t field) const {
    const schema::Object& owner = ObjectAt(object);
    const std::vector<schema::Field>& fields = schema_->Fields(owner.name);
    if (field >= fields.size()) return ItemOfObject(object);
    return {BrowserItem::Kind::Field, fields[field].name, owner.name};
}

std::vector<std::wstring> BrowserModel::RelationsOf(std::size_t object) const {
    std::vector<std::wstring> lines;
    if (object >= ObjectCount()) return lines;
    const std::wstring& name = ObjectAt(object).name;
    for (const schema::ForeignKey* key : schema_->ForeignKeysOf(name))
        lines.push_back(RelationText(*key, name));
    return lines;
}

std::wstring BrowserModel::RelationsCaption(std::size_t object) const {
    return L"Relaciones (" + std::to_wstring(schema_->ForeignKeysOf(ObjectAt(object).name).size()) + L")";
}

BrowserItem BrowserModel::ItemOfRelation(std::size_t object, std::size_t relation) const {
    const std::wstring& name = ObjectAt(object).name;
    const std::vector<const schema::ForeignKey*> keys = schema_->ForeignKeysOf(name);
    if (relation >= keys.size()) return ItemOfObject(object);
    const schema::ForeignKey& key = *keys[relation];
    const bool refers = SameIdentifier(key.table, name);
    return {BrowserItem::Kind::Relation, refers ? key.referenced_table : key.table, name,
            static_cast<int>(relation)};
}

std::wstring RelationText(const schema::ForeignKey& key, std::wstring_view object) {
    const auto list = [](const std::vector<std::wstring>& fields, const std::wstring& table) {
        std::wstring text;
        for (const std::wstring& field : fields) {
            if (!text.empty()) text += L", ";
            if (!table.empty()) text += Unbracketed(table) + L".";
            text += Unbracketed(field);
        }
        return text;
    };
    // Names the other object only: the line stands under this one.
    if (SameIdentifier(key.table, object))
        return list(key.fields, {}) + L" » " + list(key.referenced_fields, key.referenced_table);
    return list(key.referenced_fields, {}) + L" « " + list(key.fields, key.table);
}

}  // namespace tessel::controls
