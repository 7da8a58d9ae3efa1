// What the designer's presenter needs of its window. The Win32 window implements these; tests and the command
// line implement them with a few lines. Views show what they are told and report gestures; they decide
// nothing.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analyse/syntax_tree.h"
#include "model/records.h"

namespace tessel::ui {

enum class Tab : int { Design = 0, Sql = 1 };
enum class Pointer { Default, Hourglass };

/// edtSQL, the SQL editor.
class EditorView {
public:
    virtual ~EditorView() = default;
    virtual std::wstring Text() const = 0;
    /// Replaces the whole text as one undoable step.
    virtual void SetText(std::wstring_view text) = 0;
    /// The text that the designer was opened with: the editor's history begins with it.
    virtual void LoadText(std::wstring_view text) { SetText(text); }
    /// A text that differs from the editor's in white space only: the caret stays at its place.
    virtual void SetLayout(std::wstring_view text) { SetText(text); }
    /// Texts set between the two are one undoable step together, and none when the text ends as it began.
    virtual void BeginReplacement() {}
    virtual void EndReplacement() {}
    virtual void Refresh() = 0;
};

/// dlgDsn without its editor.
class DesignerView {
public:
    virtual ~DesignerView() = default;

    /// Sets the mouse pointer and returns the one that was set before.
    virtual Pointer SetPointer(Pointer pointer) = 0;
    /// Lets pending window messages be processed once.
    virtual void ProcessEvents() = 0;
    /// Moves the keyboard focus to txtFocus.
    virtual void FocusNeutral() = 0;

    /// Shows a tab without reporting a tab click back.
    virtual void ShowTab(Tab tab) = 0;
    /// Grid dxG and its button panel picCtrs, shown or hidden together. Hidden, tab 0 shows lblNo in their
    /// place.
    virtual void ShowGrid(bool shown) = 0;
    /// lblNo, which lies under the grid.
    virtual void ShowReason(bool shown) = 0;
    /// The distinct check box follows the design.
    virtual void ShowDistinct(bool checked) = 0;
    virtual void RedrawDiagram() = 0;

    /// A plain message box with an OK button.
    virtual void ShowMessage(std::wstring_view text) = 0;
    /// Yes and No, question icon, No as the default. True for Yes.
    virtual bool AskYesNo(std::wstring_view text) = 0;

    /// dlgArbol on the roots of a statement's tree; returns when the user closes it.
    virtual void ShowSyntaxTree(const std::vector<analyse::TreeNode>& roots) = 0;

    /// Selects a table of the diagram and scrolls to it.
    virtual void RevealTable(std::wstring_view table) = 0;
    /// Begins a relation from a table: the user completes it in the diagram, or gives it up.
    virtual void BeginRelation(std::wstring_view table) = 0;
    /// The properties of a relation: the kind that the user chose, or nothing when they are closed otherwise.
    virtual std::optional<model::JoinKind> AskRelationKind(const model::RelInfo& relation) = 0;
    /// dlgAddTable on the tables related to one, or on everything when the name is empty; returns when it is
    /// closed.
    virtual void AddTable(std::wstring_view related_to) = 0;

    /// Whether there is a connection that rows can be read from.
    virtual bool HasConnection() const = 0;
    /// Every row of a table, in the preview; returns when it is closed.
    virtual void PreviewTable(std::wstring_view table) = 0;

    /// Hides the window, which ends its modal call.
    virtual void Hide() = 0;
};

/// The Quillon that opened the designer, as far as the designer asks it.
class DesignerOwner {
public:
    virtual ~DesignerOwner() = default;
    /// The names of the host's parameters in collection order; empty when there are none.
    virtual std::vector<std::wstring> ParameterNames() = 0;
    /// What the macros of a statement stand for; nothing where the owner has no answer. The value of the
    /// host's parameter of that name as an SQL literal, and as it is.
    virtual std::optional<std::wstring> ParameterLiteral(std::wstring_view) { return std::nullopt; }
    virtual std::optional<std::wstring> ParameterText(std::wstring_view) { return std::nullopt; }
    /// The name of the user logged on, and the computer's network name.
    virtual std::optional<std::wstring> UserName() { return std::nullopt; }
    virtual std::optional<std::wstring> ComputerName() { return std::nullopt; }
};

}  // namespace tessel::ui
