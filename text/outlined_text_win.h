// The GDI+ primitives every label is built from: rounded rectangles, text
// turned into a path with a soft white rim and centred by its ink, and
// measured lines. They draw on the graphics of the frame being composed,
// in play-field coordinates, and keep nothing between calls.
#pragma once

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include <cstdint>

#include "text/text_metrics.h"

// Fills a rounded rectangle; a radius of half the height gives a pill.
void FillRoundedRect(Gdiplus::Graphics& graphics, const Gdiplus::RectF& rect, float radius,
                     const Gdiplus::Brush& brush);

// Appends a closed rounded-rectangle figure to the path, for the caller to
// outline with a pen.
void AddRoundedRect(Gdiplus::GraphicsPath& path, const Gdiplus::RectF& rect, float radius);

// Adds the text to the path as GDI+ would with a zero-size layout box at the
// origin: each line centred by the format, lines a line spacing apart. The
// lines go in one by one because Wine's GDI+ cuts every line after the first
// short when they go in together.
void AddTextPath(Gdiplus::GraphicsPath& path, const wchar_t* text,
                 const Gdiplus::FontFamily* family, INT style, float em,
                 const Gdiplus::StringFormat& format);

// Draws the text (line feeds break lines, each centred) as a path in the
// family, its ink centred on (centreX, centreY), filled with the ARGB colour
// over a white rim of the colour's alpha. baseEm is in 96-dpi pixels; scale
// multiplies the rounded em. A missing text or family draws nothing, and an
// unusable family gives an empty path, so nothing either.
void DrawOutlinedText(Gdiplus::Graphics& graphics, const wchar_t* text,
                      const Gdiplus::FontFamily* family, int32_t baseEm, float centreX,
                      float centreY, uint32_t colour, float scale);

// The size of the box the whole text takes when drawn with this font, layout
// rectangle and format; zero when GDI+ cannot measure it.
TextSize MeasureText(Gdiplus::Graphics& graphics, const wchar_t* text, const Gdiplus::Font& font,
                     const Gdiplus::RectF& layout, const Gdiplus::StringFormat& format);
