// The two off-screen buffers of every display window and the composition of
// a frame into them; each render backend keeps its own kind of buffers
// (window_buffers_win.h, window_buffers_linux.h).
#pragma once

#include "play/display_records.h"
#include "play/geometry.h"

// Opaque pale blue: the scenery's clear colour, seen only where the
// landscape draws nothing.
constexpr uint32_t kSceneryClearColour = 0xFFC8E4FA;

// Releases any buffers of the window and makes both anew at its size.
// Called right after the window is created and after a DPI change resized it.
void CreateWindowBuffers(DisplayWindow& window);

// Releases both buffers and forgets them; safe without buffers. Called
// before every display window is destroyed.
void ReleaseWindowBuffers(DisplayWindow& window);

// Draws the window's landscape into its scenery buffer, once per buffer.
void RenderScenery(DisplayWindow& window);

// Draws the dirty client rectangle of the scene into the frame buffer; each
// edition's painting then copies the same rectangle to the screen.
void ComposeFrame(DisplayWindow& window, const Rect& dirty);
