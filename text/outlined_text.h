// The primitives every label is built from: rounded rectangles, text turned
// into a path with a soft white rim and centred by its ink, and measured
// lines. They draw on the canvas of the frame being composed, in play-field
// coordinates, and keep nothing between calls.
#pragma once

#include <cstdint>

#include "render/canvas.h"

// Appends a closed rounded-rectangle figure to the path; a radius of half
// the height gives a pill.
void AddRoundedRect(Path& path, const BoxF& rect, float radius);

// Adds the text to the path line by line (line feeds break lines), each
// centred on x = 0, the lines a line spacing apart from y = 0 down.
void AddTextPath(Path& path, const wchar_t* text, const FontFace* face, int32_t style, float em);

// Draws the text (line feeds break lines, each centred) as a path in the
// face, its ink centred on (centreX, centreY), filled with the ARGB colour
// over a white rim of the colour's alpha. baseEm is in 96-dpi pixels; scale
// multiplies the rounded em. A missing text or face draws nothing, and an
// unusable face gives an empty path, so nothing either.
void DrawOutlinedText(Canvas& canvas, const wchar_t* text, const FontFace* face, int32_t baseEm,
                      float centreX, float centreY, uint32_t colour, float scale);
