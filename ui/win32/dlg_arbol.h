// dlgArbol, "Árbol de sintaxis": how the parser understood a statement, as a tree that can be copied as text.
// What the nodes are is decided in analyse/syntax_tree; nothing can be changed here.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "analyse/syntax_tree.h"
#include "ui/help_contexts.h"
#include "ui/win32/modal_dialog.h"

namespace tessel::ui {

class dlgArbol final : public ModalDialog {
public:
    /// `on_selected` is told the range of a node that the user selects and that has one; may be empty.
    dlgArbol(const std::vector<analyse::TreeNode>& roots, std::function<void(TextRange)> on_selected);

    /// Shows the tree, everything expanded, until the user closes it.
    void ShowTree(HWND owner);

    HWND Tree() const { return tree_; }
    /// The tree as text, two blanks a level, one node a line: what Ctrl+C copies. Ctrl+Shift+C copies the
    /// selected node alone.
    static std::wstring AsText(const std::vector<analyse::TreeNode>& roots);

private:
    bool OnCreateControls() override;
    void OnLayout(SIZE client) override;
    void OnCommand(int id, int notification) override;
    LRESULT OnNotify(NMHDR* header) override;
    bool OnPreTranslate(const MSG& message) override;
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    HWND FirstFocus() const override { return tree_; }
    long HelpTopic() const override { return help::kSyntaxTree; }

    void AddNodes(const std::vector<analyse::TreeNode>& nodes, void* parent);
    const analyse::TreeNode* SelectedNode() const;
    void ShowMenu(POINT screen);
    void CopyTree();
    void CopyNode();

    const std::vector<analyse::TreeNode>& roots_;
    std::function<void(TextRange)> on_selected_;
    HWND tree_ = nullptr;   // TVW
    HWND close_ = nullptr;  // "&Cerrar"
    bool filling_ = false;
    int nodes_added_ = 0;
};

}  // namespace tessel::ui
