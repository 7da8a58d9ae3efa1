// SplitterBar: a container of two panes with a bar between them that the user drags. The container fills
// itself: when it is sized or the bar moves it places the panes, and tells its owner afterwards.
//
//   splitter.Create(parent, id, Orientation::SideBySide, &events);
//   splitter.SetPanes(browser, tabs);       // they become children of the container, which then places them
//   splitter.SetMinimums(120, 300);
//   splitter.SetPosition(220);
//
// Sizes given and answered are pixels at 96 dpi. WM_COMMAND, WM_NOTIFY and the other notifications of the
// panes go on to the container's own parent, so that a dialog need not know how its controls are nested. The
// arithmetic is in splitter_state.h.
#pragma once

#include <windows.h>

#include <string>

#include "common/win32/accessible_window.h"
#include "common/win32/window.h"
#include "controls/splitter/splitter_accessible.h"
#include "controls/splitter/splitter_state.h"

namespace tessel::controls {

class SplitterEvents {
public:
    virtual ~SplitterEvents() = default;
    /// The panes of the splitter with that id have new sizes, whatever the reason.
    virtual void OnSplitterResized(int id) = 0;
};

class SplitterBar final : public win32::Window {
public:
    ~SplitterBar() override;

    /// Creates the container without size; `events` may be nullptr and must outlive it.
    bool Create(HWND parent, int id, Orientation orientation, SplitterEvents* events);
    /// Takes two windows in as panes. Either may be nullptr. They are not owned.
    void SetPanes(HWND first, HWND second);
    /// What assistive programs call the bar.
    void SetName(const std::wstring& name);
    /// Gives the first pane that size; a double click on the bar returns to it.
    void SetPosition(int px_at_96dpi);
    /// The first pane's size.
    int Position() const;
    /// The least sizes that dragging and resizing leave to the panes.
    void SetMinimums(int first, int second);

    /// Hides the first pane and the bar, and gives the second pane everything; or shows them where they were.
    void SetFirstPaneShown(bool shown);

    /// The bar itself, which takes the keyboard focus and the mouse.
    HWND BarHandle() const { return bar_.Handle(); }

private:
    /// The bar's own window. A container that passes dialog keys on to its children cannot have the focus
    /// itself.
    class Bar final : public win32::Window {
    public:
        explicit Bar(SplitterBar& owner) : owner_(owner), tree_(owner.state_) {}
        bool Create(Orientation orientation);
        void SetName(const std::wstring& name);
        /// Tells assistive programs that the bar has moved.
        void ReportMoved() { accessible_.Report(EVENT_OBJECT_VALUECHANGE); }

    private:
        LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
        void OnPaint();
        void OnButtonDown(LPARAM lparam);
        void OnButtonUp();
        bool OnKeyDown(WPARAM key);
        int AlongAxis(LPARAM lparam) const;
        void ReturnFocus();

        SplitterBar& owner_;
        SplitterAccessible tree_;
        win32::AccessibleWindow accessible_{tree_};
        HWND focus_before_drag_ = nullptr;
        bool hot_ = false;
    };

    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    void ApplyMetrics();
    void Layout();
    void Moved(bool moved);
    void RestoreDefault();
    int Scaled(int dips) const;

    Orientation orientation_ = Orientation::SideBySide;
    SplitterEvents* events_ = nullptr;
    SplitterState state_;
    Bar bar_{*this};
    HWND first_ = nullptr;
    HWND second_ = nullptr;
    bool first_shown_ = true;
    int id_ = 0;
    int default_position_ = -1;
    int first_minimum_ = 0;
    int second_minimum_ = 0;
};

}  // namespace tessel::controls
