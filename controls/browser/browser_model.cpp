#include "controls/browser/browser_model.h"

#include "common/identifiers.h"
#include "common/mdl_global.h"
#include "common/text.h"

namespace tessel::controls {

namespace {

// Base letters of U+00E0 to U+00FF, so that "categorias" finds Categorías. What has no base letter stays; ñ
// is a letter of its own to a Spanish reader and still found by n, as telephone books on screens do.
constexpr std::wstring_view kBaseLetters = L"aaaaaa\u00E6ceeeeiiii\u00F0nooooo\u00F7ouuuuy\u00FEy";
constexpr wchar_t kFirstAccented = L'\u00E0';
constexpr wchar_t kLastAccented = L'\u00FF';

/// The form in which names are searched: lower case, no accents, no brackets, no white space around.
std::wstring SearchText(std::wstring_view text) {
    std::wstring folded = Folded(text);
    std::wstring result;
    result.reserve(folded.size());
    for (wchar_t ch : folded) {
        if (ch == L'[' || ch == L']') continue;
        if (ch >= kFirstAccented && ch <= kLastAccented)
            ch = kBaseLetters[static_cast<std::size_t>(ch - kFirstAccented)];
        result.push_back(ch);
    }
    return result;
}

std::wstring Sized(std::wstring_view word, std::int64_t size) {
    return std::wstring(word) + L" (" + std::to_wstring(size) + L")";
}

// Values of the ADO data types.
enum AdoType : int {
    adSmallInt = 2,
    adInteger = 3,
    adSingle = 4,
    adDouble = 5,
    adCurrency = 6,
    adDate = 7,
    adBSTR = 8,
    adBoolean = 11,
    adVariant = 12,
    adDecimal = 14,
    adTinyInt = 16,
    adUnsignedTinyInt = 17,
    adUnsignedSmallInt = 18,
    adUnsignedInt = 19,
    adBigInt = 20,
    adUnsignedBigInt = 21,
    adFileTime = 64,
    adGUID = 72,
    adBinary = 128,
    adChar = 129,
    adWChar = 130,
    adNumeric = 131,
    adDBDate = 133,
    adDBTime = 134,
    adDBTimeStamp = 135,
    adVarNumeric = 139,
    adVarChar = 200,
    adLongVarChar = 201,
    adVarWChar = 202,
    adLongVarWChar = 203,
    adVarBinary = 204,
    adLongVarBinary = 205,
};

// Databases report texts without a limit with sizes in the thousands of millions.
constexpr std::int64_t kLargestSizeShown = 65535;

}  // namespace

void BrowserModel::Load(const schema::Schema* schema, std::wstring_view caption) {
    schema_ = schema;
    caption_ = caption;
    search_texts_.clear();
    if (schema_) {
        search_texts_.reserve(schema_->Objects().size());
        for (const schema::Object& object : schema_->Objects())
            search_texts_.push_back(SearchText(object.name));
    }
    ApplyFilter();
}

bool BrowserModel::SetFilter(std::wstring_view filter) {
    filter_ = filter;
    std::wstring needle = SearchText(filter);
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
    for (std::size_t i = 0; i < search_texts_.size(); ++i) {
        if (search_texts_[i].find(needle_) == std::wstring::npos) continue;
        (ObjectAt(i).kind == schema::ObjectKind::View ? views_ : tables_).push_back(i);
    }
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
        fields.push_back({field.name, FieldTypeText(field), field.primary_key, field.foreign_key});
    return fields;
}

std::size_t BrowserModel::FindObject(std::wstring_view name) const {
    const schema::Object* found = schema_ ? schema_->Find(name) : nullptr;
    if (!found) return kNone;
    const auto index = static_cast<std::size_t>(found - schema_->Objects().data());
    return search_texts_[index].find(needle_) == std::wstring::npos ? kNone : index;
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

std::wstring FieldTypeText(const schema::Field& field) {
    switch (field.ado_type) {
        case adSmallInt:
        case adUnsignedSmallInt:
            return L"Entero";
        case adInteger:
        case adUnsignedInt:
            return L"Entero largo";
        case adBigInt:
        case adUnsignedBigInt:
            return L"Entero grande";
        case adTinyInt:
        case adUnsignedTinyInt:
            return L"Byte";
        case adSingle:
            return L"Simple";
        case adDouble:
            return L"Doble";
        case adCurrency:
            return L"Moneda";
        case adDecimal:
        case adNumeric:
        case adVarNumeric:
            if (field.precision <= 0) return L"Decimal";
            return L"Decimal (" + std::to_wstring(field.precision) + L"," + std::to_wstring(field.scale) +
                   L")";
        case adBoolean:
            return L"Sí/No";
        case adDate:
        case adDBTimeStamp:
        case adFileTime:
            return L"Fecha y hora";
        case adDBDate:
            return L"Fecha";
        case adDBTime:
            return L"Hora";
        case adGUID:
            return L"Identificador único";
        case adBSTR:
        case adChar:
        case adWChar:
        case adVarChar:
        case adVarWChar:
            if (field.size <= 0 || field.size > kLargestSizeShown) return L"Texto";
            return Sized(L"Texto", field.size);
        case adLongVarChar:
        case adLongVarWChar:
            return L"Texto largo";
        case adBinary:
        case adVarBinary:
            if (field.size <= 0 || field.size > kLargestSizeShown) return L"Binario";
            return Sized(L"Binario", field.size);
        case adLongVarBinary:
            return L"Binario largo";
        case adVariant:
            return L"Variante";
        default:
            return std::wstring(ADOTypeName(field.ado_type));
    }
}

}  // namespace tessel::controls
