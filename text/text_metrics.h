// The numbers behind the outlined text and the labels' fonts: em sizes,
// outline width and the one-step fit of a label to its box. Every length is
// a 96-dpi length times the DPI scale g_dpiScale.
#pragma once

#include <cstdint>

// A measured line of text, in world units (play-field pixels).
struct TextSize {
    float width = 0.0f;
    float height = 0.0f;
};

// The em of outlined text: the base em scaled for the DPI and rounded half
// away from zero, then multiplied by the caller's scale (the praise's pop-in),
// which is applied after the rounding.
float OutlinedTextEm(int32_t baseEm, float scale);

// The white outline's pen width for text of that em: 14 % of the em, but
// never thinner than 3 pixels at 96 dpi.
float OutlineWidth(float em);

// The size of a label font: 30 pixels at 96 dpi, rounded half away from zero.
float LabelFontSize();

// The font size for a label whose text measured measuredWidth at size in a
// box availableWidth wide. One step only: a label that overflows is shrunk
// in proportion with a 5 % margin, never below 24 pixels at 96 dpi, and is
// not measured again. A box of 1 pixel or less leaves the size alone.
float FitFontSize(float size, float measuredWidth, float availableWidth);
