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

struct Expected {
    Kind kind;
    std::vector<float> numbers;
};

TEST(Scenery, EachThemePlacesItsElementsInPaintingOrder) {
    const std::vector<float> sky{0, 0, 1920, 1080};
    const struct {
        uint32_t theme;
        size_t flowers;
        std::vector<Expected> first;  // everything before the flowers
    } cases[] = {
        {0, 0, {{kSky, sky}, {kSun, {1536, 216, 100.8f}}, {kCloud, {460.8f, 194.4f, 374.4f, 158.4f}},
                {kCloud, {1056, 324, 288, 120.96f}}, {kSky, {0, 626, 1920, 1080}}, {kWaves, {5.76f, 70}}}},
        {1, 0, {{kSky, sky}, {kSun, {345.6f, 194.4f, 92.16f}}, {kCloud, {1190.4f, 172.8f, 345.6f, 144}},
                {kMountain, {614.4f, 777.6f, 1056, 669.6f}}, {kMountain, {1267.2f, 777.6f, 1190.4f, 799.2f}},
                {kSky, {0, 777, 1920, 1080}}, {kTree, {268.8f, 1015.2f, 1.296f}}, {kTree, {1651.2f, 1036.8f, 1.44f}}}},
        {2, 9, {{kSky, sky}, {kSun, {1574.4f, 183.6f, 89.28f}}, {kCloud, {422.4f, 172.8f, 345.6f, 144}},
                {kCloud, {998.4f, 259.2f, 273.6f, 115.2f}}, {kSky, {0, 712, 1920, 1080}},
                {kTree, {384, 928.8f, 1.656f}}, {kTree, {1497.6f, 972, 1.8f}}}},
        {3, 8, {{kSky, sky}, {kSun, {307.2f, 172.8f, 106.56f}}, {kCloud, {844.8f, 151.2f, 432, 172.8f}},
                {kCloud, {1420.8f, 280.8f, 316.8f, 132.48f}}, {kCloud, {384, 388.8f, 259.2f, 109.44f}},
                {kSky, {0, 864, 1920, 1080}}}},
        {4, 30, {{kSky, sky}, {kSun, {1536, 194.4f, 95.04f}}, {kCloud, {499.2f, 172.8f, 345.6f, 144}},
                 {kSky, {0, 561, 1920, 1080}}}},
        {7, 30, {{kSky, sky}, {kSun, {1536, 194.4f, 95.04f}}}},  // an unknown theme is the flower field
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "theme " << c.theme);
        const std::vector<SceneryElement> plan = SceneryPlan({0, 0, 1920, 1080}, c.theme);
        ASSERT_EQ(plan.size(), (c.theme == 7 ? 4 : c.first.size()) + c.flowers);
        for (size_t i = 0; i < c.first.size(); ++i) {
            SCOPED_TRACE(testing::Message() << "element " << i);
            ASSERT_EQ(plan[i].index(), size_t{c.first[i].kind});
            ExpectNumbers(Numbers(plan[i]), c.first[i].numbers);
        }
        for (size_t i = plan.size() - c.flowers; i < plan.size(); ++i) ASSERT_EQ(plan[i].index(), size_t{kFlower});
    }
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
