// "SQL.ini", the editor's highlighting definition: which words are coloured and what every style looks like.
// The file is read and never written; what it leaves out, and the whole of it when it is missing, comes from
// the built-in definition. Reading never fails: a line that makes no sense is skipped.
//
//   [SQL]
//   palabras  = SELECT FROM WHERE          ; further lines of the same key add words
//   funciones = Sum Avg Count
//   tipos     = INTEGER DATETIME
//   letra     = Consolas
//   tamaño    = 10
//   estilo.palabra = #0033B3 negrita       ; colour, background, then negrita, cursiva, subrayado
//
// Keys and words may be in any letter case. ";" begins a comment, at the start of a line or after a blank.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "controls/editor/sql_colouring.h"

namespace tessel::controls {

/// How a style is drawn. A colour that is absent is the system's window colour.
struct StyleLook {
    std::optional<std::uint32_t> colour;      ///< 0xRRGGBB
    std::optional<std::uint32_t> background;  ///< 0xRRGGBB
    bool bold = false;
    bool italic = false;
    bool underline = false;

    friend bool operator==(const StyleLook&, const StyleLook&) = default;
};

struct ColouringDefinition {
    SqlWords words;
    std::array<StyleLook, kSqlStyleCount> looks;  ///< by SqlStyle
    StyleLook margin;                             ///< the line numbers
    StyleLook pair;                               ///< the parentheses beside the caret
    StyleLook no_pair;                            ///< one without a partner
    std::wstring font = L"Consolas";
    int points = 10;

    const StyleLook& Look(SqlStyle style) const { return looks[static_cast<std::size_t>(style)]; }

    friend bool operator==(const ColouringDefinition&, const ColouringDefinition&) = default;
};

/// The definition that the shipped file repeats.
[[nodiscard]] ColouringDefinition BuiltInColouring();

/// The built-in definition with what the section of the text changes. The text is UTF-8, with or without a
/// mark.
[[nodiscard]] ColouringDefinition ReadSqlIni(std::string_view utf8, std::wstring_view section = L"SQL");

}  // namespace tessel::controls
