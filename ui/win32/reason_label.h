// lblNo: the text that tab 0 shows in place of a design that cannot be shown; below it, the reason and a link
// to its place in the SQL text. The window's own text is the fixed one. Scrolls where there is no room for
// everything.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "common/accessible_tree.h"
#include "common/win32/accessible_window.h"
#include "common/win32/handles.h"
#include "common/win32/window.h"
#include "controls/diagram/win32/mark_painter.h"
#include "ui/win32/link_label.h"

namespace tessel::ui {

class ReasonLabel final : public win32::Window, private AccessibleTree {
public:
    /// `on_go` runs when the link is pressed.
    bool Create(HWND parent, int id, const wchar_t* text, std::function<void()> on_go);
    /// The font is not owned.
    void SetFont(HFONT font);
    /// The reason, which comes with the link; an empty one takes both away.
    void SetReason(const std::wstring& reason);
    /// The link, while there is a reason; else nullptr.
    HWND Link() const;

private:
    /// A text, which is not there for anybody while the grid and its buttons cover it.
    AccessibleElement Describe(AccessibleId) const override;
    bool IsCovered() const;

    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    void Paint();
    void PaintSign(HDC dc);
    void CreateLabels();
    void Layout();
    /// Places everything and measures its height.
    void Arrange();
    void ScrollTo(int offset);
    void OnScroll(int request);
    int Px(int dips) const;
    int Padding() const;
    /// Where the fixed text stands when nothing is scrolled.
    RECT TextArea() const;

    controls::diagram::MarkPainter marks_;
    HFONT font_ = nullptr;
    std::function<void()> on_go_;
    LinkLabel reason_;
    LinkLabel link_;
    bool has_reason_ = false;
    bool laying_out_ = false;
    bool compact_ = false;  ///< little room: no icon, small margins
    int offset_ = 0;        ///< pixels scrolled
    int height_ = 0;        ///< pixels of everything
    win32::AccessibleWindow accessible_{*this};
};

}  // namespace tessel::ui
