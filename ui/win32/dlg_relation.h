// dlgRelation, "Propiedades de la relación": shows the two fields that a relation joins and lets the user
// choose its kind. It changes nothing itself.
#pragma once

#include <windows.h>

#include <array>
#include <optional>

#include "model/records.h"
#include "ui/help_contexts.h"
#include "ui/win32/modal_dialog.h"

namespace tessel::ui {

class dlgRelation final : public ModalDialog {
public:
    /// The kind chosen, or nothing when the dialog was closed without "&Aceptar".
    std::optional<model::JoinKind> Ask(HWND owner, const model::RelInfo& relation);

private:
    bool OnCreateControls() override;
    void OnLayout(SIZE client) override;
    void OnCommand(int id, int notification) override;
    HWND FirstFocus() const override;
    long HelpTopic() const override { return help::kRelations; }
    int DefaultButton() const override { return IDOK; }
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;

    HWND AddText(const wchar_t* window_class, const wchar_t* text, DWORD style, int id);
    /// The height that a text needs when it is wrapped into that width, in pixels.
    int TextHeight(HWND control, int width) const;
    /// Places the controls in a client area of that width; the height that they need.
    int Arrange(int width, bool move);
    /// The outer height for that outer width.
    int NeededHeight(int outer_width);
    int ChosenIndex() const;

    model::RelInfo relation_;
    std::optional<model::JoinKind> answer_;
    HWND fields_caption_ = nullptr;
    HWND fields_ = nullptr;
    HWND kind_caption_ = nullptr;
    std::array<HWND, 3> kinds_{};  // in the order of JoinKind
    HWND accept_ = nullptr;
    HWND cancel_ = nullptr;
};

}  // namespace tessel::ui
