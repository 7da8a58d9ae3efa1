// The Fields collection of a recordset and its items. A Field shows the current row: the same object reads
// another value after a move.
#pragma once

#include "hostkit/ado/recordset.h"

namespace tessel::ado {

class Field final : public DispatchObject {
public:
    Field(ComPtr<Recordset> recordset, std::size_t index, Column column)
        : recordset_(std::move(recordset)), index_(index), column_(std::move(column)) {}

protected:
    std::span<const Member> Members() const override;
    const wchar_t* Name() const override { return L"ADODB.Field"; }
    Status InvokeMember(DISPID id, const Invocation& call, UniqueVariant* result) override;

private:
    Status ActualSize(UniqueVariant* result) const;

    ComPtr<Recordset> recordset_;
    std::size_t index_;
    Column column_;
};

class FieldCollection final : public DispatchObject {
public:
    explicit FieldCollection(ComPtr<Recordset> recordset) : recordset_(std::move(recordset)) {}
    Status Item(const VARIANT& key, UniqueVariant* result) const;

protected:
    std::span<const Member> Members() const override;
    const wchar_t* Name() const override { return L"ADODB.Fields"; }
    Status InvokeMember(DISPID id, const Invocation& call, UniqueVariant* result) override;

private:
    ComPtr<Recordset> recordset_;
};

}  // namespace tessel::ado
