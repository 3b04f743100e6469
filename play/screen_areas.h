// The fixed boxes of the home monitor that the repaint bookkeeping of the
// play field and the frame composition must agree on: what one invalidates
// is exactly what the other redraws. All in play-field coordinates, from the
// play field's homeRect and penguinBox and the DPI scale.
#pragma once

#include <cstdint>

#include "play/geometry.h"
#include "play/bubbles.h"

// A design length (pixels at 96 dpi) times the DPI scale, rounded to the
// nearest integer with halves away from zero.
int32_t ScaledRound(float designPixels);

// The score panel at the top right of the home monitor.
Rect ScorePanelArea();

// The instruction pill at the top left of the home monitor.
Rect InstructionPillArea();

// The praise anchor: the middle of the home monitor (integer division) and
// the integer part of 42 % of its height down. The praise is centred on it
// and its repaint box is built around it.
Point PraiseAnchor();

// The box the praise may cover around its anchor.
Rect PraiseArea();

// The hint balloon's box to the left of the penguin, kept on the home
// monitor.
Rect HintBalloonArea();

// Whether the hint balloon shows: until the child has once blown bubbles,
// never while the penguin is pressed or blowing, and only with a penguin
// box and a hint text. The repaint and the drawing both ask this.
bool HintBalloonShows();

// The penguin's box grown for its bobbing, with room above it for the
// celebration hops.
Rect PenguinPaintArea();

// A button's rectangle grown by its border and shadow.
Rect ButtonPaintArea(const Rect& button);

// Rounded down and up to whole pixels: the truncation toward zero, moved one
// step where it went the wrong way. The same as std::floor and std::ceil for
// every value an int32_t holds, at a fraction of their cost on processors
// without a rounding instruction.
inline int32_t FloorToPixel(float v) {
    const int32_t t = static_cast<int32_t>(v);
    return t - (static_cast<float>(t) > v ? 1 : 0);
}
inline int32_t CeilToPixel(float v) {
    const int32_t t = static_cast<int32_t>(v);
    return t + (static_cast<float>(t) < v ? 1 : 0);
}

// A square around a centre reaching size + pad each way, out to whole
// pixels; the two are added one after the other, as the drawers reach.
inline Rect BoxAround(float x, float y, float size, float pad) {
    return {FloorToPixel(x - size - pad), FloorToPixel(y - size - pad), CeilToPixel(x + size + pad),
            CeilToPixel(y + size + pad)};
}

// The boxes of the moving things are inline: the frame tick asks for every
// bubble's and particle's twice, where it was and where it is.

// Everything drawn for a bubble, its gold glow included.
inline Rect BubbleBounds(const Bubble& bubble) {
    // The gold glow reaches further out than a plain bubble's rim.
    const float r = bubble.radius * (bubble.gold ? 1.45f : 1.12f);
    return BoxAround(bubble.x, bubble.y, r, 2);
}

// Everything drawn for a ring of a pop effect.
Rect RingBounds(const PopRing& ring);

// Everything drawn for a droplet or sparkle of a pop effect.
inline Rect ParticleBounds(const PopParticle& particle) {
    return BoxAround(particle.x, particle.y, particle.size, 2);
}
