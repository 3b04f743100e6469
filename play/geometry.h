// Integer rectangles and points: play-field coordinates (virtual-screen
// pixels, origin at the virtual screen's top-left corner) and client
// coordinates of one window share these plain records.
#pragma once

#include <algorithm>
#include <cstdint>

struct Point {
    int32_t x = 0;
    int32_t y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

// Edges as Windows keeps them: left and top inside, right and bottom outside.
struct Rect {
    int32_t left = 0;
    int32_t top = 0;
    int32_t right = 0;
    int32_t bottom = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

inline int32_t Width(const Rect& r) { return r.right - r.left; }
inline int32_t Height(const Rect& r) { return r.bottom - r.top; }
inline bool IsEmpty(const Rect& r) { return r.right <= r.left || r.bottom <= r.top; }

// Whether two rectangles share at least one pixel; an empty rectangle meets
// nothing.
inline bool Meets(const Rect& a, const Rect& b) {
    return a.left < b.right && a.right > b.left && a.top < b.bottom && a.bottom > b.top;
}

inline Rect Offset(const Rect& r, int32_t dx, int32_t dy) {
    return {r.left + dx, r.top + dy, r.right + dx, r.bottom + dy};
}

// The smallest rectangle around both, and the part they share (empty when
// they do not meet).
inline Rect Union(const Rect& a, const Rect& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}
inline Rect Intersection(const Rect& a, const Rect& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

// Float geometry as the drawing takes it: boxes by top-left corner and size.
struct PointF {
    float x = 0;
    float y = 0;
};
struct BoxF {
    float x = 0;
    float y = 0;
    float width = 0;
    float height = 0;
};
struct LineF {
    PointF from;
    PointF to;
};
