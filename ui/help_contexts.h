// The context numbers of the help file's topics: what ShowHelp and F1 ask for. One constant a topic of
// packaging/help/topics; the project file packaging/help/tesseldsn.hhp gives each the same number in [MAP]
// and its page in [ALIAS], and tests/help holds the three together. Numbers, once given, stay: a help file
// and a component of different ages may meet on one machine. No number is below 1, which would ask for the
// index.
#pragma once

namespace tessel::ui::help {

inline constexpr long kIndex = 0;  ///< no topic: the help opens at its index

inline constexpr long kStart = 1;
inline constexpr long kFirstSteps = 2;

inline constexpr long kWindow = 100;
inline constexpr long kDesignTab = 110;
inline constexpr long kSqlTab = 120;
inline constexpr long kBrowser = 130;
inline constexpr long kDiagram = 140;
inline constexpr long kAddTable = 141;
inline constexpr long kRelations = 142;

// 200 and the number of the grid's row.
inline constexpr long kGrid = 200;
inline constexpr long kRowCampo = 201;
inline constexpr long kRowTitulo = 202;
inline constexpr long kRowTabla = 203;
inline constexpr long kRowAgrupacion = 204;
inline constexpr long kRowVisible = 205;
inline constexpr long kRowOrden = 206;
inline constexpr long kRowCondicion = 207;
inline constexpr long kRowOr = 208;

inline constexpr long kJoins = 300;
inline constexpr long kCriteria = 310;
inline constexpr long kWholeConditions = 311;
inline constexpr long kTotals = 320;
inline constexpr long kOrdering = 330;
inline constexpr long kDistinct = 340;
inline constexpr long kMacros = 350;
inline constexpr long kParameters = 351;

inline constexpr long kPreview = 400;
inline constexpr long kSyntaxTree = 410;

inline constexpr long kMessages = 500;
inline constexpr long kMessagesDesigner = 501;
inline constexpr long kMessagesDesign = 502;
inline constexpr long kMessagesSyntax = 503;
inline constexpr long kLimits = 510;
inline constexpr long kKeyboard = 520;

/// The topic of a row of the design grid, 1 to 8; of the whole grid for any other number.
[[nodiscard]] constexpr long OfGridRow(int row) {
    return row >= 1 && row <= 8 ? kGrid + row : kGrid;
}

}  // namespace tessel::ui::help
