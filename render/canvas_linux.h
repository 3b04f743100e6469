// The canvas over cairo: a drawing context on an image surface, and a font
// family as FreeType and cairo hold it.
#pragma once

#include <cairo.h>

#include "render/canvas.h"

struct Canvas {
    cairo_t* cr = nullptr;
};

// A canvas for composing frames: cairo's faster anti-aliasing and a curve
// tolerance of half a pixel, which keep a crowded 1920 x 1080 frame within
// half a tick. The landscapes, painted once per window, keep the finest.
inline Canvas FrameCanvas(cairo_t* cr) {
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_FAST);
    cairo_set_tolerance(cr, 0.5);
    return Canvas{cr};
}

// A family's regular face and, where the family has one, its bold face;
// both null for a family that is not installed (its text draws nothing).
struct FontFace {
    cairo_font_face_t* regular = nullptr;
    cairo_font_face_t* bold = nullptr;
    double lineSpacing = 1.2;  // the line spacing in ems, from the face's metrics
};
