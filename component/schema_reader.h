// SchemaReader, the object that a host finds in Quillon.CurrentSchema: the schema of a connection, filled by
// LoadSchema. Not creatable and not in the type library; hosts call it by name:
//
//   LoadSchema(connection)   reads the schema; true when that worked
//   Count                    how many tables and views there are
//   Name(i), Kind(i)         one of them, from 1 to Count: its name as statements write it, and 1 (table) or
//   2 (view)
//
// Inside the component, Schema() gives the window the same data. Fields and relations are read when they are
// first asked for, so the connection is kept as long as the schema.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include "common/win32/com_object.h"
#include "schema/schema.h"

namespace tessel::component {

class SchemaReader final : public win32::ComObject<IDispatch> {
public:
    /// While one lives, the contents stay: a window shows them, and the host holds the object too.
    class InUse {
    public:
        explicit InUse(SchemaReader& reader) : reader_(&reader) { ++reader_->users_; }
        ~InUse() { --reader_->users_; }
        InUse(const InUse&) = delete;
        InUse& operator=(const InUse&) = delete;

    private:
        const win32::ComPtr<SchemaReader> reader_;
    };

    /// Replaces the contents. False leaves an empty schema, or the one that is in use.
    bool LoadSchema(IDispatch* connection);
    const schema::Schema& Schema() const { return schema_; }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** type) override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* call, VARIANT* result,
                        EXCEPINFO* exception, UINT* bad_argument) override;

private:
    HRESULT InvokeMember(DISPID member, DISPPARAMS& call, VARIANT* result, UINT* bad_argument);

    schema::Schema schema_;
    int users_ = 0;
};

}  // namespace tessel::component
