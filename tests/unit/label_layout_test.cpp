// The praise's fade and pop-in, when the hint balloon shows, on a laid-out
// home monitor, and how a label too wide for its button shrinks. (Where labels, pills and the balloon are drawn is
// the reference pictures' part.)
#include <gtest/gtest.h>

#include "play/display_records.h"
#include "play/play_field.h"
#include "play/screen_areas.h"
#include "settings/language.h"
#include "tests/unit/fake_platform.h"
#include "text/label_layout.h"
#include "text/text_metrics.h"

namespace {

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

TEST(LabelLayout, TheHintBalloonKeepsItsMarginOnASmallHomeMonitor) {
    LaidOut(1.0f, {0, 0, 400, 300});
    EXPECT_EQ(LayOutHintBalloon({300, 40}).body.x, 24) << "the left edge's margin wins over the penguin";
}

// A button label too wide for its box: 95 % of the room in proportion,
// once, never below 24 pixels at the scale; one that fits keeps its size.
TEST(LabelLayout, AnOverflowingLabelShrinksToFit) {
    g_dpiScale = 1.0f;
    EXPECT_FLOAT_EQ(FitFontSize(40, 400, 380), 36.1f);
    EXPECT_TRUE(FitFontSize(30, 400, 200) == 24 && FitFontSize(30, 200, 200) == 30);
    g_dpiScale = 2.0f;
    EXPECT_EQ(FitFontSize(60, 400, 200), 48) << "the floor scales too";
    g_dpiScale = 1.0f;
}

}  // namespace
