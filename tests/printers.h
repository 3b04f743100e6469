// How GoogleTest prints the program's plain records in failure messages.
#pragma once

#include <ostream>

#include "play/geometry.h"

inline void PrintTo(const Point& p, std::ostream* os) { *os << "(" << p.x << ", " << p.y << ")"; }

inline void PrintTo(const Rect& r, std::ostream* os) {
    *os << "(" << r.left << ", " << r.top << ", " << r.right << ", " << r.bottom << ")";
}
