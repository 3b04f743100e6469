// The five landscapes on a 1920 x 1080 window (k = 1.44), against the
// positions and sizes the themes are designed with, worked out by hand.
// (How the elements look is the reference pictures' part.)
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "render/scenery_layout.h"
#include "tests/printers.h"

namespace {

enum Kind { kSky, kSun, kCloud, kWaves, kMountain, kTree, kFlower };  // SceneryElement's order

// An element's place and size as plain numbers; a band's top is its rectangle's.
std::vector<float> Numbers(const SceneryElement& element) {
    switch (element.index()) {
        case kSky: {
            const Rect& r = std::get<SkyOrGround>(element).rect;
            return {float(r.left), float(r.top), float(r.right), float(r.bottom)};
        }
        case kSun: return {std::get<Sun>(element).cx, std::get<Sun>(element).cy, std::get<Sun>(element).radius};
        case kCloud: {
            const Cloud& c = std::get<Cloud>(element);
            return {c.cx, c.cy, c.width, c.height};
        }
        case kWaves: return {std::get<WaveCrests>(element).penWidth, float(std::get<WaveCrests>(element).arcs.size())};
        case kMountain: {
            const Mountain& m = std::get<Mountain>(element);
            return {m.peakX, m.baseY, m.baseWidth, m.height};
        }
        case kTree: return {std::get<Tree>(element).x, std::get<Tree>(element).groundY, std::get<Tree>(element).scale};
        default: return {std::get<Flower>(element).cx, std::get<Flower>(element).cy, std::get<Flower>(element).size};
    }
}

void ExpectNumbers(const std::vector<float>& got, const std::vector<float>& want) {
    ASSERT_EQ(got.size(), want.size());
    for (size_t i = 0; i < want.size(); ++i) EXPECT_NEAR(got[i], want[i], 2e-3f) << "number " << i;
}

TEST(Scenery, WavesAndFlowersFollowTheirRows) {
    // Seaside: seven rows from 0.06 H below the sea's top, 0.11 H apart;
    // crests 70 k x 26 k from x = 96, every 120 k, while short of 1824.
    const std::vector<SceneryElement> seaside = SceneryPlan({0, 0, 1920, 1080}, 0);
    const std::vector<BoxF>& crests = std::get<WaveCrests>(seaside.back()).arcs;
    ExpectNumbers({crests[0].x, crests[0].y, crests[0].width, crests[0].height}, {96, 691.2f, 100.8f, 37.44f});
    ExpectNumbers({crests[9].x, crests[10].x, crests[10].y, crests[69].y}, {1651.2f, 96, 810, 1404});

    // Garden: alternately 0.86 H and 0.96 H, 30 k.
    const std::vector<SceneryElement> garden = SceneryPlan({0, 0, 1920, 1080}, 3);
    for (size_t i = 0; i < 8; ++i) {
        const Flower& f = std::get<Flower>(garden[6 + i]);
        EXPECT_TRUE(f.cy == (i % 2 ? 1036.8f : 928.8f) && std::abs(f.size - 43.2f) < 1e-3f) << i;
        EXPECT_TRUE(f.cx >= 115.2f && f.cx <= 1804.8f) << i;
    }
    // Park: scattered between 0.16 H and 0.86 H below the meadow's top.
    const std::vector<SceneryElement> park = SceneryPlan({0, 0, 1920, 1080}, 2);
    for (size_t i = 7; i < 16; ++i) {
        const Flower& f = std::get<Flower>(park[i]);
        EXPECT_TRUE(f.cy >= 885.6f && f.cy <= 1641.6f && f.cx >= 153.6f && f.cx <= 1766.4f) << i;
        EXPECT_NEAR(f.size, 48.96f, 1e-3f) << i;
    }
    // Flower field: rows of 6, 7, 8 and 9 growing flowers, odd rows 20 k right.
    const std::vector<SceneryElement> field = SceneryPlan({0, 0, 1920, 1080}, 4);
    ExpectNumbers(Numbers(field[4]), {160, 712.8f, 40.32f});
    ExpectNumbers(Numbers(field[9]), {1760, 712.8f, 40.32f});
    ExpectNumbers(Numbers(field[10]), {1920 / 14.0f + 28.8f, 928.8f, 51.84f});
    ExpectNumbers(Numbers(field[33]), {1920 * 8.5f / 9 + 28.8f, 1360.8f, 74.88f});

    // A portrait window: k follows the width, positions the height.
    ExpectNumbers(Numbers(SceneryPlan({0, 0, 750, 1500}, 0)[1]), {600, 300, 70});
}

}  // namespace
