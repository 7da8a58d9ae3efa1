// A short text that leads somewhere: pressed with the mouse, Enter or the space bar it does what it was given
// to do. Reachable by Tab with a visible focus, as high as its text needs at a width. It may have a sign in
// front of it, and may have nothing to do, when it is only read and never stops Tab.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "common/accessible_tree.h"
#include "common/win32/accessible_window.h"
#include "common/win32/window.h"

namespace tessel::ui {

class LinkLabel : public win32::Window, private AccessibleTree {
public:
    enum class Sign { None, Error, Note };
    /// How the text looks when it leads somewhere: a link is underlined and has the colour of links.
    enum class Look { Link, Plain };

    /// `background` is the system colour index that is painted behind the text.
    bool Create(HWND parent, int id, Look look, int background, std::function<void()> on_pressed);
    /// The font is not owned.
    void SetFont(HFONT font);
    /// What is shown, and whether pressing leads anywhere.
    void SetContents(const std::wstring& text, Sign sign, bool leads_somewhere);
    /// The height that the text needs, one line at least.
    int HeightFor(int width) const;
    /// The width of the text on one line.
    int Width() const;

protected:
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;

private:
    // AccessibleTree: a link that can be pressed, or a text.
    AccessibleElement Describe(AccessibleId) const override;
    void Act(AccessibleId) override { Press(); }

    void Paint();
    void PaintSign(HDC dc, const RECT& place) const;
    RECT TextArea(const RECT& client) const;
    std::wstring Text() const;
    HFONT FontInUse() const;
    void Press();

    HFONT font_ = nullptr;
    Look look_ = Look::Plain;
    int background_ = COLOR_WINDOW;
    Sign sign_ = Sign::None;
    bool leads_somewhere_ = false;
    std::function<void()> on_pressed_;
    win32::AccessibleWindow accessible_{*this};
};

}  // namespace tessel::ui
