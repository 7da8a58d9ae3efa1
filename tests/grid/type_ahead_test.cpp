#include "controls/grid/type_ahead.h"

#include <gtest/gtest.h>

namespace tessel::controls {
namespace {

TEST(TypeAhead, FindsTheItemThatIsMeant) {
    const std::vector<std::wstring> items = {L"Clientes.*", L"Clientes.Nombre", L"Clientes.Nom",
                                             L"Pedidos.Número", L"[Mis cosas].[Año]"};
    const std::pair<const wchar_t*, int> cases[] = {
        {L"cli", 0},    {L"clientes.no", 1}, {L"CLIENTES.NOM", 2}, {L"ped", 3}, {L"nom", 1},
        {L"numero", 3}, {L"mis cosas.a", 4}, {L"ano", -1},         {L"añ", 4},  {L"[año", 4},
        {L"zz", -1},    {L"", -1},           {L"Nombre + 1", -1}};
    for (const auto& [typed, index] : cases)
        EXPECT_EQ(FindTyped(items, typed), index) << testing::PrintToString(typed);
}

TEST(TypeAhead, WordsAreFoundWithoutTheirAccents) {
    const std::vector<std::wstring> words = {L"Agrupado por", L"Suma", L"Promedio", L"Mínimo", L"Máximo"};
    EXPECT_EQ(FindTyped(words, L"mi"), 3);
    EXPECT_EQ(FindTyped(words, L"maxi"), 4);
    EXPECT_EQ(FindTyped(words, L"S"), 1);
}

}  // namespace
}  // namespace tessel::controls
