// The landscape painters: each turns one element of a theme into fills and
// lines on the canvas it is given.
#pragma once

#include <cstdint>

#include "play/geometry.h"
#include "render/canvas.h"
#include "render/scenery_layout.h"

// Paints the whole theme into rect, clipped to it; a theme value other than
// 0..3 paints the flower field. Called by RenderScenery, once per scenery
// buffer; the canvas state is left as it was found.
void DrawScenery(Canvas& canvas, const Rect& rect, uint32_t theme);

// The element painters, in the order the themes use them.
void DrawSkyOrGround(Canvas& canvas, const Rect& rect, Colour top, Colour bottom);
void DrawSun(Canvas& canvas, float cx, float cy, float radius, Colour colour);
void DrawCloud(Canvas& canvas, float cx, float cy, float width, float height);
void DrawMountain(Canvas& canvas, float peakX, float baseY, float baseWidth, float height, Colour colour);
void DrawTree(Canvas& canvas, float x, float groundY, float scale);
void DrawFlower(Canvas& canvas, float cx, float cy, float size, Colour petal);
