#include "tests/win_keys/key_table.h"

#include <fstream>
#include <iterator>
#include <string>

#include "hostkit/drive/input.h"

namespace tessel::testing {

namespace {

constexpr std::wstring_view kArrows = L"Flechas";
constexpr std::wstring_view kArrowNames[] = {L"Flecha izquierda", L"Flecha derecha", L"Flecha arriba",
                                             L"Flecha abajo"};

struct KeyName {
    std::wstring_view name;
    WORD virtual_key;
};
constexpr KeyName kKeyNames[] = {
    {L"Flecha izquierda", VK_LEFT},
    {L"Flecha derecha", VK_RIGHT},
    {L"Flecha arriba", VK_UP},
    {L"Flecha abajo", VK_DOWN},
    {L"Inicio", VK_HOME},
    {L"Fin", VK_END},
    {L"Re Pág", VK_PRIOR},
    {L"Av Pág", VK_NEXT},
    {L"Tab", VK_TAB},
    {L"Entrar", VK_RETURN},
    {L"Esc", VK_ESCAPE},
    {L"Espacio", VK_SPACE},
    {L"Retroceso", VK_BACK},
    {L"Supr", VK_DELETE},
    {L"Insert", VK_INSERT},
    {L"Menú", VK_APPS},
    {L"+", VK_ADD},
    {L"-", VK_SUBTRACT},
    {L"*", VK_MULTIPLY},
    {L"una letra", 0},
};

struct HeldKey {
    std::wstring_view prefix;
    bool Stroke::*held;
};
constexpr HeldKey kHeldKeys[] = {
    {L"Ctrl+", &Stroke::control}, {L"Mayús+", &Stroke::shift}, {L"Alt+", &Stroke::alt}};

std::wstring FromUtf8(const std::string& bytes) {
    const int length = static_cast<int>(bytes.size());
    const int units = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(units), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, text.data(), units);
    return text;
}

/// What stands between two marks from `from` on; moves `from` behind it. Empty, with `from` at npos, when
/// there is none.
std::wstring_view Between(std::wstring_view text, std::wstring_view open, std::wstring_view close,
                          std::size_t& from) {
    const std::size_t begin = text.find(open, from);
    const std::size_t end = begin == text.npos ? begin : text.find(close, begin);
    if (end == text.npos) {
        from = text.npos;
        return {};
    }
    from = end + close.size();
    return text.substr(begin + open.size(), end - begin - open.size());
}

/// The words of a text without the commas that part the keys.
std::wstring Words(std::wstring_view text) {
    std::wstring words;
    bool gap = false;
    for (const wchar_t ch : text) {
        if (ch == L' ' || ch == L'\n' || ch == L'\r' || ch == L'\t' || ch == L',') {
            gap = !words.empty();
            continue;
        }
        if (gap) words += L' ';
        gap = false;
        words += ch;
    }
    return words;
}

/// One name as several, where it stands for several keys.
std::vector<std::wstring> Expanded(const std::wstring& name) {
    if (!name.ends_with(kArrows)) return {name};
    std::vector<std::wstring> names;
    for (const std::wstring_view arrow : kArrowNames)
        names.push_back(name.substr(0, name.size() - kArrows.size()) + std::wstring(arrow));
    return names;
}

void AddRow(std::wstring_view cell, const std::wstring& pane, std::vector<TableKey>& keys) {
    std::vector<std::wstring> names;
    std::wstring rest;
    std::size_t at = 0;
    while (true) {
        const std::size_t before = at;
        const std::wstring_view name = Between(cell, L"<kbd>", L"</kbd>", at);
        if (at == cell.npos) {
            rest += cell.substr(before);
            break;
        }
        const auto begin = static_cast<std::size_t>(name.data() - cell.data()) - std::size(L"<kbd>") + 1;
        rest += cell.substr(before, begin - before);
        for (std::wstring& one : Expanded(std::wstring(name))) names.push_back(std::move(one));
    }
    const std::wstring where = Words(rest);
    // A row without a key would go unchecked.
    if (names.empty()) names.push_back(L"?");
    for (std::wstring& name : names) keys.push_back({pane, std::move(name), where});
}

}  // namespace

void PressStroke(const Stroke& stroke) {
    if (stroke.alt)
        PressAlt(stroke.virtual_key, stroke.shift);
    else
        PressKey(stroke.virtual_key, stroke.shift, stroke.control);
}

std::vector<TableKey> KeysOfPage(std::wstring_view page) {
    std::vector<TableKey> keys;
    for (std::size_t section = page.find(L"<h2>"); section != page.npos;) {
        const std::size_t next = page.find(L"<h2>", section + 1);
        const std::wstring_view part = page.substr(section, next - section);
        std::size_t at = 0;
        const std::wstring pane(Between(part, L"<h2>", L"</h2>", at));
        while (at != part.npos) {
            const std::wstring_view row = Between(part, L"<tr>", L"</tr>", at);
            std::size_t cell_at = 0;
            const std::wstring_view cell = Between(row, L"<td>", L"</td>", cell_at);
            if (cell_at != row.npos) AddRow(cell, pane, keys);
        }
        section = next;
    }
    return keys;
}

std::vector<TableKey> ReadKeyTable() {
    std::ifstream file(TESSEL_KEYS_PAGE, std::ios::binary);
    return KeysOfPage(FromUtf8({std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()}));
}

bool ParseStroke(std::wstring_view name, Stroke& stroke) {
    stroke = {};
    for (bool again = true; again;) {
        again = false;
        for (const HeldKey& held : kHeldKeys) {
            if (!name.starts_with(held.prefix)) continue;
            stroke.*held.held = true;
            name.remove_prefix(held.prefix.size());
            again = true;
        }
    }
    for (const KeyName& known : kKeyNames) {
        if (known.name != name) continue;
        stroke.virtual_key = known.virtual_key;
        return true;
    }
    const bool is_function_key = name.size() > 1 && name.front() == L'F';
    if (is_function_key) {
        const int number = _wtoi(name.data() + 1);
        stroke.virtual_key = static_cast<WORD>(VK_F1 + number - 1);
        return number >= 1 && number <= 12;
    }
    const bool is_plain =
        name.size() == 1 && ((name[0] >= L'A' && name[0] <= L'Z') || (name[0] >= L'0' && name[0] <= L'9'));
    if (is_plain) stroke.virtual_key = static_cast<WORD>(name[0]);
    return is_plain;
}

}  // namespace tessel::testing
