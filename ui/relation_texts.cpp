#include "ui/relation_texts.h"

#include "common/identifiers.h"

namespace tessel::ui {

namespace {

std::wstring Quoted(const std::wstring& table) {
    std::wstring text = L"«";
    for (const wchar_t ch : Unbracketed(table))
        text += ch == L'&' ? std::wstring(L"&&") : std::wstring(1, ch);
    return text + L"»";
}

}  // namespace

std::wstring RelationFields(const model::RelInfo& relation) {
    return relation.LeftTable + L"." + relation.LeftField + L" = " + relation.RightTable + L"." +
           relation.RightField;
}

std::wstring KindSentence(const model::RelInfo& relation, model::JoinKind kind) {
    const std::wstring left = Quoted(relation.LeftTable);
    const std::wstring right = Quoted(relation.RightTable);
    switch (kind) {
        case model::kLeftJoin:
            return L"I&zquierda: todas las filas de " + left + L", y de " + right +
                   L" sólo las que coinciden.";
        case model::kRightJoin:
            return L"&Derecha: todas las filas de " + right + L", y de " + left + L" sólo las que coinciden.";
        case model::kInnerJoin:
            break;
    }
    return L"&Interna: sólo las filas de " + left + L" y de " + right +
           L" en las que los dos campos coinciden.";
}

}  // namespace tessel::ui
