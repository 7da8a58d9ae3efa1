#include "component/errors.h"

#include "common/win32/com.h"

namespace tessel::component {

std::wstring ConversionMessage(HRESULT result) {
    switch (result) {
        case DISP_E_TYPEMISMATCH:
        case DISP_E_BADVARTYPE:
            return L"No coinciden los tipos";
        case DISP_E_OVERFLOW:
            return L"Desbordamiento";
        default:
            return win32::SystemMessage(result);
    }
}

}  // namespace tessel::component
