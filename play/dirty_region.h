// The repaint bookkeeping of the play field: where moving things were and
// are, as merged rectangles in play-field coordinates, turned into
// invalidations of exactly the windows they fall on.
#pragma once

#include <array>
#include <cstdint>

#include "play/geometry.h"

constexpr int32_t kMaxDirtyRects = 776;

// Built on the stack for one message and dropped after InvalidateDirty.
// Stored rectangles are never empty.
struct DirtyRegion {
    std::array<Rect, kMaxDirtyRects> rects;
    int32_t count = 0;
};

// Adds a rectangle, merging it with every stored one that it overlaps or
// touches (merges cascade); a full array collapses into one rectangle
// around everything. Empty rectangles are ignored.
void AddDirtyRect(DirtyRegion& region, const Rect& rect);

// Adds the current boxes of everything that moves or comes and goes: the
// bubbles, rings, particles, the penguin, the hint balloon while it can
// show and the praise while it shows.
void CollectDynamicDirty(DirtyRegion& region);

// Invalidates the region's parts on every display window, in that window's
// client coordinates. Nothing is painted here.
void InvalidateDirty(const DirtyRegion& region);
