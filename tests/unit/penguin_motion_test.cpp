// The penguin's bob, hops and cross-fade as planned for each paint, and the
// mouth point the drawing keeps in step.
#include <gtest/gtest.h>

#include <numbers>
#include <vector>

#include "play/display_records.h"
#include "play/play_field.h"
#include "render/penguin_motion.h"
#include "play/pose_placement.h"
#include "tests/unit/fake_platform.h"

namespace {

TEST(PenguinMotion, FadesOnlyIntoTheCelebrationsOwnPicture) {
    for (const bool loaded : {false, true}) {
        ResetWorld();
        if (loaded) g_fake.poseSizes[PosePictureKind::Celebrate] = {300, 400};
        g_playField.celebrateTimeLeft = 64;  // the fade is over
        EXPECT_EQ(PlanPenguin(true).draws[0].pose, loaded ? kPoseCelebrating : kPoseStanding) << loaded;
        EXPECT_EQ(PlanPenguin(false).draws[0].pose, kPoseStanding) << "happy.png hops without a fade";
    }
}

TEST(PenguinMotion, NineHopsAlternatelyHighAndLowWithASquash) {
    // A box 240 tall standing on 954; a hop lasts 0.85 of celebratePhase.
    const struct {
        float hops;  // celebratePhase / 0.85
        float bottom, height;
    } cases[] = {
        {0, 954, 216},                       // take-off: 90 % tall
        {2.25f, 954 - 0.285f * 240, 238.5f},  // a quarter into the third hop
        {3.5f, 954 - 0.2356f * 240, 240},     // the top of the fourth, a low one
        {4.5f, 954 - 0.38f * 240, 240},       // the top of the fifth
        {8.5f, 954 - 0.38f * 240, 240},       // the ninth and last
        {9.5f, 954, 240},                     // no tenth
        {12, 954, 240},
    };
    for (const auto& c : cases) {
        const HopPose hop = HopAt(c.hops * 0.85f, 954, 240);
        EXPECT_NEAR(hop.bottom, c.bottom, 2e-3f) << c.hops;
        EXPECT_NEAR(hop.height, c.height, 2e-3f) << c.hops;
    }
}

TEST(PenguinMotion, BobsAndWobbles) {
    // Half-way up the breath and the wobble: sin = 0.5.
    const float halfBob = std::numbers::pi_v<float> / 12, halfWobble = std::numbers::pi_v<float> / 18;
    const struct {
        float scale;
        bool blowing;
        Rect box;
        bool blowLoaded;  // 300 x 600: drawn 120 wide
        float centreX, offsetY;
    } cases[] = {
        {1, false, {1637, 714, 1847, 954}, false, 1742, 1.5f},  // no pictures: a square
        {2, true, {1637, 714, 1847, 954}, true, 1742, 3 + 4},
        {1, false, {0, 0, 315, 240}, true, 157, 1.5f},  // a whole-pixel centre
    };
    for (const auto& c : cases) {
        ResetWorld();
        if (c.blowLoaded) g_fake.poseSizes[PosePictureKind::Blow] = {300, 600};
        g_dpiScale = c.scale;
        g_playField.penguinBox = c.box;
        g_playField.blowing = c.blowing;
        g_playField.animClock = halfBob;
        g_playField.blowPhase = halfWobble;
        const PenguinDraws plan = PlanPenguin(true);
        ASSERT_EQ(plan.count, 1);
        const PoseDraw& d = plan.draws[0];
        EXPECT_TRUE(d.centreX == c.centreX && d.bottom == c.box.bottom && d.height == 240) << c.scale;
        EXPECT_EQ(d.pose, c.blowing ? kPoseBlowing : kPoseStanding);
        EXPECT_NEAR(d.offsetY, c.offsetY, 1e-4) << c.scale;
    }
}

}  // namespace
