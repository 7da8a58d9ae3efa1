// A design grid in a window with a button before and after it, and a presenter in miniature that writes what
// the view reports.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "common/text.h"
#include "common/win32/dpi.h"
#include "controls/grid/win32/design_grid_view.h"
#include "tests/win_grid/window_driver.h"

namespace tessel::controls {

using model::GridRow;

class FakePresenter : public GridEvents {
public:
    explicit FakePresenter(model::DesignGrid& grid) : grid_(grid) {}

    void OnGridFocusMoved(GridRow row, int column) override {
        ++focus_moves;
        const bool row_changed = row != grid_.FocusedRow();
        grid_.SetFocus(row, column);
        if (row_changed) RefillLists(row);
    }
    void OnGridCellCommitted(GridRow row, int column, std::wstring_view text) override {
        commits.emplace_back(text);
        if (on_commit) on_commit();
        if (Utf16Length(text) > model::kMaxCellLength) return;
        EXPECT_TRUE(grid_.SetCell(row, column, text));
    }
    void OnGridColumnMoved(int from, int to) override {
        moves.emplace_back(from, to);
        EXPECT_TRUE(grid_.MoveColumn(from, to));
        OnGridFocusMoved(grid_.FocusedRow(), to);
    }
    void OnGridCellsEmptied(const model::CellRange& range) override { emptied = range; }
    void OnGridCellsPasted(const model::CellRange& range, const model::CellBlock& block) override {
        pasted_over = range;
        pasted = block;
    }
    void OnGridContextMenu(int column, POINT screen) override {
        menu_column = column;
        menu_point = screen;
    }
    void RefillLists(GridRow row) {
        if (row == GridRow::Visible)
            grid_.SetPickLists({L"Si", L"No"});
        else if (row == GridRow::Agrupacion)
            grid_.SetPickLists(
                {L"Agrupado por", L"Suma", L"Promedio", L"Mínimo", L"Máximo", L"Cuenta", L"Expresión"});
        else if (row == GridRow::Titulo)
            grid_.SetPickLists({});
        else
            grid_.SetPickLists({L"Clientes.*", L"Clientes.IdCliente", L"Clientes.Nombre", L"Pedidos.*",
                                L"[Detalle de pedidos].[Precio por unidad]"});
    }

    std::vector<std::wstring> commits;
    std::vector<std::pair<int, int>> moves;
    model::CellRange emptied;
    model::CellRange pasted_over;
    model::CellBlock pasted;
    int focus_moves = 0;
    int menu_column = -1;
    POINT menu_point{};
    std::function<void()> on_commit;

private:
    model::DesignGrid& grid_;
};

class GridTest : public ::testing::Test {
protected:
    GridTest() {
        before_ = frame_.AddButton(L"Antes", 11, {Px(10), Px(5), Px(110), Px(30)});
        grid_.LoadColumns();
        presenter_.RefillLists(GridRow::Campo);
        view_.Create(frame_.Handle(), 12);
        view_.Bind(&grid_, &presenter_);
        after_ = frame_.AddButton(L"Después", 13, {Px(120), Px(5), Px(220), Px(30)});
        MoveView(Px(600), Px(280));
        SetFocus(view_.Handle());
        frame_.Pump();
    }
    ~GridTest() override { view_.Bind(nullptr, nullptr); }

    int Px(int dips) const { return win32::Scale(dips, win32::DpiOf(frame_.Handle())); }
    void MoveView(int width, int height) {
        SetWindowPos(view_.Handle(), nullptr, Px(5), Px(40), width, height, SWP_NOZORDER);
        frame_.Pump();
    }
    POINT Middle(GridRow row, int column) const {
        const RECT cell = view_.CellRect(row, column);
        return {(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
    }
    void ClickCell(GridRow row, int column) {
        const POINT point = Middle(row, column);
        testing::Click(view_.Handle(), point.x, point.y);
        frame_.Pump();
    }
    bool IsOn(GridRow row, int column) const {
        return view_.State().FocusedRow() == row && view_.State().FocusedColumn() == column &&
               grid_.FocusedRow() == row && grid_.FocusedColumn() == column;
    }
    /// Fills the first columns with a query.
    void FillGrid() {
        const wchar_t* const cells[][8] = {
            {L"Clientes.Nombre", L"Nombre del cliente", L"Clientes", L"Agrupado por", L"Si", L"Ascendente",
             L"", L""},
            {L"Pedidos.Importe", L"Total", L"Pedidos", L"Suma", L"Si", L"Descendente", L">1000", L"<10"},
            {L"[Detalle de pedidos].[Precio por unidad]", L"Precio", L"[Detalle de pedidos]", L"Máximo",
             L"No", L"", L"@desde", L""},
            {L"Año(Pedidos.Fecha)", L"Año", L"", L"Expresión", L"Si", L"", L"", L""},
        };
        for (int column = 0; column < 4; ++column) {
            for (int row = 0; row < 8; ++row)
                EXPECT_TRUE(grid_.SetCell(model::kGridRows[row], column, cells[column][row]));
            grid_.SetCaption(column, cells[column][1]);
        }
        frame_.Pump();
    }

    testing::TestFrame frame_{Dpi() * 660 / 96, Dpi() * 400 / 96};
    model::DesignGrid grid_;
    FakePresenter presenter_{grid_};
    DesignGridView view_;
    HWND before_ = nullptr;
    HWND after_ = nullptr;

private:
    static int Dpi() {
        SetProcessDPIAware();
        return win32::DpiOf(nullptr);
    }
};

}  // namespace tessel::controls
