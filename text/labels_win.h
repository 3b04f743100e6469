// The labels of the home monitor: the two buttons, the score panel, the
// instruction pill, the praise word and the hint balloon. Each is one
// drawing that reads the play-field state and keeps nothing; the frame
// composition calls them on the home window, in play-field coordinates.
#pragma once

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include <cstdint>

#include "app/geometry.h"

// One button in its rectangle. The colours are references (red in the low
// byte); symbol and label may be null for none; symbolSize in 96-dpi pixels.
void DrawButton(Gdiplus::Graphics& graphics, const Rect& rect, uint32_t bodyColour,
                uint32_t borderColour, const wchar_t* symbol, const wchar_t* label,
                int32_t symbolSize);

// A pill with its top-left corner at (left, top): prefix and text in one
// line, ARGB text and border colours, and a bubble dot when asked.
void DrawPill(Gdiplus::Graphics& graphics, float left, float top, const wchar_t* prefix,
              const wchar_t* text, uint32_t textColour, uint32_t borderColour, bool bubbleDot);

// The best and current score at the top right of the home monitor.
void DrawScorePanel(Gdiplus::Graphics& graphics);

// The praise word and its bonus points around the praise anchor.
void DrawPraise(Gdiplus::Graphics& graphics);

// The balloon beside the penguin telling the child to hold it down.
void DrawHintBalloon(Gdiplus::Graphics& graphics);
