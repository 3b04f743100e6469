// The moving things of the play field: bubbles and the rings and droplets
// that a pop leaves. Plain records kept in creation order (oldest first).
#pragma once

#include <cstddef>
#include <cstdint>

// A colour of the moving things, opaque.
struct Tint {
    uint8_t red, green, blue;
};

struct Bubble {
    float x = 0, y = 0;      // centre, play-field pixels
    float radius = 0;        // as drawn, pixels
    float vy = 0;            // pixels per tick, always negative (upwards)
    float phase = 0;         // sway phase, radians
    float phaseStep = 0;     // radians per tick
    float sway = 0;          // sideways speed amplitude, pixels per tick
    uint8_t red = 0, green = 0, blue = 0;
    bool gold = false;
    bool fromPenguin = false;  // blown by the penguin: drawn in front of it
};

struct PopRing {
    float x = 0, y = 0;
    float radius = 0;     // current
    float maxRadius = 0;  // final
    float age = 0;        // ticks; may start negative (a delayed ring)
    float life = 0;       // ticks; the ring dies when age >= life
    uint8_t red = 0, green = 0, blue = 0;
};

struct PopParticle {
    float x = 0, y = 0;
    float vx = 0, vy = 0;  // pixels per tick
    float age = 0;         // ticks
    float life = 0;        // ticks; the particle dies when age >= life
    float size = 0;        // radius, pixels
    uint8_t red = 0, green = 0, blue = 0;
};

// The caps that keep the scene bounded.
constexpr std::size_t kMaxBubbles = 160;
constexpr std::size_t kMaxRings = 32;
constexpr std::size_t kMaxParticles = 180;

// Creates one bubble whose top starts at about (x, y), rising at speedFactor
// times its own speed; gold when forced or when a gold bubble is owed, else
// one time in ten. Returns false, drawing nothing from the random source,
// only when the list is full. Called by the ambient emission and by the
// penguin's blowing.
bool SpawnBubble(float x, float y, float speedFactor, bool forceGold, bool fromPenguin);

// The ambient emission of one frame tick: bubbles rise from the bottom edge
// of the monitors, each monitor chosen in proportion to its width, every
// 20th of them gold. Called by AdvanceFrame.
void EmitAmbientBubbles();

// Moves every bubble, ring and particle by one frame tick and drops what has
// left the play field or run its life; while the penguin blows, thins the
// pop effects. Called by AdvanceFrame after the emission.
void StepMotion();

// Whether a play-field point touches the bubble; a gold bubble is a little
// easier to catch than it looks. The rim counts.
bool BubbleHit(const Bubble& bubble, float x, float y);
