// A designer window on a small schema made of literals, driven by a script while its modal loop runs.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "common/win32/activation_context.h"
#include "hostkit/drive/input.h"
#include "hostkit/drive/script.h"
#include "schema/schema.h"
#include "ui/win32/designer_window.h"

namespace tessel::testing {

/// Clientes, Pedidos, [Detalle de pedidos], Productos and the view [Ventas por país], with keys.
schema::Schema SmallSchema();

class DlgDsnTest : public ::testing::Test {
protected:
    DlgDsnTest();

    /// Opens the window on the statement, runs the script, and returns what the window's modal call answered.
    bool Run(std::wstring_view statement);

    HWND Control(int id) { return Descendant(window_.Handle(), id); }
    /// Presses a button as a message posted to it, so that the press is handled by the window's own loop.
    void Press(int id);
    void ClickTab(ui::Tab tab);
    std::wstring EditorText();
    const model::DesignGrid& Grid() { return window_.Presenter().Design().grid; }
    const model::Diagram& Diagram() { return window_.Presenter().Design().diagram; }
    const std::wstring& Cell(model::GridRow row, int column) { return Grid().Cell(row, column); }
    bool GridIsVisible() { return IsWindowVisible(Control(ui::kIdGrid)) != FALSE; }

    win32::ActivationContext context_;
    schema::Schema schema_;
    Script script_;
    ui::DesignerWindow window_{nullptr};
};

inline constexpr wchar_t kTotalsByCustomer[] =
    L"SELECT Clientes.Nombre, Sum(Pedidos.Importe) AS Total FROM (Clientes INNER JOIN Pedidos ON "
    L"Clientes.IdCliente = Pedidos.IdCliente) GROUP BY Clientes.Nombre ORDER BY Sum(Pedidos.Importe) DESC";

}  // namespace tessel::testing
