#include "tools/design_json.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

#include "common/identifiers.h"
#include "common/text.h"

namespace tessel::tools {

namespace {

using model::GridRow;

constexpr std::array<std::pair<const char*, GridRow>, model::kGridRowCount> kCellNames = {{
    {"Campo", GridRow::Campo},
    {"Titulo", GridRow::Titulo},
    {"Tabla", GridRow::Tabla},
    {"Agrupacion", GridRow::Agrupacion},
    {"Visible", GridRow::Visible},
    {"Orden", GridRow::Orden},
    {"Condicion", GridRow::Condicion},
    {"OR", GridRow::Or},
}};

Error Unusable(const std::string& message) {
    return {FromUtf8(message)};
}

/// A complaint that begins with the member's name in quotes.
Error UnusableMember(const char* name, std::string_view place, std::string_view complaint) {
    std::string message = "\"";
    message.append(name).append("\" de ").append(place).append(complaint);
    return Unusable(message);
}

/// The member as text, empty when it is missing or null. Nothing when it is something else.
std::optional<std::wstring> TextMember(const Json& object, const char* name) {
    const auto found = object.find(name);
    if (found == object.end() || found->is_null()) return std::wstring();
    if (!found->is_string()) return std::nullopt;
    return FromUtf8(found->get_ref<const std::string&>());
}

/// The member as an array; an empty one when it is missing or null. Nothing when it is something else.
const Json* ArrayMember(const Json& object, const char* name) {
    static const Json kEmpty = Json::array();
    const auto found = object.find(name);
    if (found == object.end() || found->is_null()) return &kEmpty;
    return found->is_array() ? &*found : nullptr;
}

bool HasTable(const model::Diagram::Contents& contents, const std::wstring& name) {
    for (const model::DiagramTable& table : contents.tables)
        if (SameIdentifier(table.name, name)) return true;
    return false;
}

void AddTable(model::Diagram::Contents& contents, const std::wstring& name) {
    if (HasTable(contents, name)) return;
    model::DiagramTable table;
    table.name = name;
    contents.tables.push_back(std::move(table));
}

std::optional<Error> ReadDiagram(const Json& json, model::Design& design) {
    const Json* const tables = ArrayMember(json, "tables");
    if (!tables) return Unusable("\"tables\" no es una lista");
    const Json* const relations = ArrayMember(json, "relations");
    if (!relations) return Unusable("\"relations\" no es una lista");

    model::Diagram::Contents contents;
    for (const Json& table : *tables) {
        if (!table.is_string()) return Unusable("una tabla no es un texto");
        AddTable(contents, FromUtf8(table.get_ref<const std::string&>()));
    }
    int key = 0;
    for (const Json& item : *relations) {
        if (!item.is_object()) return Unusable("una relación no es un objeto");
        model::DiagramRelation relation;
        relation.key = ++key;
        const std::pair<const char*, std::wstring*> names[] = {{"LeftTable", &relation.info.LeftTable},
                                                               {"LeftField", &relation.info.LeftField},
                                                               {"RightTable", &relation.info.RightTable},
                                                               {"RightField", &relation.info.RightField}};
        for (const auto& [name, target] : names) {
            auto text = TextMember(item, name);
            if (!text) return UnusableMember(name, "una relación", " no es un texto");
            *target = std::move(*text);
        }
        const auto kind = item.find("JType");
        if (kind != item.end() && !kind->is_null()) {
            if (!kind->is_number_integer()) return Unusable("\"JType\" de una relación no es un entero");
            const auto value = kind->get<std::int64_t>();
            if (!std::in_range<std::int32_t>(value))
                return Unusable("\"JType\" de una relación no es un entero");
            relation.info.JType = static_cast<std::int32_t>(value);
        }
        contents.relations.push_back(std::move(relation));
    }
    for (const model::DiagramRelation& relation : contents.relations) {
        AddTable(contents, relation.info.LeftTable);
        AddTable(contents, relation.info.RightTable);
    }
    design.diagram.Restore(std::move(contents));
    return std::nullopt;
}

std::optional<Error> ReadColumns(const Json& json, model::DesignGrid& grid) {
    const Json* const columns = ArrayMember(json, "columns");
    if (!columns) return Unusable("\"columns\" no es una lista");
    if (columns->size() > static_cast<std::size_t>(model::kGridColumnCount))
        return Unusable("un diseño tiene como máximo " + std::to_string(model::kGridColumnCount) +
                        " columnas");
    grid.LoadColumns();
    int column = 0;
    for (const Json& item : *columns) {
        const std::string place = "la columna " + std::to_string(column + 1);
        if (!item.is_object()) return Unusable(place + " no es un objeto");
        for (const auto& [name, row] : kCellNames) {
            const auto text = TextMember(item, name);
            if (!text) return UnusableMember(name, place, " no es un texto");
            if (!grid.SetCell(row, column, *text)) {
                return UnusableMember(
                    name, place, " tiene más de " + std::to_string(model::kMaxCellLength) + " caracteres");
            }
        }
        grid.SetCaption(column, grid.Cell(GridRow::Titulo, column));
        ++column;
    }
    return std::nullopt;
}

}  // namespace

Json DesignToJson(const model::Design& design) {
    Json json;
    json["distinct"] = design.distinct;
    json["tables"] = Json::array();
    for (const model::DiagramTable& table : design.diagram.Tables())
        json["tables"].push_back(ToUtf8(table.name));
    json["relations"] = Json::array();
    for (const model::DiagramRelation& relation : design.diagram.Relations()) {
        Json item;
        item["LeftTable"] = ToUtf8(relation.info.LeftTable);
        item["LeftField"] = ToUtf8(relation.info.LeftField);
        item["RightTable"] = ToUtf8(relation.info.RightTable);
        item["RightField"] = ToUtf8(relation.info.RightField);
        item["JType"] = relation.info.JType;
        json["relations"].push_back(std::move(item));
    }
    json["columns"] = Json::array();
    for (int column = 0; column < design.grid.ColumnCount(); ++column) {
        if (!design.grid.IsColumnUsed(column)) continue;
        Json item;
        for (const auto& [name, row] : kCellNames) item[name] = ToUtf8(design.grid.Cell(row, column));
        json["columns"].push_back(std::move(item));
    }
    return json;
}

std::optional<Error> ReadDesign(const Json& json, model::Design& design) {
    if (!json.is_object()) return Unusable("el diseño no es un objeto JSON");
    const auto distinct = json.find("distinct");
    if (distinct != json.end() && !distinct->is_null()) {
        if (!distinct->is_boolean()) return Unusable("\"distinct\" no es verdadero ni falso");
        design.distinct = distinct->get<bool>();
    }
    if (auto error = ReadDiagram(json, design)) return error;
    return ReadColumns(json, design.grid);
}

}  // namespace tessel::tools
