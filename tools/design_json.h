// A design as JSON and back.
//
//   {"distinct":false,"tables":["Clientes"],
//    "relations":[{"LeftTable":"","LeftField":"","RightTable":"","RightField":"","JType":0}],
//    "columns":[{"Campo":"","Titulo":"","Tabla":"","Agrupacion":"","Visible":"","Orden":"","Condicion":"","OR":""}]}
//
// Written, the members stand in this order and only columns in use are listed. Read, a missing member counts
// as empty, and tables that only a relation names are added behind the others.
#pragma once

#include <nlohmann/json.hpp>

#include <optional>

#include "common/result.h"
#include "model/design.h"

namespace tessel::tools {

using Json = nlohmann::ordered_json;

[[nodiscard]] Json DesignToJson(const model::Design& design);

/// Fills an empty design. Answers why the JSON is no design, or nothing when it was read.
[[nodiscard]] std::optional<Error> ReadDesign(const Json& json, model::Design& design);

}  // namespace tessel::tools
