// A small schema for the tests of the model: sales with a composite key, a self reference and names in
// brackets.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "schema/schema.h"

namespace tessel::model::testing_support {

class SampleSource : public schema::SchemaSource {
public:
    Result<std::vector<schema::Object>> LoadObjects() override {
        using enum schema::ObjectKind;
        return std::vector<schema::Object>{{L"", L"Clientes", Table},
                                           {L"", L"Pedidos", Table},
                                           {L"", L"Empleados", Table},
                                           {L"", L"Productos", Table},
                                           {L"", L"Detalle de pedidos", Table},
                                           {L"", L"Categorías", Table},
                                           {L"", L"Almacén", Table},
                                           {L"", L"Existencias", Table},
                                           {L"", L"Ventas por año", View}};
    }

    Result<std::vector<schema::Field>> LoadFields(const schema::Object& object) override {
        const std::pair<std::wstring, std::vector<std::wstring>> tables[] = {
            {L"Clientes", {L"IdCliente", L"nombre", L"País", L"Nombre completo"}},
            {L"Pedidos", {L"IdPedido", L"IdCliente", L"IdEmpleado", L"nombre", L"Importe"}},
            {L"Empleados", {L"IdEmpleado", L"IdJefe", L"nombre", L"Nombre completo"}},
            {L"Productos", {L"IdProducto", L"IdCategoría", L"nombre"}},
            {L"Detalle de pedidos", {L"IdPedido", L"IdProducto", L"Cantidad"}},
            {L"Categorías", {L"IdCategoría", L"nombre"}},
            {L"Almacén", {L"Código", L"Zona"}},
            {L"Existencias", {L"Código", L"Zona", L"IdProducto"}},
            {L"Ventas por año", {L"Año", L"Importe"}}};
        for (const auto& [name, fields] : tables) {
            if (name != object.raw_name) continue;
            std::vector<schema::Field> result;
            for (const std::wstring& field : fields) {
                schema::Field one;
                one.raw_name = field;
                one.ado_type = field == L"Importe" ? 131 : field == L"nombre" ? 202 : 3;
                one.precision = field == L"Importe" ? 10 : 0;
                one.scale = field == L"Importe" ? 2 : 0;
                one.size = field == L"nombre" ? 40 : 0;
                one.primary_key = result.empty();
                result.push_back(one);
            }
            return result;
        }
        return Error{L"no existe"};
    }

    Result<std::vector<schema::ForeignKey>> LoadForeignKeys() override {
        return std::vector<schema::ForeignKey>{
            {L"", L"Pedidos", {L"IdCliente"}, L"Clientes", {L"IdCliente"}},
            {L"", L"Pedidos", {L"IdEmpleado"}, L"Empleados", {L"IdEmpleado"}},
            {L"", L"Empleados", {L"IdJefe"}, L"Empleados", {L"IdEmpleado"}},
            {L"", L"Productos", {L"IdCategoría"}, L"Categorías", {L"IdCategoría"}},
            {L"", L"[Detalle de pedidos]", {L"IdPedido"}, L"Pedidos", {L"IdPedido"}},
            {L"", L"[Detalle de pedidos]", {L"IdProducto"}, L"Productos", {L"IdProducto"}},
            {L"", L"Existencias", {L"Código", L"Zona"}, L"Almacén", {L"Código", L"Zona"}}};
    }
};

inline schema::Schema SampleSchema() {
    return schema::Schema(std::make_unique<SampleSource>());
}

}  // namespace tessel::model::testing_support
