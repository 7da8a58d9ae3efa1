// A small schema for the tests of the schema browser, and one as large as wanted.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "schema/schema.h"

namespace tessel::controls {

class SampleSource final : public schema::SchemaSource {
public:
    SampleSource(std::vector<schema::Object> objects, int* field_loads,
                 std::vector<schema::ForeignKey> keys = {})
        : objects_(std::move(objects)), field_loads_(field_loads), keys_(std::move(keys)) {}

    Result<std::vector<schema::Object>> LoadObjects() override { return objects_; }

    Result<std::vector<schema::Field>> LoadFields(const schema::Object& object) override {
        ++*field_loads_;
        if (object.name == L"Pedidos") return Error{L"No se pueden leer los campos."};
        schema::Field id;
        id.name = id.raw_name = L"IdCliente";
        id.ado_type = 3;
        id.primary_key = true;
        schema::Field name;
        name.name = name.raw_name = L"Nombre";
        name.ado_type = 202;
        name.size = 40;
        return std::vector<schema::Field>{id, name};
    }

    Result<std::vector<schema::ForeignKey>> LoadForeignKeys() override { return keys_; }

private:
    std::vector<schema::Object> objects_;
    int* field_loads_;
    std::vector<schema::ForeignKey> keys_;
};

inline schema::Schema MakeSampleSchema(int* field_loads) {
    using schema::ObjectKind;
    return schema::Schema(std::make_unique<SampleSource>(
        std::vector<schema::Object>{{L"Clientes", L"Clientes", ObjectKind::Table},
                                    {L"Categorías", L"Categorías", ObjectKind::Table},
                                    {L"[Detalle de pedidos]", L"Detalle de pedidos", ObjectKind::Table},
                                    {L"Pedidos", L"Pedidos", ObjectKind::Table},
                                    {L"[Ventas por año]", L"Ventas por año", ObjectKind::View}},
        field_loads));
}

/// Ventas, in brackets, refers to Clientes by one field and to Almacén by two.
inline schema::Schema MakeRelatedSchema(int* field_loads) {
    using schema::ObjectKind;
    return schema::Schema(std::make_unique<SampleSource>(
        std::vector<schema::Object>{{L"Clientes", L"Clientes", ObjectKind::Table},
                                    {L"[Ventas del año]", L"Ventas del año", ObjectKind::Table},
                                    {L"Almacén", L"Almacén", ObjectKind::Table},
                                    {L"Resumen", L"Resumen", ObjectKind::View}},
        field_loads,
        std::vector<schema::ForeignKey>{
            {L"fk_cliente", L"[Ventas del año]", {L"IdCliente"}, L"Clientes", {L"IdCliente"}},
            {L"", L"[Ventas del año]", {L"Código", L"Zona"}, L"Almacén", {L"Código", L"[Zona de envío]"}}}));
}

inline schema::Schema MakeLargeSchema(int tables, int* field_loads) {
    std::vector<schema::Object> objects;
    for (int i = 0; i < tables; ++i) {
        const std::wstring name = L"Tabla" + std::to_wstring(i);
        objects.push_back({name, name, schema::ObjectKind::Table});
    }
    return schema::Schema(std::make_unique<SampleSource>(std::move(objects), field_loads));
}

}  // namespace tessel::controls
