// Soap bubbles and the bursts they leave, painted with GDI+ in play-field
// coordinates on the frame's graphics.
#pragma once

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include "app/geometry.h"
#include "play/bubbles.h"

// Paints one bubble: a tinted, see-through disc with a glowing inside, two
// rims and two highlights; a gold bubble is denser and glows with a pulsing
// halo. Called by the frame composition for each bubble whose box meets the
// area being repainted.
void DrawBubble(Gdiplus::Graphics& graphics, const Bubble& bubble);

// Paints every ring and then every droplet of the pop effects whose box
// meets clip (the repainted area in play-field coordinates). Called by the
// frame composition on every window, between the two layers of bubbles.
void DrawPopEffects(Gdiplus::Graphics& graphics, const Rect& clip);
