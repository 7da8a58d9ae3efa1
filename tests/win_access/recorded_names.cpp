#include "tests/win_access/recorded_names.h"

#include <oleacc.h>

#include <algorithm>

#include "common/win32/com_object.h"

namespace tessel::testing {

namespace {

constexpr GUID kService = {0xB5F8350B, 0x0548, 0x48B1, {0xA6, 0xEE, 0x88, 0xBD, 0x00, 0xB4, 0xA5, 0xE7}};
constexpr GUID kServiceInterface = {
    0x6E26E776, 0x04F0, 0x495D, {0x80, 0xE4, 0x33, 0x30, 0x35, 0x2E, 0x31, 0x69}};
constexpr GUID kName = {0x608D3DF8, 0x8128, 0x4AA7, {0xA4, 0x28, 0xF5, 0x5E, 0x49, 0x26, 0x72, 0x91}};

std::map<HWND, std::wstring> g_names;

class NameService final : public IAccPropServices {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (iid != kServiceInterface && iid != __uuidof(IUnknown)) return E_NOINTERFACE;
        *object = static_cast<IAccPropServices*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP SetHwndPropStr(HWND hwnd, DWORD object, DWORD child, MSAAPROPID property,
                                LPCWSTR text) override {
        if (!IsWindow(hwnd) || object != static_cast<DWORD>(OBJID_CLIENT) || child != CHILDID_SELF ||
            property != kName || !text)
            return E_INVALIDARG;
        g_names[hwnd] = text;
        return S_OK;
    }
    STDMETHODIMP ClearHwndProps(HWND hwnd, DWORD, DWORD, const MSAAPROPID* properties, int count) override {
        if (count == 1 && properties[0] == kName) g_names.erase(hwnd);
        return S_OK;
    }

    STDMETHODIMP SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                               AnnoScope) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
    STDMETHODIMP SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                   AnnoScope) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
    STDMETHODIMP SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                    AnnoScope) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
    STDMETHODIMP ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
        return E_NOTIMPL;
    }

private:
    virtual ~NameService() = default;
    ULONG references_ = 1;
};

class NameServiceFactory final : public IClassFactory {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (iid != __uuidof(IClassFactory) && iid != __uuidof(IUnknown)) return E_NOINTERFACE;
        *object = static_cast<IClassFactory*>(this);
        return S_OK;
    }
    // One for the program's whole life.
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (outer) return CLASS_E_NOAGGREGATION;
        auto* service = new NameService;
        const HRESULT result = service->QueryInterface(iid, object);
        service->Release();
        return result;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

NameServiceFactory g_factory;

}  // namespace

RecordedNames::RecordedNames() {
    CoRegisterClassObject(kService, &g_factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_);
}

RecordedNames::~RecordedNames() {
    if (registration_) CoRevokeClassObject(registration_);
    g_names.clear();
}

std::wstring RecordedNames::Of(HWND hwnd) {
    const auto found = g_names.find(hwnd);
    return found == g_names.end() ? std::wstring() : found->second;
}

std::size_t RecordedNames::Count() {
    return static_cast<std::size_t>(std::count_if(g_names.begin(), g_names.end(),
                                                  [](const auto& entry) { return !entry.second.empty(); }));
}

}  // namespace tessel::testing
