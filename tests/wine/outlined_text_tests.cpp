// Outlined text, measuring and rounded panels drawn into off-screen bitmaps
// with the real rounded faces; each outlined sample is also saved as a PNG.
#include <algorithm>

#include "assets/fonts_win.h"
#include "tests/wine/gdiplus_test_support_win.h"
#include "text/outlined_text_win.h"

namespace {

using OutlinedText = FontTest;

// Where text drawn at (320, 150) on a transparent 640 x 300 canvas left ink,
// and how much of that is the white rim.
struct Ink {
    int left = 640, right = -1, top = 300, bottom = -1, pixels = 0, rim = 0;
};

Ink DrawAndScan(const wchar_t* text, const Gdiplus::FontFamily* family, int32_t baseEm,
                uint32_t colour, const wchar_t* png = nullptr) {
    Canvas canvas(640, 300);
    DrawOutlinedText(canvas.graphics, text, family, baseEm, 320.0f, 150.0f, colour, 1.0f);
    if (png) {
        EXPECT_TRUE(canvas.SaveAs(png));
    }
    Ink ink;
    const std::vector<uint32_t> pixels = canvas.Pixels();
    for (int i = 0; i < 640 * 300; ++i) {
        if (pixels[i] == 0) continue;
        ++ink.pixels;
        ink.rim += pixels[i] == (colour | 0x00FFFFFFu);
        ink.left = std::min(ink.left, i % 640), ink.right = std::max(ink.right, i % 640);
        ink.top = std::min(ink.top, i / 640), ink.bottom = std::max(ink.bottom, i / 640);
    }
    return ink;
}

TEST_F(OutlinedText, InkCentredOnThePointFilledOverAWhiteRimOfTheTextsAlpha) {
    const struct {
        const wchar_t *png, *text;
        const wchar_t* widestLine;  // of a text with line feeds
        bool praise;
        int32_t baseEm;
        uint32_t colour;
    } cases[] = {
        {L"praise-ja.png", L"すごい！", nullptr, true, 88, 0xFFFF783C},
        {L"praise-en.png", L"Great job!", nullptr, true, 88, 0xFFFFBE28},
        {L"bonus-half-alpha.png", L"+5", nullptr, true, 104, 0x80FFD232},
        {L"hint-ja.png", L"ぼくを ながく おすと\nしゃぼんだまが たくさん でるよ",
         L"しゃぼんだまが たくさん でるよ", false, 28, 0xFF2D5096},
        {L"hint-en.png", L"Hold me down\nto blow lots of bubbles!", L"to blow lots of bubbles!",
         false, 28, 0xFF2D5096},
        {L"label-ja.png", L"おわりにする", nullptr, false, 28, 0xFF3C3C48},
    };
    for (const auto& c : cases) {
        const Gdiplus::FontFamily* family = c.praise ? PraiseFamily() : LabelFamily();
        const Ink ink = DrawAndScan(c.text, family, c.baseEm, c.colour, c.png);
        // The rim is as wide on every side, so the ink's box has the centre.
        EXPECT_NEAR((ink.left + ink.right) / 2.0, 320.0, 1.5) << c.png;
        EXPECT_NEAR((ink.top + ink.bottom) / 2.0, 150.0, 1.5) << c.png;
        EXPECT_GT(ink.rim, ink.pixels / 10) << c.png;
        // The fill comes after the rim and covers its inner half; drawn the
        // other way round, the rim would eat thin strokes whole.
        EXPECT_GT(ink.pixels - ink.rim, ink.pixels / 4) << c.png;
        if (c.widestLine) {
            // Every line whole and centred: the block is as wide as its widest
            // line and more than two ems high.
            const Ink widest = DrawAndScan(c.widestLine, family, c.baseEm, c.colour);
            EXPECT_NEAR(ink.right - ink.left, widest.right - widest.left, 2) << c.png;
            EXPECT_GT(ink.bottom - ink.top, 2 * c.baseEm) << c.png;
        }
    }
}

TEST_F(OutlinedText, WithoutAUsableFamilyNothingIsDrawnOrMeasured) {
    const Gdiplus::FontFamily* unusable = ChooseFallbackFamily(false);  // none installed
    EXPECT_EQ(DrawAndScan(L"すごい！", unusable, 88, 0xFFFF783C).pixels, 0);
    EXPECT_EQ(DrawAndScan(L"すごい！", nullptr, 88, 0xFFFF783C).pixels, 0);
    EXPECT_EQ(DrawAndScan(nullptr, LabelFamily(), 88, 0xFFFF783C).pixels, 0);

    Canvas canvas(10, 10);
    Gdiplus::StringFormat format(0, 0);
    format.SetFormatFlags(Gdiplus::StringFormatFlagsNoWrap);
    const Gdiplus::RectF layout(0, 0, 4000, 400);
    auto measure = [&](const Gdiplus::FontFamily* family, const wchar_t* text) {
        const Gdiplus::Font font(family, 30.0f, Gdiplus::FontStyleRegular, Gdiplus::UnitPixel);
        return MeasureText(canvas.graphics, text, font, layout, format);
    };
    const TextSize none = measure(unusable, L"いま 3 こ");
    EXPECT_TRUE(none.width == 0.0f && none.height == 0.0f);
    const TextSize once = measure(LabelFamily(), L"おわりにする");
    const TextSize twice = measure(LabelFamily(), L"おわりにするおわりにする");
    EXPECT_GT(once.height, 30.0f);
    EXPECT_NEAR(twice.width - once.width, 6 * 30.0f, 6.0f);  // six full-width kana more
}

TEST_F(OutlinedText, RoundedRectanglesAreStraightOnlyBetweenTheirCorners) {
    // Height 40 and radius 20 at (10, 10): a pill 100 wide, a circle 40 wide.
    const struct { float width; int x, y; bool inside; } cases[] = {
        {100, 60, 30, true},  {100, 30, 11, true}, {100, 90, 11, true}, {100, 11, 30, true},
        {100, 12, 12, false}, {100, 108, 48, false}, {40, 30, 11, true}, {40, 40, 11, false},
        {40, 20, 11, false},  {40, 11, 30, true},
    };
    for (const auto& c : cases) {
        Canvas canvas(120, 60);
        FillRoundedRect(canvas.graphics, Gdiplus::RectF(10, 10, c.width, 40), 20.0f,
                        Gdiplus::SolidBrush(Gdiplus::Color(0xFF3366CC)));
        EXPECT_EQ(canvas.Pixels()[c.y * 120 + c.x] == 0xFF3366CC, c.inside)
            << c.width << " at " << c.x << "," << c.y;
    }
}

}  // namespace
