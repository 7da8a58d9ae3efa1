#include "common/win32/activation_context.h"

#include "common/win32/module.h"

namespace tessel::win32 {

namespace {

constexpr int kManifestResource = 2;  // the number that Windows looks for in a library

HANDLE g_context = INVALID_HANDLE_VALUE;

HANDLE SharedContext() {
    if (g_context != INVALID_HANDLE_VALUE) return g_context;
    wchar_t path[MAX_PATH];
    const HINSTANCE module = ThisModule();
    const DWORD length = GetModuleFileNameW(module, path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return INVALID_HANDLE_VALUE;
    ACTCTXW request{};
    request.cbSize = sizeof request;
    request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    request.lpSource = path;
    request.hModule = module;
    request.lpResourceName = MAKEINTRESOURCEW(kManifestResource);
    g_context = CreateActCtxW(&request);
    return g_context;
}

}  // namespace

ActivationContext::ActivationContext() {
    const HANDLE context = SharedContext();
    if (context != INVALID_HANDLE_VALUE) active_ = ActivateActCtx(context, &cookie_) != FALSE;
}

ActivationContext::~ActivationContext() {
    if (active_) DeactivateActCtx(0, cookie_);
}

void ActivationContext::ReleaseShared() {
    if (g_context == INVALID_HANDLE_VALUE) return;
    ReleaseActCtx(g_context);
    g_context = INVALID_HANDLE_VALUE;
}

}  // namespace tessel::win32
