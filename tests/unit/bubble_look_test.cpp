// What the bubble and pop-effect drawers reach: every ellipse of a bubble
// inside the box the repaint bookkeeping erases, and only effects that meet
// the repainted rectangle drawn. (Their colours and fading are the reference
// pictures' part.)
#include <gtest/gtest.h>

#include "app/display_windows.h"
#include "play/screen_areas.h"
#include "render/bubble_look.h"
#include "tests/printers.h"

namespace {

TEST(BubbleLook, EverythingStaysInsideTheBubblesBox) {
    // The repaint bookkeeping erases exactly BubbleBounds: a stroke or
    // highlight outside it would leave a trail. Half a pen reaches outward,
    // and anti-aliasing touches one pixel more.
    for (bool gold : {false, true}) {
        for (float radius = 12; radius <= 60; radius += 3.7f) {
            for (float clock = 0; clock < 1.3f; clock += 0.1f) {
                const Bubble b{500.3f, 300.6f, radius, 0, 0.4f, 0, 0, 200, 245, 245, gold};
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

}  // namespace
