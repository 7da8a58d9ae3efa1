#include "hostkit/ado/errors.h"

namespace tessel::ado {

namespace {

enum ErrorMember : DISPID { kDescription = DISPID_VALUE, kSource = 1, kNumber, kNativeError, kSqlState };

constexpr Member kErrorMembers[] = {
    {L"Description", kDescription}, {L"Source", kSource},     {L"Number", kNumber},
    {L"NativeError", kNativeError}, {L"SQLState", kSqlState},
};

enum CollectionMember : DISPID { kItem = DISPID_VALUE, kCount = 1, kClear, kRefresh };

constexpr Member kCollectionMembers[] = {
    {L"Item", kItem},
    {L"Count", kCount},
    {L"Clear", kClear},
    {L"Refresh", kRefresh},
    {L"_NewEnum", DISPID_NEWENUM},
};

}  // namespace

std::span<const Member> ErrorObject::Members() const {
    return kErrorMembers;
}

Status ErrorObject::InvokeMember(DISPID id, const Invocation&, UniqueVariant* result) {
    switch (id) {
        case kDescription:
            *result = UniqueVariant(std::wstring_view(record_.description));
            return {};
        case kSource:
            *result = UniqueVariant(kProviderSource);
            return {};
        case kNumber:
            *result = UniqueVariant(static_cast<LONG>(record_.number));
            return {};
        case kNativeError:
            *result = UniqueVariant(record_.native_error);
            return {};
        case kSqlState:
            *result = UniqueVariant(std::wstring_view(record_.sql_state));
            return {};
        default:
            return UnknownMember();
    }
}

std::span<const Member> ErrorCollection::Members() const {
    return kCollectionMembers;
}

Status ErrorCollection::Item(const VARIANT& key, UniqueVariant* result) const {
    long index = -1;
    if (key.vt == VT_EMPTY || !ToNumber(key, &index) || index < 0 ||
        static_cast<std::size_t>(index) >= errors_->size())
        return AdoError::ItemNotFound;
    *result = VariantOf(win32::MakeObject<ErrorObject>((*errors_)[static_cast<std::size_t>(index)]));
    return {};
}

Status ErrorCollection::InvokeMember(DISPID id, const Invocation& call, UniqueVariant* result) {
    switch (id) {
        case kItem:
            return Item(call.At(0), result);
        case kCount:
            *result = UniqueVariant(static_cast<LONG>(errors_->size()));
            return {};
        case kClear:
            errors_->clear();
            return {};
        case kRefresh:
            return {};
        case DISPID_NEWENUM: {
            std::vector<UniqueVariant> values;
            for (const ErrorRecord& record : *errors_)
                values.push_back(VariantOf(win32::MakeObject<ErrorObject>(record)));
            *result = EnumeratorOver(std::move(values));
            return {};
        }
        default:
            return UnknownMember();
    }
}

}  // namespace tessel::ado
