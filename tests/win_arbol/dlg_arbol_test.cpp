// The syntax tree's window as a user meets it: alone, and over the designer.
#include "ui/win32/dlg_arbol.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include "sqlparser/sql_parser.h"
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

namespace tessel::testing {

namespace {

HWND TreeDialog() {
    const HWND found = FindWindowW(nullptr, L"Árbol de sintaxis");
    return found && IsWindowVisible(found) ? found : nullptr;
}

HWND TreeIn(HWND dialog) {
    return FindWindowExW(dialog, nullptr, WC_TREEVIEWW, nullptr);
}

HTREEITEM NextOf(HWND tree, HTREEITEM item, WPARAM which) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
}

std::wstring NodeText(HWND tree, HTREEITEM item) {
    wchar_t text[300] = L"";
    TVITEMW info{};
    info.mask = TVIF_HANDLE | TVIF_TEXT;
    info.hItem = item;
    info.pszText = text;
    info.cchTextMax = 300;
    SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&info));
    return text;
}

/// The node of that text among those that are visible without expanding anything; nullptr when there is none.
HTREEITEM NodeOf(HWND tree, const std::wstring& text) {
    for (HTREEITEM item = NextOf(tree, nullptr, TVGN_ROOT); item; item = NextOf(tree, item, TVGN_NEXTVISIBLE))
        if (NodeText(tree, item) == text) return item;
    return nullptr;
}

std::wstring ClipboardText() {
    if (!OpenClipboard(nullptr)) return L"(cerrado)";
    std::wstring text = L"(sin texto)";
    if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT))
        if (const auto* data = static_cast<const wchar_t*>(GlobalLock(memory))) {
            text = data;
            GlobalUnlock(memory);
        }
    CloseClipboard();
    return text;
}

bool IsMenuOpen() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetCurrentThreadId(), &info) && (info.flags & GUI_INMENUMODE) != 0;
}

POINT NodePoint(HWND tree, HTREEITEM item) {
    RECT bounds{};
    *reinterpret_cast<HTREEITEM*>(&bounds) = item;
    SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&bounds));
    return ScreenPoint(tree, bounds);
}

constexpr wchar_t kStatement[] =
    L"SELECT DISTINCT TOP 3 a, b AS x FROM t INNER JOIN u ON t.i = u.i WHERE a = 1 AND (b = 2 OR b = 3) "
    L"ORDER BY a";

}  // namespace

/// The dialog without the designer.
class SyntaxTreeWindow : public ::testing::Test {
protected:
    SyntaxTreeWindow() {
        sql::SqlParser parser;
        EXPECT_FALSE(parser.Parse(kStatement));
        roots_ = analyse::ShowTree(*parser.GetStatement());
        script_.OnTrouble([this] { PostMessageW(window_.Handle(), WM_CLOSE, 0, 0); });
        script_.Until([] { return TreeDialog() != nullptr; }, "the tree is shown");
    }
    void Run() {
        script_.Do([] { PressKey(VK_ESCAPE); });
        script_.Start();
        window_.ShowTree(nullptr);
        EXPECT_TRUE(script_.Finished()) << script_.Trouble();
    }
    HWND Tree() { return window_.Tree(); }
    void Select(const std::wstring& text) {
        script_.Do([this, text] {
            const HTREEITEM item = NodeOf(Tree(), text);
            ASSERT_NE(item, nullptr);
            MouseClick(NodePoint(Tree(), item));
        });
        script_.Until([this, text] { return NodeText(Tree(), NextOf(Tree(), nullptr, TVGN_CARET)) == text; },
                      "the node is selected");
    }

    std::vector<analyse::TreeNode> roots_;
    std::vector<TextRange> told_;
    win32::ActivationContext context_;
    Script script_;
    ui::dlgArbol window_{roots_, [this](TextRange range) { told_.push_back(range); }};
};

constexpr wchar_t kTreeAsText[] =
    L"SELECT\r\n  Distinct\r\n  TOP 3\r\n  Columnas\r\n    a\r\n    b Alias: x\r\nFROM\r\n  Combinaciones\r\n"
    L"    t INNER JOIN u ON t.i = u.i\r\n  Tablas\r\n    t\r\n    u\r\nWHERE\r\n  a = 1\r\n  AND\r\n  (\r\n"
    L"    b = 2\r\n    OR\r\n    b = 3\r\n  )\r\nORDER BY\r\n  a\r\n";

TEST_F(SyntaxTreeWindow, EverythingIsExpandedInTheOrderOfTheTree) {
    script_.Do([this] {
        std::wstring shown;
        for (HTREEITEM item = NextOf(Tree(), nullptr, TVGN_ROOT); item;
             item = NextOf(Tree(), item, TVGN_NEXTVISIBLE)) {
            for (HTREEITEM parent = NextOf(Tree(), item, TVGN_PARENT); parent;
                 parent = NextOf(Tree(), parent, TVGN_PARENT))
                shown += L"  ";
            shown += NodeText(Tree(), item) + L"\r\n";
        }
        EXPECT_EQ(shown, kTreeAsText);
        EXPECT_EQ(GetFocus(), Tree());
        EXPECT_EQ(NextOf(Tree(), nullptr, TVGN_FIRSTVISIBLE), NextOf(Tree(), nullptr, TVGN_ROOT));
    });
    Run();
}

TEST_F(SyntaxTreeWindow, ATreeOfVeryManyNodesIsCutWhereItWouldKeepTheUserWaiting) {
    analyse::TreeNode node;
    node.text = std::wstring(100'000, L'x');
    roots_.assign(1, node);
    node.text = L"a = 1";
    roots_.resize(50'000, node);
    script_.Do([this] {
        EXPECT_EQ(SendMessageW(Tree(), TVM_GETCOUNT, 0, 0), 20'001);
        HTREEITEM last = NextOf(Tree(), nullptr, TVGN_ROOT);
        EXPECT_EQ(NodeText(Tree(), last), std::wstring(299, L'x'));
        while (const HTREEITEM next = NextOf(Tree(), last, TVGN_NEXT)) last = next;
        EXPECT_EQ(NodeText(Tree(), last), L"…");
        TreeView_SelectItem(Tree(), last);
        EXPECT_TRUE(told_.empty());
    });
    Run();
    EXPECT_GT(ui::dlgArbol::AsText(roots_).size(), 400'000u) << "copying copies everything";
}

TEST_F(SyntaxTreeWindow, CtrlCCopiesTheWholeTreeAndCtrlShiftCTheSelectedLine) {
    Select(L"b Alias: x");
    script_.Do([] { PressKey('C', false, true); });
    script_.Until([] { return ClipboardText() == kTreeAsText; }, "the whole tree");
    script_.Do([] { PressKey('C', true, true); });
    script_.Until([] { return ClipboardText() == L"b Alias: x"; }, "the line");
    script_.Do([this] { EXPECT_EQ(NodeText(Tree(), NextOf(Tree(), nullptr, TVGN_CARET)), L"b Alias: x"); });
    Run();
}

TEST_F(SyntaxTreeWindow, TheMenuCopiesToo) {
    script_.Do([this] { PostMessageW(Tree(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Tree()), -1); });
    script_.Until([] { return IsMenuOpen(); }, "the menu is open");
    script_.Do([] { PressKey(VK_DOWN); });
    script_.Do([] { PressKey(VK_RETURN); });
    script_.Until([] { return ClipboardText() == kTreeAsText; }, "the whole tree");
    Run();
}

TEST_F(SyntaxTreeWindow, ASelectedNodeIsToldWithItsRangeAndOneWithoutARangeIsNot) {
    roots_[1].children[1].range.reset();
    script_.Do([this] { EXPECT_TRUE(told_.empty()) << "opening selects nothing for the user"; });
    Select(L"b = 2");
    Select(L"Tablas");
    Run();
    ASSERT_EQ(told_.size(), 1u);
    EXPECT_EQ(std::wstring(kStatement).substr(told_[0].offset, told_[0].length), L"b = 2");
}

TEST_F(SyntaxTreeWindow, TheTreeGrowsWithTheWindowAndTheButtonStaysInside) {
    SIZE before{};
    script_.Do([&] {
        RECT tree{};
        GetClientRect(Tree(), &tree);
        before = {tree.right, tree.bottom};
        SetWindowPos(window_.Handle(), nullptr, 0, 0, 900, 700, SWP_NOZORDER);
    });
    script_.Do([&] {
        RECT tree{}, client{}, button{};
        GetClientRect(Tree(), &tree);
        EXPECT_GT(tree.right, before.cx);
        EXPECT_GT(tree.bottom, before.cy);
        SetWindowPos(window_.Handle(), nullptr, 0, 0, 10, 10, SWP_NOZORDER);
        GetClientRect(window_.Handle(), &client);
        GetWindowRect(GetDlgItem(window_.Handle(), IDCANCEL), &button);
        MapWindowPoints(nullptr, window_.Handle(), reinterpret_cast<POINT*>(&button), 2);
        EXPECT_GE(button.left, 0);
        EXPECT_GE(button.top, 0);
        EXPECT_LE(button.right, client.right);
        EXPECT_LE(button.bottom, client.bottom);
    });
    Run();
}

TEST_F(SyntaxTreeWindow, TheButtonClosesIt) {
    script_.Do([this] { PostMessageW(GetDlgItem(window_.Handle(), IDCANCEL), BM_CLICK, 0, 0); });
    script_.Start();
    window_.ShowTree(nullptr);
    EXPECT_TRUE(script_.Finished()) << script_.Trouble();
}

TEST_F(DlgDsnTest, ANodeSelectsItsTextInTheEditorBehindTheTree) {
    constexpr UINT kSelectionStart = 2143, kSelectionEnd = 2145;  // of the editor, in bytes
    const std::wstring statement = L"SELECT a FROM tabla\r\nUNION SELECT b FROM u";
    const auto selection = [this](UINT end) {
        return static_cast<std::size_t>(SendMessageW(Control(ui::kIdEditor), end, 0, 0));
    };
    script_.Do([this] { MouseClick(MiddleOf(Control(ui::kIdSyntaxTree))); });
    script_.Until([] { return TreeDialog() != nullptr; }, "the tree is shown");
    script_.Do([] {
        const HWND tree = TreeIn(TreeDialog());
        MouseMove(NodePoint(tree, NodeOf(tree, L"tabla")));
    });
    script_.Do([] {
        const HWND tree = TreeIn(TreeDialog());
        MouseClick(NodePoint(tree, NodeOf(tree, L"tabla")));
    });
    script_.OnTrouble([this] {
        if (TreeDialog()) PostMessageW(TreeDialog(), WM_CLOSE, 0, 0);
        PostMessageW(window_.Handle(), WM_CLOSE, 0, 0);
    });
    const std::size_t place = statement.find(L"tabla");
    script_.Until(
        [&] { return selection(kSelectionStart) == place && selection(kSelectionEnd) == place + 5; },
        "the table's name is selected");
    script_.Do([] { PressKey(VK_ESCAPE); });
    script_.Until([] { return TreeDialog() == nullptr; }, "the tree is closed");
    script_.Do([&] {
        EXPECT_EQ(window_.EditorText(), statement);
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(statement));
}

TEST_F(DlgDsnTest, TheDesignIsLeftAsItIsByTheTree) {
    script_.Do([this] { Press(ui::kIdSyntaxTree); });
    script_.Until([] { return TreeDialog() != nullptr; }, "the tree is shown");
    script_.Do([] {
        const HWND tree = TreeIn(TreeDialog());
        MouseClick(NodePoint(tree, NodeOf(tree, L"Clientes")));
    });
    script_.Do([] { PressKey(VK_ESCAPE); });
    script_.Until([] { return TreeDialog() == nullptr; }, "the tree is closed");
    script_.Do([this] {
        EXPECT_EQ(Cell(model::GridRow::Campo, 0), L"Clientes.Nombre");
        EXPECT_TRUE(GridIsVisible());
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(kTotalsByCustomer));
}

}  // namespace tessel::testing
