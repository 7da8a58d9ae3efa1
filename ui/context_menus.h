// The context menus of the diagram and the schema browser as data: captions, separators, order, and which
// entries can do something now. The window only shows them and reports the command chosen.
#pragma once

#include <string>
#include <vector>

namespace tessel::ui {

/// What a menu entry does. The values are the identifiers of the entries in their menus; 0 is no entry.
enum class MenuCommand : int {
    None = 0,
    mnuQuitarRel = 601,
    mnuPropRel,
    mnuDelTable,
    mnuRelacionar,
    mnuAddRelTable,
    mnuVista2,
    mnuAddTD,
    mnuVista,
};

struct MenuEntry {
    MenuCommand command = MenuCommand::None;  ///< None is a separator
    std::wstring caption;
    bool enabled = true;
    friend bool operator==(const MenuEntry&, const MenuEntry&) = default;
};

struct Menu {
    std::wstring title;
    std::vector<MenuEntry> entries;
    friend bool operator==(const Menu&, const Menu&) = default;
};

/// mnuEnlaces, of a relation line.
[[nodiscard]] Menu LinksMenu();
/// mnuTablas, of a table of the diagram. A relation needs another table, related tables a schema, rows a
/// connection.
[[nodiscard]] Menu TablesMenu(bool has_other_table, bool has_schema, bool has_connection);
/// mnuTabla, of a table or view of the schema browser. A table can only be added to a diagram in force.
[[nodiscard]] Menu TableMenu(bool has_diagram, bool has_connection);

}  // namespace tessel::ui
