// Views that record what the presenter asks of them, in one list, in order.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ui/views.h"

namespace tessel::test {

using Calls = std::vector<std::wstring>;

class FakeEditor : public ui::EditorView {
public:
    explicit FakeEditor(Calls& calls) : calls_(calls) {}

    std::wstring Text() const override { return text; }
    void SetText(std::wstring_view value) override {
        text = value;
        calls_.push_back(text.empty() ? L"editor empty" : L"editor text");
    }
    void Refresh() override { calls_.push_back(L"editor refresh"); }

    std::wstring text;

private:
    Calls& calls_;
};

class FakeWindow : public ui::DesignerView {
public:
    explicit FakeWindow(Calls& calls) : calls_(calls) {}

    ui::Pointer SetPointer(ui::Pointer value) override {
        const ui::Pointer before = pointer;
        pointer = value;
        calls_.push_back(value == ui::Pointer::Hourglass ? L"hourglass" : L"default pointer");
        return before;
    }
    void ProcessEvents() override {
        calls_.push_back(L"events");
        if (pending_input.empty()) return;
        const std::function<void()> input = pending_input.front();
        pending_input.pop_front();
        if (input) input();
    }
    void FocusNeutral() override {
        calls_.push_back(L"focus");
        if (on_focus_lost) on_focus_lost();
    }
    void ShowTab(ui::Tab value) override {
        tab = value;
        calls_.push_back(value == ui::Tab::Sql ? L"tab sql" : L"tab design");
    }
    void ShowGrid(bool shown) override {
        grid_shown = shown;
        calls_.push_back(shown ? L"grid on" : L"grid off");
    }
    void ShowReason(bool shown) override {
        reason_shown = shown;
        calls_.push_back(shown ? L"reason on" : L"reason off");
    }
    void ShowDistinct(bool checked) override { distinct = checked; }
    void RedrawDiagram() override { calls_.push_back(L"redraw"); }
    void ShowMessage(std::wstring_view text) override {
        messages.emplace_back(text);
        calls_.push_back(L"message");
    }
    void ShowSyntaxTree(const std::vector<analyse::TreeNode>& roots) override {
        calls_.push_back(L"tree");
        tree = roots;
    }
    bool AskYesNo(std::wstring_view text) override {
        questions.emplace_back(text);
        calls_.push_back(L"question");
        return answer;
    }
    void RevealTable(std::wstring_view table) override { revealed = table; }
    void BeginRelation(std::wstring_view table) override { relation_begun = table; }
    std::optional<model::JoinKind> AskRelationKind(const model::RelInfo& relation) override {
        asked_relation = relation;
        return chosen_kind;
    }
    void AddTable(std::wstring_view related_to) override { add_table_calls.emplace_back(related_to); }
    bool HasConnection() const override { return has_connection; }
    void PreviewTable(std::wstring_view table) override { previewed.emplace_back(table); }
    void Hide() override {
        hidden = true;
        calls_.push_back(L"hide");
    }

    ui::Pointer pointer = ui::Pointer::Default;
    ui::Tab tab = ui::Tab::Design;
    bool grid_shown = false;
    bool reason_shown = false;
    bool distinct = false;
    bool hidden = false;
    bool answer = false;
    std::vector<std::wstring> messages;
    std::vector<std::wstring> questions;
    std::vector<analyse::TreeNode> tree;
    std::wstring revealed;
    std::wstring relation_begun;
    model::RelInfo asked_relation;
    std::optional<model::JoinKind> chosen_kind;
    std::vector<std::wstring> add_table_calls;
    bool has_connection = false;
    std::vector<std::wstring> previewed;
    std::function<void()> on_focus_lost;
    std::deque<std::function<void()>> pending_input;  ///< one for each ProcessEvents

private:
    Calls& calls_;
};

class FakeOwner : public ui::DesignerOwner {
public:
    std::vector<std::wstring> ParameterNames() override { return names; }

    std::vector<std::wstring> names;
};

}  // namespace tessel::test
