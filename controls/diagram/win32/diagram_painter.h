// Paints the table diagram, and knows the fonts and measures that its boxes are laid out with.
//
// Colours are the system's, fonts the user's message font at the resolution and zoom asked for. Only what the
// clip rectangle touches is painted.
#pragma once

#include <windows.h>

#include <uxtheme.h>

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include "common/win32/handles.h"
#include "controls/diagram/diagram_state.h"
#include "controls/diagram/win32/mark_painter.h"

namespace tessel::controls::diagram {

inline void ReleaseTheme(HTHEME theme) {
    CloseThemeData(theme);
}
using UniqueTheme = win32::Unique<HTHEME, ReleaseTheme>;

class DiagramPainter final : public TextMeasurer {
public:
    /// Takes fonts and measures for a resolution. Also after fonts, colours or the visual style changed.
    void SetDpi(int dpi);
    /// The measures boxes are to be laid out with.
    const BoxMetrics& Metrics() const { return metrics_; }
    int TitleWidth(std::wstring_view text) const override;
    int RowWidth(std::wstring_view text) const override;

    /// The height of the line over the lower edge that tells the user what to do; 0 without a text.
    int HintHeight(const std::wstring& text, int client_width) const;

    /// Paints the state into `clip`. `focused` shows where the keyboard is.
    void Paint(HDC dc, const RECT& clip, const DiagramState& state, bool focused);
    /// Paints it as `view` sees it, with neither selection nor hover nor focus: a picture to keep.
    void PaintPicture(HDC dc, const RECT& clip, const DiagramState& state, const Viewport& view);

private:
    struct Colours {
        COLORREF window, text, border, title, title_text, highlight, highlight_text, faint, line, hover,
            focus, focus_text, mark, light_mark;
        bool high_contrast;
    };

    void PaintAll(HDC dc, const RECT& clip, const DiagramState& state, const Viewport& view);
    void ReadColours();
    void SetScale(const Viewport& view);
    Hit Hovered() const { return picture_ ? Hit{} : state_->Hover(); }
    model::DiagramElement Selected() const {
        return picture_ ? model::DiagramElement::None : state_->Model()->SelectedElement();
    }
    int Width(HFONT font, std::wstring_view text, std::unordered_map<std::wstring, int>& cache) const;
    int Px(int units) const { return view_->ToPixels(units); }
    RECT At(const Rect& plane) const;
    /// False where text and check boxes would be too small to be read: they are hinted at then.
    bool IsReadable() const;
    void PaintLines(const Layout& layout);
    void PaintLine(const Line& line, bool strong);
    void PaintRubber(const Rubber& rubber);
    /// A line of text over the lower edge, which tells the user what to do.
    void PaintHint(const std::wstring& text);
    void PaintEnd(Point end, Point before, bool arrow, COLORREF colour);
    void Stroke(const std::vector<Point>& plane_path, int width, COLORREF colour);
    void Bend(Point before, Point corner, Point after, int radius, int width, COLORREF colour);
    void PaintBox(int table, const std::optional<Rubber>& rubber);
    void PaintFrame(const RECT& rect, const RECT& title, COLORREF border, COLORREF title_colour);
    void PaintTitle(const Box& box, const model::DiagramTable& table, bool selected);
    void PaintRows(int index, const Box& box, const model::DiagramTable& table, bool selected,
                   const std::optional<Rubber>& rubber);
    void PaintRow(const Box& box, const model::DiagramTable& table, int row, COLORREF background,
                  bool hot_check);
    void PaintCheck(const RECT& rect, bool checked, bool hot, COLORREF background);
    win32::UniqueBitmap MakeCheck(int size, bool checked, bool hot, COLORREF background);
    void DrawCheck(HDC dc, int size, bool checked, bool hot, COLORREF background);
    void PaintThumb(const Box& box, bool hot);

    int dpi_ = 96;
    int font_scale_ = 0;  ///< dpi * zoom of the fonts at hand
    BoxMetrics metrics_;
    Colours colours_{};
    win32::UniqueFont measure_row_;
    win32::UniqueFont measure_title_;
    win32::UniqueFont row_font_;
    win32::UniqueFont title_font_;
    UniqueTheme theme_;
    MarkPainter marks_;
    std::map<std::pair<int, COLORREF>, win32::UniqueBitmap> checks_;
    win32::UniqueMemoryDc check_dc_;
    mutable std::unordered_map<std::wstring, int> row_widths_;
    mutable std::unordered_map<std::wstring, int> title_widths_;

    // During Paint.
    HDC dc_ = nullptr;
    const DiagramState* state_ = nullptr;
    const Viewport* view_ = nullptr;
    RECT clip_{};
    bool focused_ = false;
    bool picture_ = false;
};

}  // namespace tessel::controls::diagram
