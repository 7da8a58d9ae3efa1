#include "controls/diagram/diagram_accessible_texts.h"

#include <algorithm>

namespace tessel::controls::diagram {

namespace {

std::wstring Counted(std::size_t count, const wchar_t* one, const wchar_t* many) {
    return std::to_wstring(count) + (count == 1 ? one : many);
}

}  // namespace

std::wstring TableDetails(const model::DiagramTable& table) {
    const wchar_t* kind = table.kind == schema::ObjectKind::View ? L"vista" : L"tabla";
    std::wstring text = table.known ? kind : L"no está en el esquema";
    text += L", " + Counted(table.fields.size(), L" campo", L" campos");
    const auto checked = std::count_if(table.fields.begin(), table.fields.end(),
                                       [](const model::DiagramField& field) { return field.checked; });
    if (table.all_checked) return text + L", todos los campos marcados";
    if (checked > 0) text += L", " + Counted(static_cast<std::size_t>(checked), L" marcado", L" marcados");
    return text;
}

std::wstring FieldDetails(const model::DiagramField& field) {
    std::wstring text = field.type_text;
    const auto add = [&](const wchar_t* what) { text += (text.empty() ? L"" : L", ") + std::wstring(what); };
    if (field.primary_key) add(L"clave principal");
    if (field.foreign_key) add(L"clave externa");
    return text;
}

std::wstring RelationName(const model::RelInfo& relation) {
    const wchar_t* kind = L"combinación interna";
    if (relation.JType == model::kLeftJoin) kind = L"combinación izquierda";
    if (relation.JType == model::kRightJoin) kind = L"combinación derecha";
    return L"Relación: " + relation.LeftTable + L"." + relation.LeftField + L" = " + relation.RightTable +
           L"." + relation.RightField + L", " + kind;
}

}  // namespace tessel::controls::diagram
