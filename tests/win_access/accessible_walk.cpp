#include "tests/win_access/accessible_walk.h"

#include "tests/win_access/recorded_names.h"

namespace tessel::testing {

namespace {

using win32::Bstr;
using win32::ComPtr;

struct Word {
    LONG number;
    const wchar_t* text;
};

constexpr Word kRoles[] = {
    {ROLE_SYSTEM_ALERT, L"alert"},
    {ROLE_SYSTEM_CLIENT, L"client"},
    {ROLE_SYSTEM_SEPARATOR, L"separator"},
    {ROLE_SYSTEM_TABLE, L"table"},
    {ROLE_SYSTEM_COLUMNHEADER, L"column header"},
    {ROLE_SYSTEM_ROWHEADER, L"row header"},
    {ROLE_SYSTEM_ROW, L"row"},
    {ROLE_SYSTEM_CELL, L"cell"},
    {ROLE_SYSTEM_LINK, L"link"},
    {ROLE_SYSTEM_LIST, L"list"},
    {ROLE_SYSTEM_GRAPHIC, L"graphic"},
    {ROLE_SYSTEM_STATICTEXT, L"static text"},
    {ROLE_SYSTEM_TEXT, L"text"},
    {ROLE_SYSTEM_PUSHBUTTON, L"push button"},
    {ROLE_SYSTEM_CHECKBUTTON, L"check button"},
    {ROLE_SYSTEM_DIAGRAM, L"diagram"},
};

constexpr Word kStates[] = {
    {STATE_SYSTEM_UNAVAILABLE, L"unavailable"}, {STATE_SYSTEM_SELECTED, L"selected"},
    {STATE_SYSTEM_FOCUSED, L"focused"},         {STATE_SYSTEM_CHECKED, L"checked"},
    {STATE_SYSTEM_READONLY, L"read-only"},      {STATE_SYSTEM_EXPANDED, L"expanded"},
    {STATE_SYSTEM_COLLAPSED, L"collapsed"},     {STATE_SYSTEM_INVISIBLE, L"invisible"},
    {STATE_SYSTEM_OFFSCREEN, L"offscreen"},
};

std::wstring ClassOf(HWND hwnd) {
    wchar_t name[64] = L"";
    GetClassNameW(hwnd, name, 64);
    return name;
}

/// True when the window answers with an object of its own instead of leaving it to the system.
bool AnswersItself(HWND hwnd) {
    const LRESULT answer =
        SendMessageW(hwnd, WM_GETOBJECT, 0, static_cast<LPARAM>(static_cast<LONG>(OBJID_CLIENT)));
    if (answer <= 0) return false;
    // What was handed over must be taken, or it is never let go.
    ComPtr<IAccessible> object;
    return SUCCEEDED(ObjectFromLresult(answer, __uuidof(IAccessible), 0, object.PutVoid()));
}

HWND WindowOf(const ComPtr<IAccessible>& object) {
    HWND hwnd = nullptr;
    return SUCCEEDED(WindowFromAccessibleObject(object.Get(), &hwnd)) ? hwnd : nullptr;
}

void ReadChildren(AccessibleItem& item) {
    LONG count = 0;
    if (FAILED(item.object->get_accChildCount(&count)) || count <= 0) return;
    std::vector<VARIANT> children(static_cast<std::size_t>(count));
    LONG read = 0;
    AccessibleChildren(item.object.Get(), 0, count, children.data(), &read);
    for (LONG i = 0; i < read; ++i) {
        VARIANT& child = children[static_cast<std::size_t>(i)];
        if (child.vt != VT_DISPATCH || !child.pdispVal) continue;
        const auto object = ComPtr<IDispatch>::Adopt(child.pdispVal).As<IAccessible>();
        if (!object) continue;
        const HWND hwnd = WindowOf(object);
        if (hwnd && hwnd != item.hwnd) {
            // A window's frame, which holds nothing of interest but its inside.
            if (IsWindowVisible(hwnd)) item.children.push_back(WalkAccessible(hwnd));
            continue;
        }
        item.children.push_back(ReadAccessible(object));
        item.children.back().own = item.own;
        item.children.back().hwnd = item.hwnd;
        ReadChildren(item.children.back());
    }
}

void Print(const AccessibleItem& item, std::size_t depth, std::wstring& text) {
    text.append(2 * depth, L' ');
    std::wstring role = item.own ? L"role " + std::to_wstring(item.role) : ClassOf(item.hwnd);
    if (item.own)
        for (const Word& word : kRoles)
            if (word.number == item.role) role = word.text;
    text += role + L" \"" + item.name + L"\"";
    if (!item.value.empty()) text += L" = \"" + item.value + L"\"";
    if (!item.description.empty()) text += L" (" + item.description + L")";
    for (const Word& word : kStates)
        if (item.Is(word.number)) text += std::wstring(L" ") + word.text;
    text += L'\n';
    for (const AccessibleItem& child : item.children) Print(child, depth + 1, text);
}

}  // namespace

VARIANT ChildSelf() {
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
}

ComPtr<IAccessible> AccessibleOf(HWND hwnd) {
    ComPtr<IAccessible> object;
    AccessibleObjectFromWindow(hwnd, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                               object.PutVoid());
    return object;
}

AccessibleItem ReadAccessible(const ComPtr<IAccessible>& object) {
    AccessibleItem item;
    item.object = object;
    item.hwnd = WindowOf(object);
    const VARIANT self = ChildSelf();
    Bstr text;
    if (SUCCEEDED(object->get_accName(self, text.Put()))) item.name = text.View();
    if (SUCCEEDED(object->get_accValue(self, text.Put()))) item.value = text.View();
    if (SUCCEEDED(object->get_accDescription(self, text.Put()))) item.description = text.View();
    if (SUCCEEDED(object->get_accDefaultAction(self, text.Put()))) item.action = text.View();
    VARIANT number{};
    if (SUCCEEDED(object->get_accRole(self, &number)) && number.vt == VT_I4) item.role = number.lVal;
    if (SUCCEEDED(object->get_accState(self, &number)) && number.vt == VT_I4) item.state = number.lVal;
    LONG left = 0, top = 0, width = 0, height = 0;
    if (SUCCEEDED(object->accLocation(&left, &top, &width, &height, self)))
        item.place = {left, top, left + width, top + height};
    return item;
}

AccessibleItem WalkAccessible(HWND hwnd) {
    const ComPtr<IAccessible> object = AccessibleOf(hwnd);
    if (!object) return {};
    AccessibleItem item = ReadAccessible(object);
    item.hwnd = hwnd;
    item.own = AnswersItself(hwnd);
    if (const std::wstring given = RecordedNames::Of(hwnd); !given.empty()) item.name = given;
    ReadChildren(item);
    return item;
}

const AccessibleItem* FindAccessible(const AccessibleItem& item,
                                     const std::function<bool(const AccessibleItem&)>& wanted) {
    if (wanted(item)) return &item;
    for (const AccessibleItem& child : item.children)
        if (const AccessibleItem* found = FindAccessible(child, wanted)) return found;
    return nullptr;
}

const AccessibleItem* FindAccessible(const AccessibleItem& item, std::wstring_view name) {
    return FindAccessible(item, [&](const AccessibleItem& other) { return other.name == name; });
}

void ForEachAccessible(const AccessibleItem& item, const std::function<void(const AccessibleItem&)>& action) {
    action(item);
    for (const AccessibleItem& child : item.children) ForEachAccessible(child, action);
}

std::wstring PrintAccessible(const AccessibleItem& item) {
    std::wstring text;
    Print(item, 0, text);
    return text;
}

}  // namespace tessel::testing
