// The landscape painters: each turns one element of a theme into GDI+
// fills and lines on the graphics object it is given. Pens and brushes are
// made and deleted inside each call.
#pragma once

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include "app/geometry.h"
#include "render/scenery_layout.h"

// Paints the whole theme into rect, clipped to it; a theme value other than
// 0..3 paints the flower field. Called by RenderScenery, once per scenery
// buffer; the graphics state is left as it was found.
void DrawScenery(Gdiplus::Graphics& graphics, const Rect& rect, uint32_t theme);

// The element painters, in the order the themes use them.
void DrawSkyOrGround(Gdiplus::Graphics& graphics, const Rect& rect, ColourRef top, ColourRef bottom);
void DrawSun(Gdiplus::Graphics& graphics, float cx, float cy, float radius, ColourRef colour);
void DrawCloud(Gdiplus::Graphics& graphics, float cx, float cy, float width, float height);
void DrawMountain(Gdiplus::Graphics& graphics, float peakX, float baseY, float baseWidth,
                  float height, ColourRef colour);
void DrawTree(Gdiplus::Graphics& graphics, float x, float groundY, float scale);
void DrawFlower(Gdiplus::Graphics& graphics, float cx, float cy, float size, ColourRef petal);
