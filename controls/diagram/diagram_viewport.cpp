#include "controls/diagram/diagram_viewport.h"

#include <cstdint>

namespace tessel::controls::diagram {

namespace {

// Rounds to nearest, halves upwards, also below zero: a box that crosses the origin must not change its size.
int Ratio(std::int64_t value, std::int64_t numerator, std::int64_t denominator) {
    const std::int64_t twice = 2 * value * numerator + denominator;
    const std::int64_t whole = 2 * denominator;
    const std::int64_t quotient = twice / whole - (twice % whole < 0 ? 1 : 0);
    return static_cast<int>(quotient);
}

constexpr int kUnit = 96 * 100;

}  // namespace

int Viewport::ToPixels(int units) const {
    return Ratio(units, static_cast<std::int64_t>(dpi_) * zoom_, kUnit);
}

int Viewport::ToUnits(int pixels) const {
    return Ratio(pixels, kUnit, static_cast<std::int64_t>(dpi_) * zoom_);
}

Point Viewport::ToClient(Point plane) const {
    return {ToPixels(plane.x) - scroll_.x, ToPixels(plane.y) - scroll_.y};
}

Rect Viewport::ToClient(const Rect& plane) const {
    const Point corner = ToClient(Point{plane.left, plane.top});
    const Point opposite = ToClient(Point{Right(plane), Bottom(plane)});
    return {corner.x, corner.y, opposite.x - corner.x, opposite.y - corner.y};
}

Point Viewport::ToPlane(Point client_px) const {
    return {ToUnits(client_px.x + scroll_.x), ToUnits(client_px.y + scroll_.y)};
}

Rect Viewport::Visible() const {
    const Point corner = ToPlane({0, 0});
    const Point opposite = ToPlane({client_.width, client_.height});
    return {corner.x, corner.y, opposite.x - corner.x + 1, opposite.y - corner.y + 1};
}

Point Viewport::MinScroll() const {
    return {ToPixels(extent_.left), ToPixels(extent_.top)};
}

Point Viewport::MaxScroll() const {
    const Point smallest = MinScroll();
    return {std::max(smallest.x, ToPixels(Right(extent_)) - client_.width),
            std::max(smallest.y, ToPixels(Bottom(extent_)) - client_.height)};
}

void Viewport::SetClient(Size client_px) {
    client_ = client_px;
    SetScroll(scroll_);
}

void Viewport::SetExtent(const Rect& extent) {
    extent_ = extent;
    SetScroll(scroll_);
}

void Viewport::SetScroll(Point scroll_px) {
    const Point smallest = MinScroll();
    const Point largest = MaxScroll();
    scroll_ = {std::clamp(scroll_px.x, smallest.x, largest.x),
               std::clamp(scroll_px.y, smallest.y, largest.y)};
}

void Viewport::SetZoom(int percent, Point anchor_px) {
    const std::int64_t old_zoom = zoom_;
    zoom_ = std::clamp(percent, kMinZoom, kMaxZoom);
    SetScroll({Ratio(anchor_px.x + scroll_.x, zoom_, old_zoom) - anchor_px.x,
               Ratio(anchor_px.y + scroll_.y, zoom_, old_zoom) - anchor_px.y});
}

void Viewport::Reveal(const Rect& plane) {
    const Rect shown = ToClient(plane);
    Point target = scroll_;
    if (shown.left < 0 || shown.width > client_.width)
        target.x += shown.left;
    else if (Right(shown) > client_.width)
        target.x += Right(shown) - client_.width;
    if (shown.top < 0 || shown.height > client_.height)
        target.y += shown.top;
    else if (Bottom(shown) > client_.height)
        target.y += Bottom(shown) - client_.height;
    SetScroll(target);
}

int NextZoom(int percent, int direction) {
    static constexpr int kSteps[] = {25,  33,  50,  67,  75,  90,  100, 110,
                                     125, 150, 175, 200, 250, 300, 350, 400};
    if (direction > 0) {
        for (const int step : kSteps)
            if (step > percent) return step;
        return kMaxZoom;
    }
    int below = kMinZoom;
    for (const int step : kSteps)
        if (step < percent) below = step;
    return below;
}

}  // namespace tessel::controls::diagram
