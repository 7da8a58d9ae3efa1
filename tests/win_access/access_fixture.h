// A designer window with the stand-in for the system's service of names, both inside COM.
#pragma once

#include "tests/win_access/accessible_walk.h"
#include "tests/win_access/recorded_names.h"
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

namespace tessel::testing {

class WithCom {
protected:
    WithCom() { CoInitialize(nullptr); }
    ~WithCom() { CoUninitialize(); }
};

class AccessTest : protected WithCom, protected RecordedNames, public DlgDsnTest {
protected:
    /// Closes the window when the steps so far are done; the last step of a script.
    void CloseAfterwards() {
        script_.Do([this] { PostMessageW(window_.Handle(), WM_CLOSE, 0, 0); });
    }
    AccessibleItem WalkOf(int control) { return WalkAccessible(Control(control)); }
};

inline constexpr wchar_t kCustomersAndOrders[] =
    L"SELECT Clientes.Nombre, Pedidos.Importe AS Total FROM (Clientes LEFT JOIN Pedidos ON "
    L"Clientes.IdCliente = Pedidos.IdCliente) WHERE (Clientes.Pais = 'España')";

}  // namespace tessel::testing
