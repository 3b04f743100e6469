// One pose picture of the penguin, scaled into its place with high-quality
// filtering and drawn at an opacity.
#pragma once

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include "render/penguin_motion.h"

// Draws the request's picture (or its stand-in) where PlacePoseImage puts
// it; nothing without pictures or at an opacity of 0.001 or less. The
// graphics object's quality modes and world transform are as they were
// afterwards. Called by the penguin's drawing.
void DrawPoseImage(Gdiplus::Graphics& graphics, const PoseDraw& request);
