// Merging dirty rectangles and handing them to the windows.
#include "play/dirty_region.h"

#include <algorithm>

#include "play/display_records.h"
#include "play/platform.h"
#include "play/play_field.h"
#include "play/screen_areas.h"

namespace {

// The first stored rectangle from index `from` on that, grown by one pixel,
// overlaps r (they touch or overlap); the count when there is none. For
// whole numbers left - 1 < right is left <= right, which cannot overflow at
// the ends of the 32-bit plane. The hottest loop of the frame tick: r stays
// in registers.
int32_t FirstTouching(const DirtyRegion& region, int32_t from, const Rect& r) {
    const int32_t left = r.left, top = r.top, right = r.right, bottom = r.bottom;
    for (int32_t i = from; i < region.count; ++i) {
        const Rect& stored = region.rects[i];
        if (stored.left <= right && stored.right >= left && stored.top <= bottom && stored.bottom >= top) {
            return i;
        }
    }
    return region.count;
}

}  // namespace

void AddDirtyRect(DirtyRegion& region, const Rect& rect) {
    if (IsEmpty(rect)) return;
    Rect r = rect;
    for (int32_t i = 0; (i = FirstTouching(region, i, r)) < region.count;) {
        const Rect stored = region.rects[i];
        region.rects[i] = region.rects[--region.count];
        const Rect merged = Union(r, stored);
        // Stored rectangles never touch one another, and those before i did
        // not touch r. A merge that leaves r as it was keeps it that way: the
        // scan goes on at i. One that makes r the stored rectangle leaves
        // nothing that touches it. Any other merge grew r past both, and the
        // scan starts over, for it may now touch one already passed.
        if (merged == stored) {
            r = merged;
            break;
        }
        if (merged != r) i = 0;
        r = merged;
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
    if (HintBalloonShows()) AddDirtyRect(region, HintBalloonArea());
    if (field.praiseTimeLeft > 0) AddDirtyRect(region, PraiseArea());
}

void InvalidateDirty(const DirtyRegion& region) {
    for (const DisplayWindow& window : g_displayWindows) {
        if (!window.window) continue;
        for (int32_t i = 0; i < region.count; ++i) {
            const Rect part = Intersection(region.rects[i], window.playRect);
            if (IsEmpty(part)) continue;
            InvalidateClientRect(window.window, Offset(part, -window.playRect.left, -window.playRect.top));
        }
    }
}
