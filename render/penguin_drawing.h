// The penguin on the home window: its pose pictures scaled into its box,
// bobbing at rest, wobbling while it blows, hopping when it celebrates.
#pragma once

#include "render/canvas.h"

// Draws the penguin for the current play-field state. Called by the frame
// composition for the home window only, in play-field coordinates.
void DrawPenguin(Canvas& canvas);
