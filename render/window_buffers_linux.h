// A display window's two off-screen buffers in the Linux edition: cairo
// image surfaces in the layout of an X11 window surface (32-bit xRGB).
#pragma once

#include <cairo.h>

#include "play/display_records.h"

struct WindowBuffers {
    cairo_surface_t* frameSurface = nullptr;    // back buffer into which frames are composed
    cairo_surface_t* scenerySurface = nullptr;  // the pre-rendered landscape
};

// The window's surfaces; null while it has no buffers.
inline cairo_surface_t* FrameSurface(const DisplayWindow& window) {
    return window.buffers ? window.buffers->frameSurface : nullptr;
}
inline cairo_surface_t* ScenerySurface(const DisplayWindow& window) {
    return window.buffers ? window.buffers->scenerySurface : nullptr;
}
