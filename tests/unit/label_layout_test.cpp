// The praise's fade and pop-in, and the hint balloon's rules, size and
// place, on a laid-out home monitor. (The buttons, pills and score panel
// are drawn and measured by the labels' Windows-side tests.)
#include <gtest/gtest.h>

#include <numbers>

#include "app/display_windows.h"
#include "play/play_field.h"
#include "settings/language.h"
#include "tests/unit/fake_platform.h"
#include "text/label_layout.h"

namespace {

void ExpectBox(const BoxF& box, BoxF expected) {
    EXPECT_NEAR(box.x, expected.x, 1e-3f);
    EXPECT_NEAR(box.y, expected.y, 1e-3f);
    EXPECT_NEAR(box.width, expected.width, 1e-3f);
    EXPECT_NEAR(box.height, expected.height, 1e-3f);
}

void LaidOut(float scale, Rect home = {0, 0, 1920, 1080}) {
    ResetWorld();
    g_dpiScale = scale;
    g_displayWindows[0].playRect = home;
    LayoutPlayField();
    SetLanguageTexts(Language::kJapanese);
}

TEST(LabelLayout, PraiseFadesPopsInAndSitsOnTheAnchor) {
    const float anchor = 453;  // the whole part of 0.42 x 1080
    const struct {
        float duration, left; bool big; const wchar_t* word; int32_t bonus;
        uint32_t alpha; float scale, bonusY, wordY;  // 0 scale: nothing shows
    } cases[] = {
        {100, 50, true, L"はやい！", 5, 255, 1.2f, anchor - 52, anchor + 34},
        {100, 15, true, L"はやい！", 0, 127, 1.2f, 0, anchor},  // half faded out
        {66, 66, false, L"すごい！", 0, 0, 0.7f, 0, anchor},    // its first moment
        {66, 60, false, L"すごい！", 0, 154, 0.7f + 0.3f * (1 - (60 / 66.0f - 0.8f) / 0.2f), 0, anchor},
        {66, 19, false, L"すごい！", 0, 244, 1.0f, 0, anchor},
        {78, 40, true, L"", 5, 255, 1.2f, anchor, 0},  // a bonus alone sits on the anchor
        {78, 0, true, L"はやい！", 5, 0, 0, 0, 0},
        {78, 40, true, L"", 0, 0, 0, 0, 0},
    };
    for (const auto& c : cases) {
        LaidOut(1.0f);
        PlayField& field = g_playField;
        field.praiseDuration = c.duration, field.praiseTimeLeft = c.left, field.praiseBig = c.big;
        field.praiseText = c.word, field.praiseBonus = c.bonus;
        const PraiseLook look = CurrentPraise();
        SCOPED_TRACE(testing::Message() << c.duration << " " << c.left);
        ASSERT_EQ(look.visible, c.scale > 0);
        if (!look.visible) continue;
        EXPECT_EQ(look.wordColour, c.alpha << 24 | (c.big ? 0xFFBE28u : 0xFF783Cu));
        EXPECT_EQ(look.bonusColour, c.alpha << 24 | 0xFFD232u);
        EXPECT_NEAR(look.scale, c.scale, 1e-5f);
        if (c.bonus) EXPECT_NEAR(look.bonusCentre.y, c.bonusY, 1e-3f);
        if (*c.word) EXPECT_NEAR(look.wordCentre.y, c.wordY, 1e-3f);
    }
    // A home monitor below another still has it 42 % down its own height,
    // on the repaint box's whole-pixel row: 504 of 1200, not 503.99997.
    LaidOut(1.0f, {0, 1080, 1920, 2280});
    g_playField.praiseText = L"すごい！", g_playField.praiseTimeLeft = 30, g_playField.praiseDuration = 66;
    EXPECT_EQ(CurrentPraise().wordCentre.y, 1080 + 504);
}

TEST(LabelLayout, ButtonAndPillBoxes) {
    LaidOut(1.0f);  // the finish button: symbol 42 wide from x + 16, label 230 from x + 58
    const ButtonLayout finish = LayOutButton({1592, 968, 1892, 1052}, 28, true);
    ExpectBox(finish.symbolBox, {1608, 968, 42, 84});
    ExpectBox(finish.labelBox, {1650, 968, 230, 84});
    const PillLayout plain = LayOutPill(10, 20, {100, 40}, false);
    ExpectBox(plain.body, {10, 20, 128, 54});
    ExpectBox(plain.textBox, {24, 20, 114, 54});
    g_dpiScale = 2;  // pad 28, dot radius 32, gap 16
    const PillLayout dotted = LayOutPill(10, 20, {100, 20}, true);
    ExpectBox(dotted.body, {10, 20, 236, 92});
    ExpectBox(dotted.dot, {38, 34, 64, 64});
    ExpectBox(dotted.textBox, {118, 20, 128, 92});
    EXPECT_FLOAT_EQ(dotted.radius, 46);
}

TEST(LabelLayout, HintBalloonShowsUntilTheFirstBlowingHold) {
    void (*const hides[])() = {
        [] { g_playField.pressStartTick = 5; }, [] { g_playField.blowing = true; },
        [] { g_playField.blownOnce = true; }, [] { g_playField.penguinBox.right = 0; },
        [] { HintText.clear(); },
    };
    LaidOut(1.0f);
    EXPECT_TRUE(HintBalloonShows());
    for (auto hide : hides) {
        LaidOut(1.0f), hide();
        EXPECT_FALSE(HintBalloonShows());
    }
}

TEST(LabelLayout, HintBalloonLeftOfThePenguinBreathingAndKeptOnTheMonitor) {
    const float peak = std::numbers::pi_v<float> / 6, trough = std::numbers::pi_v<float> / 2;
    const struct { float s, clock; Rect penguin; BoxF body; } cases[] = {
        // penguin box (1637, 714, 1847, 954); ink 300 x 70, rim allowance 2 x 3.92
        {1.0f, peak, {}, {1637 - 18 - 359.84f, 714 + 52.8f, 359.84f, 113.84f}},
        {1.0f, trough, {}, {1637 - 18 - 338.2496f, 714 + 52.8f, 338.2496f, 107.0096f}},
        {1.0f, peak, {100, 714, 310, 954}, {24, 714 + 52.8f, 359.84f, 113.84f}},  // over the penguin
        {1.0f, peak, {1637, 960, 1847, 1200}, {1637 - 18 - 359.84f, 1080 - 24 - 113.84f, 359.84f, 113.84f}},
        {1.0f, peak, {1637, -100, 1847, 140}, {1637 - 18 - 359.84f, 24, 359.84f, 113.84f}},
        {1.5f, peak, {}, {1496 - 27 - 389.76f, 531 + 79.2f, 389.76f, 135.76f}},
    };
    for (const auto& c : cases) {
        LaidOut(c.s);
        if (!IsEmpty(c.penguin)) g_playField.penguinBox = c.penguin;
        g_playField.animClock = c.clock;
        const HintBalloonLayout balloon = LayOutHintBalloon({300, 70});
        ExpectBox(balloon.body, c.body);
        const BoxF& b = c.body;
        EXPECT_NEAR(balloon.tailTip.x, g_playField.penguinBox.left + 6 * c.s, 1e-3f);
        EXPECT_NEAR(balloon.tailTip.y, b.y + 0.55f * b.height, 1e-3f);
        EXPECT_NEAR(balloon.tailTop.y, balloon.tailTip.y - 10 * c.s, 1e-3f);
        EXPECT_NEAR(balloon.tailBottom.x, b.x + b.width - 2 * c.s, 1e-3f);
        EXPECT_NEAR(balloon.shadow.y, b.y + 4 * c.s, 1e-3f);
        EXPECT_NEAR(balloon.textCentre.x, b.x + b.width / 2, 1e-3f);
        EXPECT_NEAR(balloon.textCentre.y, b.y + b.height / 2, 1e-3f);
    }
}

}  // namespace
