// The penguin's animation as numbers: the breathing bob, the wobble while
// it blows, the nine hops of a celebration with their squash, and the
// cross-fade into the celebrating picture. The drawing only carries
// out the draws planned here.
#pragma once

#include <array>
#include <cstdint>

// One picture of the penguin to draw, in play-field pixels.
struct PoseDraw {
    float centreX = 0;  // x of the picture's vertical centre line
    float bottom = 0;   // y of the feet before offsetY
    float height = 0;   // wanted drawn height (at least 40 is used)
    float offsetY = 0;  // added to the picture's top; positive moves it down
    int32_t pose = 0;   // a Pose: standing, blowing or celebrating
    float opacity = 1;  // 0..1
};

// How far the penguin's picture sits below its place at rest: 3 s pixels of
// slow breathing (about 63 ticks a breath), plus 4 s pixels of quick wobble
// (about 15 ticks) while it blows. s is the DPI scale.
float BobOffset(float animClock, bool blowing, float blowPhase, float scale);

// One moment of the celebration hops: how high the feet are lifted and the
// height the penguin is drawn at, for a penguin `height` tall standing on
// `bottom`. Nine hops of 0.85 phase each, alternately 38 % and 23.56 % of
// the height high, squashed to 90 % at take-off and landing; after the
// ninth the penguin stands still at full height.
struct HopPose {
    float bottom = 0;
    float height = 0;
};
HopPose HopAt(float celebratePhase, float bottom, float height);

// The celebrating picture's opacity, eased in over the first 20 of the
// celebration's 84 ticks (smoothstep): 0 at its start, 1 from 64 ticks left.
float CrossFadeIn(float celebrateTimeLeft);

// The draws of one frame, back to front.
struct PenguinDraws {
    std::array<PoseDraw, 2> draws{};
    int32_t count = 0;
};

// Plans the penguin for the play field as it stands now, in its box, at the
// DPI scale. fadeIntoCelebrating: the celebrating picture is the one made
// for the celebration, so the penguin may cross-fade into it (it also needs
// to be loaded). Reads the play field only. Called by the penguin's drawing
// on every paint of the home window.
PenguinDraws PlanPenguin(bool fadeIntoCelebrating);
