// The look of bubbles and pop effects: colours, pens and their minima, the
// halo's pulse, the fading of rings and droplets, and the boxes they keep to.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "app/display_windows.h"
#include "play/screen_areas.h"
#include "render/bubble_look.h"
#include "tests/printers.h"

namespace {

constexpr float kHalfPi = std::numbers::pi_v<float> / 2;

Bubble MakeBubble(float x, float y, float radius, Tint tint, bool gold, float phase = 0) {
    return {x, y, radius, 0, phase, 0, 0, tint.red, tint.green, tint.blue, gold};
}

// An ellipse as its top-left corner, width (always a circle) and paint.
struct Expected {
    float x, y, size;
    uint32_t argb;
    float pen;
};

void ExpectLook(const BubbleLook& look, const std::vector<Expected>& expected) {
    ASSERT_EQ(look.count, static_cast<int32_t>(expected.size()));
    for (size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(::testing::Message() << "ellipse " << i);
        const EllipseLook& e = look.ellipses[i];
        EXPECT_NEAR(e.box.x, expected[i].x, 1e-4f);
        EXPECT_NEAR(e.box.y, expected[i].y, 1e-4f);
        EXPECT_NEAR(e.box.width, expected[i].size, 1e-4f);
        EXPECT_EQ(e.box.height, e.box.width);
        EXPECT_EQ(e.argb, expected[i].argb) << std::hex << e.argb;
        EXPECT_FLOAT_EQ(e.penWidth, expected[i].pen);
    }
}

TEST(BubbleLook, NormalAndGoldBubblesPaintTheirStepsInOrder) {
    // The smallest bubble at scale 1: both rims at their minimum widths.
    ExpectLook(BubbleLookFor(MakeBubble(100, 200, 18, {180, 226, 255}, false), 0),
               {{82, 182, 36, 0x5AB4E2FF, 0},                 // body in the tint
                {87.04f, 187.04f, 25.92f, 0x2DFFFFFF, 0},     // inner glow
                {82, 182, 36, 0x96FFFFFF, 1.5f},              // white rim, not 1.44
                {83.08f, 183.08f, 33.84f, 0x5AB4E2FF, 1.0f},  // tinted inner rim, not 0.9
                {92.44f, 191.36f, 7.92f, 0xD2FFFFFF, 0},      // highlight up left
                {101.8f, 202.88f, 3.96f, 0x78FFFFFF, 0}});    // dim one right of and below the centre
    // A big gold bubble at its strongest pulse: halo and gold rim come
    // between the glow and the white rim, and the pens grow with the radius.
    ExpectLook(BubbleLookFor(MakeBubble(0, 0, 50, {255, 215, 70}, true, kHalfPi), 0),
               {{-50, -50, 100, 0xA5FFD746, 0},
                {-36, -36, 72, 0x5FFFFFFF, 0},
                {-65, -65, 130, 0xB4FFDC28, 8},  // halo: 1.30 r, alpha 180
                {-50, -50, 100, 0xFFFFE646, 6},
                {-50, -50, 100, 0x96FFFFFF, 4},
                {-47, -47, 94, 0x5AFFD746, 2.5f},
                {-21, -24, 26, 0xD2FFFFFF, 0},
                {2.5f, -4, 11.7f, 0xC8FFFFB4, 0}});
    // A small gold bubble keeps its halo and gold rim visible.
    const BubbleLook small = BubbleLookFor(MakeBubble(0, 0, 10, {255, 215, 70}, true), 0);
    EXPECT_FLOAT_EQ(small.ellipses[2].penWidth, 3.0f);
    EXPECT_FLOAT_EQ(small.ellipses[3].penWidth, 2.5f);
}

TEST(BubbleLook, EverythingStaysInsideTheBubblesBox) {
    // The repaint bookkeeping erases exactly BubbleBounds: a stroke or
    // highlight outside it would leave a trail. Half a pen reaches outward,
    // and anti-aliasing touches one pixel more.
    for (bool gold : {false, true}) {
        for (float radius = 12; radius <= 60; radius += 3.7f) {
            for (float clock = 0; clock < 1.3f; clock += 0.1f) {
                const Bubble b = MakeBubble(500.3f, 300.6f, radius, {200, 245, 245}, gold, 0.4f);
                const Rect box = BubbleBounds(b);
                const BubbleLook look = BubbleLookFor(b, clock);
                for (int32_t i = 0; i < look.count; ++i) {
                    const EllipseLook& e = look.ellipses[i];
                    const float reach = e.penWidth / 2 + 1;
                    EXPECT_TRUE(e.box.x - reach >= box.left && e.box.y - reach >= box.top &&
                                e.box.x + e.box.width + reach <= box.right &&
                                e.box.y + e.box.height + reach <= box.bottom)
                        << "gold " << gold << " radius " << radius << " ellipse " << i;
                }
            }
        }
    }
}

TEST(PopEffectLook, RingsFadeAndThinUnclampedBeforeTheirStart) {
    const struct {
        float age, life, scale;
        uint32_t alpha;
        float pen;
    } cases[] = {
        {0, 18, 1, 190, 3},  {9, 18, 1, 95, 2},  // at f = 0.5 the 2-pixel minimum holds
        {9, 18, 2, 95, 3},   {-3, 24, 1, 213, 3.375f},  // the delayed gold ring: f = -0.125
        {-3, 24, 1.5f, 213, 5.0625f}, {23.9f, 24, 1, 0, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.age << "/" << c.life << " at " << c.scale);
        g_dpiScale = c.scale;
        EllipseLook look;
        ASSERT_TRUE(RingLook({300, 400, 30, 40, c.age, c.life, 10, 20, 30}, {0, 0, 1000, 1000}, look));
        EXPECT_EQ(look.argb, c.alpha << 24 | 0x0A141Eu);
        EXPECT_FLOAT_EQ(look.penWidth, c.pen);
        EXPECT_FLOAT_EQ(look.box.x, 270);
        EXPECT_FLOAT_EQ(look.box.width, 60);
    }
    g_dpiScale = 1;
}

TEST(PopEffectLook, OnlyWhatMeetsTheClipIsDrawn) {
    g_dpiScale = 1;
    // A ring of radius 30 at (300, 400) reaches 33 pixels out with its pen:
    // its box is (267, 367, 333, 433).
    const PopRing ring{300, 400, 30, 40, 2, 18, 1, 2, 3};
    const PopParticle drop{300, 400, 0, 0, 2, 18, 5, 1, 2, 3};  // box (293, 393, 307, 407)
    const struct {
        Rect clip;
        bool ring, drop;
    } cases[] = {
        {{0, 0, 267, 1000}, false, false}, {{0, 0, 268, 1000}, true, false},
        {{333, 0, 900, 900}, false, false}, {{0, 432, 900, 900}, true, false},
        {{306, 406, 307, 407}, true, true}, {{307, 0, 900, 900}, true, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(c.clip));
        EllipseLook look;
        EXPECT_EQ(RingLook(ring, c.clip, look), c.ring);
        EXPECT_EQ(ParticleLook(drop, c.clip, look), c.drop);
    }
    // A delayed ring whose radius is still below zero has not begun: nothing
    // is drawn even where its centre is repainted.
    EllipseLook look;
    EXPECT_FALSE(RingLook({300, 400, -6.5f, 63, -1.6f, 24, 1, 2, 3}, {0, 0, 1000, 1000}, look));
}

TEST(PopEffectLook, DropletsFadeAndShrinkToSeventyPercent) {
    const struct {
        float age, life;
        uint32_t alpha;
        float radius;
    } cases[] = {{0, 20, 230, 6}, {10, 20, 115, 5.1f}, {19.9f, 20, 1, 4.209f}};
    for (const auto& c : cases) {
        EllipseLook look;
        ASSERT_TRUE(ParticleLook({50, 60, 1, 1, c.age, c.life, 6, 255, 120, 160}, {0, 0, 100, 100}, look));
        EXPECT_EQ(look.argb, c.alpha << 24 | 0xFF78A0u) << c.age;
        EXPECT_NEAR(look.box.width, 2 * c.radius, 1e-4f) << c.age;
        EXPECT_NEAR(look.box.x + look.box.width / 2, 50, 1e-4f) << c.age;
        EXPECT_EQ(look.penWidth, 0);
    }
}

}  // namespace
