// Soap bubbles and the bursts they leave, painted in play-field coordinates
// on the frame's canvas.
#pragma once

#include "play/geometry.h"
#include "play/bubbles.h"
#include "render/canvas.h"

// Paints one bubble: a tinted, see-through disc with a glowing inside, two
// rims and two highlights; a gold bubble is denser and glows with a pulsing
// halo. Called by the frame composition for each bubble whose box meets the
// area being repainted.
void DrawBubble(Canvas& canvas, const Bubble& bubble);

// Paints every ring and then every droplet of the pop effects whose box
// meets clip (the repainted area in play-field coordinates). Called by the
// frame composition on every window, between the two layers of bubbles.
void DrawPopEffects(Canvas& canvas, const Rect& clip);
