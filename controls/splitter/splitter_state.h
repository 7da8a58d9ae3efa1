// Where a splitter's bar stands: the arithmetic of two panes and a bar between them, in device pixels along
// one axis.
//
// Owns the position, the minimum sizes, the drag in progress and the proportion that survives resizing. Knows
// no window: win32/splitter_bar.h gives it lengths and pointer positions and places the panes where it says.
#pragma once

namespace tessel::controls {

/// How the two panes lie.
enum class Orientation {
    SideBySide,  ///< left and right of a vertical bar
    Stacked,     ///< above and below a horizontal bar
};

class SplitterState {
public:
    /// The thickness of the bar and the least sizes of the panes, all in pixels. Keeps the position as it
    /// can.
    void SetMetrics(int bar, int first_minimum, int second_minimum);
    /// The whole length, bar included. The proportion of the panes stays.
    void SetLength(int length);
    /// Moves the bar so that the first pane has that size, as far as the minimums allow.
    void SetPosition(int position);

    int Bar() const { return bar_; }
    int Length() const { return length_; }
    /// Size of the first pane; the bar starts here.
    int Position() const { return position_; }
    /// Size of the second pane.
    int SecondSize() const;

    /// A drag starts with the pointer on the bar, at `pointer` along the axis.
    void BeginDrag(int pointer);
    /// The pointer moved. True when the bar moved with it.
    bool DragTo(int pointer);
    void EndDrag() { dragging_ = false; }
    /// Ends the drag with the bar where it was at its start.
    void CancelDrag();
    bool IsDragging() const { return dragging_; }

    /// The keyboard moves the bar by `delta` pixels. True when it moved.
    bool MoveBy(int delta);
    /// The bar goes as far as the minimums allow, towards the start or towards the end. True when it moved.
    bool MoveToStart();
    bool MoveToEnd();

private:
    int Available() const { return length_ > bar_ ? length_ - bar_ : 0; }
    int Clamped(int position) const;
    bool MoveTo(int position);

    int bar_ = 0;
    int first_minimum_ = 0;
    int second_minimum_ = 0;
    int length_ = 0;
    int position_ = 0;
    double fraction_ = 0.5;  ///< of the available length; what resizing keeps
    int wanted_ = -1;        ///< a position asked for before the length was known
    bool dragging_ = false;
    int drag_offset_ = 0;  ///< from the bar's start to the pointer
    int position_before_drag_ = 0;
    double fraction_before_drag_ = 0.5;
};

}  // namespace tessel::controls
