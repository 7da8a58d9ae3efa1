// Between the table diagram's state and its window: what the state asks of whoever shows it, and the words in
// which the window tells it what the user did.
#pragma once

#include <string_view>

#include "controls/diagram/diagram_layout.h"

namespace tessel::controls::diagram {

/// Who shows the state: its window, or a test.
class DiagramHost {
public:
    virtual ~DiagramHost() = default;
    virtual void Repaint() = 0;
    virtual void FieldChecked(std::wstring_view table, std::wstring_view field, bool checked) = 0;
    virtual void RelationDrawn(std::wstring_view left_table, std::wstring_view left_field,
                               std::wstring_view right_table, std::wstring_view right_field) = 0;
    virtual void ContextMenu(model::DiagramElement element, Point client_px) = 0;
    virtual void DeleteWanted(model::DiagramElement element) = 0;
    virtual void RelationActivated(int key) = 0;
    /// The pointer carries a field ("*" for all of them) outside the diagram. True when what is there takes
    /// it.
    virtual bool CarriedOutside(std::wstring_view table, std::wstring_view field, Point client_px) {
        (void)table;
        (void)field;
        (void)client_px;
        return false;
    }
    /// What was carried outside came back, was dropped or given up.
    virtual void CarriedBack() {}
    /// It was dropped where something takes it.
    virtual void DroppedOutside(std::wstring_view table, std::wstring_view field, Point client_px) {
        (void)table;
        (void)field;
        (void)client_px;
    }
};

enum class Button { Left, Middle, Right };
enum class Key {
    Left,
    Right,
    Up,
    Down,
    Home,
    End,
    PageUp,
    PageDown,
    Space,
    Delete,
    Enter,
    Escape,
    Plus,
    Minus,
    Zero,
    Nine,
    Tab,
    Insert
};
struct Modifiers {
    bool shift = false;
    bool ctrl = false;
};
enum class Cursor { Arrow, Move, SizeWE, SizeNS, SizeNWSE, SizeNESW, Hand, Link, No };

/// A relation being drawn: from a field's row, or from the table's title (-1), to a point, over `target` when
/// that field may be taken.
struct Rubber {
    int table = -1;
    int row = -1;
    Point to;  ///< plane
    Hit target;
    bool drawn = false;  ///< there is a line; otherwise rows are marked only
};

}  // namespace tessel::controls::diagram
