// Where the labels' pieces go, the praise's fade and pop-in, and the hint
// balloon's rules, size and place, on a laid-out 1920 x 1080 home monitor.
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

TEST(LabelLayout, ButtonsPillsAndScorePanel) {
    LaidOut(1.0f);  // finish button (1592, 968) 300 x 84
    ExpectBox(LayOutButton(g_playField.buttons[0].rect, 28, true).labelBox, {1650, 968, 230, 84});
    ExpectBox(LayOutButton(g_playField.buttons[1].rect, 34, false).symbolBox, {28, 968, 84, 84});
    const PillLayout dot = LayOutPill(10, 20, {50, 20}, true);  // the dot is taller than the text
    ExpectBox(dot.body, {10, 20, 118, 46});
    ExpectBox(dot.textBox, {64, 20, 64, 46});
    EXPECT_EQ(ScoreText(-7), L"-7 こ");
    EXPECT_EQ(ScoreText(1234567), L"1234567 こ");
    // Texts 45 high. Best 12 / score 3: the best pill (28 + 190) is the
    // wider; one digit more moves both left; a wider current pill leads.
    const struct { float s; Rect home; float bestWidth, currentWidth, x, currentY; } cases[] = {
        {1.0f, {0, 0, 1920, 1080}, 190, 120, 1920 - 26 - 218, 26 + 59 + 10},
        {1.0f, {0, 0, 1920, 1080}, 205, 120, 1920 - 26 - 233, 26 + 59 + 10},
        {1.0f, {0, 0, 1920, 1080}, 100, 130, 1920 - 26 - 198, 26 + 59 + 10},
        {1.5f, {1920, 200, 3200, 1224}, 285, 180, 3200 - 39 - 327, 200 + 39 + 45 + 21 + 15},
    };
    for (const auto& c : cases) {
        LaidOut(c.s, c.home);
        const ScorePanelLayout panel = LayOutScorePanel({c.bestWidth, 45}, {c.currentWidth, 45});
        EXPECT_TRUE(panel.best.x == c.x && panel.current.x == c.x) << panel.best.x;
        EXPECT_FLOAT_EQ(panel.best.y, static_cast<float>(c.home.top) + 26 * c.s);
        EXPECT_FLOAT_EQ(panel.current.y, c.currentY);
    }
}

TEST(LabelLayout, PraiseFadesPopsInAndSitsOnTheAnchor) {
    const float anchor = 0.42f * 1080;
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
    // A home monitor below another still has it 42 % down its own height.
    LaidOut(1.0f, {0, 1080, 1920, 2160});
    g_playField.praiseText = L"すごい！", g_playField.praiseTimeLeft = 30, g_playField.praiseDuration = 66;
    EXPECT_NEAR(CurrentPraise().wordCentre.y, 1080 + anchor, 1e-3f);
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
    }
}

}  // namespace
