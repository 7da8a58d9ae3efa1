// A schema from a JSON file, for the command line. Several shapes are understood:
//
//   {"tables":[{"name":"Clientes","kind":1,"fields":["IdCliente",{"name":"Nombre","type":"adVarWChar","size":40}]}],
//    "relations":[{"LeftTable":"Clientes","LeftField":"IdCliente","RightTable":"Pedidos","RightField":"IdCliente"}]}
//   {"tables":{"Clientes":["IdCliente","Nombre"]}}
//   {"Clientes":["IdCliente","Nombre"]}
#pragma once

#include "common/result.h"
#include "schema/schema.h"
#include "tools/design_json.h"

namespace tessel::tools {

[[nodiscard]] Result<std::shared_ptr<schema::Schema>> ReadSchema(const Json& json);

}  // namespace tessel::tools
