// Zoom arithmetic: between the diagram's plane (1/96 inch, "units") and the client area of its window
// (pixels).
//
// Edges are converted, never sizes, so that neighbours in the plane stay neighbours on the screen at every
// zoom.
#pragma once

#include "controls/diagram/diagram_geometry.h"

namespace tessel::controls::diagram {

inline constexpr int kMinZoom = 25;
inline constexpr int kMaxZoom = 400;

class Viewport {
public:
    int Dpi() const { return dpi_; }
    int Zoom() const { return zoom_; }
    Size Client() const { return client_; }
    Point Scroll() const { return scroll_; }
    Rect Extent() const { return extent_; }

    void SetDpi(int dpi) { dpi_ = dpi > 0 ? dpi : 96; }
    void SetClient(Size client_px);
    /// The part of the plane that can be scrolled to, in units.
    void SetExtent(const Rect& extent);
    /// Pixels of the plane (from its origin) at the client's left top corner; brought into the scroll range.
    void SetScroll(Point scroll_px);
    /// Changes the zoom so that the plane's point under `anchor_px` stays there as far as scrolling allows.
    void SetZoom(int percent, Point anchor_px);

    /// A length, rounded to nearest.
    int ToPixels(int units) const;
    int ToUnits(int pixels) const;

    Point ToClient(Point plane) const;
    Rect ToClient(const Rect& plane) const;
    Point ToPlane(Point client_px) const;
    /// The part of the plane that the client area shows.
    Rect Visible() const;

    /// Scroll range in pixels: smallest and largest scroll position.
    Point MinScroll() const;
    Point MaxScroll() const;

    /// Scrolls as little as shows the rectangle; its left top corner when it is larger than the client area.
    void Reveal(const Rect& plane);

private:
    int dpi_ = 96;
    int zoom_ = 100;
    Size client_;
    Point scroll_;
    Rect extent_;
};

/// The next of the customary zoom steps in that direction.
[[nodiscard]] int NextZoom(int percent, int direction);

}  // namespace tessel::controls::diagram
