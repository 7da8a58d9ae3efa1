// The embedded type library: its contents against a golden text, and the public records as automation
// records.
#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

#include "tests/win_component/component_library.h"

namespace tessel {
namespace {

using win32::Bstr;
using win32::ComPtr;

ComPtr<ITypeLib> Library() {
    ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadTypeLibEx(tests::ComponentPath().c_str(), REGKIND_NONE, library.Put()), S_OK);
    return library;
}

std::wstring GuidText(REFGUID guid) {
    wchar_t text[40];
    StringFromGUID2(guid, text, 40);
    return text;
}

std::wstring NameOf(ITypeInfo* type) {
    Bstr name;
    type->GetDocumentation(MEMBERID_NIL, name.Put(), nullptr, nullptr, nullptr);
    return std::wstring(name.View());
}

std::wstring TypeName(ITypeInfo* type, const TYPEDESC& description) {
    switch (description.vt) {
        case VT_PTR:
            return TypeName(type, *description.lptdesc) + L"*";
        case VT_SAFEARRAY:
            return L"SAFEARRAY(" + TypeName(type, *description.lptdesc) + L")";
        case VT_USERDEFINED: {
            ComPtr<ITypeInfo> referenced;
            if (FAILED(type->GetRefTypeInfo(description.hreftype, referenced.Put()))) return L"?";
            return NameOf(referenced.Get());
        }
        case VT_BSTR:
            return L"BSTR";
        case VT_BOOL:
            return L"VARIANT_BOOL";
        case VT_I2:
            return L"short";
        case VT_I4:
            return L"long";
        case VT_VARIANT:
            return L"VARIANT";
        case VT_DISPATCH:
            return L"IDispatch*";
        case VT_HRESULT:
            return L"HRESULT";
        case VT_VOID:
            return L"void";
        default:
            return L"vt" + std::to_wstring(description.vt);
    }
}

std::wstring FlagsOf(USHORT flags) {
    std::wstring text;
    const auto add = [&](USHORT flag, const wchar_t* word) {
        if (!(flags & flag)) return;
        if (!text.empty()) text += L", ";
        text += word;
    };
    add(PARAMFLAG_FIN, L"in");
    add(PARAMFLAG_FOUT, L"out");
    add(PARAMFLAG_FOPT, L"optional");
    add(PARAMFLAG_FRETVAL, L"retval");
    return text;
}

std::wstring FunctionText(ITypeInfo* type, const FUNCDESC& function) {
    Bstr names[10];
    BSTR raw[10]{};
    UINT count = 0;
    type->GetNames(function.memid, raw, 10, &count);
    for (UINT i = 0; i < count; ++i) *names[i].Put() = raw[i];
    const wchar_t* kinds[] = {L"", L"method", L"get", L"", L"put", L"", L"", L"", L"putref"};
    std::wstring text = L"    [" + std::to_wstring(function.memid) + L"] " + kinds[function.invkind] + L" " +
                        std::wstring(names[0].View()) + L"(";
    for (SHORT i = 0; i < function.cParams; ++i) {
        const ELEMDESC& element = function.lprgelemdescParam[i];
        if (i) text += L", ";
        text += L"[" + FlagsOf(element.paramdesc.wParamFlags) + L"] " + TypeName(type, element.tdesc);
        if (i + 1u < count) text += L" " + std::wstring(names[i + 1].View());
    }
    return text + L") -> " + TypeName(type, function.elemdescFunc.tdesc) + L"\r\n";
}

/// The interface of a dual pair as the vtable has it: without the inherited methods.
std::wstring InterfaceText(ITypeInfo* dispatch) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> type;
    if (FAILED(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)))
        return L"    (not dual)\r\n";
    if (FAILED(dispatch->GetRefTypeInfo(reference, type.Put()))) return L"    (no interface)\r\n";
    TYPEATTR* attributes = nullptr;
    type->GetTypeAttr(&attributes);
    std::wstring text;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(type->GetFuncDesc(i, &function))) continue;
        text += FunctionText(type.Get(), *function);
        type->ReleaseFuncDesc(function);
    }
    type->ReleaseTypeAttr(attributes);
    return text;
}

std::wstring RecordText(ITypeInfo* type, const TYPEATTR& attributes) {
    std::wstring text;
    for (UINT i = 0; i < attributes.cVars; ++i) {
        VARDESC* variable = nullptr;
        if (FAILED(type->GetVarDesc(i, &variable))) continue;
        Bstr name;
        UINT count = 0;
        type->GetNames(variable->memid, name.Put(), 1, &count);
        text += L"    " + TypeName(type, variable->elemdescVar.tdesc) + L" " + std::wstring(name.View()) +
                L"\r\n";
        type->ReleaseVarDesc(variable);
    }
    return text;
}

std::wstring CoclassText(ITypeInfo* type, const TYPEATTR& attributes) {
    std::wstring text;
    for (UINT i = 0; i < attributes.cImplTypes; ++i) {
        HREFTYPE reference = 0;
        INT flags = 0;
        ComPtr<ITypeInfo> implemented;
        type->GetRefTypeOfImplType(i, &reference);
        type->GetImplTypeFlags(i, &flags);
        type->GetRefTypeInfo(reference, implemented.Put());
        text += L"    " + NameOf(implemented.Get()) +
                ((flags & IMPLTYPEFLAG_FDEFAULT) ? L" (default)" : L"") + L"\r\n";
    }
    return text;
}

std::wstring Dump(ITypeLib* library) {
    TLIBATTR* attributes = nullptr;
    library->GetLibAttr(&attributes);
    Bstr name;
    library->GetDocumentation(-1, name.Put(), nullptr, nullptr, nullptr);
    wchar_t locale[16];
    swprintf(locale, 16, L"0x%lx", attributes->lcid);
    std::wstring text = L"library " + std::wstring(name.View()) + L" " +
                        std::to_wstring(attributes->wMajorVerNum) + L"." +
                        std::to_wstring(attributes->wMinorVerNum) + L" " + locale + L" " +
                        GuidText(attributes->guid) + L"\r\n";
    library->ReleaseTLibAttr(attributes);
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> type;
        library->GetTypeInfo(i, type.Put());
        TYPEATTR* of_type = nullptr;
        type->GetTypeAttr(&of_type);
        const wchar_t* kinds[] = {L"enum",     L"record",  L"module", L"interface",
                                  L"dispatch", L"coclass", L"alias",  L"union"};
        text += std::wstring(kinds[of_type->typekind]) + L" " + NameOf(type.Get()) + L" " +
                GuidText(of_type->guid);
        if (of_type->wTypeFlags & TYPEFLAG_FDUAL) text += L" dual";
        if (of_type->wTypeFlags & TYPEFLAG_FCANCREATE) text += L" creatable";
        text += L"\r\n";
        if (of_type->typekind == TKIND_DISPATCH) text += InterfaceText(type.Get());
        if (of_type->typekind == TKIND_RECORD) text += RecordText(type.Get(), *of_type);
        if (of_type->typekind == TKIND_COCLASS) text += CoclassText(type.Get(), *of_type);
        type->ReleaseTypeAttr(of_type);
    }
    return text;
}

std::wstring WithoutCarriageReturns(std::wstring text) {
    std::erase(text, L'\r');
    return text;
}

TEST(TypeLibrary, IsWhatHostsBindTo) {
    const std::wstring dumped = WithoutCarriageReturns(Dump(Library().Get()));
    const std::wstring path =
        tests::EnvironmentPath("TESSEL_SOURCE_DIR") + L"\\tests\\win_component\\type_library.golden";
    FILE* file = _wfopen(path.c_str(), L"rb");
    ASSERT_NE(file, nullptr);
    std::string golden(20000, '\0');
    golden.resize(fread(golden.data(), 1, golden.size(), file));
    fclose(file);
    EXPECT_EQ(ToUtf8(dumped), ToUtf8(WithoutCarriageReturns(FromUtf8(golden))));
}

ComPtr<IRecordInfo> RecordOf(REFGUID guid) {
    ComPtr<ITypeInfo> type;
    ComPtr<IRecordInfo> record;
    EXPECT_EQ(Library()->GetTypeInfoOfGuid(guid, type.Put()), S_OK);
    if (!type) return record;
    EXPECT_EQ(GetRecordInfoFromTypeInfo(type.Get(), record.Put()), S_OK);
    return record;
}

GUID GuidOf(const wchar_t* text) {
    GUID guid{};
    CLSIDFromString(text, &guid);
    return guid;
}

std::wstring FieldNames(IRecordInfo* record) {
    ULONG count = 32;
    std::vector<BSTR> names(count);
    record->GetFieldNames(&count, names.data());
    names.resize(count);
    std::wstring text;
    for (const BSTR name : names) {
        if (!text.empty()) text += L" ";
        text += win32::TextOf(name);
        SysFreeString(name);
    }
    return text;
}

struct RecordCase {
    const wchar_t* guid;
    const wchar_t* name;
    ULONG size;
    const wchar_t* fields;
};

const RecordCase kRecords[] = {
    {L"{ffb5db3a-a2f1-42f6-b002-5ec4e91795c0}", L"ColInfo", sizeof(::ColInfo),
     L"Expresion Alias Table Visible GroupBy OrderBy Conditions"},
    {L"{03a7e689-8010-4727-b1f2-aa99d8d901b0}", L"RelInfo", sizeof(::RelInfo),
     L"LeftTable LeftField RightTable RightField JType Used"},
    {L"{acd7eed6-5ac9-4f87-83f8-c4e69f630cd8}", L"JInfo", sizeof(::JInfo), L"OnExp Table JType"},
    {L"{0a706872-9b99-41c8-be24-0724ccf7589f}", L"JPath", sizeof(::JPath), L"StartTable Joins"},
};

TEST(TypeLibrary, RecordsAreAutomationRecords) {
    for (const RecordCase& c : kRecords) {
        const ComPtr<IRecordInfo> record = RecordOf(GuidOf(c.guid));
        ASSERT_TRUE(record) << ToUtf8(c.name);
        Bstr name;
        ULONG size = 0;
        EXPECT_EQ(record->GetName(name.Put()), S_OK);
        EXPECT_EQ(name.View(), c.name);
        EXPECT_EQ(record->GetSize(&size), S_OK);
        EXPECT_EQ(size, c.size);
        EXPECT_EQ(FieldNames(record.Get()), c.fields);
    }
}

struct LayoutCase {
    const wchar_t* record;
    const wchar_t* offsets;  ///< of the fields in their order, then the size
};

/// As natural alignment places the fields, for each size of a pointer; hosts lay out their own copies so.
const LayoutCase kLayouts[] = {
    {L"{ffb5db3a-a2f1-42f6-b002-5ec4e91795c0}",
     sizeof(void*) == 8 ? L"0 8 16 24 32 40 48 56" : L"0 4 8 12 16 20 24 28"},
    {L"{03a7e689-8010-4727-b1f2-aa99d8d901b0}",
     sizeof(void*) == 8 ? L"0 8 16 24 32 36 40" : L"0 4 8 12 16 20 24"},
    {L"{acd7eed6-5ac9-4f87-83f8-c4e69f630cd8}", sizeof(void*) == 8 ? L"0 8 16 24" : L"0 4 8 12"},
    {L"{0a706872-9b99-41c8-be24-0724ccf7589f}", sizeof(void*) == 8 ? L"0 8 16" : L"0 4 8"},
};

TEST(TypeLibrary, FieldsOfRecordsLieWhereHostsExpectThem) {
    for (const LayoutCase& c : kLayouts) {
        ComPtr<ITypeInfo> type;
        ASSERT_EQ(Library()->GetTypeInfoOfGuid(GuidOf(c.record), type.Put()), S_OK);
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
        std::wstring offsets;
        for (UINT i = 0; i < attributes->cVars; ++i) {
            VARDESC* field = nullptr;
            ASSERT_EQ(type->GetVarDesc(i, &field), S_OK);
            offsets += std::to_wstring(field->oInst) + L" ";
            type->ReleaseVarDesc(field);
        }
        EXPECT_EQ(ToUtf8(offsets + std::to_wstring(attributes->cbSizeInstance)), ToUtf8(c.offsets));
        type->ReleaseTypeAttr(attributes);
    }
}

TEST(TypeLibrary, ARecordGivesItsFieldsByName) {
    const ComPtr<IRecordInfo> record = RecordOf(GuidOf(kRecords[0].guid));
    ASSERT_TRUE(record);
    ::ColInfo column{};
    ASSERT_EQ(record->RecordInit(&column), S_OK);
    column.Expresion = Bstr(L"Clientes.Nombre").Detach();
    column.OrderBy = 2;
    column.Conditions = SafeArrayCreateVector(VT_BSTR, 0, 2);
    win32::UniqueVariant read;
    EXPECT_EQ(record->GetField(&column, L"Expresion", read.Put()), S_OK);
    EXPECT_EQ(win32::TextOf(read.Get().bstrVal), L"Clientes.Nombre");
    EXPECT_EQ(record->GetField(&column, L"OrderBy", read.Put()), S_OK);
    EXPECT_EQ(read.Type(), VT_I2);
    EXPECT_EQ(read.Get().iVal, 2);
    EXPECT_EQ(record->RecordClear(&column), S_OK);
    EXPECT_EQ(column.Expresion, nullptr);
}

}  // namespace
}  // namespace tessel
