// The geometry and colours of bubbles and pop effects.
#include "render/bubble_look.h"

#include <algorithm>
#include <cmath>

#include "play/display_records.h"
#include "play/screen_areas.h"

namespace {

constexpr uint32_t Argb(uint32_t alpha, uint32_t red, uint32_t green, uint32_t blue) {
    return alpha << 24 | red << 16 | green << 8 | blue;
}

// The integer part of a fading alpha, wrapped to a byte: a delayed ring's
// negative age pushes it above its starting value, and nothing clamps it.
uint32_t AlphaByte(float alpha) {
    return static_cast<uint32_t>(static_cast<int32_t>(alpha)) & 0xFF;
}

BoxF Circle(float x, float y, float radius) {
    return {x - radius, y - radius, 2 * radius, 2 * radius};
}

}  // namespace

float HaloStrength(float animClock, float phase) {
    return 0.55f + 0.45f * std::sin(5 * animClock + phase);
}

BubbleLook BubbleLookFor(const Bubble& b, float animClock) {
    const float x = b.x, y = b.y, r = b.radius;
    const uint32_t red = b.red, green = b.green, blue = b.blue;
    BubbleLook look;
    auto add = [&look](BoxF box, uint32_t argb, float penWidth = 0) {
        look.ellipses[look.count++] = {box, argb, penWidth};
    };

    add(Circle(x, y, r), Argb(b.gold ? 0xA5 : 0x5A, red, green, blue));
    add(Circle(x, y, 0.72f * r), b.gold ? 0x5FFFFFFF : 0x2DFFFFFF);
    if (b.gold) {
        const float k = HaloStrength(animClock, b.phase);
        add(Circle(x, y, (1.18f + 0.12f * k) * r), Argb(AlphaByte(180 * k), 255, 220, 40),
            std::max(0.16f * r, 3.0f));
        add(Circle(x, y, r), 0xFFFFE646, std::max(0.12f * r, 2.5f));
    }
    add(Circle(x, y, r), 0x96FFFFFF, std::max(0.08f * r, 1.5f));
    add(Circle(x, y, 0.94f * r), Argb(0x5A, red, green, blue), std::max(0.05f * r, 1.0f));

    // The highlights are placed by their top-left corner, not their centre.
    const float h = (b.gold ? 0.26f : 0.22f) * r;
    add({x - 0.42f * r, y - 0.48f * r, 2 * h, 2 * h}, 0xD2FFFFFF);
    if (b.gold) {
        add({x + 0.05f * r, y - 0.08f * r, 0.9f * h, 0.9f * h}, 0xC8FFFFB4);
    } else {
        add({x + 0.1f * r, y + 0.16f * r, h, h}, 0x78FFFFFF);
    }
    return look;
}

bool RingLook(const PopRing& ring, const Rect& clip, EllipseLook& look) {
    // The main ring of a gold pop starts three steps after its flash: for
    // its first two steps its radius comes out below zero. It has not begun
    // then and is not drawn (nor does its box, turned inside out, reach the
    // repaint bookkeeping).
    if (ring.radius < 0) return false;
    if (!Meets(RingBounds(ring), clip)) return false;
    const float f = ring.age / ring.life;
    look.box = Circle(ring.x, ring.y, ring.radius);
    look.argb = Argb(AlphaByte((1 - f) * 190), ring.red, ring.green, ring.blue);
    look.penWidth = std::max((1 - f) * 3 * g_dpiScale, 2.0f);
    return true;
}

bool ParticleLook(const PopParticle& particle, const Rect& clip, EllipseLook& look) {
    if (!Meets(ParticleBounds(particle), clip)) return false;
    const float f = particle.age / particle.life;
    look.box = Circle(particle.x, particle.y, (1 - 0.3f * f) * particle.size);
    look.argb = Argb(AlphaByte((1 - f) * 230), particle.red, particle.green, particle.blue);
    look.penWidth = 0;
    return true;
}
