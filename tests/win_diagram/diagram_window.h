// A window around the diagram for tests: a schema made of literals, a host that answers gestures the way the
// designer does, and input by messages or by real mouse and keyboard events.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "controls/diagram/win32/diagram_view.h"
#include "schema/schema.h"

namespace tessel::controls::testing_support {

/// Tables given as a name and field names; a field that begins with "+" is a primary key, with "-" a foreign
/// key.
using TableLiterals = std::vector<std::pair<std::wstring, std::vector<std::wstring>>>;

schema::Schema MakeSchema(const TableLiterals& tables);

/// Applies gestures to the model, as the presenter does, and keeps them.
class RecordingEvents : public DiagramEvents {
public:
    explicit RecordingEvents(model::Diagram& diagram) : diagram_(diagram) {}

    void OnDiagramFieldChecked(std::wstring_view table, std::wstring_view field, bool checked) override;
    void OnDiagramRelationDrawn(std::wstring_view left_table, std::wstring_view left_field,
                                std::wstring_view right_table, std::wstring_view right_field) override;
    void OnDiagramContextMenu(model::DiagramElement element, POINT screen) override;
    void OnDiagramDelete(model::DiagramElement element) override;
    void OnDiagramRelationActivated(int key) override;

    std::vector<std::wstring> log;
    POINT menu_at{};

private:
    model::Diagram& diagram_;
};

class DiagramWindow {
public:
    explicit DiagramWindow(const TableLiterals& tables, SIZE size = {900, 600}, int dpi_zoom = 100);
    ~DiagramWindow();
    DiagramWindow(const DiagramWindow&) = delete;
    DiagramWindow& operator=(const DiagramWindow&) = delete;

    void Add(const std::wstring& table) { diagram.AddTable(table, true); }
    int Relate(const std::wstring& left_table, const std::wstring& left_field,
               const std::wstring& right_table, const std::wstring& right_field,
               int kind = model::kInnerJoin);

    /// Handles every message that is waiting.
    void Pump();
    /// Handles messages until the condition holds; false after a generous time.
    bool PumpUntil(const std::function<bool()>& condition);

    /// Mouse messages at client points, with the messages that follow from them.
    void Mouse(UINT message, POINT at, WPARAM keys = 0);
    void Click(POINT at);
    void Drag(POINT from, POINT to);
    void Press(WORD key, bool ctrl = false, bool shift = false);

    /// Real input through the system's queue.
    void SendMouse(POINT at, DWORD flags);
    void SendKey(WORD key);

    /// Saves the frame window as it is on the screen.
    bool Save(const std::wstring& file);

    schema::Schema schema;
    model::Diagram diagram;
    RecordingEvents events{diagram};
    HWND frame = nullptr;
    DiagramView view;
};

POINT Middle(const RECT& rect);

}  // namespace tessel::controls::testing_support
