// Rings, droplets and sparkles of a pop, drawn from the shared random source
// in a fixed order.
#include "play/pop_effects.h"

#include <cmath>

#include "play/display_records.h"
#include "play/bubbles.h"
#include "play/play_field.h"
#include "play/random.h"

namespace {

// Bright droplet colours of a full pop.
constexpr Tint kSparkPalette[6] = {
    {255, 120, 160}, {255, 205, 80}, {120, 200, 255}, {150, 225, 130}, {190, 150, 255}, {255, 160, 120},
};
constexpr Tint kWhite = {255, 255, 255};
constexpr float kTwoPi = 6.2831855f;

void AddRing(float x, float y, float radius, float maxRadius, float age, float life, Tint tint) {
    // A full pop draws maxRadius even for a ring that finds no room.
    if (g_playField.rings.size() >= kMaxRings) return;
    g_playField.rings.push_back({x, y, radius, maxRadius, age, life, tint.red, tint.green, tint.blue});
}

bool ParticlesFull() {
    return g_playField.particles.size() >= kMaxParticles;
}

// How one kind of particle flies off. Ranges are drawn; lengths are design
// pixels, scaled.
struct Spray {
    float speedLow, speedHigh;
    float liftLow, liftHigh;  // an upward push drawn from this range; 0, 0: none drawn
    float fixedLift;          // the push when none is drawn
    float lifeLow, lifeHigh;  // ticks
    float sizeLow, sizeHigh;
};

// One particle at a random angle. Draws angle, speed, lift (when drawn),
// life, size and, without a fixed tint, the colour, in this order.
void AddParticle(float x, float y, const Spray& spray, const Tint* fixedTint) {
    const float s = g_dpiScale;
    const float angle = RandomRange(0, kTwoPi);
    const float speed = RandomRange(spray.speedLow, spray.speedHigh) * s;
    PopParticle particle;
    particle.x = x;
    particle.y = y;
    particle.vx = std::cos(angle) * speed;
    particle.vy = std::sin(angle) * speed;
    const float lift = spray.liftHigh > 0 ? RandomRange(spray.liftLow, spray.liftHigh) : spray.fixedLift;
    particle.vy -= lift * s;  // the spray leans upwards
    particle.life = RandomRange(spray.lifeLow, spray.lifeHigh);
    particle.size = RandomRange(spray.sizeLow, spray.sizeHigh) * s;
    const Tint tint = fixedTint ? *fixedTint : kSparkPalette[RandomInt(0, 5)];
    particle.red = tint.red;
    particle.green = tint.green;
    particle.blue = tint.blue;
    g_playField.particles.push_back(particle);
}

// count particles, stopping early once the list is full.
void AddParticles(int32_t count, float x, float y, const Spray& spray, const Tint* fixedTint) {
    for (int32_t i = 0; i < count && !ParticlesFull(); ++i) AddParticle(x, y, spray, fixedTint);
}

void SoftPop(float x, float y, Tint tint) {
    const float s = g_dpiScale;
    if (g_playField.particles.size() >= 90) return;
    if (g_playField.rings.size() < kMaxRings) {
        AddRing(x, y, 3 * s, RandomRange(22, 32) * s, 0, 10, tint);
    }
    // A drop or two in the bubble's own tint, pushed up by half a pixel.
    AddParticles(RandomInt(1, 2), x, y, {1.5f, 3.5f, 0, 0, 0.5f, 8, 12, 2, 3.5f}, &tint);
}

void FullPop(float x, float y, Tint tint, bool gold) {
    const float s = g_dpiScale;
    if (g_playField.rings.size() >= kMaxRings && ParticlesFull()) return;
    if (gold) {
        AddRing(x, y, 6 * s, RandomRange(64, 88) * s, 0, 18, kWhite);  // the flash
        // The main ring starts three age units late, after the flash.
        AddRing(x, y, 4 * s, RandomRange(52, 74) * s, -3, 24, tint);
        AddParticles(RandomInt(16, 22), x, y, {4, 10, 0.8f, 2.5f, 0, 20, 34, 3.5f, 8}, nullptr);
        AddParticles(RandomInt(4, 6), x, y, {1.5f, 5, 0, 0, 0, 12, 22, 6, 11}, &kWhite);
    } else {
        AddRing(x, y, 4 * s, RandomRange(38, 52) * s, 0, 18, tint);
        AddParticles(RandomInt(7, 11), x, y, {2.5f, 6, 0.8f, 1.5f, 0, 14, 22, 2.5f, 5.5f}, nullptr);
        AddParticles(RandomInt(1, 2), x, y, {1.5f, 3, 0, 0, 0, 12, 16, 4, 7}, &kWhite);
    }
}

}  // namespace

void SpawnPopEffect(float x, float y, uint8_t red, uint8_t green, uint8_t blue, bool gold, bool soft) {
    const Tint tint{red, green, blue};
    if (soft) {
        SoftPop(x, y, tint);
    } else {
        FullPop(x, y, tint, gold);
    }
}
