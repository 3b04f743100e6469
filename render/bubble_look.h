// How a soap bubble and the burst it leaves look, as numbers: every ellipse
// of a bubble with its colour and pen, the golden halo's pulse, and the
// fading rings and droplets of a pop. The drawers
// (bubble_drawing.cpp) only turn these into fills and outlines.
#pragma once

#include <array>
#include <cstdint>

#include "play/geometry.h"
#include "play/bubbles.h"
#include "render/scenery_layout.h"  // BoxF

// One ellipse, by its bounding box in play-field pixels: filled with a solid
// brush when penWidth is 0, else outlined with a solid pen of that width.
struct EllipseLook {
    BoxF box;
    uint32_t argb = 0;
    float penWidth = 0;
};

// A bubble's ellipses in drawing order: body, inner glow, (gold: halo, gold
// rim,) white rim, tinted inner rim, main and second highlight.
struct BubbleLook {
    std::array<EllipseLook, 8> ellipses{};
    int32_t count = 0;
};

// The gold halo's strength k, 0.1 (faintest, smallest) to 1.0: a pulse of
// the animation clock, offset by the bubble's own phase so that gold bubbles
// do not pulse in step.
float HaloStrength(float animClock, float phase);

// Everything DrawBubble paints for the bubble at this animation clock.
BubbleLook BubbleLookFor(const Bubble& bubble, float animClock);

// The outline of a ring, fading and thinning with its age.
// False, and nothing to draw, when the ring's box misses the clip or the
// ring has not started yet.
bool RingLook(const PopRing& ring, const Rect& clip, EllipseLook& look);

// A droplet or sparkle, fading and shrinking to 70 % with its age. False
// when its box misses the clip.
bool ParticleLook(const PopParticle& particle, const Rect& clip, EllipseLook& look);
