// The landscapes' numbers: scale unit, sun, bands, rows, flowers and the hash.
#include <gtest/gtest.h>

#include <cmath>

#include "render/scenery_layout.h"
#include "tests/printers.h"

namespace {

constexpr Rect kWide{0, 0, 1920, 1080};
constexpr Rect kSquarish{0, 0, 1280, 1024};

template <typename T>
std::vector<T> ElementsOf(const Rect& rect, uint32_t theme) {
    std::vector<T> found;
    for (const auto& element : SceneryPlan(rect, theme)) {
        if (const T* e = std::get_if<T>(&element)) found.push_back(*e);
    }
    return found;
}

TEST(Scenery, SunFollowsTheUnitAndTheWindow) {
    // On a portrait window k follows the width: the sun shrinks, its place
    // still follows the height.
    const struct { Rect rect; float k; } cases[] = {
        {kWide, 1.44f}, {{0, 0, 1080, 1920}, 1.44f}, {kSquarish, 1024 / 750.0f}, {{-1920, 300, -1170, 1050}, 1.0f},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(c.rect));
        EXPECT_FLOAT_EQ(SceneryUnit(c.rect), c.k);
        const Sun sun = ElementsOf<Sun>(c.rect, 0).at(0);
        EXPECT_FLOAT_EQ(sun.radius, 70 * c.k);
        EXPECT_FLOAT_EQ(sun.cx, c.rect.left + 0.8f * Width(c.rect));
        EXPECT_FLOAT_EQ(sun.cy, c.rect.top + 0.2f * Height(c.rect));
    }
    const SunShape shape = SunGeometry(1536, 216, 100.8f);
    EXPECT_FLOAT_EQ(shape.rayPenWidth, 14.112f);
    for (const LineF& ray : shape.rays) {
        EXPECT_NEAR(std::hypot(ray.from.x - 1536, ray.from.y - 216), 115.92f, 1e-3f);
        EXPECT_NEAR(std::hypot(ray.to.x - 1536, ray.to.y - 216), 146.16f, 1e-3f);
    }
    EXPECT_NEAR(shape.rays[3].from.x, 1536, 1e-3f);  // a quarter turn: straight down
    EXPECT_FLOAT_EQ(SunGeometry(0, 0, 5).rayPenWidth, 2.0f);  // a tiny sun keeps visible rays
}

TEST(Scenery, BandsStartAtTheirTruncatedHeight) {
    const float fractions[] = {0.58f, 0.72f, 0.66f, 0.8f, 0.52f};
    for (const Rect& rect : {kWide, kSquarish, Rect{0, 100, 1280, 1124}}) {
        for (uint32_t theme = 0; theme < kSceneryThemeCount; ++theme) {
            const auto fills = ElementsOf<SkyOrGround>(rect, theme);
            ASSERT_EQ(fills.size(), 2u);
            EXPECT_EQ(fills[0].rect, rect);
            const auto bandTop = static_cast<int32_t>(rect.top + fractions[theme] * Height(rect));
            EXPECT_EQ(fills[1].rect, (Rect{rect.left, bandTop, rect.right, rect.bottom})) << theme;
        }
    }
    EXPECT_EQ(ElementsOf<SkyOrGround>(kWide, 0)[0].top, 0x00FFD696u);  // red in the low byte
}

TEST(Scenery, RowsAndFlowerLines) {
    for (const Rect& rect : {kWide, kSquarish}) {
        SCOPED_TRACE(::testing::PrintToString(rect));
        const float k = SceneryUnit(rect), width = static_cast<float>(Width(rect));
        const float height = static_cast<float>(Height(rect));
        // The sea shows its first four wave rows of seven.
        const auto crests = ElementsOf<WaveCrests>(rect, 0).at(0);
        int rowsShown = 0;
        for (size_t i = 0; i < crests.arcs.size(); ++i) {
            EXPECT_LT(crests.arcs[i].x, 0.95f * width);
            rowsShown += crests.arcs[i].x == crests.arcs[0].x && crests.arcs[i].y < height;
        }
        EXPECT_EQ(rowsShown, 4);
        EXPECT_EQ(crests.arcs.size() % 7, 0u);
        EXPECT_FLOAT_EQ(crests.arcs[1].x - crests.arcs[0].x, 120 * k);
        // The flower field shows its first two rows, the second shifted.
        const auto field = ElementsOf<Flower>(rect, 4);
        int fieldShown = 0;
        for (const Flower& f : field) fieldShown += f.cy - 0.98f * f.size < height;
        EXPECT_EQ(fieldShown, 6 + 7);
        EXPECT_NEAR(field.at(6).cx, width / 14 + 20 * k, 1e-3f);
        // The garden's flowers alternate between two lines.
        const auto garden = ElementsOf<Flower>(rect, 3);
        ASSERT_EQ(garden.size(), 8u);
        for (size_t i = 0; i < garden.size(); ++i) {
            EXPECT_NEAR(garden[i].cy, (i % 2 ? 0.96f : 0.86f) * height, 1e-3f) << i;
            EXPECT_EQ(garden[i].petal, garden[i % 4].petal);
        }
    }
}

TEST(Scenery, HashedFlowersStayInTheirStrip) {
    // Values worked out by hand in float arithmetic.
    EXPECT_FLOAT_EQ(Hash01(1, 25.9796f), 0.537109375f);
    EXPECT_FLOAT_EQ(Hash01(2, 25.9796f), 0.4677734375f);
    EXPECT_FLOAT_EQ(Hash01(6, 38.9694f), 0.064453125f);
    for (int32_t n = -50; n < 500; ++n) {
        const float h = Hash01(n, 25.9796f);
        EXPECT_TRUE(h >= 0 && h < 1) << n;
    }
    const auto park = ElementsOf<Flower>(kWide, 2);
    ASSERT_EQ(park.size(), 9u);
    for (const Flower& f : park) {
        EXPECT_TRUE(f.cx >= 0.08f * 1920 && f.cx <= 0.92f * 1920) << f.cx;
        EXPECT_TRUE(f.cy >= 0.82f * 1080 && f.cy <= 1.52f * 1080) << f.cy;
    }
}

TEST(Scenery, MountainTipAboveTheWindowAndUnknownThemes) {
    const Mountain m = ElementsOf<Mountain>(kWide, 1).at(1);
    const MountainShape second = MountainGeometry(m.peakX, m.baseY, m.baseWidth, m.height);
    EXPECT_NEAR(second.body[0].y, -0.02f * 1080, 1e-3f);
    EXPECT_FLOAT_EQ(second.body[1].y, 0.72f * 1080);
    EXPECT_NEAR(second.snowCap[2].y - second.body[0].y, 0.168f * m.height, 1e-3f);

    for (uint32_t value : {4u, 5u, 7u, 0xFFFFFFFFu}) {
        EXPECT_EQ(SceneryThemeFromValue(value), SceneryTheme::FlowerField) << value;
    }
    EXPECT_EQ(SceneryThemeFromValue(3), SceneryTheme::Garden);
    EXPECT_EQ(SceneryPlan(kWide, 7).size(), SceneryPlan(kWide, 4).size());
}

}  // namespace
