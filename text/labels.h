// The labels of the home monitor: the two buttons, the score panel, the
// instruction pill, the praise word and the hint balloon. Each is one
// drawing that reads the play-field state and keeps nothing; the frame
// composition calls them on the home window, in play-field coordinates.
#pragma once

#include <cstdint>

#include "play/geometry.h"
#include "render/canvas.h"
#include "render/colour.h"

// One button in its rectangle, in opaque colours; symbol and label may be
// null for none; symbolSize in 96-dpi pixels.
void DrawButton(Canvas& canvas, const Rect& rect, Colour bodyColour, Colour borderColour,
                const wchar_t* symbol, const wchar_t* label, int32_t symbolSize);

// A pill with its top-left corner at (left, top): prefix and text in one
// line, ARGB text and border colours, and a bubble dot when asked.
void DrawPill(Canvas& canvas, float left, float top, const wchar_t* prefix, const wchar_t* text,
              uint32_t textColour, uint32_t borderColour, bool bubbleDot);

// The best and current score at the top right of the home monitor.
void DrawScorePanel(Canvas& canvas);

// The praise word and its bonus points around the praise anchor.
void DrawPraise(Canvas& canvas);

// The balloon beside the penguin telling the child to hold it down.
void DrawHintBalloon(Canvas& canvas);
