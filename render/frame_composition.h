// What a frame shows over its landscape, in the order it is drawn: the
// floating bubbles, the pop effects, on the home window the penguin and the
// labels, then the bubbles the penguin blew.
#pragma once

#include "play/display_records.h"
#include "render/canvas.h"

// Draws the window's layers for its dirty client rectangle, in play-field
// coordinates and clipped to that rectangle; the landscape must already be
// in place beneath it. The canvas state is left translated and clipped.
// Called by ComposeFrame after it has put the landscape back.
void DrawFrameLayers(Canvas& canvas, const DisplayWindow& window, const Rect& dirty);
