// One function of a type description, given back to its type in the end.
#pragma once

#include <windows.h>
#include <oaidl.h>

namespace tessel::component {

class FunctionDescription {
public:
    FunctionDescription() = default;
    ~FunctionDescription() { Reset(); }
    FunctionDescription(const FunctionDescription&) = delete;
    FunctionDescription& operator=(const FunctionDescription&) = delete;

    const FUNCDESC* operator->() const { return description_; }
    explicit operator bool() const { return description_ != nullptr; }

    /// Finds a member by number and kind. The list is walked because ITypeInfo2::GetFuncIndexOfMemId counts
    /// the inherited methods of a dual interface differently from GetFuncDesc under Wine 8.
    void Find(ITypeInfo* type, DISPID member, WORD kinds) {
        Reset();
        type_ = type;
        for (UINT i = 0; SUCCEEDED(type->GetFuncDesc(i, &description_)); ++i) {
            if (description_->memid == member && (description_->invkind & kinds)) return;
            Reset();
        }
        description_ = nullptr;
    }

    /// How many arguments a caller gives: the result is none of them.
    UINT ArgumentCount() const {
        UINT count = 0;
        for (SHORT i = 0; i < description_->cParams; ++i)
            if (!(description_->lprgelemdescParam[i].paramdesc.wParamFlags & PARAMFLAG_FRETVAL)) ++count;
        return count;
    }

private:
    void Reset() {
        if (description_) type_->ReleaseFuncDesc(description_);
        description_ = nullptr;
    }

    ITypeInfo* type_ = nullptr;
    FUNCDESC* description_ = nullptr;
};

}  // namespace tessel::component
