#include "hostkit/ado/fields.h"

namespace tessel::ado {

namespace {

enum FieldMember : DISPID {
    kValue = DISPID_VALUE,
    kName = 1,
    kType,
    kDefinedSize,
    kActualSize,
    kPrecision,
    kNumericScale,
    kAttributes,
};

constexpr Member kFieldMembers[] = {
    {L"Value", kValue},
    {L"Name", kName},
    {L"Type", kType},
    {L"DefinedSize", kDefinedSize},
    {L"ActualSize", kActualSize},
    {L"Precision", kPrecision},
    {L"NumericScale", kNumericScale},
    {L"Attributes", kAttributes},
};

enum CollectionMember : DISPID { kItem = DISPID_VALUE, kCount = 1, kRefresh };

constexpr Member kCollectionMembers[] = {
    {L"Item", kItem},
    {L"Count", kCount},
    {L"Refresh", kRefresh},
    {L"_NewEnum", DISPID_NEWENUM},
};

bool IsWide(AdoType type) {
    return type == AdoType::WChar || type == AdoType::VarWChar || type == AdoType::LongVarWChar;
}

}  // namespace

std::span<const Member> Field::Members() const {
    return kFieldMembers;
}

Status Field::InvokeMember(DISPID id, const Invocation& call, UniqueVariant* result) {
    // These cursors are read-only.
    if (call.IsPut()) return id == kValue ? AdoError::NotSupported : UnknownMember();
    switch (id) {
        case kValue:
            return recordset_->CellValue(index_, result);
        case kName:
            *result = UniqueVariant(std::wstring_view(column_.name));
            return {};
        case kType:
            *result = UniqueVariant(static_cast<LONG>(column_.type));
            return {};
        case kDefinedSize:
            *result = UniqueVariant(column_.defined_size);
            return {};
        case kActualSize:
            return ActualSize(result);
        case kPrecision:
            *result = UniqueVariant(column_.precision);
            return {};
        case kNumericScale:
            *result = UniqueVariant(column_.scale);
            return {};
        case kAttributes:
            *result = UniqueVariant(column_.attributes);
            return {};
        default:
            return UnknownMember();
    }
}

Status Field::ActualSize(UniqueVariant* result) const {
    UniqueVariant value;
    if (Status read = recordset_->CellValue(index_, &value); !read) return read;
    LONG size = column_.defined_size;
    if (value.IsNothing())
        size = 0;
    else if (value.Type() == VT_BSTR)
        size = static_cast<LONG>(SysStringLen(value.Get().bstrVal)) * (IsWide(column_.type) ? 2 : 1);
    else if (value.Type() == (VT_ARRAY | VT_UI1))
        size = static_cast<LONG>(value.Get().parray->rgsabound[0].cElements);
    *result = UniqueVariant(size);
    return {};
}

std::span<const Member> FieldCollection::Members() const {
    return kCollectionMembers;
}

Status FieldCollection::Item(const VARIANT& key, UniqueVariant* result) const {
    const ColumnList* columns = nullptr;
    if (Status open = recordset_->GetColumns(&columns); !open) return open;
    std::size_t index = 0;
    const auto name_of = [&](std::size_t i) -> const std::wstring& { return (*columns)[i].name; };
    if (Status found = FindItem(key, columns->size(), name_of, &index); !found) return found;
    *result = VariantOf(win32::MakeObject<Field>(recordset_, index, (*columns)[index]));
    return {};
}

Status FieldCollection::InvokeMember(DISPID id, const Invocation& call, UniqueVariant* result) {
    if (id == kItem) return Item(call.At(0), result);
    if (id == kRefresh) return {};
    const ColumnList* columns = nullptr;
    const Status open = recordset_->GetColumns(&columns);
    switch (id) {
        case kCount:
            *result = UniqueVariant(open ? static_cast<LONG>(columns->size()) : 0);
            return {};
        case DISPID_NEWENUM: {
            std::vector<UniqueVariant> values;
            for (std::size_t i = 0; open && i < columns->size(); ++i)
                values.push_back(VariantOf(win32::MakeObject<Field>(recordset_, i, (*columns)[i])));
            *result = EnumeratorOver(std::move(values));
            return {};
        }
        default:
            return UnknownMember();
    }
}

}  // namespace tessel::ado
