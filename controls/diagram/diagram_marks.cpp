#include "controls/diagram/diagram_marks.h"

#include <algorithm>
#include <cmath>

namespace tessel::controls::diagram {

namespace {

constexpr int kSamples = 8;  // a side of the grid of samples in a pixel

bool InEllipse(double x, double y, double center_x, double center_y, double radius_x, double radius_y) {
    if (radius_x <= 0 || radius_y <= 0) return false;
    const double dx = (x - center_x) / radius_x;
    const double dy = (y - center_y) / radius_y;
    return dx * dx + dy * dy <= 1.0;
}

bool InBar(double x, double y, double left, double top, double right, double bottom) {
    return x >= left && x < right && y >= top && y < bottom;
}

// In a unit square: a bow with a hole, a shaft, two bits of different length.
bool InKey(double x, double y) {
    if (InEllipse(x, y, 0.27, 0.44, 0.27, 0.27)) return !InEllipse(x, y, 0.27, 0.44, 0.12, 0.12);
    return InBar(x, y, 0.5, 0.36, 1.0, 0.52) || InBar(x, y, 0.68, 0.5, 0.79, 0.7) ||
           InBar(x, y, 0.88, 0.5, 1.0, 0.78);
}

/// Within half a `thickness` of the line between two points.
bool InStroke(double x, double y, double ax, double ay, double bx, double by, double thickness) {
    const double length_squared = (bx - ax) * (bx - ax) + (by - ay) * (by - ay);
    const double along = std::clamp(((x - ax) * (bx - ax) + (y - ay) * (by - ay)) / length_squared, 0.0, 1.0);
    return std::hypot(x - ax - along * (bx - ax), y - ay - along * (by - ay)) <= thickness / 2;
}

// In a unit square: a short stroke down, a long one up.
bool InTick(double x, double y) {
    constexpr double kThickness = 0.15;
    return InStroke(x, y, 0.22, 0.52, 0.42, 0.74, kThickness) ||
           InStroke(x, y, 0.42, 0.74, 0.79, 0.28, kThickness);
}

bool InPill(double x, double y, double width, double height) {
    const double radius = std::min(width, height) / 2;
    const double nearest_x = std::clamp(x, radius, width - radius);
    const double nearest_y = std::clamp(y, radius, height - radius);
    return std::hypot(x - nearest_x, y - nearest_y) <= radius;
}

bool Covers(const Mark& mark, double x, double y) {
    const double width = mark.width;
    const double height = mark.height;
    switch (mark.shape) {
        case MarkShape::Disc:
            return InEllipse(x, y, width / 2, height / 2, width / 2, height / 2);
        case MarkShape::QuarterDisc:
            return InEllipse(x, y, width, height, width, height);
        case MarkShape::QuarterRing:
            return InEllipse(x, y, width, height, width, height) &&
                   !InEllipse(x, y, width, height, width - mark.stroke, height - mark.stroke);
        case MarkShape::Arrow:
            return std::abs(y - height / 2) <= (width - x) / width * height / 2;
        case MarkShape::Key:
            return InKey(x / width, y / height);
        case MarkShape::Pill:
            return InPill(x, y, width, height);
        case MarkShape::Tick:
            return InTick(x / width, y / height);
    }
    return false;
}

}  // namespace

std::uint8_t Coverage(const Mark& mark, int x, int y) {
    if (x < 0 || y < 0 || x >= mark.width || y >= mark.height) return 0;
    if (mark.flip_x) x = mark.width - 1 - x;
    if (mark.flip_y) y = mark.height - 1 - y;
    int covered = 0;
    for (int row = 0; row < kSamples; ++row)
        for (int column = 0; column < kSamples; ++column)
            covered += Covers(mark, x + (column + 0.5) / kSamples, y + (row + 0.5) / kSamples) ? 1 : 0;
    return static_cast<std::uint8_t>(covered * 255 / (kSamples * kSamples));
}

}  // namespace tessel::controls::diagram
