#include "ui/win32/dlg_arbol.h"

#include <commctrl.h>

#include "common/win32/accessible_name.h"
#include "common/win32/clipboard.h"
#include "common/win32/handles.h"
#include "common/win32/module.h"

namespace tessel::ui {

namespace {

constexpr wchar_t kTitle[] = L"Árbol de sintaxis";
constexpr wchar_t kClose[] = L"&Cerrar";
constexpr wchar_t kNodes[] = L"Instrucción analizada";
constexpr wchar_t kMenuCopyTree[] = L"Copiar el &árbol\tCtrl+C";
constexpr wchar_t kMenuCopyNode[] = L"Copiar la &línea\tCtrl+Mayús+C";
constexpr int kIdTree = 201;
constexpr int kMargin = 10;  // dips

// What a tree control takes at once without keeping the user waiting. What goes beyond is told by a last
// node; copying copies everything all the same.
constexpr int kMostNodes = 20'000;
constexpr std::size_t kLongestNode = 2048;
constexpr wchar_t kMore[] = L"…";

enum MenuCommand : int { kCopyTree = 401, kCopyNode };

void AppendText(const std::vector<analyse::TreeNode>& nodes, int level, std::wstring& text) {
    for (const analyse::TreeNode& node : nodes) {
        text.append(static_cast<std::size_t>(level) * 2, L' ');
        text += node.text + L"\r\n";
        AppendText(node.children, level + 1, text);
    }
}

}  // namespace

dlgArbol::dlgArbol(const std::vector<analyse::TreeNode>& roots, std::function<void(TextRange)> on_selected)
    : roots_(roots), on_selected_(std::move(on_selected)) {}

void dlgArbol::ShowTree(HWND owner) {
    Run(owner, kTitle, {520, 560}, {280, 220});
}

std::wstring dlgArbol::AsText(const std::vector<analyse::TreeNode>& roots) {
    std::wstring text;
    AppendText(roots, 0, text);
    return text;
}

bool dlgArbol::OnCreateControls() {
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES |
                             TVS_LINESATROOT | TVS_SHOWSELALWAYS;
    tree_ =
        CreateWindowExW(WS_EX_CLIENTEDGE, WC_TREEVIEWW, L"", kStyle, 0, 0, 0, 0, Handle(),
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(kIdTree)), win32::ThisModule(), nullptr);
    close_ = AddButton(kClose, IDCANCEL, true);
    if (!tree_ || !close_) return false;
    win32::SetAccessibleName(tree_, kNodes);
    SendMessageW(tree_, WM_SETFONT, reinterpret_cast<WPARAM>(Font()), FALSE);
    filling_ = true;
    SendMessageW(tree_, WM_SETREDRAW, FALSE, 0);
    AddNodes(roots_, TVI_ROOT);
    SendMessageW(tree_, WM_SETREDRAW, TRUE, 0);
    // Selected here, or the tree would select it on getting the focus, as if the user had.
    if (const HTREEITEM first = TreeView_GetRoot(tree_)) {
        TreeView_SelectItem(tree_, first);
        TreeView_SelectSetFirstVisible(tree_, first);
    }
    filling_ = false;
    return true;
}

void dlgArbol::AddNodes(const std::vector<analyse::TreeNode>& nodes, void* parent) {
    for (const analyse::TreeNode& node : nodes) {
        if (nodes_added_ > kMostNodes) return;
        const bool is_last = nodes_added_++ == kMostNodes;
        const std::wstring cut =
            node.text.size() > kLongestNode ? node.text.substr(0, kLongestNode) + kMore : std::wstring();
        TVINSERTSTRUCTW insert{};
        insert.hParent = static_cast<HTREEITEM>(parent);
        insert.hInsertAfter = TVI_LAST;
        insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_STATE;
        insert.item.pszText = const_cast<wchar_t*>(is_last ? kMore : (cut.empty() ? node.text : cut).c_str());
        insert.item.lParam = is_last ? 0 : reinterpret_cast<LPARAM>(&node);
        insert.item.state = node.children.empty() ? 0 : TVIS_EXPANDED;
        insert.item.stateMask = TVIS_EXPANDED;
        const auto item = reinterpret_cast<HTREEITEM>(
            SendMessageW(tree_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
        if (item) AddNodes(node.children, item);
    }
}

void dlgArbol::OnLayout(SIZE client) {
    const int margin = Px(kMargin);
    const SIZE button = ButtonSize(close_);
    const int top = static_cast<int>(client.cy - button.cy) - margin;
    MoveWindow(tree_, margin, margin, client.cx - 2 * margin, top - 2 * margin, TRUE);
    MoveWindow(close_, client.cx - button.cx - margin, top, button.cx, button.cy, TRUE);
}

void dlgArbol::OnCommand(int id, int) {
    if (id == IDCANCEL) Close();
}

LRESULT dlgArbol::OnNotify(NMHDR* header) {
    if (header->hwndFrom != tree_) return 0;
    if (header->code == TVN_SELCHANGEDW && !filling_) {
        const auto& change = *reinterpret_cast<NMTREEVIEWW*>(header);
        const auto* node = reinterpret_cast<const analyse::TreeNode*>(change.itemNew.lParam);
        if (node && node->range && on_selected_) on_selected_(*node->range);
    }
    return 0;
}

// The tree itself would take Ctrl+C for the beginning of a search; and not every tree control asks for a menu
// on Shift+F10.
bool dlgArbol::OnPreTranslate(const MSG& message) {
    if (message.message == WM_SYSKEYDOWN && message.hwnd == tree_ && message.wParam == VK_F10 &&
        GetKeyState(VK_SHIFT) < 0) {
        ShowMenu({-1, -1});
        return true;
    }
    const bool copies = message.message == WM_KEYDOWN && message.hwnd == tree_ && message.wParam == 'C' &&
                        GetKeyState(VK_CONTROL) < 0;
    if (copies) GetKeyState(VK_SHIFT) < 0 ? CopyNode() : CopyTree();
    return copies;
}

LRESULT dlgArbol::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    if (message != WM_CONTEXTMENU || reinterpret_cast<HWND>(wparam) != tree_)
        return ModalDialog::OnMessage(message, wparam, lparam);
    ShowMenu({static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))});
    return 0;
}

const analyse::TreeNode* dlgArbol::SelectedNode() const {
    TVITEMW info{};
    info.mask = TVIF_HANDLE | TVIF_PARAM;
    info.hItem = TreeView_GetSelection(tree_);
    if (!info.hItem || !SendMessageW(tree_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&info))) return nullptr;
    return reinterpret_cast<const analyse::TreeNode*>(info.lParam);
}

// The keyboard's menu key gives no place: the menu then opens below the selected node.
void dlgArbol::ShowMenu(POINT screen) {
    const HTREEITEM selected = TreeView_GetSelection(tree_);
    if (screen.x == -1 && screen.y == -1) {
        RECT node{};
        if (selected) TreeView_GetItemRect(tree_, selected, &node, TRUE);
        screen = {node.left, node.bottom};
        ClientToScreen(tree_, &screen);
    }
    const win32::UniqueMenu menu(CreatePopupMenu());
    AppendMenuW(menu.get(), MF_STRING, kCopyTree, kMenuCopyTree);
    AppendMenuW(menu.get(), selected ? MF_STRING : MF_STRING | MF_GRAYED, kCopyNode, kMenuCopyNode);
    const int chosen =
        TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, Handle(), nullptr);
    if (chosen == kCopyTree) CopyTree();
    if (chosen == kCopyNode) CopyNode();
}

void dlgArbol::CopyTree() {
    win32::CopyToClipboard(Handle(), AsText(roots_));
}

void dlgArbol::CopyNode() {
    if (const analyse::TreeNode* node = SelectedNode()) win32::CopyToClipboard(Handle(), node->text);
}

}  // namespace tessel::ui
