// Pictures of the diagram, for eyes: saved where TESSEL_PICTURES says, else only painted. What a test can
// tell of a picture is that something was painted where it belongs.
#include <gtest/gtest.h>

#include <set>

#include "common/win32/dpi.h"
#include "tests/win_diagram/diagram_window.h"

namespace tessel::controls::testing_support {
namespace {

const TableLiterals kSales = {
    {L"Clientes", {L"+IdCliente", L"Nombre", L"Apellidos", L"Dirección", L"Teléfono", L"País"}},
    {L"Pedidos", {L"+IdPedido", L"-IdCliente", L"-IdEmpleado", L"Fecha", L"Importe", L"Observaciones"}},
    {L"Detalle de pedidos", {L"+IdPedido", L"+IdProducto", L"Cantidad", L"Precio unitario", L"Descuento"}},
    {L"Productos", {L"+IdProducto", L"Nombre", L"-IdCategoría", L"-IdProveedor", L"Precio", L"Existencias"}},
    {L"Categorías", {L"+IdCategoría", L"Nombre", L"Descripción"}},
    {L"Proveedores", {L"+IdProveedor", L"Razón social", L"Año de alta", L"Población"}},
    {L"Empleados", {L"+IdEmpleado", L"Nombre", L"-IdJefe", L"Cargo"}},
    {L"Formas de pago según contrato y condiciones especiales de la compañía",
     {L"+Código", L"Descripción larga"}},
    {L"Almacén", {L"+Código", L"+Zona", L"Superficie"}},
    {L"Transportistas", {L"+IdTransportista", L"Nombre"}},
    {L"Ficha",
     {L"+IdFicha", L"Campo 01", L"Campo 02", L"Campo 03", L"Campo 04", L"Campo 05",  L"Campo 06", L"Campo 07",
      L"Campo 08", L"Campo 09", L"Campo 10", L"Campo 11", L"Campo 12", L"Campo 13",  L"Campo 14", L"Campo 15",
      L"Campo 16", L"Campo 17", L"Campo 18", L"Campo 19", L"Campo 20", L"Campo 21",  L"Campo 22", L"Campo 23",
      L"Campo 24", L"Campo 25", L"Campo 26", L"Campo 27", L"Campo 28", L"-IdCliente"}},
    {L"Observaciones", {L"+Id", L"-IdPedido", L"Texto"}},
};

struct Join {
    std::wstring left_table, left_field, right_table, right_field;
    int kind;
};
const std::vector<Join> kJoins = {
    {L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente", model::kInnerJoin},
    {L"Pedidos", L"IdPedido", L"Detalle de pedidos", L"IdPedido", model::kLeftJoin},
    {L"Productos", L"IdProducto", L"Detalle de pedidos", L"IdProducto", model::kRightJoin},
    {L"Categorías", L"IdCategoría", L"Productos", L"IdCategoría", model::kInnerJoin},
    {L"Proveedores", L"IdProveedor", L"Productos", L"IdProveedor", model::kInnerJoin},
    {L"Empleados", L"IdEmpleado", L"Pedidos", L"IdEmpleado", model::kInnerJoin},
    {L"Clientes", L"IdCliente", L"Ficha", L"IdCliente", model::kLeftJoin},
    {L"Pedidos", L"IdPedido", L"Observaciones", L"IdPedido", model::kInnerJoin},
};

std::size_t ColoursIn(HWND hwnd, const RECT& area) {
    std::set<COLORREF> colours;
    const HDC dc = GetDC(hwnd);
    for (int y = area.top; y < area.bottom; y += 2)
        for (int x = area.left; x < area.right; x += 2) colours.insert(GetPixel(dc, x, y));
    ReleaseDC(hwnd, dc);
    return colours.size();
}

class DiagramPictures : public testing::TestWithParam<int> {};

TEST_P(DiagramPictures, EveryBoxShownIsPainted) {
    const std::size_t count = static_cast<std::size_t>(GetParam());
    DiagramWindow window(kSales, {1000, 740});
    ASSERT_TRUE(window.view.IsCreated());
    for (std::size_t i = 0; i < count; ++i) window.Add(kSales[i].first);
    for (const Join& join : kJoins)
        window.Relate(join.left_table, join.left_field, join.right_table, join.right_field, join.kind);
    window.diagram.SetChecked(L"Clientes", L"Nombre", true);
    window.diagram.SetChecked(L"Pedidos", L"*", true);
    window.diagram.SetChecked(L"Pedidos", L"Importe", true);
    window.Pump();
    window.Click(Middle(window.view.FieldRect(L"Pedidos", L"Fecha")));
    window.Mouse(WM_MOUSEMOVE, window.view.RelationPoint(1));
    RECT client;
    GetClientRect(window.view.Handle(), &client);
    for (const model::DiagramTable& table : window.diagram.Tables()) {
        RECT shown;
        const RECT rect = window.view.TableRect(table.name);
        ASSERT_FALSE(IsRectEmpty(&rect));
        if (!IntersectRect(&shown, &rect, &client) || shown.bottom - shown.top <= 40) continue;
        EXPECT_GT(ColoursIn(window.view.Handle(), shown), 3u);
    }
    wchar_t folder[MAX_PATH];
    if (GetEnvironmentVariableW(L"TESSEL_PICTURES", folder, MAX_PATH)) {
        const std::wstring name = std::to_wstring(GetParam()) + L"_" + std::to_wstring(win32::DpiOf(nullptr));
        EXPECT_TRUE(window.Save(std::wstring(folder) + L"\\diagram_" + name + L".bmp"));
        window.view.SetZoom(50);
        EXPECT_TRUE(window.Save(std::wstring(folder) + L"\\diagram_" + name + L"_z50.bmp"));
        window.view.SetZoom(200);
        EXPECT_TRUE(window.Save(std::wstring(folder) + L"\\diagram_" + name + L"_z200.bmp"));
    }
}

INSTANTIATE_TEST_SUITE_P(Tables, DiagramPictures, testing::Values(2, 5, 12));

}  // namespace
}  // namespace tessel::controls::testing_support
