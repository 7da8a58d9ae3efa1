#include "component/quillon.h"

#include <lmcons.h>

#include <atomic>

#include "common/text.h"
#include "common/win32/dispatch.h"
#include "common/win32/foreign_call.h"
#include "component/errors.h"
#include "component/foreign_parameter.h"
#include "component/literal.h"
#include "component/parameter_collection.h"
#include "component/pointer.h"
#include "ui/win32/dlg_dsn.h"

namespace tessel::component {

using win32::CallResult;
using win32::ComPtr;
using win32::Dispatch;
using win32::UniqueVariant;

namespace {

constexpr wchar_t kDefaultCaption[] = L"Esquema de base de datos";

/// One step of DesingQry: what fails is skipped, and the next step runs.
template <class Body>
void Step(Body&& body) noexcept {
    try {
        body();
    } catch (...) {
    }
}

/// The claim on the only designer window of the component. It is made before the schema is read: reading
/// calls into the host, which may call DesingQry in turn.
class WindowClaim {
public:
    WindowClaim() : held_(!taken_.exchange(true)) {}
    ~WindowClaim() {
        if (held_) taken_ = false;
    }
    WindowClaim(const WindowClaim&) = delete;
    WindowClaim& operator=(const WindowClaim&) = delete;

    bool IsHeld() const { return held_; }

private:
    static inline std::atomic<bool> taken_{false};
    const bool held_;
};

/// Takes the windows' classes back at its end: hosts may unload the library as soon as no object is left,
/// without asking first.
class WindowClasses {
public:
    WindowClasses() = default;
    ~WindowClasses() {
        Step([] { ui::UnregisterWindowClasses(); });
    }
    WindowClasses(const WindowClasses&) = delete;
    WindowClasses& operator=(const WindowClasses&) = delete;
};

/// The schema's caption: what the caller gave, else the connection's default database, else a fixed text. A
/// caption that was filled in is stored into the caller's variable.
std::wstring FillCaption(IDispatch* connection, BSTR* caption) {
    std::wstring name(caption ? win32::TextOf(*caption) : std::wstring_view());
    if (!TrimView(name).empty()) return name;
    Step([&] {
        if (const auto database = Dispatch(connection).Get(L"defaultdatabase").Text()) name = *database;
    });
    if (TrimView(name).empty()) name = kDefaultCaption;
    if (caption) win32::ReplaceText(name, caption);
    return name;
}

HRESULT RaiseWalkError(const CallResult& failure) {
    const std::wstring& source = failure.Source();
    return win32::RaiseError(failure.Code(), __uuidof(::_Quillon), source.empty() ? kQuillonProgId : source,
                             failure.Message());
}

}  // namespace

STDMETHODIMP Quillon::get_CurrentSchema(IDispatch** CurrentSchema) {
    return current_schema_.CopyTo(CurrentSchema);
}

STDMETHODIMP Quillon::putref_CurrentSchema(IDispatch* CurrentSchema) {
    current_schema_ = ComPtr<IDispatch>(CurrentSchema);
    return S_OK;
}

STDMETHODIMP Quillon::get_ParamCol(IDispatch** ParamCol) {
    return parameters_.CopyTo(ParamCol);
}

STDMETHODIMP Quillon::putref_ParamCol(IDispatch* ParamCol) {
    parameters_ = ComPtr<IDispatch>(ParamCol);
    return S_OK;
}

STDMETHODIMP Quillon::DesingQry(IDispatch** ADOCnn, BSTR* sSql, BSTR* CName, BSTR* Result) {
    if (!Result) return E_POINTER;
    *Result = nullptr;
    // The host runs while the window is open, and may drop its references to us and to the connection.
    const ComPtr<IUnknown> alive(static_cast<::_Quillon*>(this));
    const HRESULT kept = win32::ReturnText(sSql ? win32::TextOf(*sSql) : std::wstring_view(), Result);
    if (FAILED(kept)) return kept;
    Step([&] {
        const ComPtr<IDispatch> connection(ADOCnn ? *ADOCnn : nullptr);
        const std::wstring sql(win32::TextOf(*Result));
        if (const auto accepted = Design(connection.Get(), sql, CName)) win32::ReplaceText(*accepted, Result);
    });
    return S_OK;
}

std::optional<std::wstring> Quillon::Design(IDispatch* connection, const std::wstring& sql, BSTR* caption) {
    // A call while the window is open, from whatever thread, changes nothing: not even the schema of the
    // first.
    const WindowClaim claim;
    if (!claim.IsHeld()) return std::nullopt;
    const win32::FreshCalls fresh;
    HourglassPointer pointer;
    Step([] { ProcessPendingMessages(); });
    const ComPtr<SchemaReader> reader = win32::MakeObject<SchemaReader>();
    current_schema_ = ComPtr<IDispatch>(reader.Get());
    bool loaded = false;
    Step([&] { loaded = reader && reader->LoadSchema(connection); });
    if (!loaded) return std::nullopt;
    std::wstring name;
    Step([&] { name = FillCaption(connection, caption); });
    const SchemaReader::InUse in_use(*reader.Get());
    return ShowDesigner(connection, sql, reader->Schema(), name, pointer);
}

std::optional<std::wstring> Quillon::ShowDesigner(IDispatch* connection, const std::wstring& sql,
                                                  const schema::Schema& schema, const std::wstring& caption,
                                                  HourglassPointer& pointer) {
    const WindowClasses classes;
    std::unique_ptr<ui::dlgDsn> window;
    Step([&] { window = std::make_unique<ui::dlgDsn>(static_cast<ui::DesignerOwner*>(this)); });
    if (!window || !window->IsCreated()) return std::nullopt;
    Step([&] { window->LoadSchema(&schema, caption); });
    Step([&] { window->SetConnection(connection); });
    // A window that does not hold the statement would give another one back.
    bool holds_statement = false;
    Step([&] {
        window->SetResultSQL(sql);
        if (!TrimView(sql).empty()) window->SetDsn(sql);
        holds_statement = true;
    });
    if (!holds_statement) return std::nullopt;
    pointer.Restore();
    Step([&] { window->ShowModal(); });
    std::optional<std::wstring> accepted;
    Step([&] {
        if (window->Accepted()) accepted = window->ResultSQL();
    });
    return accepted;
}

STDMETHODIMP Quillon::GetParameter(BSTR* Name, ::_cParameter** Parameter) {
    if (!Parameter) return E_POINTER;
    *Parameter = nullptr;
    if (!parameters_) return S_OK;
    return win32::Guarded([&]() -> HRESULT {
        const std::wstring wanted = Folded(Name ? win32::TextOf(*Name) : std::wstring_view());
        std::optional<CallResult> failure;
        ComPtr<IDispatch> match;
        const CallResult walked = WalkParameters(Dispatch(parameters_), [&](const UniqueVariant& element) {
            CallResult name = ParameterName(element);
            if (!name) {
                failure = std::move(name);
                return false;
            }
            if (Folded(*name.Text()) != wanted) return true;
            match = element.Object();
            return false;
        });
        if (failure) return RaiseWalkError(*failure);
        if (!walked) return RaiseWalkError(walked);
        if (!match) return S_OK;
        const ComPtr<::_cParameter> parameter = AsParameter(match);
        return parameter ? parameter.CopyTo(Parameter) : E_OUTOFMEMORY;
    });
}

std::vector<std::wstring> Quillon::ParameterNames() {
    std::vector<std::wstring> names;
    const CallResult walked = WalkParameters(Dispatch(parameters_), [&](const UniqueVariant& element) {
        if (const auto name = ParameterName(element).Text()) names.push_back(*name);
        return true;
    });
    // A collection that fails half way offers what it gave.
    static_cast<void>(walked);
    return names;
}

// A look-up that fails finds nothing: the macro then stays in the text, and no error of it may reach the
// host.
ComPtr<::_cParameter> Quillon::FindParameter(std::wstring_view name) {
    ComPtr<::_cParameter> parameter;
    BSTR text = win32::Bstr(name).Detach();
    const HRESULT found = GetParameter(&text, parameter.Put());
    SysFreeString(text);
    if (FAILED(found)) SetErrorInfo(0, nullptr);
    return parameter;
}

std::optional<std::wstring> Quillon::ParameterLiteral(std::wstring_view name) {
    const ComPtr<::_cParameter> parameter = FindParameter(name);
    win32::Bstr literal;
    if (!parameter) return std::nullopt;
    if (SUCCEEDED(parameter->SQLExpresion(literal.Put()))) return std::wstring(literal.View());
    SetErrorInfo(0, nullptr);
    return std::nullopt;
}

std::optional<std::wstring> Quillon::ParameterText(std::wstring_view name) {
    const ComPtr<::_cParameter> parameter = FindParameter(name);
    UniqueVariant value;
    std::wstring text;
    if (!parameter) return std::nullopt;
    if (SUCCEEDED(parameter->get_Value(value.Put())) && SUCCEEDED(RenderText(value.Get(), &text)))
        return text;
    SetErrorInfo(0, nullptr);
    return std::nullopt;
}

std::optional<std::wstring> Quillon::UserName() {
    wchar_t name[UNLEN + 1] = L"";
    DWORD size = UNLEN + 1;
    if (!GetUserNameW(name, &size)) return std::nullopt;
    return std::wstring(name);
}

std::optional<std::wstring> Quillon::ComputerName() {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = L"";
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    if (!GetComputerNameW(name, &size)) return std::nullopt;
    return std::wstring(name);
}

}  // namespace tessel::component
