// Designs in a few words, for the tests of composition, analysis and presenter.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "model/design.h"

namespace tessel::test {

/// The eight cells of a query column, in row order.
struct Column {
    std::wstring campo = {};
    std::wstring titulo = {};
    std::wstring tabla = {};
    std::wstring agrupacion = {};
    std::wstring visible = {};
    std::wstring orden = {};
    std::wstring condicion = {};
    std::wstring alternative = {};
};

inline void PutColumn(model::DesignGrid& grid, int index, const Column& column) {
    using model::GridRow;
    const std::wstring* cells[] = {&column.campo,   &column.titulo, &column.tabla,     &column.agrupacion,
                                   &column.visible, &column.orden,  &column.condicion, &column.alternative};
    for (std::size_t row = 0; row < std::size(cells); ++row) {
        ASSERT_TRUE(grid.SetCell(model::kGridRows[row], index, *cells[row]));
    }
}

inline void FillDesign(model::Design& design, const std::vector<std::wstring>& tables,
                       const std::vector<model::RelInfo>& relations, const std::vector<Column>& columns,
                       bool distinct = false) {
    design.grid.LoadColumns();
    for (const std::wstring& table : tables) design.diagram.AddTable(table, true);
    for (const model::RelInfo& relation : relations) design.diagram.AddRelation(relation);
    for (std::size_t index = 0; index < columns.size(); ++index) {
        PutColumn(design.grid, static_cast<int>(index), columns[index]);
    }
    design.distinct = distinct;
}

}  // namespace tessel::test
