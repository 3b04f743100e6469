// The moving things of the play field: bubbles and the rings and droplets
// that a pop leaves. Plain records kept in creation order (oldest first).
#pragma once

#include <cstdint>

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
constexpr int kMaxBubbles = 160;
constexpr int kMaxRings = 32;
constexpr int kMaxParticles = 180;
