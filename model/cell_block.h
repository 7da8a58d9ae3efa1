// A block of cells as the text that programs exchange over the clipboard: cells apart by tabs, rows ended by
// line ends. Spreadsheets read and write the same.
//
// A cell that holds a tab, a line end or begins with a quotation mark is written between quotation marks, and
// those inside it are doubled. A single cell goes as it is, so that "Madrid" copied from a criterion arrives
// anywhere with its own quotation marks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tessel::model {

/// Rows of cells, all of one length.
using CellBlock = std::vector<std::vector<std::wstring>>;

[[nodiscard]] std::wstring FormatBlock(const CellBlock& block);

/// Rows that are shorter than others are filled up with empty cells. Never without a cell: an empty text is
/// one empty cell. Reads what FormatBlock writes as it was.
[[nodiscard]] CellBlock ParseBlock(std::wstring_view text);

}  // namespace tessel::model
