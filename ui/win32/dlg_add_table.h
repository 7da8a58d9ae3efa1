// dlgAddTable, "Agregar tabla al diagrama": the user picks a table or view, or one of the tables related to a
// table of the diagram.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "schema/schema.h"
#include "ui/help_contexts.h"
#include "ui/win32/modal_dialog.h"

namespace tessel::ui {

class dlgAddTable final : public ModalDialog {
public:
    /// Offers the tables related to `tableName`, or everything when it is empty or unknown. `on_chosen` is
    /// told the table that the user adds; the dialog closes then, unless the user wants it kept open for the
    /// next one. The schema is not owned.
    void Init(const schema::Schema& schema, std::wstring_view tableName,
              std::function<void(std::wstring_view)> on_chosen);
    void Show(HWND owner);

private:
    bool OnCreateControls() override;
    void OnLayout(SIZE client) override;
    void OnScaled(int) override { AlignColumns(); }
    void OnCommand(int id, int notification) override;
    bool OnPreTranslate(const MSG& message) override;
    HWND FirstFocus() const override { return filter_; }
    long HelpTopic() const override { return help::kAddTable; }
    int DefaultButton() const override;

    HWND AddControl(const wchar_t* window_class, const wchar_t* text, DWORD style, DWORD ex_style, int id);
    void FillList();
    void AlignColumns();
    void ShowLines();
    void AddChosen();
    void PrepareForNext(int selected);

    const schema::Schema* schema_ = nullptr;
    std::function<void(std::wstring_view)> on_chosen_;
    std::vector<std::wstring> entries_;
    std::size_t entry_ = 0;
    std::vector<std::wstring> lines_;  // of the entry, unfiltered
    HWND combo_ = nullptr;             // Combo1
    HWND filter_ = nullptr;
    HWND list_ = nullptr;   // List1
    HWND add_ = nullptr;    // KewlButtons1
    HWND close_ = nullptr;  // KewlButtons2
    HWND keep_open_ = nullptr;
};

}  // namespace tessel::ui
