// Composing frames rectangle by rectangle, into any image surface laid out
// as the window's frame buffer (32-bit xRGB, the window's size): the frame
// buffer itself, or the pixels of the window's surface on the screen.
#pragma once

#include <cairo.h>

#include "play/display_records.h"

// Composes each client rectangle in turn: the landscape back under it, then
// the layers clipped to it. The rectangles lie inside the window; overlapping
// ones are composed twice to the same pixels.
void ComposeRects(cairo_surface_t* target, const DisplayWindow& window, const Rect* rects, int count);
