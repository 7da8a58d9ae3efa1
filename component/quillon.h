// Quillon, the class through which a host reaches the designer. DesingQry (the spelling is the interface's
// own) lets the user edit a statement over a connection and answers with the statement to keep; whatever goes
// wrong, that is the statement it was given, and no error reaches the host. GetParameter looks a parameter up
// in ParamCol and has no such trap.
//
// The designer window lives for one call. While one is open, in whatever thread, a further DesingQry answers
// its statement at once.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "component/dual_object.h"
#include "component/schema_reader.h"
#include "tessel_h.h"
#include "ui/views.h"

namespace tessel::component {

class Quillon final : public DualObject<::_Quillon, ::Quillon>, private ui::DesignerOwner {
public:
    STDMETHODIMP get_CurrentSchema(IDispatch** CurrentSchema) override;
    STDMETHODIMP putref_CurrentSchema(IDispatch* CurrentSchema) override;
    STDMETHODIMP DesingQry(IDispatch** ADOCnn, BSTR* sSql, BSTR* CName, BSTR* Result) override;
    STDMETHODIMP get_ParamCol(IDispatch** ParamCol) override;
    STDMETHODIMP putref_ParamCol(IDispatch* ParamCol) override;
    STDMETHODIMP GetParameter(BSTR* Name, ::_cParameter** Parameter) override;

private:
    /// The road of DesingQry from the schema to the window; nothing unless the user accepted a statement.
    std::optional<std::wstring> Design(IDispatch* connection, const std::wstring& sql, BSTR* caption);
    std::optional<std::wstring> ShowDesigner(IDispatch* connection, const std::wstring& sql,
                                             const schema::Schema& schema, const std::wstring& caption,
                                             class HourglassPointer& pointer);

    /// The host's parameter of that name, or an empty pointer, also when the look-up failed.
    win32::ComPtr<::_cParameter> FindParameter(std::wstring_view name);

    // DesignerOwner
    std::vector<std::wstring> ParameterNames() override;
    std::optional<std::wstring> ParameterLiteral(std::wstring_view name) override;
    std::optional<std::wstring> ParameterText(std::wstring_view name) override;
    std::optional<std::wstring> UserName() override;
    std::optional<std::wstring> ComputerName() override;

    win32::ComPtr<IDispatch> current_schema_;
    win32::ComPtr<IDispatch> parameters_;
};

}  // namespace tessel::component
