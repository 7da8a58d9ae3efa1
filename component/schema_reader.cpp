#include "component/schema_reader.h"

#include "common/text.h"
#include "common/win32/dispatch.h"
#include "schema/win32/ado_schema_source.h"

namespace tessel::component {

using win32::UniqueVariant;

namespace {

enum Member : DISPID { kLoadSchema = 1, kCount = 2, kName = 3, kKind = 4 };

struct MemberRow {
    const wchar_t* name;
    Member member;
    WORD flags;
    UINT arguments;
};

constexpr WORD kGet = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr MemberRow kMembers[] = {
    {L"LoadSchema", kLoadSchema, kGet, 1},
    {L"Count", kCount, kGet, 0},
    {L"Name", kName, kGet, 1},
    {L"Kind", kKind, kGet, 1},
};

}  // namespace

bool SchemaReader::LoadSchema(IDispatch* connection) {
    if (users_ > 0) return false;
    schema_ = schema::Schema();
    if (!connection) return false;
    schema::Schema loaded(std::make_unique<schema::AdoSchemaSource>(connection));
    if (loaded.Failed()) return false;
    schema_ = std::move(loaded);
    return true;
}

STDMETHODIMP SchemaReader::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP SchemaReader::GetTypeInfo(UINT, LCID, ITypeInfo** type) {
    if (!type) return E_POINTER;
    *type = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP SchemaReader::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!names || !ids || count == 0) return E_INVALIDARG;
    return win32::Guarded([&] {
        for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
        for (const MemberRow& row : kMembers)
            if (SameIgnoringCase(names[0], row.name)) ids[0] = row.member;
        return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
    });
}

STDMETHODIMP SchemaReader::Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* call,
                                  VARIANT* result, EXCEPINFO*, UINT* bad_argument) {
    if (iid != IID{}) return DISP_E_UNKNOWNINTERFACE;
    if (!call) return E_POINTER;
    for (const MemberRow& row : kMembers) {
        if (row.member != member) continue;
        if (!(flags & row.flags)) return DISP_E_MEMBERNOTFOUND;
        if (call->cNamedArgs) return DISP_E_NONAMEDARGS;
        if (call->cArgs != row.arguments) return DISP_E_BADPARAMCOUNT;
        const win32::ComPtr<SchemaReader> alive(this);
        return win32::Guarded([&] { return InvokeMember(member, *call, result, bad_argument); });
    }
    return DISP_E_MEMBERNOTFOUND;
}

HRESULT SchemaReader::InvokeMember(DISPID member, DISPPARAMS& call, VARIANT* result, UINT* bad_argument) {
    UniqueVariant answer;
    if (member == kLoadSchema) {
        const UniqueVariant connection = UniqueVariant::CopyOf(call.rgvarg[0]);
        answer = UniqueVariant(LoadSchema(connection.Object().Get()));
    } else if (member == kCount) {
        answer = UniqueVariant(static_cast<LONG>(schema_.Objects().size()));
    } else {
        UniqueVariant index;
        const HRESULT changed = win32::ChangePlain(UniqueVariant::CopyOf(call.rgvarg[0]), VT_I4, &index);
        if (FAILED(changed)) {
            if (bad_argument) *bad_argument = 0;
            return changed;
        }
        const LONG number = index.Get().lVal;
        if (number < 1 || static_cast<std::size_t>(number) > schema_.Objects().size()) return DISP_E_BADINDEX;
        const schema::Object& object = schema_.Objects()[static_cast<std::size_t>(number) - 1];
        answer = member == kName ? UniqueVariant(object.name) : UniqueVariant(static_cast<int>(object.kind));
    }
    if (result) *result = answer.Detach();
    return S_OK;
}

}  // namespace tessel::component
