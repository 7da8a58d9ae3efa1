#include "ui/context_menus.h"

namespace tessel::ui {

namespace {

const MenuEntry kSeparator = {};

}  // namespace

Menu LinksMenu() {
    return {L"Enlaces",
            {{MenuCommand::mnuQuitarRel, L"Quitar relación"},
             kSeparator,
             {MenuCommand::mnuPropRel, L"Propiedades de la relación"}}};
}

Menu TablesMenu(bool has_other_table, bool has_schema, bool has_connection) {
    return {L"Tablas",
            {{MenuCommand::mnuDelTable, L"Quitar tabla del diagrama"},
             kSeparator,
             {MenuCommand::mnuRelacionar, L"Agregar relación", has_other_table},
             kSeparator,
             {MenuCommand::mnuAddRelTable, L"Agregar tabla relacionada al diagrama", has_schema},
             kSeparator,
             {MenuCommand::mnuVista2, L"Ver datos de la tabla", has_connection}}};
}

Menu TableMenu(bool has_diagram, bool has_connection) {
    return {L"Tabla",
            {{MenuCommand::mnuAddTD, L"Agregar tabla a diagrama", has_diagram},
             kSeparator,
             {MenuCommand::mnuVista, L"Ver los datos de la tabla", has_connection}}};
}

}  // namespace tessel::ui
