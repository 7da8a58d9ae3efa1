// The page and the checks name the same keys, and the page is read as it is meant.
#include "tests/win_keys/key_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/win_keys/key_checks.h"

namespace tessel::testing {

namespace {

std::string Utf8(const std::wstring& text) {
    std::string bytes(text.size() * 4, '\0');
    bytes.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

std::string Named(const TableKey& key) {
    return Utf8(key.pane + L": " + key.key + (key.where.empty() ? L"" : L" " + key.where));
}

bool Has(const std::vector<TableKey>& keys, const TableKey& key) {
    return std::ranges::find(keys, key) != keys.end();
}

}  // namespace

TEST(KeyTable, EveryKeyHasACheck) {
    const std::vector<TableKey> table = ReadKeyTable();
    ASSERT_GE(table.size(), 100u);
    for (const TableKey& key : table) EXPECT_TRUE(Has(CheckedKeys(), key)) << Named(key) << " has no check";
}

TEST(KeyTable, EveryCheckIsOfAKeyThatThePageNames) {
    const std::vector<TableKey> table = ReadKeyTable();
    for (const TableKey& key : CheckedKeys())
        EXPECT_TRUE(Has(table, key)) << Named(key) << " is not in the page";
}

TEST(KeyTable, NoKeyIsNamedTwiceForOnePlace) {
    std::vector<TableKey> table = ReadKeyTable();
    std::ranges::sort(table);
    for (auto twice = std::ranges::adjacent_find(table); twice != table.end();
         twice = std::adjacent_find(twice + 1, table.end()))
        ADD_FAILURE() << Named(*twice);
}

TEST(KeyTable, EveryKeyCanBePressed) {
    Stroke stroke;
    for (const TableKey& key : ReadKeyTable()) EXPECT_TRUE(ParseStroke(key.key, stroke)) << Named(key);
}

TEST(KeyTable, APageIsReadByItsHeadingsRowsAndMarks) {
    const auto keys = KeysOfPage(
        L"<h2>Uno</h2><table><tr><th>Tecla</th></tr>"
        L"<tr><td><kbd>Ctrl++</kbd>,\n<kbd>F4</kbd> en  una lista</td><td>x <kbd>F9</kbd></td></tr></table>"
        L"<h2>Dos</h2><table><tr><td><kbd>Mayús+Flechas</kbd></td><td>y</td></tr></table>");
    EXPECT_EQ(keys, (std::vector<TableKey>{{L"Uno", L"Ctrl++", L"en una lista"},
                                           {L"Uno", L"F4", L"en una lista"},
                                           {L"Dos", L"Mayús+Flecha izquierda", L""},
                                           {L"Dos", L"Mayús+Flecha derecha", L""},
                                           {L"Dos", L"Mayús+Flecha arriba", L""},
                                           {L"Dos", L"Mayús+Flecha abajo", L""}}));
}

TEST(KeyTable, NamesOfKeysAreRead) {
    struct Case {
        const wchar_t* name;
        WORD key;
        bool shift, control, alt;
    };
    static constexpr Case kCases[] = {
        {L"F10", VK_F10, false, false, false},
        {L"Ctrl+Mayús+Z", 'Z', true, true, false},
        {L"Alt+Mayús+Retroceso", VK_BACK, true, false, true},
        {L"Ctrl++", VK_ADD, false, true, false},
        {L"-", VK_SUBTRACT, false, false, false},
        {L"una letra", 0, false, false, false},
    };
    for (const Case& expected : kCases) {
        Stroke stroke;
        ASSERT_TRUE(ParseStroke(expected.name, stroke)) << Utf8(expected.name);
        EXPECT_EQ(stroke.virtual_key, expected.key);
        EXPECT_EQ(stroke.shift, expected.shift);
        EXPECT_EQ(stroke.control, expected.control);
        EXPECT_EQ(stroke.alt, expected.alt);
    }
    Stroke stroke;
    EXPECT_FALSE(ParseStroke(L"flechas", stroke));
    EXPECT_FALSE(ParseStroke(L"F13", stroke));
}

}  // namespace tessel::testing
