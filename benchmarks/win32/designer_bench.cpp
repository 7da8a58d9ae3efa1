#include <windows.h>

#include <commctrl.h>

#include "benchmarks/win32/designer_host.h"
#include "benchmarks/win32/groups.h"
#include "hostkit/drive/input.h"
#include "ui/views.h"
#include "ui/win32/designer_ids.h"

namespace tessel::bench {

namespace {

constexpr int kOpenings = 15;
constexpr int kSwitches = 21;

/// 60 columns over five joined tables: their fields, and expressions of them.
std::wstring SixtyColumns() {
    static constexpr const wchar_t* kFields[] = {L"Pedidos.IdPedido",
                                                 L"Pedidos.Fecha",
                                                 L"Pedidos.Importe",
                                                 L"Pedidos.Urgente",
                                                 L"Clientes.Nombre",
                                                 L"Clientes.Ciudad",
                                                 L"Clientes.Pais",
                                                 L"Clientes.Activo",
                                                 L"Empleados.Apellidos",
                                                 L"Empleados.Cargo",
                                                 L"[Detalle de pedidos].Cantidad",
                                                 L"[Detalle de pedidos].Descuento",
                                                 L"Productos.PrecioUnitario",
                                                 L"Productos.Existencias",
                                                 L"Productos.Nombre"};
    std::wstring sql = L"SELECT DISTINCTROW ";
    for (std::size_t i = 0; i < 60; ++i) {
        const std::wstring number = std::to_wstring(i);
        const std::wstring field = kFields[i % std::size(kFields)];
        if (i > 0) sql += L", ";
        sql +=
            i < std::size(kFields) ? field : L"IIf(" + field + L" Is Null, " + number + L", " + field + L")";
        sql += L" AS Columna" + number;
    }
    return sql +
           L" FROM (((Pedidos INNER JOIN Clientes ON Pedidos.IdCliente = Clientes.IdCliente) INNER JOIN "
           L"Empleados ON "
           L"Pedidos.IdEmpleado = Empleados.IdEmpleado) INNER JOIN [Detalle de pedidos] ON Pedidos.IdPedido "
           L"= "
           L"[Detalle de pedidos].IdPedido) INNER JOIN Productos ON [Detalle de pedidos].IdProducto = "
           L"Productos.IdProducto WHERE Pedidos.Importe > 100 AND Clientes.Pais = 'Chile' AND "
           L"Productos.Existencias "
           L"> 0 ORDER BY Pedidos.Fecha DESC";
}

constexpr wchar_t kUsualStatement[] =
    L"SELECT Clientes.Nombre, Pedidos.Fecha, Pedidos.Importe, Empleados.Apellidos FROM (Pedidos INNER JOIN "
    L"Clientes ON "
    L"Pedidos.IdCliente = Clientes.IdCliente) INNER JOIN Empleados ON Pedidos.IdEmpleado = "
    L"Empleados.IdEmpleado WHERE "
    L"Pedidos.Importe > 100 ORDER BY Pedidos.Fecha";

/// A tab chosen as a click or a key would.
void ChooseTab(ui::Tab tab) {
    SendMessageW(testing::Descendant(DesignerWindow(), ui::kIdTabs), TCM_SETCURFOCUS,
                 static_cast<WPARAM>(tab), 0);
}

bool IsGridShown() {
    return IsWindowVisible(testing::Descendant(DesignerWindow(), ui::kIdGrid)) != 0;
}

void SwitchTabs(Measurements* measurements) {
    for (int i = 0; i < kSwitches; ++i) {
        const double there = SecondsUntilPainted(DesignerWindow(), [] { ChooseTab(ui::Tab::Sql); });
        const double back = SecondsUntilPainted(DesignerWindow(), [] { ChooseTab(ui::Tab::Design); });
        // A text that is no design would be quicker to switch to.
        if (!IsGridShown()) return;
        if (i == 0) continue;
        measurements->Add("SwitchToSql", there);
        measurements->Add("SwitchToDesign", back);
    }
}

}  // namespace

void MeasureDesigner(const Databases& databases, Measurements* measurements) {
    DesignerHost host;
    const win32::Dispatch connection = host.Open(databases.ventas);
    for (int i = 0; i < kOpenings; ++i) {
        const double empty = host.Design(connection, L"");
        const double usual = host.Design(connection, kUsualStatement);
        if (i == 0) continue;
        measurements->Add("FirstPaintEmpty", empty);
        measurements->Add("FirstPaint", usual);
    }
    // A switch lets events be processed, among them the ticks of the script: its next step has to wait.
    bool switched = false;
    const double seconds = host.Design(connection, SixtyColumns(), [&](testing::Script& script) {
        script.Do([&] {
            SwitchTabs(measurements);
            switched = true;
        });
        script.Until([&] { return switched; }, "the tabs have been switched");
    });
    measurements->Add("FirstPaintOfSixtyColumns", seconds);
}

}  // namespace tessel::bench
