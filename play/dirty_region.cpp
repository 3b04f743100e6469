// Merging dirty rectangles and handing them to the windows.
#include "play/dirty_region.h"

#include <algorithm>

#include "app/display_windows.h"
#include "play/platform.h"
#include "play/play_field.h"
#include "play/screen_areas.h"

namespace {

Rect Union(const Rect& a, const Rect& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

Rect Intersection(const Rect& a, const Rect& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

// The stored rectangle grown by one pixel overlaps r: they touch or overlap.
// Grown in 64 bits, so that a rectangle reaching the end of the 32-bit plane
// still merges instead of overflowing.
bool Touches(const Rect& stored, const Rect& r) {
    return int64_t{stored.left} - 1 < r.right && int64_t{stored.right} + 1 > r.left &&
           int64_t{stored.top} - 1 < r.bottom && int64_t{stored.bottom} + 1 > r.top;
}

// The hint balloon shows until a blowing hold has ended, and never while the
// penguin is pressed.
bool HintCanShow() {
    const PlayField& field = g_playField;
    return !field.blownOnce && field.pressStartTick == 0 && !field.blowing;
}

}  // namespace

void AddDirtyRect(DirtyRegion& region, const Rect& rect) {
    if (IsEmpty(rect)) return;
    Rect r = rect;
    for (int32_t i = 0; i < region.count;) {
        if (Touches(region.rects[i], r)) {
            r = Union(r, region.rects[i]);
            region.rects[i] = region.rects[--region.count];
            i = 0;  // the grown rectangle may now touch one already passed
        } else {
            ++i;
        }
    }
    if (region.count == kMaxDirtyRects) {
        for (int32_t i = 0; i < region.count; ++i) r = Union(r, region.rects[i]);
        region.rects[0] = r;
        region.count = 1;
        return;
    }
    region.rects[region.count++] = r;
}

void CollectDynamicDirty(DirtyRegion& region) {
    const PlayField& field = g_playField;
    for (const Bubble& bubble : field.bubbles) AddDirtyRect(region, BubbleBounds(bubble));
    for (const PopRing& ring : field.rings) AddDirtyRect(region, RingBounds(ring));
    for (const PopParticle& particle : field.particles) AddDirtyRect(region, ParticleBounds(particle));
    AddDirtyRect(region, PenguinPaintArea());
    if (HintCanShow()) AddDirtyRect(region, HintBalloonArea());
    if (field.praiseTimeLeft > 0) AddDirtyRect(region, PraiseArea());
}

void InvalidateDirty(const DirtyRegion& region) {
    for (const DisplayWindow& window : g_displayWindows) {
        if (!window.hwnd) continue;
        for (int32_t i = 0; i < region.count; ++i) {
            const Rect part = Intersection(region.rects[i], window.playRect);
            if (IsEmpty(part)) continue;
            InvalidateClientRect(window.hwnd, Offset(part, -window.playRect.left, -window.playRect.top));
        }
    }
}
