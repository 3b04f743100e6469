// The fixed boxes of the home monitor that the repaint bookkeeping of the
// play field and the frame composition must agree on: what one invalidates
// is exactly what the other redraws. All in play-field coordinates, from the
// play field's homeRect and penguinBox and the DPI scale.
#pragma once

#include <cstdint>

#include "app/geometry.h"
#include "play/bubbles.h"

// A design length (pixels at 96 dpi) times the DPI scale, rounded to the
// nearest integer with halves away from zero.
int32_t ScaledRound(float designPixels);

// The score panel at the top right of the home monitor.
Rect ScorePanelArea();

// The instruction pill at the top left of the home monitor.
Rect InstructionPillArea();

// The praise anchor: the middle of the home monitor, 42 % of its height
// down. The praise is centred on it.
Point PraiseAnchor();

// The box the praise may cover around its anchor.
Rect PraiseArea();

// The hint balloon's box to the left of the penguin, kept on the home
// monitor.
Rect HintBalloonArea();

// The penguin's box grown for its bobbing, with room above it for the
// celebration hops.
Rect PenguinPaintArea();

// A button's rectangle grown by its border and shadow.
Rect ButtonPaintArea(const Rect& button);

// Everything drawn for a bubble, its gold glow included.
Rect BubbleBounds(const Bubble& bubble);

// Everything drawn for a ring of a pop effect.
Rect RingBounds(const PopRing& ring);

// Everything drawn for a droplet or sparkle of a pop effect.
Rect ParticleBounds(const PopParticle& particle);
