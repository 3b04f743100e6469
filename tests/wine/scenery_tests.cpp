// The landscapes as GDI+ paints them under Wine into off-screen bitmaps,
// with pixel probes of sky, band and sun.
#include <cstdio>
#include <cstdlib>

#include "render/frame_buffers.h"  // the scenery's clear colour
#include "render/scenery_win.h"
#include "tests/wine/gdiplus_test_support_win.h"

namespace {

using Scenery = GdiplusTest;

// Paints the theme into an off-screen bitmap over the scenery's clear
// colour, as a window's scenery buffer gets it; the pixels come back as
// 0xRRGGBB, row by row.
std::vector<uint32_t> Paint(int width, int height, uint32_t theme, Rect rect = {}) {
    Canvas canvas(width, height);
    canvas.graphics.Clear(Gdiplus::Color(kSceneryClearColour));
    DrawScenery(canvas.graphics, IsEmpty(rect) ? Rect{0, 0, width, height} : rect, theme);
    std::vector<uint32_t> pixels = canvas.Pixels();
    for (uint32_t& p : pixels) p &= 0xFFFFFF;
    return pixels;
}

// The colour a vertical gradient over the rows [top, bottom) gives row y:
// the gradient runs from one pixel above the fill to one below it.
uint32_t GradientAt(uint32_t topArgb, uint32_t bottomArgb, int top, int bottom, int y) {
    const double t = (y + 0.5 - (top - 1)) / (bottom - top + 2);
    uint32_t rgb = 0;
    for (int shift : {16, 8, 0}) {
        const double a = topArgb >> shift & 0xFF, b = bottomArgb >> shift & 0xFF;
        rgb |= static_cast<uint32_t>(a + (b - a) * t + 0.5) << shift;
    }
    return rgb;
}

::testing::AssertionResult Near(uint32_t actual, uint32_t expected, const char* where) {
    for (int shift : {16, 8, 0}) {
        if (std::abs(static_cast<int>(actual >> shift & 0xFF) - static_cast<int>(expected >> shift & 0xFF)) > 3) {
            char text[64];
            std::snprintf(text, sizeof text, "%s: %06X, expected %06X", where, actual, expected);
            return ::testing::AssertionFailure() << text;
        }
    }
    return ::testing::AssertionSuccess();
}

TEST_F(Scenery, SeasideOnVeryLargeMonitorsShowsItsFourRowsOfCrests) {
    // Wine's GDI+ once died painting the seaside at these sizes.
    for (const auto& [w, h] : {std::pair{3840, 2160}, std::pair{5120, 1440}}) {
        SCOPED_TRACE(::testing::Message() << w << "x" << h);
        const std::vector<uint32_t> pixels = Paint(w, h, 0);
        // Each row's crest colour shows somewhere in the row's first crest.
        const float k = std::min(w, h) / 750.0f;
        for (int row = 0; row < 4; ++row) {
            const int top = static_cast<int>((0.58f + 0.06f + 0.11f * row) * h), left = static_cast<int>(0.05f * w);
            int crest = 0;
            for (int y = top - 4; y < std::min(h, top + static_cast<int>(10 * k)); ++y) {
                for (int x = left; x < left + static_cast<int>(70 * k); ++x) {
                    const uint32_t p = pixels[y * w + x];
                    crest += (p >> 8 & 0xFF) > 185;  // the sea's green stays below 168
                }
            }
            EXPECT_GT(crest, 20) << "row " << row;
        }
    }
}

TEST_F(Scenery, EachThemeShowsItsSkyBandAndSun) {
    const struct {
        uint32_t skyTop, skyBottom;
        float band;
        uint32_t bandTop, bandBottom;
        float sunX, sunY;
        uint32_t sun;
    } themes[] = {
        {0xFF96D6FF, 0xFFD6F4FF, 0.58f, 0xFF40A8E0, 0xFF2678BE, 0.8f, 0.2f, 0xFFE05C},
        {0xFFA8DCFF, 0xFFE2F6FF, 0.72f, 0xFF96D47A, 0xFF7ABE68, 0.18f, 0.18f, 0xFFE260},
        {0xFFB0E0FF, 0xFFE6F6FF, 0.66f, 0xFF9AD678, 0xFF78BC64, 0.82f, 0.17f, 0xFFE260},
        {0xFF96CEFA, 0xFFE0F4FF, 0.8f, 0xFF9ED87C, 0xFF7EC068, 0.16f, 0.16f, 0xFFDE58},
        {0xFFB4E2FF, 0xFFE8F8FF, 0.52f, 0xFFA2DC80, 0xFF78BE66, 0.8f, 0.18f, 0xFFE05C},
    };
    for (const auto& [w, h] : {std::pair{1920, 1080}, std::pair{1280, 1024}}) {
        for (uint32_t theme = 0; theme < kSceneryThemeCount; ++theme) {
            SCOPED_TRACE(::testing::Message() << "theme " << theme << " at " << w << "x" << h);
            const auto& t = themes[theme];
            const std::vector<uint32_t> pixels = Paint(w, h, theme);
            auto pixel = [&](float x, float y) { return pixels[static_cast<int>(y) * w + static_cast<int>(x)]; };
            // Down the left edge no theme puts anything on its sky or band.
            const int band = static_cast<int>(t.band * h);
            for (int y : {2, band - 3}) {
                EXPECT_TRUE(Near(pixel(20, y), GradientAt(t.skyTop, t.skyBottom, 0, h, y), "sky")) << y;
            }
            for (int y : {band + 1, h - 1}) {
                EXPECT_TRUE(Near(pixel(20, y), GradientAt(t.bandTop, t.bandBottom, band, h, y), "band")) << y;
            }
            EXPECT_EQ(pixel(t.sunX * w, t.sunY * h), t.sun);
        }
    }
}

TEST_F(Scenery, SameThemeAndSizeGiveIdenticalPixelsAndTheClipHolds) {
    for (uint32_t theme = 0; theme < kSceneryThemeCount; ++theme) {
        EXPECT_TRUE(Paint(1280, 1024, theme) == Paint(1280, 1024, theme)) << theme;
    }
    EXPECT_TRUE(Paint(640, 480, 7) == Paint(640, 480, 4));  // an unknown theme is the flower field

    // The mountains reach above their rectangle: the clip must hold them,
    // and inside it the picture is the same as at the origin.
    const std::vector<uint32_t> whole = Paint(640, 480, 1), inset = Paint(640, 680, 1, {0, 100, 640, 580});
    int outside = 0, differing = 0;
    for (int i = 0; i < 640 * 680; ++i) {
        if (i < 640 * 100 || i >= 640 * 580) outside += inset[i] != (kSceneryClearColour & 0xFFFFFF);
        else differing += inset[i] != whole[i - 640 * 100];
    }
    EXPECT_EQ(outside, 0);
    EXPECT_EQ(differing, 0);
}

}  // namespace
