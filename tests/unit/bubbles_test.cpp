// Bubbles and pop effects: the full list and the owed gold bubble, the
// monitors' share of ambient bubbles, motion and expiry, the hit test, and
// the caps of the effects.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "play/display_records.h"
#include "play/bubbles.h"
#include "play/play_field.h"
#include "play/pop_effects.h"
#include "play/random.h"
#include "tests/unit/fake_platform.h"

namespace {

const Bubble kStill{100, 500, 20, -0.0f, 0, 0, 0, 1, 2, 3, false, false};

TEST(SpawnBubble, AFullListDrawsNothingAndALostGoldBubbleIsOwed) {
    ResetWorld(17);
    g_playField.bubbles.assign(kMaxBubbles, kStill);
    g_playField.ambientAccumulator = 0.95f;
    g_playField.ambientCount = 19;  // the next one must be gold
    RandomInt(0, 1919);              // the caller's own draws: monitor, place
    RandomRange(0, 1920);
    const float next = RandomUnit();
    SeedRandom(17);
    EmitAmbientBubbles();
    EXPECT_EQ(g_playField.bubbles.size(), kMaxBubbles);
    EXPECT_EQ(g_playField.ambientCount, 20);
    EXPECT_EQ(RandomUnit(), next);
    ASSERT_TRUE(g_playField.nextBubbleGold);
    g_playField.bubbles.clear();
    SpawnBubble(0, 0, 1, false, true);  // whatever the source
    EXPECT_TRUE(g_playField.bubbles[0].gold && !g_playField.nextBubbleGold);
}

TEST(AmbientBubbles, AboutOneInTenIsGoldAndMonitorsShareByWidth) {
    ResetWorld(2024);
    g_displayWindows.push_back(g_displayWindows[0]);
    g_displayWindows[1].playRect = {1920, 0, 3200, 1024};
    g_virtualWidth = 3200;
    int onHome = 0, total = 0, gold = 0, atBottom = 0;
    float goldSway = 0;  // the widest: a gold bubble sways 0.55 of a plain one's 0.6 to 1.8
    std::set<std::array<uint8_t, 3>> tints;
    constexpr int kTicks = 240000;
    for (int tick = 0; tick < kTicks; ++tick) {
        EmitAmbientBubbles();
        for (const Bubble& b : g_playField.bubbles) {
            onHome += b.x < 1920;
            gold += b.gold;
            if (b.gold) goldSway = std::max(goldSway, b.sway);
            tints.insert({b.red, b.green, b.blue});
            // Its top starts at its own monitor's bottom edge.
            atBottom += std::abs(b.y - (b.gold ? b.radius / 0.88f : b.radius) - (b.x < 1920 ? 1080 : 1024)) < 0.01f;
        }
        total += static_cast<int>(g_playField.bubbles.size());
        g_playField.bubbles.clear();
    }
    EXPECT_NEAR(total, kTicks * 0.05 * 3200 / 1920, 1);
    EXPECT_NEAR(static_cast<double>(onHome) / total, 0.6, 0.015) << "3 : 2";
    EXPECT_NEAR(static_cast<double>(gold) / total, 0.05 + 0.95 * 0.1, 0.004) << "every 20th, then 1 in 10";
    EXPECT_EQ(tints, (std::set<std::array<uint8_t, 3>>{{180, 226, 255}, {255, 200, 224}, {210, 255, 220},
                                                        {255, 236, 180}, {220, 210, 255}, {200, 245, 245},
                                                        {255, 215, 70}}));
    EXPECT_EQ(atBottom, total);
    EXPECT_TRUE(goldSway > 0.95f && goldSway <= 0.99f) << goldSway;
}

TEST(StepMotion, RiseSwayFallAndExpire) {
    ResetWorld();
    Bubble high = kStill, gone = kStill;
    high.y = -10;  // -10 + 30 >= 0: stays
    gone.y = -31;
    g_playField.bubbles = {Bubble{100, 500, 20, -2, 1, 0.5f, 3}, high, gone};
    g_playField.particles = {PopParticle{10, 10, 1, -2, 0, 2, 3}};
    StepMotion();
    ASSERT_EQ(g_playField.bubbles.size(), 2u);
    EXPECT_TRUE(g_playField.bubbles[0].y == 498 && g_playField.bubbles[0].x == 100 + std::sin(1.5f) * 3);
    const PopParticle& p = g_playField.particles.at(0);
    EXPECT_TRUE(p.x == 11 && p.y == 8 && p.vx == 0.98f && p.vy == -2 + 0.12f) << "moved with the old speeds";
    StepMotion();
    EXPECT_TRUE(g_playField.particles.empty()) << "age 2 of 2";
}

TEST(StepMotion, RingsEaseOutToTheirFullSizeAsTheyDie) {
    ResetWorld();
    g_playField.rings = {PopRing{0, 0, 4, 40, 0, 18}};  // ages 1.4 a tick: 13 ticks
    const float expected[] = {4.8748f,  9.6769f,  14.3347f, 18.7789f, 22.9431f, 26.7652f,
                              30.1884f, 33.1615f, 35.6403f, 37.5877f, 38.9748f, 39.7809f};  // 40 sin(age / life x 90 degrees)
    for (float radius : expected) {
        StepMotion();
        ASSERT_EQ(g_playField.rings.size(), 1u);
        EXPECT_NEAR(g_playField.rings[0].radius, radius, 1e-3f);
    }
    StepMotion();
    EXPECT_TRUE(g_playField.rings.empty());
}

TEST(StepMotion, BlowingThinsTheOldestEffects) {
    ResetWorld();
    for (int i = 0; i < 60; ++i) g_playField.particles.push_back({static_cast<float>(i), 0, 0, 0, 0, 100, 2});
    for (int i = 0; i < 20; ++i) g_playField.rings.push_back({static_cast<float>(i), 0, 1, 10, 0, 100});
    StepMotion();
    EXPECT_EQ(g_playField.particles.size(), 60u) << "only while blowing";
    g_playField.blowing = true;
    StepMotion();
    ASSERT_TRUE(g_playField.particles.size() == 30u && g_playField.rings.size() == 8u);
    EXPECT_TRUE(g_playField.particles[0].x == 30 && g_playField.rings[0].x == 12) << "the newest stay";
}

TEST(BubbleHit, TheRimCountsAndGoldIsEasierToCatch) {
    const struct {
        bool gold;
        float distance;
        bool hit;
    } cases[] = {{true, 23.5f, true}, {true, 23.7f, false}, {false, 20, true}, {false, 20.1f, false}};
    for (const auto& c : cases) {
        Bubble bubble = kStill;
        bubble.gold = c.gold;
        EXPECT_EQ(BubbleHit(bubble, 100, 500 + c.distance), c.hit) << c.gold << " at " << c.distance;
    }
}

TEST(PopEffects, CapsAndEarlyStops) {
    const struct {
        const char* name;
        bool gold, soft;
        size_t rings, particles, ringsAfter, particlesLow, particlesHigh;
    } cases[] = {
        {"plain", false, false, 0, 0, 1, 8, 13},
        {"gold: flash and ring", true, false, 0, 0, 2, 20, 28},
        {"gold, 31 rings: the flash only", true, false, 31, 0, 32, 20, 28},
        {"gold near the particle cap", true, false, 0, 175, 2, 180, 180},
        {"both full: nothing", false, false, 32, 180, 32, 180, 180},
        {"soft", false, true, 0, 0, 1, 1, 2},
        {"soft, rings full", false, true, 32, 0, 32, 1, 2},
        {"soft, 90 particles: nothing", false, true, 0, 90, 0, 90, 90},
    };
    for (uint32_t seed = 1; seed <= 20; ++seed) {
        for (const auto& c : cases) {
            ResetWorld(seed);
            g_playField.rings.resize(c.rings);
            g_playField.particles.resize(c.particles);
            const float unmoved = RandomUnit();
            SeedRandom(seed);
            SpawnPopEffect(10, 20, 1, 2, 3, c.gold, c.soft);
            const size_t particles = g_playField.particles.size();
            EXPECT_EQ(g_playField.rings.size(), c.ringsAfter) << c.name;
            EXPECT_TRUE(particles >= c.particlesLow && particles <= c.particlesHigh) << c.name << ": " << particles;
            if (particles == c.particles && c.rings == c.ringsAfter) EXPECT_EQ(RandomUnit(), unmoved) << c.name;
        }
    }
}

}  // namespace
