#include "controls/diagram/diagram_texts.h"

namespace tessel::controls::diagram {

std::wstring_view AllFieldsCaption() {
    return L"* (todos los campos)";
}

std::wstring RelationText(const model::RelInfo& relation) {
    const wchar_t* kind = L" (interna)";
    if (relation.JType == model::kLeftJoin) kind = L" (izquierda)";
    if (relation.JType == model::kRightJoin) kind = L" (derecha)";
    return relation.LeftTable + L"." + relation.LeftField + L" = " + relation.RightTable + L"." +
           relation.RightField + kind;
}

std::wstring FieldText(const model::DiagramField& field) {
    std::wstring text = field.name;
    if (!field.type_text.empty()) text += L": " + field.type_text;
    if (field.primary_key) text += L", clave principal";
    if (field.foreign_key) text += L", clave externa";
    return text;
}

std::wstring AllFieldsText(const model::DiagramTable& table) {
    return L"Todos los campos de " + table.name;
}

std::wstring TableText(const model::DiagramTable& table) {
    if (!table.known) return table.name + L" (no está en el esquema)";
    return table.name + (table.kind == schema::ObjectKind::View ? L" (vista)" : L" (tabla)");
}

std::wstring RelatingText(const std::wstring& table, const std::wstring& field) {
    const std::wstring what =
        field.empty()
            ? L"Nueva relación: señale el campo de " + table + L" y después el de otra tabla"
            : L"Nueva relación: señale el campo de otra tabla que se une con " + table + L"." + field;
    return what + L" (Tab: otra tabla, Entrar elige, Esc abandona).";
}

std::wstring_view FitCaption() {
    return L"Ajustar";
}

std::wstring_view FitEntry() {
    return L"Ajustar\tCtrl+9";
}

std::wstring_view ActualSizeEntry() {
    return L"Tamaño real (100 %)\tCtrl+0";
}

std::wstring_view ArrangeEntry() {
    return L"Ordenar las tablas";
}

std::wstring_view CopyPictureEntry() {
    return L"Copiar como imagen\tCtrl+C";
}

}  // namespace tessel::controls::diagram
