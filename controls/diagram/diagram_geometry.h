// Points and rectangles of the table diagram. Rectangles are half open: right and bottom edges are outside.
#pragma once

#include <algorithm>

#include "model/diagram.h"

namespace tessel::controls::diagram {

struct Point {
    int x = 0;
    int y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    int width = 0;
    int height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

using Rect = model::DiagramRect;

inline int Right(const Rect& rect) {
    return rect.left + rect.width;
}
inline int Bottom(const Rect& rect) {
    return rect.top + rect.height;
}
inline bool IsEmpty(const Rect& rect) {
    return rect.width <= 0 || rect.height <= 0;
}
inline Point Center(const Rect& rect) {
    return {rect.left + rect.width / 2, rect.top + rect.height / 2};
}

inline bool Contains(const Rect& rect, Point point) {
    return point.x >= rect.left && point.x < Right(rect) && point.y >= rect.top && point.y < Bottom(rect);
}

inline bool Overlaps(const Rect& a, const Rect& b) {
    return a.left < Right(b) && b.left < Right(a) && a.top < Bottom(b) && b.top < Bottom(a);
}

inline Rect Inflated(const Rect& rect, int by) {
    return {rect.left - by, rect.top - by, rect.width + 2 * by, rect.height + 2 * by};
}

/// The common part; of no size when there is none.
inline Rect Intersection(const Rect& a, const Rect& b) {
    const int left = std::max(a.left, b.left);
    const int top = std::max(a.top, b.top);
    return {left, top, std::max(0, std::min(Right(a), Right(b)) - left),
            std::max(0, std::min(Bottom(a), Bottom(b)) - top)};
}

/// The smallest rectangle around both; an empty one counts as nothing.
inline Rect Union(const Rect& a, const Rect& b) {
    if (IsEmpty(a)) return b;
    if (IsEmpty(b)) return a;
    const int left = std::min(a.left, b.left);
    const int top = std::min(a.top, b.top);
    return {left, top, std::max(Right(a), Right(b)) - left, std::max(Bottom(a), Bottom(b)) - top};
}

}  // namespace tessel::controls::diagram
