// The Errors collection of a connection and its items.
#pragma once

#include "hostkit/ado/dispatch_object.h"

namespace tessel::ado {

class ErrorObject final : public DispatchObject {
public:
    explicit ErrorObject(ErrorRecord record) : record_(std::move(record)) {}

protected:
    std::span<const Member> Members() const override;
    const wchar_t* Name() const override { return L"ADODB.Error"; }
    Status InvokeMember(DISPID id, const Invocation& call, UniqueVariant* result) override;

private:
    ErrorRecord record_;
};

/// A live view of the connection's records.
class ErrorCollection final : public DispatchObject {
public:
    explicit ErrorCollection(SharedErrors errors) : errors_(std::move(errors)) {}
    Status Item(const VARIANT& key, UniqueVariant* result) const;

protected:
    std::span<const Member> Members() const override;
    const wchar_t* Name() const override { return L"ADODB.Errors"; }
    Status InvokeMember(DISPID id, const Invocation& call, UniqueVariant* result) override;

private:
    SharedErrors errors_;
};

}  // namespace tessel::ado
