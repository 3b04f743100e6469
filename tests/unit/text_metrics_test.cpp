// Em sizes, outline widths and label fitting at the DPI scales that matter.
#include <gtest/gtest.h>

#include "app/display_windows.h"
#include "text/text_metrics.h"

namespace {

struct TextMetrics : ::testing::Test {
    void TearDown() override { g_dpiScale = 1.0f; }
};

TEST_F(TextMetrics, EmRoundsTheScaledBaseBeforeTheCallersScale) {
    const struct { float s; int32_t baseEm; float scale, em; } cases[] = {
        {1.25f, 28, 1.0f, 35.0f},  {1.5f, 88, 1.2f, 158.4f},  // 132 x 1.2, not round(158.4)
        {1.25f, 30, 1.0f, 38.0f},  // 37.5 rounds away from zero
        {1.5f, 27, 0.5f, 20.5f},   // 40.5 -> 41, then halved
    };
    for (const auto& c : cases) {
        g_dpiScale = c.s;
        EXPECT_FLOAT_EQ(OutlinedTextEm(c.baseEm, c.scale), c.em) << c.s << " " << c.baseEm;
    }
}

TEST_F(TextMetrics, OutlineIsFourteenPercentOfTheEmButAtLeastThreeScaledPixels) {
    const struct { float s, em, width; } cases[] = {
        {1.0f, 28.0f, 3.92f}, {1.0f, 20.0f, 3.0f}, {1.5f, 28.0f, 4.5f}, {1.5f, 158.4f, 22.176f}};
    for (const auto& c : cases) {
        g_dpiScale = c.s;
        EXPECT_FLOAT_EQ(OutlineWidth(c.em), c.width) << c.s << " " << c.em;
    }
}

TEST_F(TextMetrics, FitShrinksAnOverflowingLabelOnceWithAFloor) {
    const struct { float s, size, measured, available, fitted; } cases[] = {
        {1.0f, 30.0f, 400.0f, 200.0f, 24.0f},  // 14.25 would be below the floor
        {1.0f, 40.0f, 400.0f, 380.0f, 36.1f},  // in proportion, 5 % margin
        {2.0f, 60.0f, 400.0f, 200.0f, 48.0f},  // the floor scales too
        {1.0f, 30.0f, 200.0f, 200.0f, 30.0f},  // fits exactly
        {1.0f, 30.0f, 400.0f, 1.0f, 30.0f},    // no box to fit into
    };
    for (const auto& c : cases) {
        g_dpiScale = c.s;
        EXPECT_FLOAT_EQ(FitFontSize(c.size, c.measured, c.available), c.fitted)
            << c.size << " " << c.measured << " " << c.available;
    }
}

}  // namespace
